#pragma once

#include "plugin/output/ProfilePlan.h"

#include <vector>

namespace plugin {

/// Limited bars: what one plan of a run takes of them is not there for the next.
class BarsInHand {
  public:
    explicit BarsInHand(const job::Job& job) : m_stocks(job.stocks), m_remnants(job.remnants) {}

    /// What a plan takes may be missing for the next.
    bool AreLimited() const;
    /// Sets the quantities to what is there.
    void Limit(std::vector<BarStock>& stocks) const;
    /// The bars of a plan; its off-cuts worth keeping are remnants then, named by `run`.
    void Take(const ProfilePlan& plan, const ZetString& run);

    /// What is left of the job's remnants, then the off-cuts.
    std::vector<job::Remnant> GetRemnants() const;

  private:
    std::vector<job::Stock> m_stocks;
    std::vector<job::Remnant> m_remnants;
    std::vector<job::Remnant> m_offCuts;
};

}  // namespace plugin

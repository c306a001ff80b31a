#pragma once

#include "plugin/output/JobRun.h"
#include "plugin/output/ProfilePlan.h"
#include "threads/OrderedWork.h"

#include <cstddef>
#include <vector>

namespace plugin {

/// Makes the plans of a run whose members are settled and in order. Further threads begin at once;
/// they only read members.
class JobRun::Planning {
  public:
    using Taker = threads::OrderedWork::Taker;

    /// `taker` is the thread that calls Finish.
    Planning(const JobRun& run, Taker taker);

    /// Gives the plans to the run.
    void Finish(JobRun& run);

  private:
    using Profiles = std::vector<std::vector<std::size_t>>;

    static Profiles ProfilesOf(const JobRun& run);

    const Profiles m_profiles;  ///< positions of members, as they are written
    threads::ResultsInOrder<ProfilePlan> m_plans;
};

}  // namespace plugin

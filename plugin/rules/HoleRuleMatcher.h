#pragma once

#include "job/Job.h"

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CHoleCode.h"
#include "camdata/holes/CHoleOutPutCode.h"
#include "camdata/holes/CHoleRule.h"
#include "camdata/platform/text/ZetString.h"

#include <vector>

namespace plugin {

/// The hole rules of a job as the library has them, and which of them a hole falls under. The job's
/// rules must outlive it.
class HoleRuleMatcher {
  public:
    struct Entry {
        const job::HoleRule* job;
        CHoleRule rule;
        CHoleOutPutCode code;  ///< of each hole under the rule
        bool isFilled;         ///< its text has fields, filled for each hole
    };

    /// What became of the search for a hole's rule.
    struct Match {
        const Entry* entry = nullptr;  ///< null: no code for the hole
        bool isExcluded = false;       ///< a rule fits, but excludes the member and names no other
    };

    explicit HoleRuleMatcher(const std::vector<job::HoleRule>& rules);

    /// The first rule that fits the hole. One that excludes the member hands on to the rule that it
    /// names, which must fit too. Sets the current tolerance to m_tol_y.
    Match Find(const CHoleAddlInfo& hole, const ZetString& profileName) const;
    /// There is a rule for square or rectangular holes.
    bool HasRectangles() const { return m_hasRectangles; }

  private:
    const Entry* FindById(const ZetString& id) const;

    std::vector<Entry> m_entries;
    bool m_hasRectangles = false;
};

/// A code that pairs, as the library keeps it.
CHoleCode StandardCode(const ZetString& text);

/// The size of a slot or rectangle along its length, from end to end; of any other hole its size.
double OverallLength(const CHoleAddlInfo& hole);

}  // namespace plugin

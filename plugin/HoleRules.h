#pragma once

#include "plugin/Job.h"

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CHoleRule.h"
#include "camdata/platform/ZetString.h"

#include <vector>

namespace plugin {

/// The hole rules of a job, and the one that a hole falls under. The job's rules must outlive it.
class HoleRules {
  public:
    /// What became of the search for a hole's rule.
    struct Match {
        const HoleRule* rule = nullptr;  ///< null: the hole gets no code
        bool isExcluded = false;         ///< the rule that fits excludes the member, and names no
                                         ///< other
    };

    explicit HoleRules(const std::vector<HoleRule>& rules);

    /// The first rule that fits the hole. One that excludes the member hands on to the rule that it
    /// names, which must fit too. Sets the current tolerance to m_tol_y.
    Match Find(const CHoleAddlInfo& hole, const ZetString& profileName) const;
    /// There is a rule for square or rectangular holes.
    bool HasRectangles() const { return m_hasRectangles; }

  private:
    struct Entry {
        const HoleRule* source;
        CHoleRule rule;
    };

    const Entry* FindById(const ZetString& id) const;
    Match Follow(const Entry& entry, const CHoleAddlInfo& hole, const ZetString& profileName) const;

    std::vector<Entry> m_entries;
    bool m_hasRectangles = false;
};

}  // namespace plugin

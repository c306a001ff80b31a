#pragma once

#include "job/Job.h"

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CHoleCode.h"
#include "camdata/holes/CHoleOutPutCode.h"
#include "camdata/holes/CHoleRule.h"
#include "camdata/platform/text/ZetString.h"

#include <optional>
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
        /// Without: a rule that fits, but excludes the member and names no other; null: none.
        const Entry* excluding = nullptr;
    };

    /// What the rule that comes nearest to a hole wants to be otherwise.
    struct Miss {
        const job::HoleRule* rule = nullptr;  ///< null: none is for its shape, or one fits
        bool hasShape = false;                ///< some rule is for its shape
        const wchar_t* what = L"";
        std::optional<double> required = {};  ///< nearest number of the rule
        std::optional<double> found = {};
    };

    explicit HoleRuleMatcher(const std::vector<job::HoleRule>& rules);

    /// The first rule that fits the hole. One that excludes the member hands on to the rule that it
    /// names, which must fit too. Sets the current tolerance to m_tol_y.
    Match Find(const CHoleAddlInfo& hole, const ZetString& profileName) const;
    /// For a hole without a rule: of its shape the rule that wants least else, of such the one of
    /// the nearest diameter, of such the first. Sets the current tolerance to m_tol_y.
    Miss FindNearest(const CHoleAddlInfo& hole) const;
    /// There is a rule for square or rectangular holes.
    bool HasRectangles() const { return m_hasRectangles; }
    bool HasPairs() const { return m_hasPairs; }
    bool HasGroups() const { return m_hasGroups; }

  private:
    const Entry* FindById(const ZetString& id) const;

    std::vector<Entry> m_entries;
    bool m_hasRectangles = false;
    bool m_hasPairs = false;
    bool m_hasGroups = false;
};

/// A code that pairs, as the library keeps it.
CHoleCode StandardCode(const ZetString& text);

/// The size of a slot or rectangle along its length, from end to end; of any other hole its size.
double OverallLength(const CHoleAddlInfo& hole);

}  // namespace plugin

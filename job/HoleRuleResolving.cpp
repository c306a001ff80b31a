#include "job/CodeFormat.h"
#include "job/JobMaker.h"
#include "job/MessageTexts.h"

#include "camdata/platform/text/ZetFormat.h"

#include <cmath>
#include <utility>

namespace job {

void JobMaker::TakeUncovered() {
    const PlacedText& code = m_document.uncoveredHoles.code;
    m_job.uncoveredHoles = m_document.uncoveredHoles;
    m_job.uncoveredHoles.code = code.text;
    CheckCode(code, CodeOf::kHole);
    const PlacedText& notchCode = m_document.uncoveredNotches.code;
    m_job.uncoveredNotches = m_document.uncoveredNotches;
    m_job.uncoveredNotches.code = notchCode.text;
    CheckCode(notchCode, CodeOf::kNotch);
}

/// False, and told, when nothing can be called so.
bool JobMaker::CheckCode(const PlacedText& code, CodeOf what) {
    const std::string fault = FaultOfCode(code.text, what);
    Require(fault.empty(), code.at, "\"code\": " + fault);
    return fault.empty();
}

void JobMaker::TakeHoleRules() {
    JobIds ids("[[hole_rule]]");
    for (const HoleRuleTable& table : m_document.holeRules)
        ids.Add(table.id, m_faults);
    for (const HoleRuleTable& table : m_document.holeRules) {
        CheckHoleRule(table, ids);
        HoleRule& rule = m_job.holeRules.emplace_back(table);
        rule.id = table.id.text;
        rule.line = table.at.line;
        rule.code = table.code.text;
        rule.otherwiseSuffix = table.otherwiseSuffix.text;
    }
}

/// Rules that name each other cannot go round: each id is longer than the one before.
void JobMaker::CheckHoleRule(const HoleRuleTable& table, const JobIds& ids) {
    const PlacedText& suffix = table.otherwiseSuffix;
    const bool hasLength = table.shape == eHoleShapeSlot || table.shape == eHoleShapeRectangular;
    RequireOf(
        table, hasLength || table.lengths.empty(), "\"lengths\" is only for slots and rectangles");
    RequireOf(table,
              !table.isPairMust || !table.pairs.empty(),
              "\"pair_must\" is of no use without \"pairs\"");
    const bool isCode = CheckCode(table.code, CodeOf::kHole);
    // A hole whose code contains the group's counts as a hole of a group.
    RequireOf(
        table,
        !isCode || table.group.code.isEmpty() || NeverContains(table.code.text, table.group.code),
        "\"code\" must not contain the group's code");
    if (suffix.text.isEmpty())
        return;
    Require(!table.excludedMembers.empty(),
            suffix.at,
            "\"otherwise_suffix\" is of no use without \"excluded_members\"");
    ids.Find({table.id.text + suffix.text, suffix.at}, m_faults);
}

void JobMaker::TakePatterns() {
    for (const FixedPatternTable& table : m_document.patterns) {
        m_patterns.Add(table.id, m_faults);
        FixedPattern pattern = table;
        pattern.id = table.id.text;
        pattern.line = table.at.line;
        for (const PatternHoleTable& hole : table.holes) {
            CheckPatternHole(pattern, hole);
            pattern.holes.push_back(hole);
            pattern.holes.back().message = hole.message.text;
        }
        m_job.patterns.push_back(std::move(pattern));
    }
}

void JobMaker::CheckPatternHole(const FixedPattern& pattern, const PatternHoleTable& hole) {
    constexpr ZetFormatArg::Kind kNumber = ZetFormatArg::Kind::kDouble;
    Require(camdata::detail::FormatTakes(hole.message.text.view(), {kNumber, kNumber}),
            hole.message.at,
            "\"message\" needs two conversions such as %.1f, for diameter and position; a percent "
            "sign is written %%");
    for (const double x : hole.positions)
        RequireOf(hole,
                  pattern.fixedLength <= 0.0 || std::abs(x) <= pattern.fixedLength,
                  "position " + ShowNumber(x) + " lies beyond the length " +
                      ShowNumber(pattern.fixedLength));
}

}  // namespace job

#include "job/ShadowedRules.h"

#include "job/MessageTexts.h"
#include "job/TextPattern.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <type_traits>

namespace job {

namespace {

constexpr std::size_t kTrimSides = static_cast<std::size_t>(TrimSide::kUpper) + 1;
constexpr int kAnyCorner = static_cast<int>(NotchCorner::kAny);

/// Numbers of one meaning, as two places of a file give them.
bool AreSame(double a, double b) {
    return std::abs(a - b) < 1e-9;
}

template <typename T>
bool AreSame(T a, T b) {
    return a == b;
}

/// A list that names all there are fits any.
bool NamesAll(const std::vector<double>&) {
    return false;
}

template <typename T>
bool NamesAll(const std::vector<T>& list) {
    constexpr std::size_t kAll =
        std::is_same_v<T, eHoleFace> ? std::size_t{eHoleFaceNone} : kTrimSides;
    return std::set<T>(list.begin(), list.end()).size() == kAll;
}

template <typename T>
bool IsPart(const std::vector<T>& some, const std::vector<T>& all) {
    return std::all_of(some.begin(), some.end(), [&](const T& value) {
        return std::any_of(
            all.begin(), all.end(), [&](const T& listed) { return AreSame(value, listed); });
    });
}

/// A list that is not given fits any hole.
template <typename T>
bool Covers(const std::vector<T>& earlier, const std::vector<T>& later) {
    return earlier.empty() || NamesAll(earlier) || (!later.empty() && IsPart(later, earlier));
}

bool CoversRows(const HoleRule& earlier, const HoleRule& later) {
    const auto isAny = [](const HoleRule& rule) {
        return rule.backMarks.empty() && rule.otherFaceDistances.empty();
    };
    return isAny(earlier) || (!isAny(later) && IsPart(later.backMarks, earlier.backMarks) &&
                              IsPart(later.otherFaceDistances, earlier.otherFaceDistances));
}

/// Also of the members that it excludes: these holes do not go to later rules.
bool Covers(const HoleRuleTable& earlier, const HoleRuleTable& later) {
    return earlier.shape == later.shape && Covers(earlier.diameters, later.diameters) &&
           Covers(earlier.lengths, later.lengths) && Covers(earlier.faces, later.faces) &&
           CoversRows(earlier, later);
}

/// Only where it is certain: `?` in the earlier pattern would also stand for a `*` of the later.
bool Covers(const ZetString& earlier, const ZetString& later) {
    if (earlier.isEmpty() || earlier == later)
        return true;
    return !earlier.contains(L"?") && MatchesPattern(later.view(), earlier.view());
}

bool Covers(const MemberTypeTable& earlier, const MemberTypeTable& later) {
    return Covers(earlier.profile, later.profile) && Covers(earlier.code, later.code);
}

/// What the earlier one asks for, the later one asks for too. Both tell length and width.
bool Covers(const CornerNotchTable& earlier, const CornerNotchTable& later) {
    const auto covers = [](auto of, auto by) {
        return of == by || static_cast<int>(of) == kAnyCorner;
    };
    return earlier.face == later.face && earlier.corners == later.corners &&
           covers(earlier.along, later.along) && covers(earlier.across, later.across) &&
           (later.isRectangle || !earlier.isRectangle) && (later.isParallel || !earlier.isParallel);
}

bool Covers(const TrimTable& earlier, const TrimTable& later) {
    return Covers(earlier.faces, later.faces) && Covers(earlier.sides, later.sides);
}

bool CoversSize(const std::optional<double>& earlier, const std::optional<double>& later) {
    return !earlier || (later && AreSame(*earlier, *later));
}

bool Covers(const ToolTable& earlier, const ToolTable& later) {
    return earlier.part == later.part && CoversSize(earlier.diameter, later.diameter) &&
           CoversSize(earlier.length, later.length) && Covers(earlier.code, later.code);
}

bool Covers(const ProfileTable& earlier, const ProfileTable& later) {
    return Covers(earlier.pattern, later.pattern);
}

template <typename Table>
const ZetString& NameOfTable(const Table& table) {
    return table.id.text;
}
const ZetString& NameOfTable(const ToolTable& table) {
    return table.number;
}
const ZetString& NameOfTable(const ProfileTable& table) {
    return table.pattern;
}

bool IsNamed(const HoleRuleTable& rule, const std::vector<HoleRuleTable>& rules) {
    return std::any_of(rules.begin(), rules.end(), [&](const HoleRuleTable& other) {
        return !other.otherwiseSuffix.text.isEmpty() &&
               other.id.text + other.otherwiseSuffix.text == rule.id.text;
    });
}

template <typename Table>
bool IsNamed(const Table&, const std::vector<Table>&) {
    return false;
}

template <typename Table>
void Check(const std::vector<Table>& tables, const char* what, JobFaults& faults) {
    for (auto later = tables.begin(); later != tables.end(); ++later) {
        const auto earlier = std::find_if(tables.begin(), later, [&](const Table& table) {
            return table.isSound && Covers(table, *later);
        });
        if (earlier == later || !later->isSound || IsNamed(*later, tables))
            continue;
        faults.Add(later->at,
                   std::string("this table can never be reached: ") + what + " " +
                       Quoted(NameOfTable(*earlier)) + " in line " +
                       std::to_string(earlier->at.line) +
                       " takes all that it could take; put it before that one, or take it out");
    }
}

}  // namespace

void CheckShadowed(const JobDocument& document, JobFaults& faults) {
    Check(document.memberTypes, "member type", faults);
    Check(document.holeRules, "hole rule", faults);
    Check(document.cornerNotches, "corner notch", faults);
    Check(document.trims, "trim", faults);
}

void CheckShadowed(const FormatDocument& document, JobFaults& faults) {
    Check(document.tools, "tool", faults);
    Check(document.profiles, "profile", faults);
}

}  // namespace job

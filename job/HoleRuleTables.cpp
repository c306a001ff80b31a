#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

constexpr Key kPairKeys[] = {
    Row<PairRule, &PairRule::code>("code", "Text that the second hole's code contains.", {.isRequired = true}),
    Row<PairRule, &PairRule::spacing>("spacing", "Distance between the two holes along the member. Rows and faces do not count: holes that must not pair need codes of their own.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<PairRule, &PairRule::prefix>("prefix", "What goes before the second hole's code."),
};

constexpr Key kHoleGroupKeys[] = {
    Row<GroupRule, &GroupRule::code>("code", "What goes before the code of each hole of a group.", {.isRequired = true}),
    Row<GroupRule, &GroupRule::holeCount>("holes", "How many holes in one column make a group.", {.range = kHolesOfGroup}),
    Row<GroupRule, &GroupRule::isMust>("must", "Whether a hole outside a group is a fault (`missing_group`)."),
};

constexpr Key kUncoveredHolesKeys[] = {
    Row<UncoveredHolesTable, &UncoveredRule::action>("action", kUncoveredActionMeaning),
    Row<UncoveredHolesTable, &UncoveredHolesTable::code>("code", "What they are output as; filled in like the `code` of a hole rule."),
};

constexpr Key kHoleRuleKeys[] = {
    Row<HoleRuleTable, &HoleRuleTable::id>("id", "Name of the rule in this job.", {.isRequired = true}),
    Row<HoleRuleTable, &HoleRule::shape>("shape", "The shape of the holes."),
    Row<HoleRuleTable, &HoleRule::diameters>("diameters", "Their diameters; the width of a slot or of a cut-out.", {.range = kSize, .unit = "mm", .defaultNote = "any"}),
    Row<HoleRuleTable, &HoleRule::lengths>("lengths", "The overall lengths of slots and rectangles.", {.range = kSize, .unit = "mm", .defaultNote = "any"}),
    Row<HoleRuleTable, &HoleRule::faces>("faces", "The faces that they are on.", {.defaultNote = "any"}),
    Row<HoleRuleTable, &HoleRule::backMarks>("back_marks", "Their distances from the face's lower edge (Y).", {.range = kDistance, .unit = "mm", .defaultNote = "any"}),
    Row<HoleRuleTable, &HoleRule::otherFaceDistances>("other_face_distances", "Their distances from the opposite edge (face width less Y). With `back_marks`, one of either list is enough.", {.range = kDistance, .unit = "mm", .defaultNote = "any"}),
    Row<HoleRuleTable, &HoleRule::excludedMembers>("excluded_members", "Profile names that the rule is not for."),
    Row<HoleRuleTable, &HoleRule::memberNameLength>("member_name_length", "How much of the profile name they are compared with: the first characters; below 0: all but the last; 0: the whole name.", {.range = kNameCharacters}),
    Row<HoleRuleTable, &HoleRuleTable::otherwiseSuffix>("otherwise_suffix", "This rule's id with the suffix is the rule for excluded members.", {.defaultNote = "none: `excluded_hole`"}),
    Row<HoleRuleTable, &HoleRuleTable::code>("code", "What the machine calls these holes. `{diameter}`, `{length}`, `{width}`, `{face}`, `{x}`, `{y}` and `{depth}` are filled in.", {.isRequired = true}),
    Row<HoleRuleTable, &HoleRule::pairs>("pairs", "Second holes that are made in one stroke with the first."),
    Row<HoleRuleTable, &HoleRule::isPairMust>("pair_must", "Whether a hole without its second hole is a fault (`missing_pair`)."),
    Row<HoleRuleTable, &HoleRule::group>("group", "Holes in one column that are made in one stroke.", {.defaultNote = "no groups"}),
};

constexpr Key kPatternHoleKeys[] = {
    Row<PatternHoleTable, &PatternHole::diameter>("diameter", "Diameter.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<PatternHoleTable, &PatternHole::code>("code", "The code that it must have got from its hole rule.", {.isRequired = true}),
    Row<PatternHoleTable, &PatternHole::positions>("positions", "Where along the member it may be, any of them. Between 0 and 1: a part of the length; below 0: from the far end; else from the start.", {.isRequired = true, .range = kCoordinate, .unit = "mm"}),
    Row<PatternHoleTable, &PatternHoleTable::message>("message", "What is said when it is missing, with a conversion such as `%.1f` for the diameter and one for the position."),
};

constexpr Key kFixedPatternKeys[] = {
    Row<FixedPatternTable, &FixedPatternTable::id>("id", "Name of the pattern in this job.", {.isRequired = true}),
    Row<FixedPatternTable, &FixedPattern::fixedLength>("length", "The length that the members must have (`fixed_length`).", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<FixedPatternTable, &FixedPattern::isMirrorAllowed>("mirror", "Whether the pattern may lie the other way round."),
    Row<FixedPatternTable, &FixedPatternTable::holes>("holes", "The holes that they must have.", {.isRequired = true}),
};

constexpr KeyTable kPairTable{kPairKeys};
constexpr KeyTable kHoleGroupTable{kHoleGroupKeys};
constexpr KeyTable kUncoveredHolesTable{kUncoveredHolesKeys};
constexpr KeyTable kPatternHoleTable{kPatternHoleKeys};
constexpr KeyTable kHoleRuleTable{kHoleRuleKeys};
constexpr KeyTable kFixedPatternTable{kFixedPatternKeys};

}  // namespace

template <> const KeyTable& KeysOf<PairRule>() { return kPairTable; }
template <> const KeyTable& KeysOf<GroupRule>() { return kHoleGroupTable; }
template <> const KeyTable& KeysOf<UncoveredHolesTable>() { return kUncoveredHolesTable; }
template <> const KeyTable& KeysOf<PatternHoleTable>() { return kPatternHoleTable; }
template <> const KeyTable& KeysOf<HoleRuleTable>() { return kHoleRuleTable; }
template <> const KeyTable& KeysOf<FixedPatternTable>() { return kFixedPatternTable; }

// clang-format on

}  // namespace job

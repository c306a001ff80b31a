#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

// What the secondary parts and every other group have in common.
constexpr const char* kGroupFilesMeaning = "The files that the members are written to, by id. The first that is not of NC files is the main one: header lines go there.";
constexpr const char* kGroupHeaderMeaning = "Lines before the first member.";
constexpr const char* kGroupSortMeaning = "What the members are sorted by; the first decides first.";

constexpr Key kSecondaryPartsKeys[] = {
    Row<SecondaryPartsTable, &SecondaryPartsTable::files>("files", kGroupFilesMeaning),
    Row<SecondaryPartsTable, &Group::headerLines>("header", kGroupHeaderMeaning),
    Row<SecondaryPartsTable, &Group::sortKeys>("sort", kGroupSortMeaning),
};

constexpr Key kGroupKeys[] = {
    Row<GroupTable, &GroupTable::id>("id", "Name of the group in this job.", {.isRequired = true}),
    Row<GroupTable, &SecondaryPartsTable::files>("files", kGroupFilesMeaning),
    Row<GroupTable, &GroupTable::header>("header", kGroupHeaderMeaning, {.defaultNote = "a blank line and the id; [] for none"}),
    Row<GroupTable, &Group::sortKeys>("sort", kGroupSortMeaning),
    Row<GroupTable, &Group::split>("split_by", "A section of its own, with its name behind the header lines, for the members of each profile, material or thickness.", {.defaultNote = "one section"}),
    Row<GroupTable, &Group::isNested>("nesting", "Whether the members are cut from stock bars, with a cutting list: those of one profile and material together."),
    Row<GroupTable, &Group::plan>("plan", "Which pieces come from one bar. given: the order of the library, from the shortest piece up; for bars of 4000 mm without kerf and grips only. least: as few bars as possible, or the least cost of several stocks.", {.defaultNote = "\"least\" where a `[[stock]]` fits the profile, or a remnant the profile and material, and there is no `reserve`, else \"given\""}),
    Row<GroupTable, &Group::reserveLength>("reserve", "An off-cut that is not longer than this gets no further piece; with the plan \"given\" only.", {.range = kDistance, .unit = "mm"}),
};

constexpr KeyTable kSecondaryPartsTable{kSecondaryPartsKeys};
constexpr KeyTable kGroupTable{kGroupKeys};

}  // namespace

template <> const KeyTable& KeysOf<SecondaryPartsTable>() { return kSecondaryPartsTable; }
template <> const KeyTable& KeysOf<GroupTable>() { return kGroupTable; }

// clang-format on

}  // namespace job

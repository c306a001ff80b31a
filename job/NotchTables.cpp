#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

constexpr Key kUncoveredNotchesKeys[] = {
    Row<UncoveredNotchesTable, &UncoveredRule::action>("action", kUncoveredActionMeaning),
    Row<UncoveredNotchesTable, &UncoveredNotchesTable::code>("code", "What they are output as. `{length}` and `{width}` of a rectangle, `{face}`, `{x}` and `{y}` are filled in."),
};

constexpr Key kCornerNotchKeys[] = {
    Row<CornerNotchTable, &CornerNotchTable::id>("id", "Name of the notch in this job.", {.isRequired = true}),
    Row<CornerNotchTable, &CornerNotch::along>("along", "Where along the member it lies."),
    Row<CornerNotchTable, &CornerNotchTable::across>("across", "Where across the face it lies."),
    Row<CornerNotchTable, &CornerNotchTable::face>("face", "The face that it is cut from.", {.isRequired = true}),
    Row<CornerNotchTable, &CornerNotchTable::corners>("corners", "How many corners its outline has.", {.isRequired = true, .range = kCorners}),
    Row<CornerNotchTable, &CornerNotchTable::isRectangle>("rectangle", "Whether it must be a rectangle."),
    Row<CornerNotchTable, &CornerNotchTable::isParallel>("parallel", "Whether a side must run along the member."),
    Row<CornerNotchTable, &CornerNotchTable::output>("output", "Its text for the machine, with a conversion such as `%.1f` for each of `values`.", {.isRequired = true}),
    Row<CornerNotchTable, &CornerNotchTable::values>("values", "Two or three numbers for the text: the first two `length` or `width`, the third a place.", {.isRequired = true}),
};

constexpr Key kTrimKeys[] = {
    Row<TrimTable, &TrimTable::id>("id", "Name of the trim in this job.", {.isRequired = true}),
    Row<TrimTable, &TrimRule::faces>("faces", "The faces that it is for.", {.defaultNote = "any"}),
    Row<TrimTable, &TrimRule::sides>("sides", "The sides of a face that it is for.", {.defaultNote = "any"}),
    Row<TrimTable, &TrimTable::code>("code", "What the machine calls it. `{face}`, and `{x}` or `{y}` of the cut, are filled in.", {.isRequired = true}),
};

constexpr KeyTable kUncoveredNotchesTable{kUncoveredNotchesKeys};
constexpr KeyTable kCornerNotchTable{kCornerNotchKeys};
constexpr KeyTable kTrimTable{kTrimKeys};

}  // namespace

template <> const KeyTable& KeysOf<UncoveredNotchesTable>() { return kUncoveredNotchesTable; }
template <> const KeyTable& KeysOf<CornerNotchTable>() { return kCornerNotchTable; }
template <> const KeyTable& KeysOf<TrimTable>() { return kTrimTable; }

// clang-format on

}  // namespace job

#include "job/FindingTypes.h"
#include "job/JobKeyTables.h"

#include <array>
#include <cstddef>
#include <utility>

namespace job {

namespace {

// clang-format off

constexpr const char* kStartMeaning = "Where the number begins in the profile name; its first character is 0.";
constexpr const char* kLengthMeaning = "How many characters the number has.";
constexpr const char* kOnlyName = "required with \"name\"";
constexpr const char* kOnlyFixed = "required with \"fixed\"";

constexpr Key kSizeKeys[] = {
    Row<SizeTable, &SizeTable::source>("source", "Where the size comes from: the NC file's header, the profile name, `value`, or `attributes`.", {.isRequired = true}),
    Row<SizeTable, &DimensionTable::start>("start", kStartMeaning, {.range = kCharacters, .defaultNote = kOnlyName}),
    Row<SizeTable, &DimensionTable::length>("length", kLengthMeaning, {.range = kSomeCharacters, .defaultNote = kOnlyName}),
    Row<SizeTable, &DimensionTable::value>("value", "The size itself.", {.range = kSize, .unit = "mm", .defaultNote = kOnlyFixed}),
};

constexpr Key kThicknessKeys[] = {
    Row<ThicknessTable, &SizeTable::source>("source", "As for `height`.", {.isRequired = true}),
    Row<ThicknessTable, &DimensionTable::start>("start", kStartMeaning, {.range = kCharacters, .defaultNote = kOnlyName}),
    Row<ThicknessTable, &DimensionTable::length>("length", kLengthMeaning, {.range = kSomeCharacters, .defaultNote = kOnlyName}),
    Row<ThicknessTable, &ThicknessTable::factor>("factor", "What the number in the profile name is multiplied by: 0.1 when it stands in tenths of a millimetre.", {.range = kFactor}),
    Row<ThicknessTable, &DimensionTable::value>("value", "The thickness itself.", {.range = kSize, .unit = "mm", .defaultNote = kOnlyFixed}),
};

constexpr Key kSlopeKeys[] = {
    Row<SlopeTable, &SlopeTable::source>("source", "Where the slope comes from: the profile name or `value`.", {.isRequired = true}),
    Row<SlopeTable, &DimensionTable::start>("start", "Where the sign (`+` or `-`) stands in the profile name; the number follows it.", {.range = kCharacters, .defaultNote = kOnlyName}),
    Row<SlopeTable, &DimensionTable::length>("length", kLengthMeaning, {.range = kSomeCharacters, .defaultNote = kOnlyName}),
    Row<SlopeTable, &DimensionTable::value>("value", "The slope itself.", {.range = {-90.0, 90.0}, .unit = "degrees", .defaultNote = kOnlyFixed}),
};

constexpr Key kAttributesKeys[] = {
    Row<AttributesTable, &AttributesTable::height>("height", "Height of the profile.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<AttributesTable, &AttributesTable::topFlange>("top_flange", "Width of the top flange, from the web to its free edge.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<AttributesTable, &AttributesTable::bottomFlange>("bottom_flange", "The same of the bottom flange; also the profile's width.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<AttributesTable, &AttributesTable::thickness>("thickness", "Thickness.", {.isRequired = true, .range = kSize, .unit = "mm"}),
};

constexpr Key kFlangeZeroKeys[] = {
    Row<FlangeZero, &FlangeZero::zero>("zero", "Where the web stands in the NC file's coordinates across this flange.", {.range = kCoordinate, .unit = "mm"}),
    Row<FlangeZero, &FlangeZero::isReversed>("reversed", "Whether the flange's free edge lies at smaller coordinates than the web."),
};

constexpr Key kLimitsKeys[] = {
    Row<LimitsTable, &LimitsTable::maxHoles>("max_holes", "The most holes (`holes`).", {.range = kLimit, .defaultNote = "any number"}),
    Row<LimitsTable, &LimitsTable::maxInternalContours>("max_internal_contours", "The most openings (`internal_contours`).", {.range = kLimit, .defaultNote = "any number"}),
    Row<LimitsTable, &LimitsTable::maxExternalContours>("max_external_contours", "The most notches (`external_contours`).", {.range = kLimit, .defaultNote = "any number"}),
    Row<LimitsTable, &LimitsTable::minLength>("min_length", "The shortest member (`min_length`).", {.range = kDistance, .unit = "mm"}),
    Row<LimitsTable, &LimitsTable::maxLength>("max_length", "The longest member (`max_length`).", {.range = kSize, .unit = "mm", .defaultNote = "any length"}),
};

/// A key for each finding.
template <std::size_t... Types>
constexpr auto MakeReportKeys(std::index_sequence<Types...>) {
    return std::array{MakeKey<ReportTable, [](ReportTable& table) -> auto& { return table.types[Types]; }>(
        kFindingTypes[Types].name, kFindingTypes[Types].meaning, {})...};
}
constexpr auto kReportKeys = MakeReportKeys(std::make_index_sequence<kValidationTypes>());

constexpr Key kMemberTypeKeys[] = {
    Row<MemberTypeTable, &MemberTypeTable::id>("id", "Name of the kind in this job.", {.isRequired = true}),
    Row<MemberTypeTable, &MemberTypeTable::profile>("profile", "Pattern that the profile name must fit; `*` stands for any text, `?` for one character.", {.defaultNote = "any"}),
    Row<MemberTypeTable, &MemberTypeTable::code>("code", "The same for the profile code of the NC file.", {.defaultNote = "any"}),
    Row<MemberTypeTable, &MemberTypeTable::isSkipped>("skip", "Whether these members are left out of the run."),
    Row<MemberTypeTable, &MemberTypeTable::group>("group", "The group that they go to, by id.", {.defaultNote = "required, but with `skip`"}),
    Row<MemberTypeTable, &MemberTypeTable::height>("height", "Where the height comes from.", {.defaultNote = "the header"}),
    Row<MemberTypeTable, &MemberTypeTable::width>("width", "Where the width comes from.", {.defaultNote = "the header"}),
    Row<MemberTypeTable, &MemberTypeTable::thickness>("thickness", "Where the thickness comes from.", {.defaultNote = "the header"}),
    Row<MemberTypeTable, &MemberTypeTable::slope>("slope", "Where the slope of the top flange comes from.", {.defaultNote = "not known"}),
    Row<MemberTypeTable, &MemberTypeTable::attributes>("attributes", "The section itself, where the NC files do not tell it. Given, it decides the flange widths.", {.defaultNote = "none"}),
    Row<MemberTypeTable, &MemberTypeTable::topFlange>("top_flange", "How the NC file's coordinates across the top flange become distances from the web: a Z section's run over its overall width.", {.defaultNote = "as they are"}),
    Row<MemberTypeTable, &MemberTypeTable::bottomFlange>("bottom_flange", "The same for the bottom flange.", {.defaultNote = "as they are"}),
    Row<MemberTypeTable, &MemberTypeTable::nameStart>("name_start", "Where the section's name in the reports begins in the profile name; its first character is 0.", {.range = kCharacters}),
    Row<MemberTypeTable, &MemberTypeTable::nameLength>("name_length", "How many characters it has; kept with the type, reports show all.", {.range = kCharacters}),
    Row<MemberTypeTable, &MemberTypeTable::description>("description", "What the kind is called in full; kept with the type, not printed.", {.defaultNote = "its id"}),
    Row<MemberTypeTable, &MemberTypeTable::shortName>("short_name", "What it is called for short; kept with the type, not printed.", {.defaultNote = "its id"}),
    Row<MemberTypeTable, &MemberTypeTable::limits>("limits", "What a member may have; see the checks in brackets under `report`.", {.defaultNote = "no limits"}),
    Row<MemberTypeTable, &MemberTypeTable::report>("report", "What each finding does. `error`: a line in the errors, and the member is not made. `warning`: a line in the warnings. `off`: neither. `non_standard`: a warning, and the member counts as non-standard; `non_standard_silent`: without the line. `second_...`: the same in a list of its own behind the first.", {.defaultNote = "as below"}),
    Row<MemberTypeTable, &MemberTypeTable::areMarksMade>("marks", "Whether the machine makes marks and texts: records `mark`."),
    Row<MemberTypeTable, &MemberTypeTable::pattern>("fixed_pattern", "The fixed pattern that they must have, by id.", {.defaultNote = "none"}),
};

constexpr KeyTable kSizeTable{kSizeKeys};
constexpr KeyTable kThicknessTable{kThicknessKeys};
constexpr KeyTable kSlopeTable{kSlopeKeys};
constexpr KeyTable kAttributesTable{kAttributesKeys};
constexpr KeyTable kFlangeZeroTable{kFlangeZeroKeys};
constexpr KeyTable kLimitsTable{kLimitsKeys};
constexpr KeyTable kReportTable{kReportKeys};
constexpr KeyTable kMemberTypeTable{kMemberTypeKeys};

}  // namespace

template <> const KeyTable& KeysOf<SizeTable>() { return kSizeTable; }
template <> const KeyTable& KeysOf<ThicknessTable>() { return kThicknessTable; }
template <> const KeyTable& KeysOf<SlopeTable>() { return kSlopeTable; }
template <> const KeyTable& KeysOf<AttributesTable>() { return kAttributesTable; }
template <> const KeyTable& KeysOf<FlangeZero>() { return kFlangeZeroTable; }
template <> const KeyTable& KeysOf<LimitsTable>() { return kLimitsTable; }
template <> const KeyTable& KeysOf<ReportTable>() { return kReportTable; }
template <> const KeyTable& KeysOf<MemberTypeTable>() { return kMemberTypeTable; }

// clang-format on

}  // namespace job

#include "job/JobTables.h"

#include "job/FindingTypes.h"
#include "job/JobKeys.h"
#include "job/JobValue.h"
#include "job/ReportWords.h"

#include "camdata/holes/eHoleFace.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

// The one list of the job file's keys: each row reads its key, and docs/job-file.md lists it.

namespace job {

namespace {

constexpr double kMostWhole = 2147483647.0;

constexpr Range kCount{1.0, kMostWhole};
constexpr Range kLimit{0.0, kMostWhole};
constexpr Range kCharacters{0.0, 255.0};
constexpr Range kSomeCharacters{1.0, 255.0};
constexpr Range kNameCharacters{-255.0, 255.0};
constexpr Range kCoordinate{-100000.0, 100000.0};
constexpr Range kDistance{0.0, 100000.0};
constexpr Range kSize{0.0, 100000.0, true};
constexpr Range kLimitDistance{-100.0, 10000.0};
constexpr Range kTolerance{0.0, 100.0};
constexpr Range kFactor{0.0, 1000.0, true};
constexpr Range kHolesOfGroup{2.0, 100.0};
constexpr Range kCorners{3.0, 1000.0};

// clang-format off

constexpr Choice<eHoleShapeType> kShapes[] = {
    {eHoleShapeRound, "round"},
    {eHoleShapeCountersunk, "countersunk"},
    {eHoleShapeSlot, "slot"},
    {eHoleShapeSquare, "square"},
    {eHoleShapeRectangular, "rectangle"},
    {eHoleShapeUnknown, "other"},
};
static_assert(std::size(kShapes) == eHoleShapeRectangular + 1);

constexpr Choice<eHoleFace> kFaces[] = {
    {eHoleFaceWeb, "web"},
    {eHoleFaceTopFlange, "top_flange"},
    {eHoleFaceBottomFlange, "bottom_flange"},
    {eHoleFaceSlopedTopFlange, "sloped_top_flange"},
    {eHoleFaceSlopedBottomFlange, "sloped_bottom_flange"},
    {eHoleFaceWebBack, "web_back"},
};
static_assert(std::size(kFaces) == eHoleFaceNone);

constexpr Choice<eSortOrder> kSortKeys[] = {
    {eSortMark, "mark"},
    {eSortProfileName, "profile_name"},
    {eSortProfileHeight, "height"},
    {eSortProfileWidth, "width"},
    {eSortProfileThick, "thickness"},
    {eSortLength, "length"},
    {eSortProfileNameLength, "profile_name_length"},
    {eSortGroupID, "group"},
};
static_assert(std::size(kSortKeys) == eSortGroupID + 1);

constexpr Choice<eProfPropType> kSources[] = {
    {eProfPropHeader, "header"},
    {eProfPropName, "name"},
    {eProfPropFixed, "fixed"},
    {eProfPropAttrib, "attributes"},
};
static_assert(std::size(kSources) == eProfPropNone);

constexpr Choice<SlopeSource> kSlopeSources[] = {
    {SlopeSource::kName, "name"},
    {SlopeSource::kFixed, "fixed"},
};

// eReportingDefault does what a warning does: it needs no word.
constexpr Choice<eReportingTypes> kReportTypes[] = {
    {kReportingOff, "off"},
    {eReportingWarning, "warning"},
    {eReportingNonStd, "non_standard"},
    {eReportingNonStdSilent, "non_standard_silent"},
    {eReportingError, "error"},
    {eReportingSecondWarning, "second_warning"},
    {eReportingSecondNonStd, "second_non_standard"},
    {eReportingSecondError, "second_error"},
};
static_assert(std::size(kReportTypes) == eReportingSecondError + 1);

constexpr Choice<Uncovered> kUncoveredActions[] = {
    {Uncovered::kReport, "report"},
    {Uncovered::kOutput, "output"},
    {Uncovered::kAccept, "accept"},
};

constexpr Choice<MarkSource> kMarkSourceWords[] = {
    {MarkSource::kMark, "mark"},
    {MarkSource::kDrawing, "drawing"},
    {MarkSource::kPhase, "phase"},
    {MarkSource::kFileName, "file_name"},
    {MarkSource::kPath, "path"},
};
static_assert(std::size(kMarkSourceWords) == std::size(kMarkSources));

constexpr Choice<NcEncoding> kNcEncodings[] = {
    {NcEncoding::kAuto, "auto"},
    {NcEncoding::kUtf8, "utf-8"},
    {NcEncoding::kWindows1250, "windows-1250"},
    {NcEncoding::kWindows1251, "windows-1251"},
    {NcEncoding::kWindows1252, "windows-1252"},
    {NcEncoding::kWindows1253, "windows-1253"},
    {NcEncoding::kWindows1254, "windows-1254"},
    {NcEncoding::kWindows1255, "windows-1255"},
    {NcEncoding::kWindows1256, "windows-1256"},
    {NcEncoding::kWindows1257, "windows-1257"},
    {NcEncoding::kWindows1258, "windows-1258"},
    {NcEncoding::kIso1, "iso-8859-1"},
    {NcEncoding::kIso2, "iso-8859-2"},
    {NcEncoding::kIso3, "iso-8859-3"},
    {NcEncoding::kIso4, "iso-8859-4"},
    {NcEncoding::kIso5, "iso-8859-5"},
    {NcEncoding::kIso6, "iso-8859-6"},
    {NcEncoding::kIso7, "iso-8859-7"},
    {NcEncoding::kIso8, "iso-8859-8"},
    {NcEncoding::kIso9, "iso-8859-9"},
    {NcEncoding::kIso10, "iso-8859-10"},
    {NcEncoding::kIso11, "iso-8859-11"},
    {NcEncoding::kIso13, "iso-8859-13"},
    {NcEncoding::kIso14, "iso-8859-14"},
    {NcEncoding::kIso15, "iso-8859-15"},
    {NcEncoding::kIso16, "iso-8859-16"},
};
static_assert(std::size(kNcEncodings) == static_cast<std::size_t>(NcEncoding::kIso16) + 1);

constexpr Choice<WhenNot> kWhenNot[] = {
    {WhenNot::kRefuse, "refuse"},
    {WhenNot::kLeaveOut, "leave_out"},
};

constexpr Choice<NcWarnings> kNcWarnings[] = {
    {NcWarnings::kReport, "report"},
    {NcWarnings::kRefuse, "refuse"},
};

constexpr Choice<GroupSplit> kGroupSplits[] = {
    {GroupSplit::kProfile,   "profile"  },
    {GroupSplit::kMaterial,  "material" },
    {GroupSplit::kThickness, "thickness"},
};

constexpr Choice<BarPlan> kBarPlans[] = {
    {BarPlan::kGiven, "given"},
    {BarPlan::kLeast, "least"},
};

constexpr Choice<SettingsUse> kSettingsUses[] = {
    {SettingsUse::kUse,    "use"   },
    {SettingsUse::kIgnore, "ignore"},
};

constexpr Choice<LineEnds> kLineEnds[] = {
    {LineEnds::kLf, "lf"},
    {LineEnds::kCrLf, "crlf"},
};

constexpr Choice<NotchValue> kNotchValues[] = {
    {NotchValue::kLength, "length"},
    {NotchValue::kWidth, "width"},
    {NotchValue::kX, "x"},
    {NotchValue::kCornerX, "corner_x"},
    {NotchValue::kY, "y"},
    {NotchValue::kCornerY, "corner_y"},
};

constexpr Choice<InfoBlock> kInfoBlocks[] = {
    {kAllMembersBlock, "members"},
    {kNonStandardBlock, "non_standard"},
    {kErrorsBlock, "errors"},
    {kWarningsBlock, "warnings"},
};
static_assert(std::size(kInfoBlocks) == kInfoBlockCount);

constexpr Choice<NotchCorner> kAlong[] = {
    {NotchCorner::kStart, "start"},
    {NotchCorner::kEnd, "end"},
    {NotchCorner::kAny, "any"},
};

constexpr Choice<TrimSide> kSides[] = {
    {TrimSide::kStart, "start"},
    {TrimSide::kEnd, "end"},
    {TrimSide::kLower, "lower"},
    {TrimSide::kUpper, "upper"},
};

constexpr Choice<NotchAcross> kAcross[] = {
    {NotchAcross::kLower, "lower"},
    {NotchAcross::kUpper, "upper"},
    {NotchAcross::kAny, "any"},
};

}  // namespace

template <> std::span<const Choice<eHoleShapeType>> ChoicesOf() { return kShapes; }
template <> std::span<const Choice<eHoleFace>> ChoicesOf() { return kFaces; }
template <> std::span<const Choice<eSortOrder>> ChoicesOf() { return kSortKeys; }
template <> std::span<const Choice<eProfPropType>> ChoicesOf() { return kSources; }
template <> std::span<const Choice<SlopeSource>> ChoicesOf() { return kSlopeSources; }
template <> std::span<const Choice<eReportingTypes>> ChoicesOf() { return kReportTypes; }
template <> std::span<const Choice<MarkSource>> ChoicesOf() { return kMarkSourceWords; }
template <> std::span<const Choice<NcEncoding>> ChoicesOf() { return kNcEncodings; }
template <> std::span<const Choice<WhenNot>> ChoicesOf() { return kWhenNot; }
template <> std::span<const Choice<NcWarnings>> ChoicesOf() { return kNcWarnings; }
template <> std::span<const Choice<GroupSplit>> ChoicesOf() { return kGroupSplits; }
template <> std::span<const Choice<BarPlan>> ChoicesOf() { return kBarPlans; }
template <> std::span<const Choice<SettingsUse>> ChoicesOf() { return kSettingsUses; }
template <> std::span<const Choice<LineEnds>> ChoicesOf() { return kLineEnds; }
template <> std::span<const Choice<Uncovered>> ChoicesOf() { return kUncoveredActions; }
template <> std::span<const Choice<NotchValue>> ChoicesOf() { return kNotchValues; }
template <> std::span<const Choice<InfoBlock>> ChoicesOf() { return kInfoBlocks; }
template <> std::span<const Choice<NotchCorner>> ChoicesOf() { return kAlong; }
template <> std::span<const Choice<NotchAcross>> ChoicesOf() { return kAcross; }
template <> std::span<const Choice<TrimSide>> ChoicesOf() { return kSides; }

namespace {

constexpr Key kJobKeys[] = {
    Row<JobTable, &JobTable::name>("name", "What the job is called."),
    Row<JobTable, &JobTable::ncFiles>("nc_files", "NC files, relative to the job file's folder; `*` stands for any text, `?` for one character. Files are read in the order of their names, each once.", {.isRequired = true}),
    Row<JobTable, &JobTable::output>("output", "Folder of the output, relative to the job file's folder."),
    Row<JobTable, &JobTable::date>("date", "The day that counts as today, for output that can be repeated.", {.defaultNote = "today"}),
    Row<JobTable, &JobTable::maximumQuantity>("max_quantity", "The most pieces that a member may have (`quantity`).", {.range = kCount}),
};

constexpr Key kNcKeys[] = {
    Row<NcInput, &NcInput::mark>("mark", "What a part is told from others by: a line of the file's header (4, 2 or 3), or the file's name without its ending. path: the name with its folders below the job's, for files of one name. Assemblies name it, and every list shows it."),
    Row<NcInput, &NcInput::encoding>("encoding", "How names in the files are written. \"auto\": each text is UTF-8 when it can be, else Windows-1252."),
    Row<NcInput, &NcInput::unreadable>("unreadable", "What a file does that cannot be read. refuse: nothing is made. leave_out: the rest is made; the file is listed with its reason, and the exit code is 1."),
    Row<NcInput, &NcInput::unmatched>("unmatched", "The same for a file that no member type takes."),
    Row<NcInput, &NcInput::warnings>("warnings", "What a warning of the reader does, for example that a hole lies outside of its face. report: it is printed. refuse: nothing is made."),
};

constexpr Key kReportsKeys[] = {
    Row<Reports, &Reports::areSourcesTold>("sources", "Whether the errors and warnings name the NC file of each member below its part number."),
    Row<Reports, &Reports::hasPage>("html", "Whether a page for people is made, `<file_name>-report.html`."),
    Row<Reports, &Reports::hasRunDocument>("run_document", "Whether the run is told to programs and to later runs, `<file_name>-run.json`."),
};

constexpr Key kProjectKeys[] = {
    Row<ProjectTable, &ProjectTable::caption>("caption", "Title of the project dialog."),
    Row<ProjectTable, &ProjectTable::fileName>("file_name", "What the names of all output files begin with.", {.defaultNote = "the job file's name without its ending"}),
    Row<ProjectTable, &ProjectTable::settingsFile>("settings_file", "File beside the output that keeps what the dialog changed from run to run. A second one beside it, its name with `-job.json` at the end, keeps what the job said at that time."),
    Row<ProjectTable, &ProjectTable::settings>("settings", "What the dialog changed in earlier runs. use: a value counts until the job's own value changes; the run tells which it takes. ignore: the job alone counts."),
    Row<ProjectTable, &ProjectTable::modelName>("model_name", "The model that the NC files come from."),
    Row<ProjectTable, &ProjectTable::modelRef>("model_ref", "The model's reference."),
    Row<ProjectTable, &ProjectTable::name>("name", "Project name."),
    Row<ProjectTable, &ProjectTable::number>("number", "Project number."),
    Row<ProjectTable, &ProjectTable::client>("client", "Client."),
    Row<ProjectTable, &ProjectTable::coldRolledCustomer>("cold_rolled_customer", "Customer of the cold-rolled steel."),
    Row<ProjectTable, &ProjectTable::coldRolledOrderNo>("cold_rolled_order_no", "Its order number."),
    Row<ProjectTable, &ProjectTable::coldRolledOrderDate>("cold_rolled_order_date", "Its order date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::contractor>("contractor", "Contractor."),
    Row<ProjectTable, &ProjectTable::designer>("designer", "Designer."),
    Row<ProjectTable, &ProjectTable::detailer>("detailer", "Detailer."),
    Row<ProjectTable, &ProjectTable::comments>("comments", "Comment lines."),
    Row<ProjectTable, &ProjectTable::revision>("revision", "Revision."),
    Row<ProjectTable, &ProjectTable::revisionDate>("revision_date", "Its date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::deliveryDate>("delivery_date", "Delivery date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::deliveryAddress>("delivery_address", "Lines of the delivery address."),
    Row<ProjectTable, &ProjectTable::commentMarker>("comment_marker", "What each project line in the output files begins with."),
};

constexpr Key kTolerancesKeys[] = {
    Row<TolerancesTable, &Tolerances::eps>("eps", "Below it two numbers are one.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::general>("general", "General tolerance; decides about corner notches.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::x>("x", "Tolerance along the member.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::y>("y", "Tolerance across a face; also of the sizes and distances of hole rules.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::angle>("angle", "Tolerance of directions.", {.range = kTolerance, .unit = "degrees"}),
    Row<TolerancesTable, &Tolerances::edgeDistance>("edge_distance", "Least distance of a hole from the edge of its face. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::distanceFromFace>("distance_from_face", "Least distance of a hole from the next face. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::endDistance>("end_distance", "Least distance of a hole from the member's ends. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &TolerancesTable::areDistancesChecked>("check_distances", "Whether these distances are checked at all (`hole_distance`)."),
};

constexpr Key kFileKeys[] = {
    Row<FileTable, &FileTable::id>("id", "Name of the file in this job.", {.isRequired = true}),
    Row<FileTable, &FileTable::ending>("ending", "What the file's name ends with, behind `file_name`.", {.defaultNote = "required, but for the four files that are always there"}),
    Row<FileTable, &OutputFile::headerLines>("header", "Lines that the file begins with."),
    Row<FileTable, &OutputFile::hasProjectHeader>("project_header", "Whether the project data follow them."),
    Row<FileTable, &FileTable::lineEnds>("line_ends", "What ends each line: LF, or CR and LF.", {.defaultNote = "\"lf\", or what `format` says"}),
    Row<FileTable, &FileTable::format>("format", "How members are written: \"records\", \"csv\", \"dstv\", or the name of a format file, relative to the job file's folder. For `order` and files of the job's own."),
    Row<FileTable, &FileTable::folder>("folder", "With the format \"dstv\", in place of `ending`: the folder of the output that the NC files go to.", {.defaultNote = "\"nc\""}),
    Row<FileTable, &FileTable::names>("names", "Their names: `{mark}`, `{profile}`, `{drawing}`, `{phase}`, `{order}` and `{group}` are filled in.", {.defaultNote = "\"{mark}.nc1\""}),
};

// What the secondary parts and every other group have in common.
constexpr const char* kGroupFilesMeaning = "The files that the members are written to, by id. The first is the main one: header lines go there.";
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
    Row<GroupTable, &Group::plan>("plan", "Which pieces come from one bar. given: the order of the library, from the shortest piece up; for bars of 4000 mm without kerf and grips only. least: as few bars as possible, or the least cost of several stocks.", {.defaultNote = "\"least\" where a `[[stock]]` fits the profile and there is no `reserve`, else \"given\""}),
    Row<GroupTable, &Group::reserveLength>("reserve", "An off-cut that is not longer than this gets no further piece; with the plan \"given\" only.", {.range = kDistance, .unit = "mm"}),
};

constexpr Key kCuttingKeys[] = {
    Row<CuttingTable, &Cutting::effort>("effort", "How much work a plan \"least\" may be, in millions of counted steps: 1000 are about a second. It ends before, as soon as it is proved that no plan is better. Lists of more than 70,000 pieces get more.", {.range = {1.0, 1000000.0}}),
    Row<CuttingTable, &CuttingTable::remnants>("remnants", "Table of remnants that plans \"least\" take bars from, relative to the job file's folder: CSV with the columns `profile`, `material`, `length`, `quantity` and `name`. What is left of it and the off-cuts worth keeping are written as `<file_name>-remnants.csv`; the table itself stays as it is.", {.defaultNote = "none"}),
};

constexpr Key kStockKeys[] = {
    Row<StockTable, &Stock::profilePattern>("profile", "Pattern of the profile names that the bars are of; `*` stands for any text, `?` for one character.", {.isRequired = true}),
    Row<StockTable, &Stock::length>("length", "Length of a bar.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<StockTable, &Stock::price>("price", "What a bar costs, in any unit, to three decimals. For all stocks or for none.", {.range = {0.0, 1000000.0, true}, .defaultNote = "its length"}),
    Row<StockTable, &Stock::quantity>("quantity", "How many bars there are.", {.range = kCount, .defaultNote = "as many as needed"}),
    Row<StockTable, &Stock::kerf>("kerf", "Width of a saw cut. Between n pieces lie n - 1 cuts; the one behind the last piece takes its kerf out of the off-cut.", {.range = {0.0, 100.0}, .unit = "mm"}),
    Row<StockTable, &Stock::gripStart>("grip_start", "Part of the bar's start that nothing is cut from.", {.range = kDistance, .unit = "mm"}),
    Row<StockTable, &Stock::gripEnd>("grip_end", "The same at its end.", {.range = kDistance, .unit = "mm"}),
    Row<StockTable, &Stock::leastOffcut>("least_offcut", "An off-cut from this length on is kept.", {.range = kSize, .unit = "mm", .defaultNote = "none is kept"}),
};

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

constexpr const char* kUncoveredActionMeaning = "report: a finding, and no output. output: a finding, and output under `code`. accept: output under `code`.";

constexpr Key kUncoveredNotchesKeys[] = {
    Row<UncoveredNotchesTable, &UncoveredRule::action>("action", kUncoveredActionMeaning),
    Row<UncoveredNotchesTable, &UncoveredNotchesTable::code>("code", "What they are output as. `{length}` and `{width}` of a rectangle, `{face}`, `{x}` and `{y}` are filled in."),
};

constexpr Key kUncoveredHolesKeys[] = {
    Row<UncoveredHolesTable, &UncoveredRule::action>("action", kUncoveredActionMeaning),
    Row<UncoveredHolesTable, &UncoveredHolesTable::code>("code", "What they are output as; filled in like the `code` of a hole rule."),
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

constexpr Key kPatternHoleKeys[] = {
    Row<PatternHoleTable, &PatternHole::diameter>("diameter", "Diameter.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<PatternHoleTable, &PatternHole::code>("code", "The code that it must have got from its hole rule.", {.isRequired = true}),
    Row<PatternHoleTable, &PatternHole::positions>("positions", "Where along the member it may be, any of them. Between 0 and 1: a part of the length; below 0: from the far end; else from the start.", {.isRequired = true, .range = kCoordinate, .unit = "mm"}),
    Row<PatternHoleTable, &PatternHoleTable::message>("message", "What is said when it is missing, with a conversion such as `%.1f` for the diameter and one for the position."),
};

constexpr Key kAssemblyPartKeys[] = {
    Row<AssemblyPartTable, &AssemblyPartTable::mark>("mark", "Mark of the single part.", {.isRequired = true}),
    Row<AssemblyPartTable, &AssemblyPartTable::count>("count", "Pieces on one main part.", {.range = {1.0, 10000.0}}),
};

constexpr Key kAdditionalInfoKeys[] = {
    Row<AdditionalInfoTable, &AdditionalInfoTable::members>("members", "First lines of the list of all members."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::nonStandard>("non_standard", "First lines of the list of non-standard members."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::errors>("errors", "First lines of the list of members with errors."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::warnings>("warnings", "First lines of the list of members with warnings."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::order>("order", "Which lists are written, in this order."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::hasTotals>("totals", "Whether pieces, metres and tonnes of the valid members follow, per group and per profile; tonnes by the weight per metre of the NC files."),
};

constexpr KeyTable kJobTable{kJobKeys};
constexpr KeyTable kNcTable{kNcKeys};
constexpr KeyTable kReportsTable{kReportsKeys};
constexpr KeyTable kProjectTable{kProjectKeys};
constexpr KeyTable kTolerancesTable{kTolerancesKeys};
constexpr KeyTable kFileTable{kFileKeys};
constexpr KeyTable kSecondaryPartsTable{kSecondaryPartsKeys};
constexpr KeyTable kGroupTable{kGroupKeys};
constexpr KeyTable kCuttingTable{kCuttingKeys};
constexpr KeyTable kStockTable{kStockKeys};
constexpr KeyTable kSizeTable{kSizeKeys};
constexpr KeyTable kThicknessTable{kThicknessKeys};
constexpr KeyTable kSlopeTable{kSlopeKeys};
constexpr KeyTable kAttributesTable{kAttributesKeys};
constexpr KeyTable kFlangeZeroTable{kFlangeZeroKeys};
constexpr KeyTable kLimitsTable{kLimitsKeys};
constexpr KeyTable kReportTable{kReportKeys};
constexpr KeyTable kPairTable{kPairKeys};
constexpr KeyTable kHoleGroupTable{kHoleGroupKeys};
constexpr KeyTable kUncoveredHolesTable{kUncoveredHolesKeys};
constexpr KeyTable kUncoveredNotchesTable{kUncoveredNotchesKeys};
constexpr KeyTable kCornerNotchTable{kCornerNotchKeys};
constexpr KeyTable kTrimTable{kTrimKeys};
constexpr KeyTable kPatternHoleTable{kPatternHoleKeys};
constexpr KeyTable kAssemblyPartTable{kAssemblyPartKeys};
constexpr KeyTable kAdditionalInfoTable{kAdditionalInfoKeys};

}  // namespace

template <> constexpr const KeyTable& KeysOf<JobTable>() { return kJobTable; }
template <> constexpr const KeyTable& KeysOf<NcInput>() { return kNcTable; }
template <> constexpr const KeyTable& KeysOf<Reports>() { return kReportsTable; }
template <> constexpr const KeyTable& KeysOf<ProjectTable>() { return kProjectTable; }
template <> constexpr const KeyTable& KeysOf<TolerancesTable>() { return kTolerancesTable; }
template <> constexpr const KeyTable& KeysOf<FileTable>() { return kFileTable; }
template <> constexpr const KeyTable& KeysOf<SecondaryPartsTable>() { return kSecondaryPartsTable; }
template <> constexpr const KeyTable& KeysOf<GroupTable>() { return kGroupTable; }
template <> constexpr const KeyTable& KeysOf<CuttingTable>() { return kCuttingTable; }
template <> constexpr const KeyTable& KeysOf<StockTable>() { return kStockTable; }
template <> constexpr const KeyTable& KeysOf<SizeTable>() { return kSizeTable; }
template <> constexpr const KeyTable& KeysOf<ThicknessTable>() { return kThicknessTable; }
template <> constexpr const KeyTable& KeysOf<SlopeTable>() { return kSlopeTable; }
template <> constexpr const KeyTable& KeysOf<AttributesTable>() { return kAttributesTable; }
template <> constexpr const KeyTable& KeysOf<FlangeZero>() { return kFlangeZeroTable; }
template <> constexpr const KeyTable& KeysOf<LimitsTable>() { return kLimitsTable; }
template <> constexpr const KeyTable& KeysOf<ReportTable>() { return kReportTable; }
template <> constexpr const KeyTable& KeysOf<PairRule>() { return kPairTable; }
template <> constexpr const KeyTable& KeysOf<GroupRule>() { return kHoleGroupTable; }
template <> constexpr const KeyTable& KeysOf<UncoveredHolesTable>() { return kUncoveredHolesTable; }
template <> constexpr const KeyTable& KeysOf<UncoveredNotchesTable>() { return kUncoveredNotchesTable; }
template <> constexpr const KeyTable& KeysOf<CornerNotchTable>() { return kCornerNotchTable; }
template <> constexpr const KeyTable& KeysOf<TrimTable>() { return kTrimTable; }
template <> constexpr const KeyTable& KeysOf<PatternHoleTable>() { return kPatternHoleTable; }
template <> constexpr const KeyTable& KeysOf<AssemblyPartTable>() { return kAssemblyPartTable; }
template <> constexpr const KeyTable& KeysOf<AdditionalInfoTable>() { return kAdditionalInfoTable; }

namespace {

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

constexpr Key kFixedPatternKeys[] = {
    Row<FixedPatternTable, &FixedPatternTable::id>("id", "Name of the pattern in this job.", {.isRequired = true}),
    Row<FixedPatternTable, &FixedPattern::fixedLength>("length", "The length that the members must have (`fixed_length`).", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<FixedPatternTable, &FixedPattern::isMirrorAllowed>("mirror", "Whether the pattern may lie the other way round."),
    Row<FixedPatternTable, &FixedPatternTable::holes>("holes", "The holes that they must have.", {.isRequired = true}),
};

constexpr Key kAssemblyKeys[] = {
    Row<AssemblyTable, &AssemblyTable::main>("main", "Mark of the main part.", {.isRequired = true}),
    Row<AssemblyTable, &AssemblyTable::parts>("parts", "What is fixed to it.", {.isRequired = true}),
};

constexpr KeyTable kMemberTypeTable{kMemberTypeKeys};
constexpr KeyTable kHoleRuleTable{kHoleRuleKeys};
constexpr KeyTable kFixedPatternTable{kFixedPatternKeys};
constexpr KeyTable kAssemblyTable{kAssemblyKeys};

}  // namespace

template <> constexpr const KeyTable& KeysOf<MemberTypeTable>() { return kMemberTypeTable; }
template <> constexpr const KeyTable& KeysOf<HoleRuleTable>() { return kHoleRuleTable; }
template <> constexpr const KeyTable& KeysOf<FixedPatternTable>() { return kFixedPatternTable; }
template <> constexpr const KeyTable& KeysOf<AssemblyTable>() { return kAssemblyTable; }

namespace {

constexpr Key kDocumentKeys[] = {
    Row<JobDocument, &JobDocument::job>("job", "What to read and where to write.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::nc>("nc", "How the NC files are taken.", {.isTop = true}),
    Row<JobDocument, &JobDocument::project>("project", "Project and delivery data; they head the output files, and the project dialog shows them.", {.isTop = true}),
    Row<JobDocument, &JobDocument::tolerances>("tolerances", "How exactly holes and notches are compared, and how near to an edge they may be.", {.isTop = true}),
    Row<JobDocument, &JobDocument::files>("file", "An output file of the job's own, or a change to one of the four that are always there: `order`, `info`, `errors`, `warnings`.", {.isTop = true}),
    Row<JobDocument, &JobDocument::secondaryParts>("secondary_parts", "The group of all single parts of assemblies.", {.isTop = true}),
    Row<JobDocument, &JobDocument::groups>("group", "A group of members: a section of the orders.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::cutting>("cutting", "How the plans are made that nested members are cut by.", {.isTop = true}),
    Row<JobDocument, &JobDocument::stocks>("stock", "Bars of one length that nested members are cut from; one table per length. Without any that fits a profile: bars of 4000 mm, and no kerf.", {.isTop = true}),
    Row<JobDocument, &JobDocument::memberTypes>("member_type", "A kind of members, and how they are judged. The first that fits is a member's.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::holeRules>("hole_rule", "Which holes get which code. The first that fits is a hole's; a list that is not given fits any hole.", {.isTop = true}),
    Row<JobDocument, &JobDocument::uncoveredHoles>("uncovered_holes", "What happens to holes that no hole rule covers (`uncovered_hole`).", {.isTop = true}),
    Row<JobDocument, &JobDocument::cornerNotches>("corner_notch", "A notch at a corner that the machine has a text for. The first that fits is a notch's.", {.isTop = true}),
    Row<JobDocument, &JobDocument::uncoveredNotches>("uncovered_notches", "What happens to notches that no corner notch describes (`uncovered_notch`).", {.isTop = true}),
    Row<JobDocument, &JobDocument::trims>("trim", "A cut along a whole side of a face that the machine has a code for. The first that fits counts; a list that is not given fits any.", {.isTop = true}),
    Row<JobDocument, &JobDocument::patterns>("fixed_pattern", "The holes that members of one length must have.", {.isTop = true}),
    Row<JobDocument, &JobDocument::assemblies>("assembly", "A main part and what is fixed to it.", {.isTop = true}),
    Row<JobDocument, &JobDocument::reports>("reports", "What a run makes for people, and what the files of errors and warnings tell besides the findings.", {.isTop = true}),
    Row<JobDocument, &JobDocument::additionalInfo>("additional_info", "The lists of members in the file `info`.", {.isTop = true}),
};
constexpr KeyTable kDocumentTable{kDocumentKeys};

// clang-format on

}  // namespace

const char* NameOf(eHoleFace face) {
    return face >= 0 && face < eHoleFaceNone ? kFaces[static_cast<std::size_t>(face)].word : "";
}

const char* NameOf(MarkSource source) {
    return kMarkSourceWords[static_cast<std::size_t>(source)].word;
}

const char* NameOf(NcEncoding encoding) {
    return kNcEncodings[static_cast<std::size_t>(encoding)].word;
}

const char* NameOfReport(eReportingTypes report) {
    const auto* const at = std::find_if(std::begin(kReportTypes),
                                        std::end(kReportTypes),
                                        [&](const auto& choice) { return choice.value == report; });
    return at == std::end(kReportTypes) ? NameOfReport(eReportingWarning) : at->word;
}

std::vector<JobKeyTable> ListJobKeys() {
    return ListKeys(kDocumentTable);
}

JobDocument ReadTables(const toml::table& file, JobFaults& faults) {
    JobDocument document;
    ReadTable(kDocumentTable, "", file, &document, faults);
    return document;
}

}  // namespace job

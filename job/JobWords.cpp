#include "job/JobWords.h"

#include "job/ReportWords.h"

#include <algorithm>
#include <iterator>

// The words of a job file for each choice.

namespace job {

namespace {

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

// clang-format on

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

}  // namespace job

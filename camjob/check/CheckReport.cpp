#include "camjob/check/CheckReport.h"

#include "camjob/check/FaceWords.h"
#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/MemberTypeSearch.h"
#include "plugin/rules/UprightRectangle.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

struct Word {
    bool HoleReport::*flag;
    const wchar_t* text;
};

/// What is said of a hole without a number, in this order.
constexpr Word kWords[] = {
    {&HoleReport::hasRightThread, L"right-hand thread"},
    {&HoleReport::hasLeftThread,  L"left-hand thread" },
    {&HoleReport::isInvalid,      L"invalid"          },
    {&HoleReport::isNonStandard,  L"non-standard"     },
};

struct SetAsideWord {
    SetAside setAside;
    const wchar_t* text;
};

constexpr SetAsideWord kSetAsideWords[] = {
    {SetAside::kMarked,      L"set aside: marked in the NC data"},
    {SetAside::kInsideSlot,  L"set aside: inside a slot"        },
    {SetAside::kDuplicate,   L"set aside: duplicate"            },
    {SetAside::kCountersink, L"made with its hole"              },
};

ZetString CornerRemark(const RectangleReport& rectangle) {
    if (rectangle.cornerRadius > 0.0)
        return ZetString::format(L"radius %.1f", rectangle.cornerRadius);
    return L"sharp corners";
}

std::vector<ZetString> Remarks(const HoleReport& hole) {
    std::vector<ZetString> remarks;
    for (const SetAsideWord& word : kSetAsideWords)
        if (word.setAside == hole.setAside)
            remarks.emplace_back(word.text);
    for (const Word& word : kWords)
        if (hole.*word.flag)
            remarks.emplace_back(word.text);
    // A companion never takes part in processing.
    if (hole.isNotProcessed && hole.setAside != SetAside::kCountersink)
        remarks.emplace_back(L"not processed");
    if (hole.rectangle) {
        remarks.push_back(
            ZetString::format(L"b %.1f x h %.1f", hole.rectangle->b, hole.rectangle->h));
        remarks.push_back(CornerRemark(*hole.rectangle));
    }
    if (hole.angle)
        remarks.push_back(ZetString::format(L"angle %.1f", *hole.angle));
    if (hole.depth)
        remarks.push_back(ZetString::format(L"%.1f deep", *hole.depth));
    if (hole.sinkAngle)
        remarks.push_back(ZetString::format(L"sink angle %.1f", *hole.sinkAngle));
    return remarks;
}

/// The record calls every hole of another kind unknown; a thread is not.
ZetString ShapeWord(const CHoleAddlInfo& record, bool hasThread) {
    if (hasThread && record.GetHoleShapeType() == eHoleShapeUnknown)
        return L"threaded";
    return record.GetHoleTypeForOutPut();
}

std::optional<double> UnlessZero(double value) {
    return value == 0.0 ? std::nullopt : std::optional(value);
}

void AddSlot(HoleReport& report, const CHoleAddlInfo& record) {
    report.length = record.GetHoleData().slotLength + record.GetSize();
    report.angle = record.GetSlotAngle();
}

bool IsRectangle(const dstv::NcHole* source, const CHoleAddlInfo& record) {
    return source == nullptr ? record.GetIsRectHole() || record.GetIsSqrHole()
                             : source->form == dstv::NcHoleForm::kRectangle;
}

/// A rectangular hole of the file, or (null) an opening that a rule of the job makes one.
void AddRectangle(HoleReport& report, const dstv::NcHole* source, const CHoleAddlInfo& record) {
    report.length = record.GetIsSqrHole() ? record.GetSize() : record.GetHoleData().slotLength;
    report.angle = source == nullptr ? 0.0 : source->slotAngle;
    if (source != nullptr)
        report.rectangle =
            RectangleReport{source->slotWidth, source->slotHeight, source->diameter * 0.5};
}

void AddFlags(HoleReport& report, const CHoleAddlInfo& record) {
    report.isCountersunk = record.GetIsCSK();
    report.isNotProcessed = !record.GetIsReqdToProcess();
    report.hasRightThread = record.GetHoleData().kind == ZetNCHoleData::eKindThreadRight;
    report.hasLeftThread = record.GetHoleData().kind == ZetNCHoleData::eKindThreadLeft;
    report.isInvalid = !record.GetValid();
    report.isNonStandard = record.GetNonStd();
    ZetArray<ZetString> warnings;
    report.hasWarnings = record.GetWarMsg(warnings);
}

/// The lines of a part's holes and openings, found by their line.
class HoleSources {
  public:
    HoleSources(const dstv::NcFileEntity& entity, const ZetNCStructure& structure);

    struct Source {
        const dstv::NcHole* hole;  ///< null: an opening
        int viewPosition;
    };
    /// Null for what is neither.
    const Source* Find(long line) const;
    /// Null for what is no hole of the file.
    const dstv::NcHole* FindHole(long line) const;

  private:
    std::unordered_map<long, Source> m_byLine;
};

HoleSources::HoleSources(const dstv::NcFileEntity& entity, const ZetNCStructure& structure) {
    const std::vector<dstv::NcHole>& holes = entity.getPart().holes;
    for (std::size_t i = 0; i < holes.size(); ++i) {
        const ZetNCView& view = structure.getViews()[entity.getHoleTargets()[i].view];
        m_byLine.insert({
            holes[i].line, {&holes[i], view.getViewPos()}
        });
    }
    for (const ZetNCView& view : structure.getViews())
        for (const ZetNCContour& opening : view.getInternalContours())
            m_byLine.insert({
                opening.hostTag, {nullptr, view.getViewPos()}
            });
}

const HoleSources::Source* HoleSources::Find(long line) const {
    const auto at = m_byLine.find(line);
    return at == m_byLine.end() ? nullptr : &at->second;
}

const dstv::NcHole* HoleSources::FindHole(long line) const {
    const Source* source = Find(line);
    return source == nullptr ? nullptr : source->hole;
}

HoleReport MakeHoleReport(const plugin::MemberHole& hole, const HoleSources::Source& source) {
    const CHoleAddlInfo& record = hole.record;
    HoleReport report;
    report.line = record.GetHoleData().hostTag;
    report.face = ViewWord(source.viewPosition, record.GetViewData().GetHoleFace());
    report.viewPosition = source.viewPosition;
    report.x = record.GetXPos();
    report.y = record.GetYPos();
    report.size = record.GetSize();
    if (source.hole != nullptr) {
        report.depth = UnlessZero(source.hole->depth);
        report.sinkAngle = UnlessZero(source.hole->sinkAngle);
    }
    report.setAside = hole.setAside;
    report.code = record.GetHoleCode();
    AddFlags(report, record);
    report.shape = ShapeWord(record, report.hasRightThread || report.hasLeftThread);
    if (record.GetIsSlot())
        AddSlot(report, record);
    if (IsRectangle(source.hole, record))
        AddRectangle(report, source.hole, record);
    report.remarks = Remarks(report);
    return report;
}

/// The record of a rectangular hole, which the NC data holds as an opening.
CHoleAddlInfo RectangleRecord(const CNotchAddInfo& opening, const dstv::NcHole& hole) {
    const double length = hole.slotWidth + hole.diameter;
    const double width = hole.slotHeight + hole.diameter;
    // The mean of many corners is off by rounding.
    constexpr int kDecimals = 6;
    const double x = opening.GetXPos(kDecimals);
    const double y = opening.GetYPos(kDecimals);
    ZetNCHoleData data;
    data.hostTag = hole.line;
    CHoleAddlInfo record;
    record.SetHoleData(data);
    record.CorrectData(opening.GetViewData());
    if (length == width)
        record.SetSqrHoleData(width, x, y);
    else
        record.SetRectHoleData(length, width, x, y, opening.GetViewData());
    return record;
}

void AddRectangles(const ZetArray<CNotchAddInfo>& notches,
                   SetAside setAside,
                   const HoleSources& sources,
                   std::vector<HoleReport>& reports) {
    for (const CNotchAddInfo& notch : notches) {
        const auto* source = sources.Find(notch.GetContour().hostTag);
        if (source != nullptr && source->hole != nullptr)
            reports.push_back(
                MakeHoleReport({RectangleRecord(notch, *source->hole), setAside}, *source));
    }
}

std::vector<HoleReport> MakeHoleReports(const plugin::JobMember& member,
                                        const HoleSources& sources) {
    std::vector<HoleReport> reports;
    for (const plugin::MemberHole& hole : member.CollectHoles()) {
        if (const auto* source = sources.Find(hole.record.GetHoleData().hostTag))
            reports.push_back(MakeHoleReport(hole, *source));
    }
    AddRectangles(member.GetNotches(), SetAside::kNot, sources, reports);
    AddRectangles(member.GetDuplicateNotches(), SetAside::kDuplicate, sources, reports);
    std::sort(reports.begin(), reports.end(), [](const HoleReport& a, const HoleReport& b) {
        return a.line < b.line;
    });
    return reports;
}

struct NotchStatusWord {
    eNotchStatus status;
    const wchar_t* text;
};

constexpr NotchStatusWord kNotchStatusWords[] = {
    {eNotchValid,         L"valid"         },
    {eNotchCornerMatched, L"corner matched"},
    {eNotchNotAllowed,    L"not allowed"   },
};

ZetString StatusWord(eNotchStatus status) {
    for (const NotchStatusWord& word : kNotchStatusWords)
        if (word.status == status)
            return word.text;
    return L"unknown";
}

ZetString ShapeWord(const CNotchAddInfo& notch) {
    if (!plugin::IsRectangle(notch))
        return L"outline";
    return notch.GetIsSqr() ? L"square" : L"rectangle";
}

/// Flange coordinates of the member type become those of the file again.
std::vector<ZetGeomPoint2d> OutlineInFile(const CNotchAddInfo& notch, const job::MemberType& type) {
    std::vector<ZetGeomPoint2d> outline(notch.GetOutline().begin(), notch.GetOutline().end());
    const eHoleFace face = notch.GetViewData().GetHoleFace();
    if (face != eHoleFaceTopFlange && face != eHoleFaceBottomFlange)
        return outline;
    const job::FlangeZero& zero = face == eHoleFaceTopFlange ? type.topFlange : type.bottomFlange;
    for (ZetGeomPoint2d& point : outline)
        point.y = plugin::FileYOf(point.y, zero);
    return outline;
}

NotchReport MakeNotchReport(const CNotchAddInfo& notch,
                            bool isDuplicate,
                            const HoleSources& sources,
                            const job::MemberType& type) {
    NotchReport report;
    report.holeFace = notch.GetViewData().GetHoleFace();
    report.face = FaceWord(report.holeFace);
    report.isInternal = notch.GetIsInternal();
    report.x = notch.GetXPos();
    report.y = notch.GetYPos();
    report.shape = ShapeWord(notch);
    if (plugin::IsRectangle(notch)) {
        report.length = notch.GetLength();
        report.width = notch.GetWidth();
        report.isTurned = !notch.GetIsParallelToAxis();
    }
    report.corners = std::max(notch.GetNoOfVertices() - 1, 0L);
    report.status = StatusWord(notch.GetNotchStatus());
    report.code = notch.GetOutMsg();
    report.isDuplicate = isDuplicate;
    if (const dstv::NcHole* hole = sources.FindHole(notch.GetContour().hostTag))
        report.holeLine = hole->line;
    report.line = notch.GetContour().hostTag;
    report.outline = OutlineInFile(notch, type);
    return report;
}

void AddNotches(const ZetArray<CNotchAddInfo>& notches,
                bool areDuplicates,
                const HoleSources& sources,
                const job::MemberType& type,
                std::vector<NotchReport>& reports) {
    for (const CNotchAddInfo& notch : notches) {
        // An outline that cuts nothing is no notch.
        if (notch.GetNotchStatus() != eNotchNone)
            reports.push_back(MakeNotchReport(notch, areDuplicates, sources, type));
    }
}

/// By job::TrimSide.
constexpr std::array kSideWords = {L"start", L"end", L"lower", L"upper"};

std::vector<CutReport> MakeCutReports(const plugin::JobMember& member) {
    std::vector<CutReport> reports;
    for (const plugin::Trim& trim : member.GetTrims())
        reports.push_back({.kind = L"trim",
                           .line = trim.tag,
                           .face = FaceWord(trim.face),
                           .side = kSideWords[static_cast<std::size_t>(trim.side)],
                           .at = trim.at,
                           .code = trim.code});
    for (const ZetNCCut& cut : member.GetMitres())
        reports.push_back({.kind = L"mitre",
                           .line = cut.hostTag,
                           .face = cut.face == ZetNCCut::eFaceWeb ? L"web" : L"flange",
                           .side = cut.end == ZetNCCut::eEndStart ? L"start" : L"end",
                           .at = cut.x,
                           .angle = cut.angle});
    return reports;
}

/// A closed contour repeats its first point.
long CornerCount(const ZetNCContour& contour) {
    const long count = contour.getPointCount();
    const bool isClosed = count > 1 && contour.xValues.first() == contour.xValues.last() &&
                          contour.yValues.first() == contour.yValues.last();
    return isClosed ? count - 1 : count;
}

FaceReport MakeFaceReport(const ZetNCView& view, long rectangles) {
    FaceReport report;
    report.face = ViewWord(view.getViewPos());
    report.viewPosition = view.getViewPos();
    for (const ZetNCContour& contour : view.getExternalContours())
        report.externalPoints.push_back(CornerCount(contour));
    report.internalContours = view.getInternalContours().length() - rectangles;
    report.marks = view.getMarks().length();
    report.numerations = view.getNumerations().length();
    return report;
}

bool IsEmpty(const FaceReport& face) {
    return face.externalPoints.empty() && face.internalContours == 0 && face.marks == 0 &&
           face.numerations == 0;
}

/// Rectangular holes per view.
std::vector<long> CountRectangles(const dstv::NcFileEntity& entity, long views) {
    std::vector<long> counts(static_cast<std::size_t>(views));
    const std::vector<dstv::NcHole>& holes = entity.getPart().holes;
    for (std::size_t i = 0; i < holes.size(); ++i)
        if (holes[i].form == dstv::NcHoleForm::kRectangle)
            ++counts[static_cast<std::size_t>(entity.getHoleTargets()[i].view)];
    return counts;
}

std::vector<FaceReport> MakeFaceReports(const dstv::NcFileEntity& entity,
                                        const ZetNCStructure& structure) {
    const ZetArray<ZetNCView>& views = structure.getViews();
    const std::vector<long> rectangles = CountRectangles(entity, views.length());
    std::vector<FaceReport> faces;
    for (long i = 0; i < views.length(); ++i) {
        FaceReport face = MakeFaceReport(views[i], rectangles[static_cast<std::size_t>(i)]);
        if (!IsEmpty(face))
            faces.push_back(std::move(face));
    }
    return faces;
}

std::vector<ZetString> ListOf(const ZetArray<ZetString>& lines) {
    return {lines.begin(), lines.end()};
}

JudgementReport MakeJudgement(plugin::JobMember& member, const job::MemberType& type) {
    member.SettleReport();
    return {type.id,
            type.isSkipped,
            member.GetOutcome().isValid,
            ListOf(member.GetErrorBlock()),
            ListOf(member.GetWarningBlock())};
}

dstv::NcError Unmatched(const dstv::NcPart& part, const ZetString& why) {
    return {part.file,
            part.header.lineOf(dstv::NcHeaderValue::kProfileName),
            0,
            L"profile",
            part.header.profileName,
            L"one that the job can judge (code " + part.header.profileCode + L"): " + why};
}

/// Of the reader and of the plug-in, by their lines.
std::vector<dstv::NcNote> NotesOf(const dstv::NcFileEntity& entity,
                                  const plugin::JobMember& member) {
    std::vector<dstv::NcNote> notes = entity.getPart().notes;
    for (const plugin::FeatureNote& note : member.GetNotes())
        notes.push_back({dstv::NcNote::Severity::kNote, note.feature.tag, note.text});
    std::stable_sort(
        notes.begin(), notes.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
    return notes;
}

/// Main parts answer as such, so that they are not judged as single parts.
void TellAssemblies(dstv::NcFileEntity& entity, const job::Job& job) {
    for (const job::Assembly& assembly : job.assemblies)
        if (assembly.mark == entity.getPart().header.mark)
            entity.setAssembly({});
}

}  // namespace

bool CheckReport::HasErrors() const {
    return std::any_of(
        findings.begin(), findings.end(), [](const auto& finding) { return finding.IsError(); });
}

CheckReport ReportOf(const dstv::NcFileEntity& entity,
                     const ZetNCCreator& creator,
                     const plugin::JobMember& member,
                     const job::MemberType& type) {
    CheckReport report;
    report.file = entity.getPart().file;
    report.header = creator.getHeader();
    report.headerPlaces = HeaderPlacesOf(entity.getPart().header);
    report.notes = NotesOf(entity, member);
    const HoleSources sources(entity, creator.getNCStructure());
    report.holes = MakeHoleReports(member, sources);
    AddNotches(member.GetNotches(), false, sources, type, report.notches);
    AddNotches(member.GetDuplicateNotches(), true, sources, type, report.notches);
    report.cuts = MakeCutReports(member);
    report.findings = member.GetFindings();
    report.faces = MakeFaceReports(entity, creator.getNCStructure());
    return report;
}

CheckResult MakeCheckReport(dstv::NcFileEntity& entity, const CheckRules& rules) {
    TellAssemblies(entity, rules.rules.GetJob());
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    const job::MemberType* type = rules.rules.FindMemberType(creator);
    const dstv::NcHeader& header = entity.getPart().header;
    if (const ZetString why =
            plugin::WhyUnmatched(rules.rules.GetJob(), header.profileName, header.profileCode);
        type == nullptr || (!why.isEmpty() && !type->isSkipped))
        return Unmatched(entity.getPart(), why);
    plugin::JobMember member(rules.rules, *type, creator);
    member.ValidateMember();
    CheckReport report = ReportOf(entity, creator, member, *type);
    if (rules.isJob)
        report.judgement = MakeJudgement(member, *type);
    return report;
}

}  // namespace camjob

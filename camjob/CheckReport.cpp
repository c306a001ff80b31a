#include "camjob/CheckReport.h"

#include "camjob/HoleRecords.h"

#include <utility>

namespace camjob {

namespace {

struct Word {
    bool HoleReport::*flag;
    const wchar_t* text;
};

/// What is said of a hole without a number, in this order.
constexpr Word kWords[] = {
    {&HoleReport::isCompanion,    L"companion"        },
    {&HoleReport::isNotProcessed, L"not processed"    },
    {&HoleReport::hasRightThread, L"right-hand thread"},
    {&HoleReport::hasLeftThread,  L"left-hand thread" },
    {&HoleReport::isInvalid,      L"invalid"          },
    {&HoleReport::isNonStandard,  L"non-standard"     },
};

ZetString CornerRemark(const RectangleReport& rectangle) {
    if (rectangle.cornerRadius > 0.0)
        return ZetString::format(L"radius %.1f", rectangle.cornerRadius);
    return L"sharp corners";
}

std::vector<ZetString> Remarks(const HoleReport& hole) {
    std::vector<ZetString> remarks;
    for (const Word& word : kWords)
        if (hole.*word.flag)
            remarks.emplace_back(word.text);
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

void AddRectangle(HoleReport& report, const dstv::NcHole& source, const CHoleAddlInfo& record) {
    report.rectangle = RectangleReport{source.slotWidth, source.slotHeight, source.diameter * 0.5};
    report.length = record.GetIsSqrHole() ? record.GetSize() : record.GetHoleData().slotLength;
    report.angle = source.slotAngle;
}

void AddFlags(HoleReport& report, const CHoleAddlInfo& record) {
    report.isCountersunk = record.GetIsCSK();
    report.isCompanion = record.GetHoleStatus() == eHoleStatusCSK;
    report.isNotProcessed = !record.GetIsReqdToProcess();
    report.hasRightThread = record.GetHoleData().kind == ZetNCHoleData::eKindThreadRight;
    report.hasLeftThread = record.GetHoleData().kind == ZetNCHoleData::eKindThreadLeft;
    report.isInvalid = !record.GetValid();
    report.isNonStandard = record.GetNonStd();
}

HoleReport MakeHoleReport(const HoleRecord& hole) {
    const CHoleAddlInfo& record = hole.record;
    HoleReport report;
    report.line = hole.source->line;
    report.face = FaceWord(hole.viewPosition);
    report.viewPosition = hole.viewPosition;
    report.x = record.GetXPos();
    report.y = record.GetYPos();
    report.size = record.GetSize();
    report.depth = UnlessZero(hole.source->depth);
    report.sinkAngle = UnlessZero(hole.source->sinkAngle);
    AddFlags(report, record);
    report.shape = ShapeWord(record, report.hasRightThread || report.hasLeftThread);
    if (record.GetIsSlot())
        AddSlot(report, record);
    if (hole.source->form == dstv::NcHoleForm::kRectangle)
        AddRectangle(report, *hole.source, record);
    report.remarks = Remarks(report);
    return report;
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
    report.face = FaceWord(view.getViewPos());
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

}  // namespace

CheckReport MakeCheckReport(dstv::NcPart part) {
    dstv::NcFileEntity entity(std::move(part));
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();

    CheckReport report;
    report.file = entity.getPart().file;
    report.header = creator.getHeader();
    report.notes = entity.getPart().notes;
    for (const HoleRecord& hole : MakeHoleRecords(entity, creator))
        report.holes.push_back(MakeHoleReport(hole));
    report.faces = MakeFaceReports(entity, creator.getNCStructure());
    return report;
}

}  // namespace camjob

#include "camjob/show/PartDrawing.h"

#include "camjob/check/FaceWords.h"
#include "camjob/console/ReportText.h"
#include "dstv/NcGeometry.h"
#include "profiles/SectionWalls.h"
#include "report/drawing/ArcEdges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <numbers>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

using report::DrawnFeature;
using report::FeatureKind;
using report::FeatureState;
using report::Polyline;

constexpr int kTopFlange = 0;
constexpr int kWeb = 1;
constexpr int kBottomFlange = 2;
constexpr int kWebBack = 3;

/// The faces of a profile code, whether they hold something or not; from the lowest up.
struct CodeFaces {
    const wchar_t* code;  ///< null: all others
    std::array<int, 4> positions;
    std::size_t count;
};

constexpr CodeFaces kCodeFaces[] = {
    {L"B",    {kWeb},                                      1},
    {L"RO",   {kWeb},                                      1},
    {L"RU",   {kWeb},                                      1},
    {L"L",    {kBottomFlange, kWeb},                       2},
    {L"M",    {kBottomFlange, kWeb, kTopFlange, kWebBack}, 4},
    {nullptr, {kBottomFlange, kWeb, kTopFlange},           3},
};

/// Faces that have no position of their own are not in it.
constexpr std::pair<eHoleFace, int> kPositionsOfFaces[] = {
    {eHoleFaceTopFlange,    kTopFlange   },
    {eHoleFaceWeb,          kWeb         },
    {eHoleFaceBottomFlange, kBottomFlange},
    {eHoleFaceWebBack,      kWebBack     },
};

report::Point PointOf(const ZetGeomPoint2d& point) {
    return {point.x, point.y};
}

report::Polyline PolylineOf(const ZetNCContour& contour) {
    report::Polyline line;
    for (long i = 0; i < contour.getPointCount(); ++i)
        line.push_back({contour.xValues[i], contour.yValues[i]});
    return line;
}

template <typename Points>
report::Polyline PolylineOf(const Points& points) {
    report::Polyline line;
    for (const ZetGeomPoint2d& point : points)
        line.push_back(PointOf(point));
    return line;
}

report::Point MiddleOf(const report::Polyline& line) {
    return report::BoxOf(line).Middle();
}

FeatureState StateOf(const HoleReport& hole) {
    if (hole.IsSetAside())
        return FeatureState::kSetAside;
    if (hole.isInvalid)
        return FeatureState::kError;
    return hole.hasWarnings ? FeatureState::kWarning : FeatureState::kInOrder;
}

/// What is wrong with one is among the findings.
FeatureState StateOf(const NotchReport& notch) {
    return notch.isDuplicate ? FeatureState::kSetAside : FeatureState::kInOrder;
}

bool IsNonStandard(const plugin::Finding& finding) {
    return finding.report == eReportingNonStd || finding.report == eReportingSecondNonStd;
}

/// A feature that is only not standard is in order, as long as it is made.
FeatureState StateOf(const plugin::Finding& finding) {
    if (finding.IsError())
        return FeatureState::kError;
    const bool isMade = !finding.isRefusal && (IsNonStandard(finding) || !finding.IsPrinted());
    return isMade ? FeatureState::kInOrder : FeatureState::kWarning;
}

report::DrawnFinding DrawnFindingOf(const plugin::Finding& finding, const HeaderPlaces& places) {
    report::DrawnFinding drawn;
    drawn.state = StateOf(finding);
    drawn.text = finding.text.toUtf8();
    drawn.line = LineOf(finding, places);
    drawn.isNonStandard = IsNonStandard(finding);
    drawn.rule = DescribeRule(finding).toUtf8();
    drawn.remedy = job::kFindingTypes[finding.type].remedy;
    return drawn;
}

FeatureKind KindOf(const dstv::NcHole& hole) {
    if (hole.form == dstv::NcHoleForm::kRectangle)
        return FeatureKind::kRectangle;
    if (hole.kind == dstv::NcHoleKind::kCountersunk)
        return FeatureKind::kSink;
    return hole.form == dstv::NcHoleForm::kSlot ? FeatureKind::kSlot : FeatureKind::kHole;
}

std::set<long> LinesOf(const std::vector<DrawnFeature>& features) {
    std::set<long> lines;
    for (const DrawnFeature& feature : features)
        lines.insert(feature.line);
    return lines;
}

/// Of the features of one line, those of the highest rank show what is wrong: notches and trims
/// that have no code, then those that have one, then the outline that they are a part of.
int RankOf(const DrawnFeature& feature) {
    if (feature.state == FeatureState::kSetAside)
        return 0;
    if (feature.kind != FeatureKind::kNotch && feature.kind != FeatureKind::kTrim)
        return 1;
    return feature.code.empty() ? 3 : 2;
}

class DrawingMaker {
  public:
    DrawingMaker(const dstv::NcFileEntity& entity, const CheckReport& report)
        : m_entity(entity), m_report(report), m_structure(entity.getNCStructure(0)) {}

    report::MemberDrawing Make();

  private:
    const dstv::NcHeader& GetHeader() const { return m_entity.getPart().header; }
    void AddFaces();
    void AddFace(int position);
    double WidthOf(int position) const;
    void AddHoles();
    void AddHole(const dstv::NcHole& hole, const dstv::NcHoleTarget& target);
    void AddHolesOfOpenings(const ZetNCView& view);
    void TakeReport(DrawnFeature& feature);
    void AddNotches();
    void AddNotch(const NotchReport& notch, std::size_t face);
    void AddMarks(const ZetNCView& view);
    void AddOutlines(const ZetNCView& view);
    void AddTrims();
    DrawnFeature TrimOf(const CutReport& cut, const DrawnFeature& outline) const;
    void AddMitre(const ZetNCCut& cut, int position);
    void AddMitres();
    void RaiseStates();

    const dstv::NcFileEntity& m_entity;
    const CheckReport& m_report;
    ZetNCStructure m_structure;
    std::map<int, std::size_t> m_faceOfPosition;
    std::unordered_map<long, const HoleReport*> m_holeOfLine;
    report::MemberDrawing m_drawing;
};

report::MemberDrawing DrawingMaker::Make() {
    const dstv::NcHeader& header = GetHeader();
    m_drawing.mark = header.mark.toUtf8();
    m_drawing.profile = header.profileName.toUtf8();
    m_drawing.material = header.steelQuality.toUtf8();
    m_drawing.length = header.length;
    for (const HoleReport& hole : m_report.holes)
        m_holeOfLine.insert({hole.line, &hole});
    AddFaces();
    AddHoles();
    AddNotches();
    for (const ZetNCView& view : m_structure.getViews())
        AddMarks(view);
    for (const ZetNCView& view : m_structure.getViews())
        AddOutlines(view);
    AddTrims();
    AddMitres();
    m_drawing.findings = DrawnFindings(m_report.findings, m_report.headerPlaces);
    RaiseStates();
    return std::move(m_drawing);
}

void DrawingMaker::AddFaces() {
    const auto* const faces =
        std::find_if(std::begin(kCodeFaces), std::end(kCodeFaces), [&](const CodeFaces& row) {
            return row.code == nullptr || GetHeader().profileCode == row.code;
        });
    for (std::size_t i = 0; i < faces->count; ++i)
        AddFace(faces->positions[i]);
    for (const ZetNCView& view : m_structure.getViews()) {
        AddFace(view.getViewPos());
        for (const ZetNCContour& contour : view.getExternalContours())
            m_drawing.faces[m_faceOfPosition.at(view.getViewPos())].outlines.push_back(
                PolylineOf(contour));
    }
}

void DrawingMaker::AddFace(int position) {
    if (!m_faceOfPosition.insert({position, m_drawing.faces.size()}).second)
        return;
    m_drawing.faces.push_back({ViewWord(position).toUtf8(),
                               position,
                               WidthOf(position),
                               profiles::IsUnrolled(GetHeader().profileCode.view(), position),
                               {}});
}

/// A plane of its own is as wide as what lies on it.
double DrawingMaker::WidthOf(int position) const {
    const dstv::NcHeader& header = GetHeader();
    const std::wstring_view code = header.profileCode.view();
    if (profiles::IsUnrolled(code, position))
        return header.profileHeight * std::numbers::pi;
    if (position == kTopFlange || position == kBottomFlange)
        return profiles::IsRound(code) ? header.profileHeight : header.flangeWidth;
    if (position == kWeb || position == kWebBack)
        return header.profileCode == L"B" ? m_report.header.width : header.profileHeight;
    double width = 1.0;
    for (const ZetNCView& view : m_structure.getViews()) {
        if (view.getViewPos() != position)
            continue;
        for (const ZetNCHoleData& hole : view.getHoles())
            width = std::max(width, hole.y + hole.size);
        for (const ZetNCContour& contour : view.getExternalContours())
            for (const double y : contour.yValues)
                width = std::max(width, y);
    }
    return width;
}

void DrawingMaker::AddHoles() {
    const std::vector<dstv::NcHole>& holes = m_entity.getPart().holes;
    for (std::size_t i = 0; i < holes.size(); ++i)
        if (holes[i].form != dstv::NcHoleForm::kMark)
            AddHole(holes[i], m_entity.getHoleTargets()[i]);
    for (const ZetNCView& view : m_structure.getViews())
        AddHolesOfOpenings(view);
}

/// Openings that the rules take for holes: round ones, and rectangles that a hole rule covers.
void DrawingMaker::AddHolesOfOpenings(const ZetNCView& view) {
    if (view.getInternalContours().isEmpty())
        return;
    const std::set<long> drawn = LinesOf(m_drawing.features);
    for (const ZetNCContour& contour : view.getInternalContours()) {
        const auto hole = m_holeOfLine.find(contour.hostTag);
        if (hole == m_holeOfLine.end() || drawn.count(contour.hostTag) > 0)
            continue;
        DrawnFeature feature;
        feature.face = m_faceOfPosition.at(view.getViewPos());
        feature.line = contour.hostTag;
        const Polyline outline = PolylineOf(contour);
        feature.at = MiddleOf(outline);
        if (hole->second->length) {
            feature.kind = FeatureKind::kRectangle;
            feature.outline = outline;
        }
        TakeReport(feature);
        m_drawing.features.push_back(std::move(feature));
    }
}

void DrawingMaker::AddHole(const dstv::NcHole& hole, const dstv::NcHoleTarget& target) {
    const ZetNCView& view = m_structure.getViews()[target.view];
    DrawnFeature feature;
    feature.kind = KindOf(hole);
    feature.face = m_faceOfPosition.at(view.getViewPos());
    feature.line = hole.line;
    if (feature.kind == FeatureKind::kRectangle) {
        feature.outline = PolylineOf(view.getInternalContours()[target.index]);
        feature.at = MiddleOf(feature.outline);
    } else {
        const ZetNCHoleData& data = view.getHoles()[target.index];
        // The file gives the middle of one end of a slot.
        const double angle = data.slot == 0 ? 0.0 : data.slotAngle;
        const ZetGeomVector2d along = dstv::DirectionAt(angle);
        const double half = data.slotLength / 2.0;
        feature.at = {data.x + along.x * half, data.y + along.y * half};
        feature.size = data.size;
        feature.angle = angle;
    }
    TakeReport(feature);
    m_drawing.features.push_back(std::move(feature));
}

void DrawingMaker::TakeReport(DrawnFeature& feature) {
    const auto found = m_holeOfLine.find(feature.line);
    if (found == m_holeOfLine.end())
        return;
    const HoleReport& hole = *found->second;
    feature.state = StateOf(hole);
    feature.size = hole.size;
    feature.length = hole.length.value_or(0.0);
    feature.told = {hole.x, hole.y};
    feature.shape = hole.shape.toUtf8();
    feature.code = hole.code.toUtf8();
    std::vector<ZetString> remarks = hole.remarks;
    if (feature.kind == FeatureKind::kSink && hole.setAside == SetAside::kCountersink) {
        feature.state = FeatureState::kInOrder;
        remarks.front() = L"made with its hole";
    }
    feature.remark = Joined(remarks, L", ").toUtf8();
}

/// Rectangular holes are among the holes.
void DrawingMaker::AddNotches() {
    for (const NotchReport& notch : m_report.notches) {
        const auto* const position = std::find_if(
            std::begin(kPositionsOfFaces), std::end(kPositionsOfFaces), [&](const auto& row) {
                return row.first == notch.holeFace;
            });
        if (notch.holeLine || position == std::end(kPositionsOfFaces))
            continue;
        const auto face = m_faceOfPosition.find(position->second);
        if (face != m_faceOfPosition.end())
            AddNotch(notch, face->second);
    }
}

void DrawingMaker::AddNotch(const NotchReport& notch, std::size_t face) {
    DrawnFeature feature;
    feature.kind = notch.isInternal ? FeatureKind::kOpening : FeatureKind::kNotch;
    feature.state = StateOf(notch);
    feature.face = face;
    feature.line = notch.line;
    feature.outline = PolylineOf(notch.outline);
    feature.at = MiddleOf(feature.outline);
    feature.size = notch.width.value_or(0.0);
    feature.length = notch.length.value_or(0.0);
    feature.told = {notch.x, notch.y};
    feature.shape = (notch.isInternal ? "opening, " : "notch, ") + notch.shape.toUtf8();
    feature.code = notch.code.toUtf8();
    feature.remark = notch.status.toUtf8();
    m_drawing.features.push_back(std::move(feature));
}

void DrawingMaker::AddMarks(const ZetNCView& view) {
    const std::size_t face = m_faceOfPosition.at(view.getViewPos());
    for (const ZetNCMark& mark : view.getMarks()) {
        DrawnFeature feature;
        feature.kind = FeatureKind::kMark;
        feature.face = face;
        feature.line = mark.hostTag;
        feature.outline = PolylineOf(mark.points);
        feature.at = MiddleOf(feature.outline);
        feature.told = feature.at;
        feature.shape = mark.kind == ZetNCMark::eKindPowder ? "powder mark" : "punch mark";
        m_drawing.features.push_back(std::move(feature));
    }
    for (const ZetNCNumeration& numeration : view.getNumerations()) {
        DrawnFeature feature;
        feature.kind = FeatureKind::kText;
        feature.face = face;
        feature.line = numeration.hostTag;
        feature.at = {numeration.x, numeration.y};
        feature.told = feature.at;
        feature.size = numeration.textHeight;
        feature.angle = numeration.angle;
        feature.shape = "text";
        feature.text = numeration.text.toUtf8();
        m_drawing.features.push_back(std::move(feature));
    }
}

/// What its notches do not tell.
void DrawingMaker::AddOutlines(const ZetNCView& view) {
    for (const ZetNCContour& contour : view.getExternalContours()) {
        DrawnFeature feature;
        feature.kind = FeatureKind::kOutline;
        feature.face = m_faceOfPosition.at(view.getViewPos());
        feature.line = contour.hostTag;
        feature.outline = PolylineOf(contour);
        const report::Box box = report::BoxOf(feature.outline);
        feature.at = box.Middle();
        feature.told = feature.at;
        feature.length = box.high.x - box.low.x;
        feature.size = box.high.y - box.low.y;
        feature.shape = "outline";
        m_drawing.features.push_back(std::move(feature));
    }
}

/// The edge of the outline along which its face is cut.
void DrawingMaker::AddTrims() {
    std::vector<DrawnFeature> trims;
    for (const CutReport& cut : m_report.cuts)
        for (const DrawnFeature& outline : m_drawing.features)
            if (cut.kind == std::wstring_view(L"trim") && outline.kind == FeatureKind::kOutline &&
                outline.line == cut.line)
                trims.push_back(TrimOf(cut, outline));
    m_drawing.features.insert(m_drawing.features.end(), trims.begin(), trims.end());
}

DrawnFeature DrawingMaker::TrimOf(const CutReport& cut, const DrawnFeature& outline) const {
    const auto [low, high] = report::BoxOf(outline.outline);
    const double width = m_drawing.faces[outline.face].width;
    const double length = m_drawing.length;
    const std::map<std::wstring_view, Polyline> lines = {
        {L"start", {{low.x, 0.0}, {low.x, width}}   },
        {L"end",   {{high.x, 0.0}, {high.x, width}} },
        {L"lower", {{0.0, low.y}, {length, low.y}}  },
        {L"upper", {{0.0, high.y}, {length, high.y}}}
    };
    DrawnFeature trim;
    trim.kind = FeatureKind::kTrim;
    trim.face = outline.face;
    trim.line = cut.line;
    trim.outline = lines.at(cut.side);
    trim.at = MiddleOf(trim.outline);
    trim.told = trim.at;
    trim.shape = "trim, " + ZetString(cut.side).toUtf8();
    trim.code = cut.code.toUtf8();
    return trim;
}

/// Seen on the web, or on the flanges.
void DrawingMaker::AddMitres() {
    for (const ZetNCCut& cut : m_structure.getCuts()) {
        if (cut.face == ZetNCCut::eFaceWeb) {
            AddMitre(cut, kWeb);
            continue;
        }
        AddMitre(cut, kTopFlange);
        AddMitre(cut, kBottomFlange);
    }
}

void DrawingMaker::AddMitre(const ZetNCCut& cut, int position) {
    const auto face = m_faceOfPosition.find(position);
    if (face == m_faceOfPosition.end())
        return;
    const double width = m_drawing.faces[face->second].width;
    const double lean = width * std::tan(cut.angle * std::numbers::pi / 180.0);
    // The longest side of the cut is at its X; the lower end leads by the lean.
    const bool isLowerLonger = (lean > 0.0) == (cut.end == ZetNCCut::eEndEnd);
    const double lower = isLowerLonger ? cut.x : cut.x + lean;
    DrawnFeature feature;
    feature.kind = FeatureKind::kMitre;
    feature.face = face->second;
    feature.line = cut.hostTag;
    feature.outline = {
        {lower,        0.0  },
        {lower - lean, width}
    };
    feature.at = MiddleOf(feature.outline);
    feature.told = feature.at;
    feature.angle = cut.angle;
    feature.shape = cut.end == ZetNCCut::eEndEnd ? "mitre, end" : "mitre, start";
    m_drawing.features.push_back(std::move(feature));
}

/// What is found about a feature shows in its place, also what the job leaves untold; about an
/// outline in its notches and trims. What is set aside stays so: its reason is the finding.
void DrawingMaker::RaiseStates() {
    std::unordered_map<long, FeatureState> states;
    for (const plugin::Finding& finding : m_report.findings) {
        if (!finding.feature)
            continue;
        FeatureState& state = states[finding.feature->tag];
        state = std::max(state, StateOf(finding));
    }
    std::unordered_map<long, int> ranks;
    for (const DrawnFeature& feature : m_drawing.features) {
        int& rank = ranks[feature.line];
        rank = std::max(rank, RankOf(feature));
    }
    for (DrawnFeature& feature : m_drawing.features) {
        const auto found = states.find(feature.line);
        const int rank = RankOf(feature);
        if (feature.line != 0 && found != states.end() && rank > 0 && rank == ranks[feature.line])
            feature.state = std::max(feature.state, found->second);
    }
}

}  // namespace

std::vector<report::DrawnFinding> DrawnFindings(const std::vector<plugin::Finding>& findings,
                                                const HeaderPlaces& places) {
    std::vector<report::DrawnFinding> drawn;
    for (const plugin::Finding& finding : findings)
        if (finding.IsPrinted())
            drawn.push_back(DrawnFindingOf(finding, places));
    std::stable_sort(
        drawn.begin(), drawn.end(), [](const auto& a, const auto& b) { return a.state > b.state; });
    return drawn;
}

report::MemberDrawing DrawingOf(const dstv::NcFileEntity& entity, const CheckReport& report) {
    return DrawingMaker(entity, report).Make();
}

}  // namespace camjob

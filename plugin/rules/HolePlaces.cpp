#include "plugin/rules/FaceText.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/NegativeZeros.h"
#include "profiles/SectionWalls.h"

#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

// Where holes lie: whether on their face, how near to its edges and to the ends.

namespace plugin {

namespace {

constexpr const wchar_t* kOutsideText = L"It lies outside of its face or of the member";

constexpr const wchar_t* kReachesText = L"It reaches beyond its face or the member";
constexpr const wchar_t* kCutAwayText =
    L"It lies in what an outline (of either side) or a mitre takes away";
constexpr const wchar_t* kInOpeningText = L"It lies in an opening of its face";
constexpr const wchar_t* kUnknownFaceText =
    L"the extents of its face are not known: nobody can tell whether it lies on it";
constexpr const wchar_t* kAtMitreText =
    L"it lies at a mitre: nobody can tell whether that takes it from the round section";

constexpr int kLineIndent = 20;  ///< as the library's own lines of a hole
constexpr ZetFormatString<ZetString, double, double> kPlateEdgeFormat =
    L"%sDistance (%.1f) from the edge of the plate is less than %.1f";
constexpr ZetFormatString<ZetString, double, double> kEndFormat =
    L"%sEnd distance (%.1f) is less than %.1f";

/// A limit below 0 is a multiple of the diameter.
double LimitFor(double limit, double diameter) {
    return limit < 0.0 ? -limit * diameter : limit;
}

/// A hole's centre, or those of the ends of a slot.
std::vector<ZetGeomPoint2d> CentresOf(const CHoleAddlInfo& hole, const ZetGeomPoint2d& centre) {
    if (!hole.GetIsSlot())
        return {centre};
    const ZetGeomVector2d& end = hole.GetSlotVector();
    return {
        centre + end, {centre.x - end.x, centre.y - end.y}
    };
}

/// Judged as such already.
bool IsOpening(const CHoleAddlInfo& hole) {
    return hole.GetIsRectHole() || hole.GetIsSqrHole();
}

/// Of the whole hole. An unrolled surface closes: across it only the centre counts.
FaceBox ExtentsOf(const CHoleAddlInfo& hole, bool isAcross) {
    const double radius = hole.GetSize() * 0.5;
    const ZetGeomVector2d end = hole.GetIsSlot() ? hole.GetSlotVector() : ZetGeomVector2d();
    const double x = hole.GetXPos();
    const double y = hole.GetYPos();
    return {x - std::abs(end.x) - radius,
            x + std::abs(end.x) + radius,
            isAcross ? y - std::abs(end.y) - radius : y,
            isAcross ? y + std::abs(end.y) + radius : y};
}

}  // namespace

/// The outline of a plate, seen from the front if it can be, else its box; null for other members.
const FaceOutline* JobMember::PlateOutline() {
    if (!IsPlate())
        return nullptr;
    for (const eHoleFace side : {eHoleFaceWeb, eHoleFaceWebBack})
        for (const ZetNCView& view : m_structure.getViews())
            if (!m_judging->plate && FaceAtView(view.getViewPos()) == side &&
                !view.getExternalContours().isEmpty())
                m_judging->plate.emplace(CornersOf(view.getExternalContours().first()));
    if (!m_judging->plate) {
        const ZetNCHeaderData& header = m_memType.GetHeaderData();
        m_judging->plate.emplace(std::vector<ZetGeomPoint2d>{
            {0.0,           0.0          },
            {header.length, 0.0          },
            {header.length, header.height},
            {0.0,           header.height}
        });
    }
    return &*m_judging->plate;
}

JobMember::HoleFace JobMember::FaceOfHoles(int viewPosition) {
    const FaceOutline* const plate = PlateOutline();
    return {viewPosition, BoxOfHoles(viewPosition, plate), plate};
}

/// Of the front and the back of a plate its outline's.
FaceBox JobMember::BoxOfHoles(int viewPosition, const FaceOutline* plate) const {
    const bool isSide = viewPosition < kFirstPlanePosition && !IsEdgeOfPlate(viewPosition);
    return plate != nullptr && isSide ? plate->GetBox() : SteelOfView(viewPosition);
}

/// The extents of a view's face, of a flange with a zero line from that line on.
FaceBox JobMember::SteelOfView(int viewPosition) const {
    FaceBox face = FaceOfView(viewPosition);
    const bool isTop = viewPosition == profiles::kTop;
    if ((!isTop && viewPosition != profiles::kBottom) || IsPlate() || IsRound())
        return face;
    if (std::isfinite(face.minY))
        face.minY = 0.0;
    // A section of the type's own says how far it goes, whatever the header is wide.
    const bool hasZero = (isTop ? m_type.topFlange : m_type.bottomFlange) != job::FlangeZero();
    const double width = isTop ? GetTopFlangeWidth() : GetBotFlangeWidth();
    if (m_type.hasSection && hasZero && width > 0.0)
        face.maxY = width;
    return face;
}

/// How a hole lies outside of its face or of the member; nothing when it does not. One that
/// relieves a corner of an outline does not.
std::optional<Finding> JobMember::OutsideOf(const CHoleAddlInfo& hole,
                                            const HoleFace& holeFace) const {
    const auto& [viewPosition, extents, outline] = holeFace;
    const FaceTolerance tolerance = {std::abs(CMxGeom::GetXTol()), std::abs(CMxGeom::GetYTol())};
    const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
    FaceBox face = extents;
    FaceBox middle = {centre.x, centre.x, centre.y, centre.y};
    FaceBox whole = ExtentsOf(hole, !IsUnrolled(viewPosition));
    if (const ZetGeomPlane* const plane = AskewPlaneAt(viewPosition)) {
        const ZetGeomPoint2d onPlane = {hole.GetHoleData().x, hole.GetHoleData().y};
        face = WholeMember();
        middle = AlongMember(*plane, {onPlane}, 0.0);
        whole = AlongMember(*plane, CentresOf(hole, onPlane), hole.GetSize() * 0.5);
    }
    const auto told = [&](const wchar_t* text, const FaceBox& box) -> std::optional<Finding> {
        if (!ReachesBeyond(box, face, tolerance))
            return std::nullopt;
        const Excess excess = ExcessOf(box, face);
        return Finding{.type = job::kHoleOutside,
                       .text = text,
                       .required = excess.required,
                       .found = excess.found};
    };
    if (outline != nullptr && viewPosition < kFirstPlanePosition && !IsEdgeOfPlate(viewPosition)) {
        if (outline->IsOutside(centre, tolerance.x))
            return Finding{.type = job::kHoleOutside, .text = kOutsideText};
    } else if (auto finding = told(kOutsideText, middle)) {
        return finding;
    }
    return told(kReachesText, whole);
}

/// Outside, or in what is cut away or out.
std::optional<Finding> JobMember::FaultOfPlace(const CHoleAddlInfo& hole,
                                               const HoleFace& face) const {
    const int viewPosition = face.viewPosition;
    std::optional<Finding> finding = OutsideOf(hole, face);
    if (finding)
        return finding;
    const auto told = [](const wchar_t* text) {
        return Finding{.type = job::kHoleOutside, .text = text};
    };
    if (IsOutsideSection(PlaceInView(hole, viewPosition), viewPosition))
        return told(kOutsideText);
    if (IsCutAway(hole, viewPosition))
        return told(kCutAwayText);
    if (IsInOpening(hole, viewPosition))
        return told(kInOpeningText);
    return std::nullopt;
}

bool JobMember::HasPlaceFault(const CHoleAddlInfo& hole) {
    return FaultOfPlace(hole, FaceOfHoles(static_cast<int>(ViewOf(hole)))).has_value();
}

/// What nobody can judge is told.
void JobMember::NoteUnclearPlace(long tag, const FaceBox& face, double minX, double maxX) {
    const auto note = [&](const wchar_t* text) {
        if (const std::optional<Feature> feature = FeatureOf(tag))
            m_notes.push_back({*feature, text});
    };
    if (!std::isfinite(face.Area()))
        note(kUnknownFaceText);
    if (IsRound() && IsAtMitre(minX, maxX))
        note(kAtMitreText);
}

void JobMember::CheckPlaces() {
    std::optional<HoleFace> face;  // of many holes, one after the other
    for (CHoleAddlInfo& hole : m_holes) {
        if (IsOpening(hole) && hole.GetHoleData().hostTag != 0)
            continue;
        const auto viewPosition = static_cast<int>(ViewOf(hole));
        if (!face || face->viewPosition != viewPosition)
            face = FaceOfHoles(viewPosition);
        if (std::optional<Finding> finding = FaultOfPlace(hole, *face))
            RefuseHole(std::move(*finding), hole);
        else
            NoteUnclearPlace(hole.GetHoleData().hostTag, face->box, hole.GetXPos(), hole.GetXPos());
    }
}

/// The library knows sections: plates have an outline, and the surface of a round section closes.
void JobMember::CheckDistances() {
    if (!GetJob().areDistancesChecked)
        return;
    const FaceOutline* const outline = PlateOutline();
    const double length = GetLength();
    for (CHoleAddlInfo& hole : m_holes) {
        if (!hole.GetValid())
            continue;
        const bool isOurs = outline != nullptr || IsRound();
        std::vector<ShortDistance> distances;
        if (isOurs)
            distances = CheckDistancesOf(hole, outline);
        else
            hole.CheckEdgeAndEndDist(m_memType, length);
        // Not without lines: they would make the member invalid or non-standard too.
        ZetArray<ZetString> lines;
        if (hole.GetWarMsg(lines))
            FileDistances(hole, lines, isOurs ? distances : ShortDistancesOf(hole));
    }
}

/// Those that the library tells in a section, in the order of its lines.
std::vector<JobMember::ShortDistance> JobMember::ShortDistancesOf(const CHoleAddlInfo& hole) const {
    const eHoleFace face = hole.GetViewData().GetHoleFace();
    const bool isWeb = face == eHoleFaceWeb || face == eHoleFaceWebBack;
    const bool isTop = face == eHoleFaceTopFlange || face == eHoleFaceSlopedTopFlange;
    const double flange = isTop ? GetTopFlangeWidth() : GetBotFlangeWidth();
    const double farEdge = hole.GetYPosForCheck(std::max(isWeb ? GetWebWidth() : flange, 0.0));
    const double farEnd = hole.GetXPosForCheck(std::max(GetLength(), 0.0));
    const double edge = CMxGeom::GetMinEdgeDist();
    const double fromFace = CMxGeom::GetMinEdgeDistFromFace();
    const double end = CMxGeom::GetMinEndDist();
    struct Check {
        bool isMade;
        double distance;
        bool (*isSufficient)(double, double);
        double limit;
    };
    const Check checks[] = {
        {!isWeb, farEdge,                   CMxGeom::CheckEdgeDist,         edge    },
        {true,   hole.GetYPosForCheck(0.0), CMxGeom::CheckEdgeDistFromFace, fromFace},
        {isWeb,  farEdge,                   CMxGeom::CheckEdgeDistFromFace, fromFace},
        {true,   hole.GetXPosForCheck(0.0), CMxGeom::CheckEndDist,          end     },
        {true,   farEnd,                    CMxGeom::CheckEndDist,          end     },
    };
    CMxGeom::SetTol(eTolEPS);
    std::vector<ShortDistance> distances;
    for (const Check& check : checks)
        if (check.isMade && !check.isSufficient(check.distance, hole.GetSize()))
            distances.push_back({LimitFor(check.limit, hole.GetSize()), check.distance});
    return distances;
}

/// To the outline of a plate, or (null) to the ends of a round section.
std::vector<JobMember::ShortDistance> JobMember::CheckDistancesOf(CHoleAddlInfo& hole,
                                                                  const FaceOutline* outline) {
    const double size = hole.GetSize();
    const double edge = LimitFor(CMxGeom::GetMinEdgeDist(), size);
    const double end = LimitFor(CMxGeom::GetMinEndDist(), size);
    CMxGeom::SetTol(eTolEPS);
    double toEdge = edge;
    double toEnd = end;
    for (const ZetGeomPoint2d& centre : CentresOf(hole, {hole.GetXPos(), hole.GetYPos()})) {
        if (outline != nullptr)
            toEdge = std::min(toEdge, outline->DistanceFrom(centre, edge));
        else
            toEnd = std::min({toEnd, centre.x, GetLength() - centre.x});
    }
    const ZetString indent = CMxUtil::GetSpaces(kLineIndent, false);
    if (outline != nullptr && !CMxGeom::CheckEdgeDist(toEdge, size)) {
        hole.AppendMsg(eHoleMsgWarning, ZetString::format(kPlateEdgeFormat, indent, toEdge, edge));
        return {
            {edge, toEdge}
        };
    }
    if (outline == nullptr && !CMxGeom::CheckEndDist(toEnd, size)) {
        hole.AppendMsg(eHoleMsgWarning, ZetString::format(kEndFormat, indent, toEnd, end));
        return {
            {end, toEnd}
        };
    }
    return {};
}

void JobMember::FileDistances(const CHoleAddlInfo& hole,
                              const ZetArray<ZetString>& lines,
                              const std::vector<ShortDistance>& distances) {
    ZetArray<ZetString> printed;
    for (const ZetString& line : lines)
        printed.append(WithFaceNamed(WithoutNegativeZeros(line), hole.GetViewData()));
    Tell(job::kHoleDistance, printed);
    // The first line names the hole, each other one a distance.
    for (long i = 1; i < lines.length(); ++i) {
        Finding finding = {.type = job::kHoleDistance,
                           .text = lines[i].trimmedLeft(),
                           .feature = FeatureOf(hole.GetHoleData().hostTag)};
        if (const auto index = static_cast<std::size_t>(i - 1); index < distances.size()) {
            finding.required = distances[index].required;
            finding.found = distances[index].found;
        }
        RecordFinding(std::move(finding));
    }
}

}  // namespace plugin

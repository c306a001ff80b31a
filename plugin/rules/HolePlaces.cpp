#include "plugin/rules/JobMember.h"
#include "plugin/rules/NegativeZeros.h"

#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

// Where holes lie: whether on their face, how near to its edges and to the ends.

namespace plugin {

namespace {

constexpr const wchar_t* kOutsideText = L"It lies outside of its face or of the member";
constexpr const wchar_t* kUnclearPlaneFormat =
    L"The plane shows neither the web nor, within the tolerance, a flange: it counts as %s, like "
    L"the view before it";

constexpr int kLineIndent = 20;  ///< as the library's own lines of a hole
constexpr ZetFormatString<ZetString, double, double> kPlateEdgeFormat =
    L"%sDistance (%.1f) from the edge of the plate is less than %.1f";
constexpr ZetFormatString<ZetString, double, double> kEndFormat =
    L"%sEnd distance (%.1f) is less than %.1f";

constexpr int kFirstPlanePosition = 5;

/// A limit below 0 is a multiple of the diameter.
double LimitFor(double limit, double diameter) {
    return limit < 0.0 ? -limit * diameter : limit;
}

/// A hole's centre, or those of the ends of a slot.
std::vector<ZetGeomPoint2d> CentresOf(const CHoleAddlInfo& hole) {
    const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
    if (!hole.GetIsSlot())
        return {centre};
    const ZetGeomVector2d& end = hole.GetSlotVector();
    return {
        centre + end, {centre.x - end.x, centre.y - end.y}
    };
}

/// The limit that a line of the library is about.
struct LineLimit {
    const wchar_t* fragment;
    double (*limit)();
};
constexpr LineLimit kLineLimits[] = {
    {L"Edge distance", &CMxGeom::GetMinEdgeDist        },
    {L"flange is",     &CMxGeom::GetMinEdgeDistFromFace},
    {L"distance",      &CMxGeom::GetMinEndDist         },
    {L"Distance",      &CMxGeom::GetMinEdgeDist        },
};

double LimitOf(const ZetString& line, double diameter) {
    const auto* const row =
        std::find_if(std::begin(kLineLimits), std::end(kLineLimits), [&](const LineLimit& each) {
            return line.contains(each.fragment);
        });
    return row == std::end(kLineLimits) ? 0.0 : LimitFor(row->limit(), diameter);
}

/// The number in the first brackets.
double NumberIn(const ZetString& line) {
    const long bracket = line.find(L"(");
    return bracket < 0 ? 0.0 : line.mid(bracket + 1).toDouble();
}

}  // namespace

/// The outline of a plate, seen from the front if it can be, else its box; null for other members.
const FaceOutline* JobMember::PlateOutline() {
    if (!IsPlate())
        return nullptr;
    for (const eHoleFace side : {eHoleFaceWeb, eHoleFaceWebBack})
        for (const ZetNCView& view : m_structure.getViews())
            if (!m_plate && FaceAtView(view.getViewPos()) == side &&
                !view.getExternalContours().isEmpty())
                m_plate.emplace(CornersOf(view.getExternalContours().first()));
    if (!m_plate) {
        const ZetNCHeaderData& header = m_memType.GetHeaderData();
        m_plate.emplace(std::vector<ZetGeomPoint2d>{
            {0.0,           0.0          },
            {header.length, 0.0          },
            {header.length, header.height},
            {0.0,           header.height}
        });
    }
    return &*m_plate;
}

/// How a hole lies outside of its face or of the member; nothing when it does not.
std::optional<Finding> JobMember::OutsideOf(const CHoleAddlInfo& hole,
                                            const FaceOutline* outline) const {
    const double x = std::abs(CMxGeom::GetXTol());
    const double y = std::abs(CMxGeom::GetYTol());
    const eHoleFace face = hole.GetViewData().GetHoleFace();
    const bool isWeb = face == eHoleFaceWeb || face == eHoleFaceWebBack;
    const bool isOnPlane = ViewOf(hole) >= kFirstPlanePosition;
    const Finding finding = {.type = job::kHoleOutside, .text = kOutsideText};
    if (outline != nullptr && isWeb && !isOnPlane) {
        const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
        const bool isOutside = !outline->Contains(centre) && outline->DistanceFrom(centre, x) >= x;
        return isOutside ? std::optional(finding) : std::nullopt;
    }
    const auto beyond = [&](double place, double most, double tolerance) -> std::optional<Finding> {
        if (!(place < -tolerance || place > most + tolerance))
            return std::nullopt;
        Finding told = finding;
        told.required = place < 0.0 ? 0.0 : most;
        told.found = place;
        return told;
    };
    if (auto told = beyond(hole.GetXPos(), GetLength(), x))
        return told;
    double width = hole.GetViewData().GetFaceWidth();
    if (const auto surface = FaceOfView(1); IsRound() && surface)
        width = surface->maxY;
    return isOnPlane || width <= 0.0 || outline != nullptr ? std::nullopt
                                                           : beyond(hole.GetYPos(), width, y);
}

void JobMember::CheckPlaces() {
    const FaceOutline* const outline = PlateOutline();
    for (CHoleAddlInfo& hole : m_holes) {
        std::optional<Finding> finding = OutsideOf(hole, outline);
        if (!finding && IsCutAway(hole))
            finding = Finding{.type = job::kHoleOutside, .text = kOutsideText};
        if (finding)
            RefuseHole(std::move(*finding), hole);
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
        if (outline != nullptr || IsRound())
            CheckDistancesOf(hole, outline);
        else
            hole.CheckEdgeAndEndDist(m_memType, length);
        // Not without lines: they would make the member invalid or non-standard too.
        ZetArray<ZetString> lines;
        if (hole.GetWarMsg(lines))
            FileDistances(hole, lines);
    }
}

/// To the outline of a plate, or (null) to the ends of a round section.
void JobMember::CheckDistancesOf(CHoleAddlInfo& hole, const FaceOutline* outline) {
    const double size = hole.GetSize();
    const double edge = LimitFor(CMxGeom::GetMinEdgeDist(), size);
    const double end = LimitFor(CMxGeom::GetMinEndDist(), size);
    CMxGeom::SetTol(eTolEPS);
    double toEdge = edge;
    double toEnd = end;
    for (const ZetGeomPoint2d& centre : CentresOf(hole)) {
        if (outline != nullptr)
            toEdge = std::min(toEdge, outline->DistanceFrom(centre, edge));
        else
            toEnd = std::min({toEnd, centre.x, GetLength() - centre.x});
    }
    const ZetString indent = CMxUtil::GetSpaces(kLineIndent, false);
    if (outline != nullptr && !CMxGeom::CheckEdgeDist(toEdge, size))
        hole.AppendMsg(eHoleMsgWarning, ZetString::format(kPlateEdgeFormat, indent, toEdge, edge));
    if (outline == nullptr && !CMxGeom::CheckEndDist(toEnd, size))
        hole.AppendMsg(eHoleMsgWarning, ZetString::format(kEndFormat, indent, toEnd, end));
}

void JobMember::FileDistances(const CHoleAddlInfo& hole, const ZetArray<ZetString>& lines) {
    ZetArray<ZetString> printed;
    for (const ZetString& line : lines)
        printed.append(WithoutNegativeZeros(line));
    Tell(job::kHoleDistance, printed);
    // The first line names the hole.
    for (long i = 1; i < lines.length(); ++i)
        RecordFinding({.type = job::kHoleDistance,
                       .text = lines[i].trimmedLeft(),
                       .required = LimitOf(lines[i], hole.GetSize()),
                       .found = NumberIn(lines[i]),
                       .feature = FeatureOf(hole.GetHoleData().hostTag)});
}

/// A plane that the library takes for none of the member's faces has the face of the view before
/// it, and nothing else.
void JobMember::CheckPlanes() {
    std::set<long> told;
    const auto check = [&](long tag, const CViewData& view) {
        const std::optional<Feature> feature = FeatureOf(tag);
        const bool isUnclear = feature && feature->viewPosition >= kFirstPlanePosition &&
                               view.GetFaceStr() == CViewData().GetFaceStr();
        if (isUnclear && told.insert(feature->viewPosition).second)
            FileFinding({.type = job::kUnclearPlane,
                         .text = ZetString::format(kUnclearPlaneFormat, view.GetFaceStrForOutPut()),
                         .feature = feature});
    };
    for (const CHoleAddlInfo& hole : m_holes)
        check(hole.GetHoleData().hostTag, hole.GetViewData());
    for (const CNotchAddInfo& notch : m_notches)
        check(notch.GetContour().hostTag, notch.GetViewData());
}

}  // namespace plugin

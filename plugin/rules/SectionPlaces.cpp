#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/JobMember.h"
#include "profiles/SectionWalls.h"

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <optional>

// Where things lie in the section.

namespace plugin {

namespace {

/// Across the section, where the wall stands that a view shows; nothing when it may be anywhere.
std::optional<double> WallAt(const ZetString& profileCode, int viewPosition) {
    if (const profiles::Wall* const wall = profiles::FindWall(profileCode.view(), viewPosition))
        return wall->at;
    return viewPosition == profiles::kTop ? 1.0 : 0.0;  // narrow sides of plates
}

}  // namespace

bool JobMember::IsUnrolled(int viewPosition) const {
    return IsRound() && profiles::IsUnrolled(m_memType.GetProfileCode().view(), viewPosition);
}

/// Of a place in a view, as far as the file tells it. What a wall takes up of its own depth is
/// between two places.
JobMember::SectionPlace JobMember::SectionPlaceOf(const ZetGeomPoint2d& point,
                                                  int viewPosition) const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const ZetString& code = m_memType.GetProfileCode();
    if (const auto at = m_judging->planes.find(viewPosition); at != m_judging->planes.end()) {
        const ZetGeomPlane& plane = at->second.plane;
        const ZetGeomPoint3d place = plane.origin + plane.xAxis * point.x + plane.yAxis * point.y;
        const bool isTurned = IsPlate() || code == L"SO";
        const double y = isTurned ? place.z : place.y;
        const double z = isTurned ? -place.y : place.z;
        return {
            place.x, {y, y},
             {z, z}
        };
    }
    const FaceBox plate = m_judging->plate ? m_judging->plate->GetBox() : FaceBox();
    const bool isTop = viewPosition == profiles::kTop;
    if (isTop || viewPosition == profiles::kBottom) {
        const double height = IsPlate() ? plate.maxY - plate.minY : header.height;
        const double y = height * *WallAt(code, viewPosition);
        const double z = FileYOf(point.y, isTop ? m_type.topFlange : m_type.bottomFlange);
        return {
            point.x, {y, y},
             {z, z}
        };
    }
    const double y = point.y - plate.minY;
    const std::optional<double> at = WallAt(code, viewPosition);
    const double behind = at ? *at * (header.width - header.thickness) : 0.0;
    return {
        point.x, {y,      y                                                },
         {behind, at ? behind + header.thickness : DepthOfSection()}
    };
}

/// Between the front and what is behind.
double JobMember::DepthOfSection() const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    return IsPlate() ? header.thickness : header.width;
}

/// Only of planes of their own: standard faces have bounds. Sections of other codes may have their
/// zero anywhere.
bool JobMember::IsOutsideSection(const ZetGeomPoint2d& point, int viewPosition) const {
    if (m_judging->planes.count(viewPosition) == 0 || IsPlate() || IsRound() ||
        m_memType.GetProfileCode() == L"SO")
        return false;
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const double tolerance = std::abs(CMxGeom::GetYTol());
    const auto isBeyond = [&](double at, double width) {
        return width > 0.0 && (at < -tolerance || at > width + tolerance);
    };
    const SectionPlace place = SectionPlaceOf(point, viewPosition);
    return isBeyond(place.y[0], header.height) || isBeyond(place.z[0], header.width);
}

}  // namespace plugin

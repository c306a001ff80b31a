#include "plugin/rules/CircularOpenings.h"

#include "plugin/rules/FaceOutline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace plugin {

namespace {

/// How far an opening may be off the circle, mm.
constexpr double kCircleTolerance = 0.05 + 1e-6;
/// How far the chords of its arcs may be off these, mm.
constexpr double kChordTolerance = 0.05;
/// A square's corners lie on a circle, too.
constexpr std::size_t kFewestCorners = 6;

ZetGeomPoint2d MiddleOf(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

/// The centre of the area.
ZetGeomPoint2d CentreOf(const std::vector<ZetGeomPoint2d>& corners) {
    double twice = 0.0;
    ZetGeomVector2d sum;
    for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
        const ZetGeomVector2d a = corners[i] - corners[0];
        const ZetGeomVector2d b = corners[i + 1] - corners[0];
        const double area = a.cross(b);
        twice += area;
        sum = {sum.x + (a.x + b.x) * area, sum.y + (a.y + b.y) * area};
    }
    return {corners[0].x + sum.x / (3.0 * twice), corners[0].y + sum.y / (3.0 * twice)};
}

/// The hole that an opening is; nothing when it is no circle.
std::optional<ZetNCHoleData> HoleOf(const ZetNCContour& opening) {
    const std::vector<ZetGeomPoint2d> corners = CornersOf(opening);
    if (corners.size() < kFewestCorners || AreaOf(corners) <= 0.0)
        return std::nullopt;
    const ZetGeomPoint2d centre = CentreOf(corners);
    double least = std::numeric_limits<double>::infinity();
    double most = 0.0;
    double nearestChord = least;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const ZetGeomPoint2d& next = corners[(i + 1) % corners.size()];
        const double radius = (corners[i] - centre).length();
        least = std::min(least, radius);
        most = std::max(most, radius);
        nearestChord = std::min(nearestChord, (MiddleOf(corners[i], next) - centre).length());
    }
    const double radius = (least + most) * 0.5;
    const bool isCircle = most - radius <= kCircleTolerance &&
                          radius - nearestChord <= kCircleTolerance + kChordTolerance;
    if (!isCircle)
        return std::nullopt;
    ZetNCHoleData hole;
    hole.x = centre.x;
    hole.y = centre.y;
    hole.size = 2.0 * radius;
    hole.hostTag = opening.hostTag;
    return hole;
}

void TakeFrom(ZetNCView& view,
              std::vector<FeatureNote>& notes,
              std::vector<CircularOpening>& circles) {
    ZetArray<ZetNCHoleData> holes = view.getHoles();
    ZetArray<ZetNCContour> openings;
    for (const ZetNCContour& opening : view.getInternalContours()) {
        const std::optional<ZetNCHoleData> hole = HoleOf(opening);
        if (!hole) {
            openings.append(opening);
            continue;
        }
        holes.append(*hole);
        circles.push_back({view.getViewPos(), CornersOf(opening)});
        notes.push_back({
            {FeatureKind::kOpening, opening.hostTag, view.getViewPos()},
            ZetString::format(L"circular opening: a hole of diameter %.2f", hole->size)
        });
    }
    view.setHoles(std::move(holes));
    view.setInternalContours(std::move(openings));
}

}  // namespace

std::vector<CircularOpening> TakeCircularOpenings(ZetNCStructure& structure,
                                                  std::vector<FeatureNote>& notes) {
    const auto hasOpenings = [](const ZetNCView& view) {
        return !view.getInternalContours().isEmpty();
    };
    if (std::none_of(structure.getViews().begin(), structure.getViews().end(), hasOpenings))
        return {};
    std::vector<CircularOpening> circles;
    ZetArray<ZetNCView> views = structure.getViews();
    for (ZetNCView& view : views)
        if (hasOpenings(view))
            TakeFrom(view, notes, circles);
    structure.setViews(std::move(views));
    return circles;
}

}  // namespace plugin

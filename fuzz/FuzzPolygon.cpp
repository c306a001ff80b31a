#include "fuzz/Law.h"
#include "fuzz/Numbers.h"

#include "camdata/platform/geometry/SelfCrossing.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <cmath>

// What an outline leaves of its rectangle makes up the rectangle together with it, from corners of
// both and nothing else.

namespace {

constexpr double kOffset = -0.05;

ZetArray<ZetGeomPoint2d> PointsOf(Numbers numbers) {
    ZetArray<ZetGeomPoint2d> points;
    while (numbers.HasNext() && points.length() < 400) {
        const auto x = static_cast<double>(numbers.Next(-100'000, 100'000)) / 10;
        points.append({x, static_cast<double>(numbers.Next(-100'000, 100'000)) / 10});
    }
    return points;
}

double DistanceToEdge(const ZetGeomPoint2d& p, const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    const ZetGeomVector2d edge = b - a;
    const double along = (p - a).dot(edge) / edge.dot(edge);
    const double t = std::clamp(std::isfinite(along) ? along : 0.0, 0.0, 1.0);
    return (p - ZetGeomPoint2d{a.x + t * edge.x, a.y + t * edge.y}).length();
}

// An outline that touches itself is no crossing one, but which of its sides lies inside may be a
// matter of rounding: what it leaves is then held to be no more than there is, not to be all.
bool TouchesItself(const ZetArray<ZetGeomPoint2d>& outline) {
    const long count = outline.length();
    for (long corner = 0; corner < count; ++corner)
        for (long edge = 0; edge < count; ++edge) {
            const long end = (edge + 1) % count;
            if (corner != edge && corner != end &&
                DistanceToEdge(outline[corner], outline[edge], outline[end]) <= kSelfTouchDepth)
                return true;
        }
    return false;
}

ZetGeomAugPolygon OtherWayRound(ZetArray<ZetGeomPoint2d> outline) {
    std::rotate(outline.begin(), outline.begin() + 1, outline.end());
    std::reverse(outline.begin(), outline.end());
    return {outline, 0.0};
}

bool Has(const ZetArray<ZetGeomPoint2d>& points, const ZetGeomPoint2d& point) {
    return std::find(points.begin(), points.end(), point) != points.end();
}

void CheckPieces(const ZetGeomAugPolygon& outline,
                 const ZetGeomAugPolygon& rectangle,
                 const ZetArray<ZetGeomAugPolygon>& pieces,
                 bool touchesItself) {
    double area = std::abs(outline.getArea());
    double perimeter = outline.getPerimeter() + rectangle.getPerimeter();
    for (const ZetGeomAugPolygon& piece : pieces) {
        Check(piece.getArea() > 0.0, "a piece runs counter-clockwise around an area");
        area += piece.getArea();
        perimeter += piece.getPerimeter();
        for (const ZetGeomPoint2d& corner : piece.getVertices())
            Check(Has(outline.getVertices(), corner) || Has(rectangle.getVertices(), corner),
                  "a corner of a piece is one of the outline or of its rectangle");
    }
    // What is too thin vanishes: along every edge, at most the offset wide.
    const double lacking = rectangle.getArea() - area;
    Check(-lacking <= -kOffset * perimeter, "no piece covers the outline or another piece");
    Check(lacking <= -kOffset * perimeter || touchesItself,
          "outline and pieces make up the rectangle");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ZetGeomAugPolygon outline(PointsOf(Numbers(data, size)), 1e-6);
    const ZetGeomAugPolygon rectangle = outline.getMinRectangle();
    const ZetArray<ZetGeomAugPolygon> pieces = rectangle.subtract(outline, kOffset);
    const auto& vertices = outline.getVertices();
    if (outline.getLength() < 3 || FindSelfCrossing({vertices.begin(), vertices.end()})) {
        return 0;
    }
    const bool touchesItself = TouchesItself(vertices);
    Check(touchesItself || outline.isEqualTo(OtherWayRound(vertices), 1e-3),
          "an outline is like itself from another corner, the other way round");
    Check(rectangle.getArea() >= std::abs(outline.getArea()) - 1e-3,
          "a rectangle holds its outline");
    if (!pieces.isEmpty())
        CheckPieces(outline, rectangle, pieces, touchesItself);
    return 0;
}

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

bool Has(const ZetArray<ZetGeomPoint2d>& points, const ZetGeomPoint2d& point) {
    return std::find(points.begin(), points.end(), point) != points.end();
}

void CheckPieces(const ZetGeomAugPolygon& outline,
                 const ZetGeomAugPolygon& rectangle,
                 const ZetArray<ZetGeomAugPolygon>& pieces) {
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
    Check(std::abs(area - rectangle.getArea()) <= -kOffset * perimeter,
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
    Check(outline.isEqualTo(outline.getNormalised(1e-6), 1e-3),
          "an outline is like its plain form");
    Check(rectangle.getArea() >= std::abs(outline.getArea()) - 1e-3,
          "a rectangle holds its outline");
    if (!pieces.isEmpty())
        CheckPieces(outline, rectangle, pieces);
    return 0;
}

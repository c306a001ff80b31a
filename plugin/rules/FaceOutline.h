#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCContour.h"

#include <optional>
#include <span>
#include <vector>

namespace plugin {

/// A rectangle along the axes, mm. A side that nobody knows is at infinity.
struct FaceBox {
    double minX = 0.0;
    double maxX = 0.0;
    double minY = 0.0;
    double maxY = 0.0;

    double Area() const { return (maxX - minX) * (maxY - minY); }
};

/// The points of a contour, without the closing repeat.
std::vector<ZetGeomPoint2d> CornersOf(const ZetNCContour& contour);

FaceBox BoxOf(std::span<const ZetGeomPoint2d> corners);
/// Areas that differ by no more are the same, mm2.
inline constexpr double kAreaTolerance = 1.0;
/// Without sign.
double AreaOf(std::span<const ZetGeomPoint2d> corners);

/// How far a box may lie beyond another one, mm.
struct FaceTolerance {
    double x = 0.0;
    double y = 0.0;
};

bool ReachesBeyond(const FaceBox& box, const FaceBox& face, const FaceTolerance& tolerance);

/// The side of a face that something reaches beyond the farthest: where it is, and how far that
/// reaches; nothing within the face.
struct Excess {
    std::optional<double> required = {};
    std::optional<double> found = {};
};

Excess ExcessOf(const FaceBox& box, const FaceBox& face);

/// A closed outline that places are held against: whether they lie in it, and how far from it.
class FaceOutline {
  public:
    explicit FaceOutline(std::vector<ZetGeomPoint2d> corners);

    const FaceBox& GetBox() const { return m_box; }
    double GetArea() const { return AreaOf(m_corners); }
    bool Contains(const ZetGeomPoint2d& point) const;
    /// The distance of a point from the outline; `farthest` when it is no less.
    double DistanceFrom(const ZetGeomPoint2d& point, double farthest) const;
    /// Neither in it nor nearer to it than `touch`.
    bool IsOutside(const ZetGeomPoint2d& point, double touch) const {
        return !Contains(point) && DistanceFrom(point, touch) >= touch;
    }
    /// True when nothing of another outline reaches beyond it by `touch` or more.
    bool Holds(const std::vector<ZetGeomPoint2d>& other, double touch) const;
    /// True when neither reaches beyond the other by `touch` or more.
    bool IsLike(const FaceOutline& other, double touch) const {
        return Holds(other.m_corners, touch) && other.Holds(m_corners, touch);
    }
    /// True when an edge that faces up, or down, within 45 degrees runs somewhere between.
    bool HasSide(bool isUpper, double minX, double maxX) const;
    /// Of another outline the corners, and of each of its sides the middles of the parts between
    /// its crossings with this one: when all of them lie in this one, or none, so does the whole.
    std::vector<ZetGeomPoint2d> PlacesOf(const std::vector<ZetGeomPoint2d>& other) const;

  private:
    std::size_t RowOf(double y) const;
    template <typename Visit>
    void ForEachRowOfEdges(const Visit& visit) const;
    template <typename Visit>
    void ForEachEdgeIn(double minY, double maxY, const Visit& visit) const;

    std::vector<ZetGeomPoint2d> m_corners;
    FaceBox m_box;
    // The edges of a row, by their first corner, stand from its place on to that of the next row.
    std::size_t m_rows = 1;
    std::vector<std::size_t> m_edgesBefore;
    std::vector<std::size_t> m_edges;
};

}  // namespace plugin

#include "plugin/rules/FaceOutline.h"

#include "camdata/platform/geometry/PointChain.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

namespace plugin {

namespace {

using Corners = std::vector<ZetGeomPoint2d>;

const ZetGeomPoint2d& Next(const Corners& corners, std::size_t index) {
    return corners[(index + 1) % corners.size()];
}

double DistanceToEdge(const ZetGeomPoint2d& p, const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    const ZetGeomVector2d edge = b - a;
    const double square = edge.dot(edge);
    const double along = square > 0.0 ? std::clamp((p - a).dot(edge) / square, 0.0, 1.0) : 0.0;
    return (p - ZetGeomPoint2d{a.x + edge.x * along, a.y + edge.y * along}).length();
}

}  // namespace

std::vector<ZetGeomPoint2d> CornersOf(const ZetNCContour& contour) {
    Corners corners;
    corners.reserve(static_cast<std::size_t>(contour.getPointCount()));
    for (long i = 0; i < contour.getPointCount(); ++i)
        corners.push_back({contour.xValues[i], contour.yValues[i]});
    while (corners.size() > 1 && (corners.back() - corners.front()).length() == 0.0)
        corners.pop_back();
    return corners;
}

FaceBox BoxOf(std::span<const ZetGeomPoint2d> corners) {
    if (corners.empty())
        return {};
    FaceBox box = {corners[0].x, corners[0].x, corners[0].y, corners[0].y};
    for (const ZetGeomPoint2d& corner : corners) {
        box.minX = std::min(box.minX, corner.x);
        box.maxX = std::max(box.maxX, corner.x);
        box.minY = std::min(box.minY, corner.y);
        box.maxY = std::max(box.maxY, corner.y);
    }
    return box;
}

double AreaOf(std::span<const ZetGeomPoint2d> corners) {
    return std::abs(camdata::detail::AreaOf(corners));
}

bool ReachesBeyond(const FaceBox& box, const FaceBox& face, const FaceTolerance& tolerance) {
    // What is no number lies nowhere.
    return !(box.minX >= face.minX - tolerance.x && box.maxX <= face.maxX + tolerance.x &&
             box.minY >= face.minY - tolerance.y && box.maxY <= face.maxY + tolerance.y);
}

Excess ExcessOf(const FaceBox& box, const FaceBox& face) {
    struct Side {
        double edge;
        double reached;
        double beyond;
    };
    const Side sides[] = {
        {face.minX, box.minX, face.minX - box.minX},
        {face.maxX, box.maxX, box.maxX - face.maxX},
        {face.minY, box.minY, face.minY - box.minY},
        {face.maxY, box.maxY, box.maxY - face.maxY}
    };
    const Side* farthest =
        std::max_element(std::begin(sides), std::end(sides), [](const Side& a, const Side& b) {
            return a.beyond < b.beyond;
        });
    return farthest->beyond > 0.0 && std::isfinite(farthest->beyond)
               ? Excess{farthest->edge, farthest->reached}
               : Excess();
}

FaceOutline::FaceOutline(Corners corners) : m_corners(std::move(corners)), m_box(BoxOf(m_corners)) {
    // Rows of equal height, as many as there are edges, fewer when the edges are long.
    const double height = m_box.maxY - m_box.minY;
    double heightOfEdges = 0.0;
    for (std::size_t i = 0; i < m_corners.size(); ++i)
        heightOfEdges += std::abs(Next(m_corners, i).y - m_corners[i].y);
    constexpr double kRowsOfAnEdge = 4.0;
    if (height > 0.0 && heightOfEdges > 0.0) {
        const auto count = static_cast<double>(m_corners.size());
        const double rows = std::min(count, kRowsOfAnEdge * count * height / heightOfEdges);
        m_rows = static_cast<std::size_t>(std::max(rows, 1.0));
    }
    // How many edges each row has, then where they begin, then they themselves.
    m_edgesBefore.resize(m_rows + 1);
    ForEachRowOfEdges([&](std::size_t row, std::size_t) { ++m_edgesBefore[row]; });
    std::partial_sum(m_edgesBefore.begin(), m_edgesBefore.end(), m_edgesBefore.begin());
    m_edges.resize(m_edgesBefore.back());
    ForEachRowOfEdges(
        [&](std::size_t row, std::size_t edge) { m_edges[--m_edgesBefore[row]] = edge; });
}

/// From the last edge to the first.
template <typename Visit>
void FaceOutline::ForEachRowOfEdges(const Visit& visit) const {
    for (std::size_t edge = m_corners.size(); edge-- > 0;) {
        const auto [low, high] = std::minmax(m_corners[edge].y, Next(m_corners, edge).y);
        const std::size_t last = RowOf(high);
        for (std::size_t row = RowOf(low); row <= last; ++row)
            visit(row, edge);
    }
}

std::size_t FaceOutline::RowOf(double y) const {
    const double height = m_box.maxY - m_box.minY;
    const auto rows = static_cast<double>(m_rows);
    const double row = height > 0.0 ? (y - m_box.minY) / height * rows : 0.0;
    return static_cast<std::size_t>(std::clamp(row, 0.0, rows - 1.0));
}

/// Some edges more than once.
template <typename Visit>
void FaceOutline::ForEachEdgeIn(double minY, double maxY, const Visit& visit) const {
    const std::size_t first = RowOf(minY);
    const std::size_t last = minY == maxY ? first : RowOf(maxY);
    for (std::size_t row = first; row <= last; ++row)
        for (std::size_t i = m_edgesBefore[row]; i < m_edgesBefore[row + 1]; ++i)
            visit(m_corners[m_edges[i]], Next(m_corners, m_edges[i]));
}

bool FaceOutline::Contains(const ZetGeomPoint2d& point) const {
    bool isInside = false;
    ForEachEdgeIn(point.y, point.y, [&](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y))
            isInside = !isInside;
    });
    return isInside;
}

double FaceOutline::DistanceFrom(const ZetGeomPoint2d& point, double farthest) const {
    double distance = farthest;
    ForEachEdgeIn(point.y - farthest,
                  point.y + farthest,
                  [&](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
                      distance = std::min(distance, DistanceToEdge(point, a, b));
                  });
    return distance;
}

bool FaceOutline::Holds(const Corners& other, double touch) const {
    const Corners places = PlacesOf(other);
    return std::none_of(places.begin(), places.end(), [&](const ZetGeomPoint2d& place) {
        return IsOutside(place, touch);
    });
}

bool FaceOutline::HasSide(bool isUpper, double minX, double maxX) const {
    double twice = 0.0;
    for (std::size_t i = 0; i < m_corners.size(); ++i)
        twice += (m_corners[i] - m_corners[0]).cross(Next(m_corners, i) - m_corners[0]);
    // Counter-clockwise, upper edges run to the left.
    const double sign = (twice > 0.0) == isUpper ? -1.0 : 1.0;
    for (std::size_t i = 0; i < m_corners.size(); ++i) {
        const ZetGeomPoint2d& from = m_corners[i];
        const ZetGeomPoint2d& to = Next(m_corners, i);
        const ZetGeomVector2d edge = to - from;
        if (edge.x * sign > 0.0 && std::abs(edge.y) <= std::abs(edge.x) &&
            std::min(from.x, to.x) < maxX && std::max(from.x, to.x) > minX)
            return true;
    }
    return false;
}

std::vector<ZetGeomPoint2d> FaceOutline::PlacesOf(const Corners& other) const {
    Corners places = other;
    std::vector<double> crossings;
    for (std::size_t i = 0; i < other.size(); ++i) {
        const ZetGeomPoint2d& from = other[i];
        const ZetGeomVector2d side = Next(other, i) - from;
        crossings = {0.0, 1.0};
        ForEachEdgeIn(std::min(from.y, from.y + side.y),
                      std::max(from.y, from.y + side.y),
                      [&](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
                          const double slant = side.cross(b - a);
                          const double at = (a - from).cross(b - a) / slant;
                          const double on = (a - from).cross(side) / slant;
                          if (at > 0.0 && at < 1.0 && on >= 0.0 && on <= 1.0)
                              crossings.push_back(at);
                      });
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t part = 1; part < crossings.size(); ++part) {
            const double middle = (crossings[part - 1] + crossings[part]) * 0.5;
            places.push_back({from.x + side.x * middle, from.y + side.y * middle});
        }
    }
    return places;
}

}  // namespace plugin

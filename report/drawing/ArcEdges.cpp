#include "report/drawing/ArcEdges.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace report {

namespace {

/// How far the chords of an arc may lie from it, mm.
constexpr double kChordRise = 0.05;
/// How far equal lengths (mm) and angles (radians) may differ.
constexpr double kRounding = 1e-6;

double LengthOf(const Polyline& line, std::size_t edge) {
    return std::hypot(line[edge + 1].x - line[edge].x, line[edge + 1].y - line[edge].y);
}

/// From one edge to the next, counter-clockwise.
double TurnBehind(const Polyline& line, std::size_t edge) {
    const Point a = {line[edge + 1].x - line[edge].x, line[edge + 1].y - line[edge].y};
    const Point b = {line[edge + 2].x - line[edge + 1].x, line[edge + 2].y - line[edge + 1].y};
    return std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y);
}

/// Edges from `first` on that are chords of one arc.
struct Run {
    std::size_t edges = 1;
    double turn = 0.0;  ///< the angle of the arc over one chord
};

bool AreEqual(double a, double b) {
    return std::abs(a - b) <= kRounding;
}

Run RunFrom(const Polyline& line, std::size_t first) {
    const std::size_t edges = line.size() - 1;
    if (first + 1 == edges)
        return {};
    const double length = LengthOf(line, first);
    const double turn = TurnBehind(line, first);
    const double rise = length / 2.0 * std::tan(std::abs(turn) / 4.0);
    if (length <= kRounding || std::abs(turn) <= kRounding || rise > kChordRise + kRounding)
        return {};
    std::size_t last = first;
    while (last + 1 < edges && AreEqual(LengthOf(line, last + 1), length) &&
           AreEqual(TurnBehind(line, last), turn))
        ++last;
    return {last - first + 1, last == first ? 0.0 : turn};
}

/// Where the circle of an arc is, and what of it the arc is.
struct Arc {
    Point centre;
    double radius = 0.0;
    double start = 0.0;  ///< radians
    double sweep = 0.0;  ///< radians, > 0 counter-clockwise
};

Arc ArcBetween(const Vertex& from, const Point& to) {
    const double sweep = 4.0 * std::atan(from.bulge);
    // From the middle of the chord to the centre, in chords to its left.
    const double aside = 0.5 / std::tan(sweep / 2.0);
    const Point chord = {to.x - from.at.x, to.y - from.at.y};
    const Point centre = {(from.at.x + to.x) / 2.0 - chord.y * aside,
                          (from.at.y + to.y) / 2.0 + chord.x * aside};
    const Point out = {from.at.x - centre.x, from.at.y - centre.y};
    return {centre, std::hypot(out.x, out.y), std::atan2(out.y, out.x), sweep};
}

void Widen(Box& box, const Point& point) {
    box.low = {std::min(box.low.x, point.x), std::min(box.low.y, point.y)};
    box.high = {std::max(box.high.x, point.x), std::max(box.high.y, point.y)};
}

/// An arc reaches farthest right, up, left or down, where it goes through that.
void WidenByArc(Box& box, const Arc& arc) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    constexpr Point kFarthest[] = {
        {1.0,  0.0 },
        {0.0,  1.0 },
        {-1.0, 0.0 },
        {0.0,  -1.0}
    };
    for (const Point& direction : kFarthest) {
        const double angle = std::atan2(direction.y, direction.x) - arc.start;
        const double ahead = arc.sweep > 0.0 ? angle : -angle;
        if (ahead - kTurn * std::floor(ahead / kTurn) <= std::abs(arc.sweep))
            Widen(
                box,
                {arc.centre.x + direction.x * arc.radius, arc.centre.y + direction.y * arc.radius});
    }
}

}  // namespace

std::vector<Vertex> WithArcs(const Polyline& line) {
    std::vector<Vertex> vertices;
    for (std::size_t first = 0; first + 1 < line.size();) {
        const Run run = RunFrom(line, first);
        const std::size_t end = first + run.edges;
        const std::size_t most =
            run.turn == 0.0
                ? 1
                : static_cast<std::size_t>(std::numbers::pi / std::abs(run.turn) + kRounding);
        for (; first < end; first = std::min(first + most, end)) {
            const auto chords = static_cast<double>(std::min(most, end - first));
            vertices.push_back({line[first], std::tan(run.turn * chords / 4.0)});
        }
    }
    if (!line.empty())
        vertices.push_back({line.back()});
    return vertices;
}

Box BoxOf(const Polyline& line) {
    if (line.empty())
        return {};
    Box box = {line.front(), line.front()};
    for (const Point& point : line)
        Widen(box, point);
    const std::vector<Vertex> vertices = WithArcs(line);
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i)
        if (vertices[i].bulge != 0.0)
            WidenByArc(box, ArcBetween(vertices[i], vertices[i + 1].at));
    return box;
}

}  // namespace report

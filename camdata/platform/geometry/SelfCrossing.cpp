#include "camdata/platform/geometry/SelfCrossing.h"

#include "camdata/platform/geometry/ContactSweep.h"

#include <algorithm>
#include <cmath>
#include <vector>

// Nearly always no edges meet but neighbours, and the sweep says so at once. Only otherwise are the
// edges judged with a tolerance, pair by pair, and by winding numbers: an outline that crosses
// itself, be it through a vertex or along a common edge, goes round some area twice or both ways.

namespace {

/// A closed outline: the last point repeats the first.
using Outline = std::span<const ZetGeomPoint2d>;

/// Beyond this, mm, an outline is no part of any machine, and products would overflow.
constexpr double kMaxCoordinate = 1e12;
/// Distance from an edge at which winding numbers are sampled.
constexpr double kSampleDistance = 2.0 * kSelfTouchDepth;

double DistanceToEdge(const ZetGeomPoint2d& p, const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    const ZetGeomVector2d edge = b - a;
    const double square = edge.dot(edge);
    const double t = square > 0.0 ? std::clamp((p - a).dot(edge) / square, 0.0, 1.0) : 0.0;
    return (p - ZetGeomPoint2d{a.x + t * edge.x, a.y + t * edge.y}).length();
}

/// True when a-b and c-d cross, each end farther than kSelfTouchDepth from the other edge.
bool CrossDeeply(const ZetGeomPoint2d& a,
                 const ZetGeomPoint2d& b,
                 const ZetGeomPoint2d& c,
                 const ZetGeomPoint2d& d) {
    const auto areApart = [](const ZetGeomPoint2d& p,
                             const ZetGeomPoint2d& q,
                             const ZetGeomPoint2d& r,
                             const ZetGeomPoint2d& s) {
        const double first = (q - p).cross(r - p);
        const double second = (q - p).cross(s - p);
        return (first > 0.0 && second < 0.0) || (first < 0.0 && second > 0.0);
    };
    return areApart(a, b, c, d) && areApart(c, d, a, b) &&
           DistanceToEdge(a, c, d) > kSelfTouchDepth && DistanceToEdge(b, c, d) > kSelfTouchDepth &&
           DistanceToEdge(c, a, b) > kSelfTouchDepth && DistanceToEdge(d, a, b) > kSelfTouchDepth;
}

std::optional<std::size_t> FindDeepCrossing(Outline outline) {
    for (std::size_t j = 2; j + 1 < outline.size(); ++j)
        for (std::size_t i = 0; i + 1 < j; ++i)
            if (CrossDeeply(outline[i], outline[i + 1], outline[j], outline[j + 1]))
                return j;
    return std::nullopt;
}

/// How often the outline goes round `p` counter-clockwise; nothing when it passes too near.
std::optional<int> WindingAround(const ZetGeomPoint2d& p, Outline outline) {
    int winding = 0;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
        const ZetGeomPoint2d& a = outline[i];
        const ZetGeomPoint2d& b = outline[i + 1];
        if (DistanceToEdge(p, a, b) < 0.75 * kSampleDistance)
            return std::nullopt;
        const double side = (b - a).cross(p - a);
        if (a.y <= p.y && b.y > p.y && side > 0.0)
            ++winding;
        else if (a.y > p.y && b.y <= p.y && side < 0.0)
            --winding;
    }
    return winding;
}

/// Points on both sides of an edge, near its ends and at its middle.
std::vector<ZetGeomPoint2d> SamplesBeside(const ZetGeomPoint2d& from, const ZetGeomPoint2d& to) {
    const ZetGeomVector2d edge = to - from;
    const double length = edge.length();
    const double ends = std::min(2.0 * kSampleDistance, length / 2.0);
    std::vector<ZetGeomPoint2d> samples;
    for (const double along : {ends / length, 0.5, 1.0 - ends / length})
        for (const double aside : {kSampleDistance / length, -kSampleDistance / length})
            samples.push_back({from.x + edge.x * along - edge.y * aside,
                               from.y + edge.y * along + edge.x * aside});
    return samples;
}

/// The first edge beside which the winding numbers span more than inside and outside.
std::optional<std::size_t> FindOddWinding(Outline outline) {
    int lowest = 0;
    int highest = 0;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
        if (outline[i] == outline[i + 1])
            continue;
        for (const ZetGeomPoint2d& sample : SamplesBeside(outline[i], outline[i + 1])) {
            const int winding = WindingAround(sample, outline).value_or(lowest);
            lowest = std::min(lowest, winding);
            highest = std::max(highest, winding);
        }
        if (highest - lowest > 1)
            return i;
    }
    return std::nullopt;
}

bool IsInReach(const ZetGeomPoint2d& point) {
    return std::abs(point.x) <= kMaxCoordinate && std::abs(point.y) <= kMaxCoordinate;
}

}  // namespace

std::optional<std::size_t> FindSelfCrossing(std::span<const ZetGeomPoint2d> outline) {
    const auto stray = std::find_if_not(outline.begin(), outline.end(), IsInReach);
    if (stray != outline.end())
        return static_cast<std::size_t>(stray - outline.begin());
    const auto contact = camdata::detail::FindContact(outline);
    if (!contact || outline.size() > kMaxTouchingEdges)
        return contact;
    std::vector<ZetGeomPoint2d> closed(outline.begin(), outline.end());
    closed.push_back(closed.front());
    if (const auto crossing = FindDeepCrossing(closed))
        return crossing;
    return FindOddWinding(closed);
}

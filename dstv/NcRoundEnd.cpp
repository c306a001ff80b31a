#include "dstv/NcRoundEnd.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>
#include <optional>

namespace dstv {
namespace {

using Outline = std::vector<ZetGeomPoint2d>;
/// Of x = mean + cosine * cos(t) + sine * sin(t).
using Wave = std::array<double, 3>;

/// Fewer points lie on any wave.
constexpr std::size_t kFewestPoints = 8;

std::array<double, 3> TermsAt(const ZetGeomPoint2d& point, double diameter) {
    const double t = 2.0 * point.y / diameter;
    return {1.0, std::cos(t), std::sin(t)};
}

/// Least squares; nothing when the points do not determine a wave.
std::optional<Wave> WaveThrough(const Outline& points, double diameter) {
    std::array<std::array<double, 4>, 3> rows = {};
    for (const ZetGeomPoint2d& point : points) {
        const auto terms = TermsAt(point, diameter);
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                rows[i][k] += terms[i] * terms[k];
            rows[i][3] += terms[i] * point.x;
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        // The matrix is positive, so no rows need to change places.
        if (rows[i][i] < 1e-9)
            return std::nullopt;
        for (std::size_t k = 0; k < 3; ++k) {
            const double factor = k == i ? 0.0 : rows[k][i] / rows[i][i];
            for (std::size_t j = 0; j < 4; ++j)
                rows[k][j] -= factor * rows[i][j];
        }
    }
    return Wave{rows[0][3] / rows[0][0], rows[1][3] / rows[1][1], rows[2][3] / rows[2][2]};
}

}  // namespace

bool EndsInWave(const Outline& outline, const RoundEnd& end) {
    const double height =
        end.diameter * std::tan(std::abs(end.angle) * std::numbers::pi / 180.0) / 2.0;
    Outline points;
    std::copy_if(outline.begin(), outline.end(), std::back_inserter(points), [&](const auto& each) {
        const double toEnd = end.isAtEnd ? end.longest - each.x : each.x - end.longest;
        return toEnd <= 2.0 * height + end.tolerance;
    });
    if (points.size() < kFewestPoints)
        return false;
    const std::optional<Wave> wave = WaveThrough(points, end.diameter);
    if (!wave)
        return false;
    const double mean = (*wave)[0];
    const double cosine = (*wave)[1];
    const double sine = (*wave)[2];
    const double longest = end.isAtEnd ? mean + height : mean - height;
    return std::abs(std::hypot(cosine, sine) - height) <= end.tolerance &&
           std::abs(longest - end.longest) <= end.tolerance &&
           std::all_of(points.begin(), points.end(), [&](const ZetGeomPoint2d& point) {
               const auto terms = TermsAt(point, end.diameter);
               return std::abs(mean + cosine * terms[1] + sine * terms[2] - point.x) <=
                      end.tolerance;
           });
}

}  // namespace dstv

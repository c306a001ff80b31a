#include "dstv/NcGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace {

using dstv::Outline;

ZetGeomPoint2d Middle(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
}

/// Twice the area that an outline goes round counter-clockwise.
double DoubleArea(const Outline& outline) {
    double area = 0.0;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i)
        area += outline[i].x * outline[i + 1].y - outline[i + 1].x * outline[i].y;
    return area;
}

/// The sweep: degrees, counter-clockwise positive.
TEST(NcGeometry, ArcsLieOnTheirCircle) {
    // clang-format off
    struct Case { const char* name; ZetGeomPoint2d from, to; double radius; ZetGeomPoint2d centre; double sweep; };
    // clang-format on
    const Case cases[] = {
        {"quarter",                   {10.0, 0.0},  {0.0, 10.0},   10.0,  {0.0, 0.0},                90.0        },
        {"quarter clockwise",         {10.0, 0.0},  {0.0, 10.0},   -10.0, {10.0, 10.0},              -90.0       },
        {"half",                      {100.0, 0.0}, {-100.0, 0.0}, 100.0, {0.0, 0.0},                180.0       },
        {"half clockwise",            {-50.0, 7.0}, {50.0, 7.0},   -50.0, {0.0, 7.0},                -180.0      },
        {"half, radius rounded down", {0.0, 0.0},   {0.0, 20.0},   9.99,  {0.0, 10.0},               180.0       },
        {"rounded as far as may be",  {0.0, 0.0},   {0.0, 0.08},   0.02,  {0.0, 0.04},               180.0       },
        {"small half",                {0.1, 0.0},   {-0.1, 0.0},   0.1,   {0.0, 0.0},                180.0       },
        {"flat",                      {0.0, 0.0},   {1000.0, 0.0}, 1e6,   {500.0, 999999.874999992}, 0.0572957819},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Outline outline = {c.from};
        ASSERT_TRUE(dstv::AppendEdge(c.to, c.radius, outline));
        EXPECT_EQ(outline.back(), c.to);
        const double radius = (c.from - c.centre).length();
        double sweep = 0.0;
        for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
            const ZetGeomVector2d a = outline[i] - c.centre;
            const ZetGeomVector2d b = outline[i + 1] - c.centre;
            EXPECT_NEAR(b.length(), radius, 1e-6);
            EXPECT_GE((Middle(outline[i], outline[i + 1]) - c.centre).length(), radius - 0.0501);
            sweep += std::atan2(a.cross(b), a.dot(b)) * 180.0 / std::numbers::pi;
        }
        EXPECT_NEAR(sweep, c.sweep, 1e-6);
        EXPECT_LE(static_cast<double>(outline.size()),
                  3.0 + std::abs(c.sweep) / 360.0 * 10.0 * std::sqrt(std::abs(c.radius)));
    }
}

TEST(NcGeometry, RefusesARadiusThatCannotReach) {
    Outline outline(1);
    EXPECT_FALSE(dstv::AppendEdge({0.0, 20.0}, 9.97, outline));
    EXPECT_EQ(outline.size(), 1u);
}

/// Every outline point is a radius away from the rectangle between the corner circles' centres.
TEST(NcGeometry, RectanglesHaveTheirTrueShape) {
    // clang-format off
    // Corners: outline points; 0: do not count.
    struct Case { const char* name; double width, height, diameter, degrees; std::size_t corners; };
    // clang-format on
    constexpr Case kCases[] = {
        {"sharp",                40.0,  20.0,  0.0,  0.0,    5},
        {"sharp, turned",        40.0,  20.0,  0.0,  33.0,   5},
        {"rounded",              100.0, 60.0,  24.0, 0.0,    0},
        {"rounded, turned",      100.0, 60.0,  24.0, 10.0,   0},
        {"rounded, turned back", 8.0,   300.0, 0.07, -120.0, 0},
    };
    const ZetGeomPoint2d start = {1512.0, 144.0};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        const double r = c.diameter / 2.0;
        const Outline outline =
            dstv::RectangleOutline(start, c.width, c.height, c.diameter, c.degrees);
        const double turn = c.degrees * std::numbers::pi / 180.0;
        const auto distance = [&](const ZetGeomPoint2d& p) {
            const ZetGeomVector2d v = p - start;
            const double along = v.x * std::cos(turn) + v.y * std::sin(turn);
            const double across = v.y * std::cos(turn) - v.x * std::sin(turn);
            return std::hypot(std::max({-along, 0.0, along - c.width}),
                              std::max({-across, 0.0, across - c.height}));
        };
        EXPECT_EQ(outline.front(), outline.back());
        for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
            EXPECT_NEAR(distance(outline[i]), r, 1e-9);
            EXPECT_GE(distance(Middle(outline[i], outline[i + 1])), r - 0.0501);
        }
        const double area =
            (c.width + c.diameter) * (c.height + c.diameter) - (4.0 - std::numbers::pi) * r * r;
        EXPECT_NEAR(DoubleArea(outline) / 2.0, area, 0.05 * std::numbers::pi * c.diameter + 1e-6);
        EXPECT_TRUE(c.corners == 0 || outline.size() == c.corners);
    }
}

}  // namespace

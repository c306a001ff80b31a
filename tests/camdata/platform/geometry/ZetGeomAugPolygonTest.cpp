#include "support/Golden.h"
#include "support/Outlines.h"

#include "camdata/platform/geometry/ZetGeomAugPolygon.h"
#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pieces = ZetArray<ZetGeomAugPolygon>;
/// The corners of a piece without their order, for comparing pieces that start elsewhere.
using CornerSet = std::set<std::pair<double, double>>;

constexpr double kOffset = -0.05;

ZetGeomAugPolygon Polygon(const OutlinePoints& points) {
    return ZetGeomAugPolygon(points, 0.0);
}

Pieces Cut(const OutlinePoints& points) {
    const ZetGeomAugPolygon outline(points, 0.1);
    return outline.getMinRectangle().subtract(outline, kOffset);
}

CornerSet Corners(const OutlinePoints& points) {
    CornerSet corners;
    for (const ZetGeomPoint2d& p : points)
        corners.insert({p.x + 0.0, p.y + 0.0});  // + 0.0: no negative zero
    return corners;
}

std::multiset<CornerSet> Corners(const std::vector<OutlinePoints>& outlines) {
    std::multiset<CornerSet> all;
    for (const OutlinePoints& outline : outlines)
        all.insert(Corners(outline));
    return all;
}

std::vector<OutlinePoints> OutlinesOf(const Pieces& pieces) {
    std::vector<OutlinePoints> outlines;
    for (const ZetGeomAugPolygon& piece : pieces)
        outlines.push_back(piece.getVertices());
    return outlines;
}

std::string Text(const Pieces& pieces) {
    std::string text;
    for (const ZetGeomAugPolygon& piece : pieces)
        text += TextOf(piece.getVertices()) + " ";
    return text;
}

TEST(ZetGeomAugPolygonTest, CutsTheNotchesThatAFabricatorDraws) {
    // clang-format off
    // The pieces: in order, each from its first vertex.
    struct Case { const char* name; OutlinePoints outline; const char* pieces; };
    const Case cases[] = {
        {"rectangle", {{0, 0}, {100, 0}, {100, 50}, {0, 50}}, ""},
        {"L", {{0, 0}, {100, 0}, {100, 50}, {40, 50}, {40, 80}, {0, 80}},
         "(40,50)(100,50)(100,80)(40,80) "},
        {"T", {{0, 60}, {30, 60}, {30, 0}, {70, 0}, {70, 60}, {100, 60}, {100, 80}, {0, 80}},
         "(0,0)(30,0)(30,60)(0,60) (70,0)(100,0)(100,60)(70,60) "},
        {"U", {{0, 0}, {100, 0}, {100, 80}, {70, 80}, {70, 20}, {30, 20}, {30, 80}, {0, 80}},
         "(30,20)(70,20)(70,80)(30,80) "},
        {"stepped", {{0, 0}, {100, 0}, {100, 80}, {60, 80}, {60, 60}, {30, 60}, {30, 40}, {0, 40}},
         "(0,40)(30,40)(30,60)(60,60)(60,80)(0,80) "},
        {"notched at both ends", {{20, 0}, {80, 0}, {80, 10}, {100, 10}, {100, 50}, {0, 50}, {0, 10}, {20, 10}},
         "(0,0)(20,0)(20,10)(0,10) (80,0)(100,0)(100,10)(80,10) "},
        {"sloped ends", {{0, 0}, {100, 0}, {80, 50}, {10, 50}},
         "(0,0)(10,50)(0,50) (80,50)(100,0)(100,50) "},
        {"pockets that meet in a point", {{0, 0}, {100, 0}, {100, 40}, {70, 20}, {50, 40}, {30, 20}, {0, 40}},
         "(0,40)(30,20)(50,40) (50,40)(70,20)(100,40) "},
        {"joined by a strip of 0.03", {{0, 0}, {100, 0}, {100, 40}, {80, 40}, {80, 20}, {60, 20}, {60, 39.97}, {40, 39.97}, {40, 20}, {20, 20}, {20, 40}, {0, 40}},
         "(20,20)(40,20)(40,39.97)(20,40) (60,20)(80,20)(80,40)(60,39.97) "},
        {"slot that leaves 0.03 at the other side", {{0, 0}, {100, 0}, {100, 50}, {25, 50}, {99.97, 20}, {99.97, 15}, {20, 50}, {0, 50}},
         "(20,50)(99.97,15)(99.97,20)(25,50) "},
        {"ledge of 0.03", {{0, 0}, {100, 0}, {100, 49.97}, {50, 49.97}, {50, 50}, {0, 50}}, ""},
        {"ledge of 0.15", {{0, 0}, {100, 0}, {100, 49.85}, {50, 49.85}, {50, 50}, {0, 50}},
         "(50,49.85)(100,49.85)(100,50)(50,50) "},
        // 200 - 199.95 is a little more than 0.05.
        {"cut beside a ledge of 0.05", {{0, 0}, {1000, 0}, {1000, 200}, {500, 200}, {499, 199.95}, {100, 199.95}, {100, 150}, {0, 150}},
         "(0,150)(100,150)(100,199.95)(0,200) "},
        {"opening joined to the edge by a cut",
         {{0, 0}, {50, 0}, {50, 10}, {50, 20}, {40, 20}, {40, 30}, {60, 30}, {60, 20}, {50, 20}, {50, 10}, {50, 0}, {100, 0}, {100, 50}, {0, 50}},
         "(40,20)(50,20)(60,20)(60,30)(40,30) "},
        {"pocket whose edge goes out and back", {{0, 0}, {100, 0}, {100, 50}, {60, 50}, {60, 30}, {60, 50}, {40, 50}, {40, 80}, {0, 80}},
         "(40,50)(60,50)(100,50)(100,80)(40,80) "},
        {"edge that goes out and back", {{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 20}, {50, 50}, {0, 50}}, ""},
        {"corners off by 0.05", {{0.02, 0.03}, {100, -0.02}, {99.96, 50.01}, {0, 50}}, ""},
        {"chamfer of 0.05", {{0, 0}, {100, 0}, {100, 49.95}, {99.95, 50}, {0, 50}}, ""},
        {"small", {{0, 0}, {0.35, 0}, {0.35, 0.15}, {0.15, 0.15}, {0.15, 0.35}, {0, 0.35}},
         "(0.15,0.15)(0.35,0.15)(0.35,0.35)(0.15,0.35) "},
        {"crossing itself", {{0, 0}, {100, 0}, {100, 80}, {50, -20}, {0, 80}}, ""},
        {"figure of eight", {{0, 0}, {100, 80}, {100, 0}, {0, 80}}, ""},
        {"two points", {{0, 0}, {100, 0}}, ""},
        {"one point", {{5, 5}}, ""},
        {"nothing", {}, ""},
        {"not a number", {{0, 0}, {100, std::numeric_limits<double>::quiet_NaN()}, {100, 50}, {40, 50}}, ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Text(Cut(c.outline)), c.pieces);
        EXPECT_EQ(Text(Cut(Reversed(c.outline))), c.pieces);
    }
}

TEST(ZetGeomAugPolygonTest, TakesTheSmallestRectangleUnlessAnUprightOneIsNearlyAsSmall) {
    // clang-format off
    struct Case { const char* name; OutlinePoints outline; double area; bool isUpright; };
    const Case cases[] = {
        {"both ends skewed 45 degrees", {{0, 0}, {100, 0}, {300, 200}, {200, 200}}, 25000.0, false},
        {"right triangle, two equal rectangles", {{0, 0}, {40, 0}, {0, 30}}, 1200.0, true},
        {"diamond", {{10, 0}, {20, 10}, {10, 20}, {0, 10}}, 200.0, false},
        {"disc of chords", Disc(0, 0, 50, 72), 10000.0, true},
        {"line", {{0, 0}, {50, 50}}, 2500.0, true},
        {"large diamond", {{1e13, 0}, {2e13, 1e13}, {1e13, 2e13}, {0, 1e13}}, 2e26, false},
        {"huge diamond", {{1e120, 0}, {2e120, 1e120}, {1e120, 2e120}, {0, 1e120}}, 2e240, false},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ZetGeomAugPolygon rectangle = Polygon(c.outline).getMinRectangle();
        ASSERT_EQ(rectangle.getLength(), 4);
        EXPECT_NEAR(rectangle.getArea(), c.area, 1e-9 * c.area);
        EXPECT_EQ(rectangle.getVertices()[0].y == rectangle.getVertices()[1].y, c.isUpright);
    }
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    for (const ZetGeomPoint2d& p : {
             ZetGeomPoint2d{5,     kNone},
             {kNone, 5    }
    })
        EXPECT_EQ(Polygon({
                              {0, 0},
                              p, {9, 9}
        })
                      .getMinRectangle()
                      .getLength(),
                  0);
    EXPECT_EQ(ZetGeomAugPolygon().getMinRectangle().getLength(), 0);
    // Three equal ones: along the side that comes first.
    const OutlinePoints equal = {
        {0,                        0                       },
        {96,                       28                      },
        {48 - 14 * std::sqrt(3.0), 14 + 48 * std::sqrt(3.0)}
    };
    for (long first = 0; first < 3; ++first) {
        const OutlinePoints outline = StartingAt(equal, first);
        const CornerSet corners = Corners(Polygon(outline).getMinRectangle().getVertices());
        for (long i = 0; i < 2; ++i)
            EXPECT_TRUE(std::any_of(corners.begin(), corners.end(), [&](const auto& corner) {
                return std::hypot(corner.first - outline[i].x, corner.second - outline[i].y) < 1e-9;
            })) << first;
    }
}

bool IsInside(const ZetGeomPoint2d& p, const OutlinePoints& outline) {
    bool inside = false;
    for (long i = 0, j = outline.length() - 1; i < outline.length(); j = i++) {
        const ZetGeomPoint2d& a = outline[i];
        const ZetGeomPoint2d& b = outline[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// Points a little inside a polygon, beside the middle of each of its edges.
OutlinePoints PointsInside(const ZetGeomAugPolygon& polygon) {
    OutlinePoints points;
    const OutlinePoints& vertices = polygon.getVertices();
    for (long i = 0; i < vertices.length(); ++i) {
        const ZetGeomPoint2d& a = vertices[i];
        const ZetGeomVector2d edge = vertices[(i + 1) % vertices.length()] - a;
        const double aside = 1e-3 / edge.length();
        const ZetGeomPoint2d p = {a.x + 0.5 * edge.x - edge.y * aside,
                                  a.y + 0.5 * edge.y + edge.x * aside};
        if (IsInside(p, vertices))
            points.append(p);
    }
    return points;
}

/// What holds for every outline: areas add up, pieces lie in the rectangle and outside the outline,
/// no coordinate was made up, and no corner is there twice.
void ExpectLaws(const OutlinePoints& outline) {
    const ZetGeomAugPolygon polygon = Polygon(outline);
    const ZetGeomAugPolygon rectangle = polygon.getMinRectangle();
    CornerSet known = Corners(outline);
    known.merge(Corners(rectangle.getVertices()));
    double area = std::abs(polygon.getArea());
    double thinnest = 0.0;
    for (const ZetGeomAugPolygon& piece : rectangle.subtract(polygon, kOffset)) {
        area += piece.getArea();
        thinnest += 0.03 * piece.getPerimeter();
        ZetGeomPoint2d before = piece.getVertices().last();
        for (const ZetGeomPoint2d& vertex : piece.getVertices()) {
            EXPECT_TRUE(known.count({vertex.x + 0.0, vertex.y + 0.0}))
                << vertex.x << ", " << vertex.y;
            EXPECT_GT((vertex - before).length(), 1e-6) << vertex.x << ", " << vertex.y;
            before = vertex;
        }
        for (const ZetGeomPoint2d& p : PointsInside(piece)) {
            EXPECT_TRUE(IsInside(p, rectangle.getVertices()));
            EXPECT_FALSE(IsInside(p, outline)) << p.x << ", " << p.y;
        }
    }
    EXPECT_NEAR(area, rectangle.getArea(), 1e-9 * rectangle.getArea() + thinnest);
}

TEST(ZetGeomAugPolygonTest, FindsTheNotchesThatAnOutlineWasMadeFrom) {
    constexpr unsigned kSeed = 12;
    std::mt19937_64 random(kSeed);
    int crooked = 0;
    for (int i = 0; i < 2000; ++i) {
        SCOPED_TRACE("seed " + std::to_string(kSeed) + ", outline " + std::to_string(i));
        const NotchedOutline made = RandomNotchedOutline(random);
        const Pieces pieces = Cut(made.points);
        ExpectLaws(made.points);
        ExpectLaws(TurnedBy(made.points, 0.1 * static_cast<double>(random() % 3600)));
        const OutlinePoints rectangle = Polygon(made.points).getMinRectangle().getVertices();
        if (rectangle[0].y != rectangle[1].y) {
            ++crooked;  // long notches at opposite corners: a turned rectangle is really smaller
            continue;
        }
        EXPECT_EQ(Corners(OutlinesOf(pieces)), Corners(made.notches));
        const auto start = random() % static_cast<unsigned>(made.points.length());
        const OutlinePoints other = StartingAt(Reversed(made.points), static_cast<long>(start));
        ASSERT_EQ(Text(Cut(other)), Text(pieces));
        for (const auto turn : {MirroredInX, TurnedBy90}) {
            std::vector<OutlinePoints> turned = made.notches;
            std::transform(turned.begin(), turned.end(), turned.begin(), turn);
            EXPECT_EQ(Corners(OutlinesOf(Cut(turn(made.points)))), Corners(turned));
        }
        const OutlinePoints atAnAngle =
            TurnedBy(made.points, 0.1 * static_cast<double>(random() % 900));
        const double area = Polygon(made.points).getMinRectangle().getArea();
        if (std::abs(Polygon(atAnAngle).getMinRectangle().getArea() - area) < 1e-9 * area)
            ASSERT_EQ(Cut(atAnAngle).length(), pieces.length());
        else
            ++crooked;
    }
    EXPECT_LT(crooked, 300);
}

/// Of rectangles of one area the choice is the same however the outline lies.
TEST(ZetGeomAugPolygonTest, TheLeastRectangleTurnsWithItsOutline) {
    struct Case {
        const char* name;
        OutlinePoints outline;
        double width;          ///< of the rectangle along the side that is chosen
        ZetGeomPoint2d start;  ///< of that side
    };
    // All three rectangles along the sides of a triangle have twice its area.
    // clang-format off
    const Case cases[] = {
        {"longest side", {{0, 0}, {900, 100}, {300, 400}}, std::hypot(900, 100), {0, 0}},
        {"longest side last", {{300, 400}, {0, 0}, {900, 100}}, std::hypot(900, 100), {0, 0}},
        {"a vertex on the longest side", {{0, 0}, {450, 50}, {900, 100}, {300, 400}},
         std::hypot(900, 100), {0, 0}},
        {"two longest sides", {{0, 0}, {600, 800}, {-800, 600}}, std::hypot(1400, 200), {600, 800}},
        {"two equal sides", {{1000, 0}, {400, 800}, {0, 0}}, 1000.0, {1000, 0}},
    };
    // clang-format on
    for (const Case& c : cases) {
        for (int i = 0; i < 102; ++i) {
            const int degrees = 3 + i / 2 * 7;
            const double scale = i % 2 == 0 ? 1.0 : 1000.0;
            SCOPED_TRACE(testing::Message() << c.name << " at " << degrees << " times " << scale);
            const auto placed = [&](const OutlinePoints& points) {
                return Mapped(TurnedBy(points, degrees), [&](const ZetGeomPoint2d& p) {
                    return ZetGeomPoint2d{scale * p.x, scale * p.y};
                });
            };
            const OutlinePoints rectangle =
                Polygon(placed(c.outline)).getMinRectangle().getVertices();
            EXPECT_NEAR((rectangle[1] - rectangle[0]).length(), scale * c.width, 1e-6);
            EXPECT_NEAR((rectangle[0] - placed({c.start})[0]).length(), 0.0, 1e-6);
        }
    }
}

/// Of the rectangles along lines through two of the points.
double LeastAreaAround(const OutlinePoints& points) {
    double least = std::numeric_limits<double>::infinity();
    for (const ZetGeomPoint2d& from : points)
        for (const ZetGeomPoint2d& to : points) {
            const ZetGeomVector2d along = to - from;
            double low = 0.0, high = 0.0, left = 0.0, right = 0.0;
            for (const ZetGeomPoint2d& p : points) {
                low = std::min(low, along.dot(p - from));
                high = std::max(high, along.dot(p - from));
                left = std::max(left, along.cross(p - from));
                right = std::min(right, along.cross(p - from));
            }
            if (from != to)
                least = std::min(least, (high - low) * (left - right) / along.dot(along));
        }
    return least;
}

/// Few places and steps of which the allowance for the upright rectangle lets some pass.
TEST(ZetGeomAugPolygonTest, TheLeastRectangleIsThatOfAPlainSearch) {
    std::mt19937_64 random(21);
    int crooked = 0;
    for (int i = 0; i < 12000; ++i) {
        const std::uint64_t places = 3 + random() % 28;
        const double step = 0.2 + 0.1 * static_cast<double>(random() % 20);
        double low[2] = {1e9, 1e9}, high[2] = {0.0, 0.0};
        OutlinePoints points;
        for (int k = 0; k < 3 + i % 9; ++k) {
            const double at[2] = {step * static_cast<double>(random() % places),
                                  step * static_cast<double>(random() % places)};
            for (int axis = 0; axis < 2; ++axis) {
                low[axis] = std::min(low[axis], at[axis]);
                high[axis] = std::max(high[axis], at[axis]);
            }
            points.append({at[0], at[1]});
        }
        const double width = high[0] - low[0], height = high[1] - low[1];
        const double least = LeastAreaAround(points);
        if (least <= 0.0 || std::abs(width * height - least - 0.1 * (width + height)) < 1e-9)
            continue;
        const bool isCrooked = width * height - least > 0.1 * (width + height);
        crooked += isCrooked ? 1 : 0;
        ASSERT_NEAR(
            Polygon(points).getMinRectangle().getArea(), isCrooked ? least : width * height, 1e-9)
            << i << Text({Polygon(points)});
    }
    EXPECT_GT(crooked, 2000);
    EXPECT_LT(crooked, 10000);
}

TEST(ZetGeomAugPolygonTest, LawsHoldForStars) {
    constexpr unsigned kSeed = 99;
    std::mt19937_64 random(kSeed);
    for (int i = 0; i < 2000; ++i) {
        SCOPED_TRACE("seed " + std::to_string(kSeed) + ", star " + std::to_string(i));
        ExpectLaws(RandomStar(random));
    }
}

TEST(ZetGeomAugPolygonTest, HoldsEachVertexOnce) {
    // clang-format off
    const OutlinePoints closed = {{0, 0}, {10, 0}, {10, 5}, {0, 5}, {0, 0}};
    const OutlinePoints near = {{0, 0}, {0.05, 0}, {10, 0}, {10, 5}, {10, 5.08}, {0, 5}, {0.06, 0.06}};
    const OutlinePoints twice = {{1, 1}, {1, 1}};
    // clang-format on
    EXPECT_EQ(Text({Polygon(closed)}), "(0,0)(10,0)(10,5)(0,5) ");
    EXPECT_EQ(Text({ZetGeomAugPolygon(near, 0.1)}), "(0,0)(10,0)(10,5)(0,5) ");
    EXPECT_EQ(Text({ZetGeomAugPolygon(twice, 0.1)}), "(1,1) ");
}

TEST(ZetGeomAugPolygonTest, NormalisingDropsWhatLiesOnStraightEdges) {
    // clang-format off
    const ZetGeomAugPolygon clockwise = Polygon(
        {{0, 5}, {4, 5}, {10, 5}, {10, 2.505}, {10, 0}, {7, 0.009}, {5, 0}, {0, 0}});
    // The vertex of lowest X is no corner.
    const ZetGeomAugPolygon bulgingLeft = Polygon({{0, 0}, {10, 0}, {10, 5}, {0, 5}, {-0.005, 2}});
    // clang-format on
    for (const ZetGeomAugPolygon& polygon : {clockwise, bulgingLeft})
        EXPECT_EQ(Text({polygon.getNormalised(0.01)}), "(0,0)(10,0)(10,5)(0,5) ");
    EXPECT_EQ(clockwise.getNormalised(0.001).getLength(), 6);
    EXPECT_EQ(clockwise.getNormalised(0.0).getLength(), 6);
    const OutlinePoints small = {
        {0,    0   },
        {0,    0.25},
        {0.25, 0   }
    };
    for (const OutlinePoints& points : {small, Reversed(small)})
        EXPECT_EQ(Text({Polygon(points).getNormalised(0.01)}), "(0,0)(0.25,0)(0,0.25) ");

    // So fine a disc that each vertex lies on the line between its neighbours: it must stay a disc.
    const ZetGeomAugPolygon disc = Polygon(Disc(0, 0, 100, 5000));
    EXPECT_NEAR(disc.getNormalised(0.01).getArea(), disc.getArea(), 0.01 * disc.getPerimeter());
    EXPECT_LT(disc.getNormalised(0.01).getLength(), 500);
}

TEST(ZetGeomAugPolygonTest, EqualityKnowsNoStartDirectionOrStraightVertices) {
    // clang-format off
    const OutlinePoints rectangle = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};
    const OutlinePoints nearly = {{0, 0}, {60, 0}, {100, 0}, {100, 50}, {0, 50.0009}};
    // Within the tolerance both, but their lowest vertices are those of other corners.
    const OutlinePoints leaningRight = {{0, 0}, {100, 0}, {100, 50}, {0.0005, 50}};
    const OutlinePoints leaningLeft = {{0.0005, 0}, {100, 0}, {100, 50}, {0, 50}};
    const OutlinePoints higher = {{0, 0}, {100, 0}, {100, 50}, {0, 50.01}};
    const OutlinePoints triangle = {{0, 0}, {100, 0}, {100, 50}};
    const OutlinePoints chamfered = {{0, 0}, {100, 0}, {100, 49.9}, {99.9, 50}, {0, 50}};
    // clang-format on
    const auto isEqual = [&](const OutlinePoints& other) {
        return Polygon(rectangle).isEqualTo(Polygon(other), 0.001);
    };
    EXPECT_TRUE(isEqual(Reversed(StartingAt(rectangle, 2))) && isEqual(nearly));
    const OutlinePoints disc = Disc(0, 0, 10'000, 71);
    EXPECT_TRUE(Polygon(disc).isEqualTo(Polygon(Reversed(StartingAt(disc, 5))), 0.0));
    EXPECT_FALSE(isEqual(higher) || isEqual(triangle) || isEqual(chamfered));
    EXPECT_TRUE(Polygon(leaningRight).isEqualTo(Polygon(leaningLeft), 0.001));
    EXPECT_TRUE(Polygon(leaningLeft).isEqualTo(Polygon(leaningRight), 0.001));
    const OutlinePoints ends = {
        {0, 0},
        {3, 4}
    };
    const ZetGeomAugPolygon line = Polygon(ends), nothing = Polygon(OutlinePoints());
    EXPECT_EQ(line.getArea() + nothing.getArea() + nothing.getPerimeter(), 0.0);
    EXPECT_EQ(line.getPerimeter(), 10.0);
}

std::string ShortText(const ZetArray<ZetGeomPoint2d>& points) {
    const auto rounded = [](double value) { return (std::round(1000.0 * value) + 0.0) / 1000.0; };
    std::string text;
    for (const ZetGeomPoint2d& p : points)
        text += ZetString::format(L" %.3f,%.3f", rounded(p.x), rounded(p.y)).toUtf8();
    return text + "\n";
}

/// Outlines between a lower and an upper chain, whose vertices lie within the tolerances of lines
/// and of each other, and a little beside; turned, begun and gone round in several ways.
TEST(ZetGeomAugPolygonTest, WhatIsMadeOfOutlinesOnTheLimitsOfTheTolerances) {
    std::mt19937_64 random(3);
    const auto oneOf = [&](std::initializer_list<double> values) {
        return values.begin()[random() % values.size()];
    };
    std::string text;
    for (int i = 0; i < 250; ++i) {
        OutlinePoints points;
        for (double x = 0.0; x <= 60.0; x += oneOf({0.035, 0.09, 0.11, 10.0, 20.0, 30.0}))
            points.append({x, oneOf({0.0, 0.0, 0.0, 0.035, 0.09, 0.11, 5.0})});
        const double end = points.last().x;
        for (double x = end; x > 0.0; x -= oneOf({0.035, 0.09, 0.11, 10.0, 20.0, 30.0}))
            points.append({x, 40.0 - oneOf({0.0, 0.0, 0.0, 0.035, 0.09, 0.11, 5.0, 15.0})});
        points = StartingAt(points, static_cast<long>(random() % 5));
        if (i % 3 == 0)
            points = Reversed(points);
        if (i % 4 == 0)
            for (ZetGeomPoint2d& p : points)
                p = {0.8 * p.x - 0.6 * p.y, 0.6 * p.x + 0.8 * p.y};
        const ZetGeomAugPolygon outline(points, 0.1);
        const ZetGeomAugPolygon rectangle = outline.getMinRectangle();
        text += "----" + ShortText(points) + "held" + ShortText(outline.getVertices()) +
                "normalised" + ShortText(outline.getNormalised(0.1).getVertices()) + "rectangle" +
                ShortText(rectangle.getVertices());
        for (const ZetGeomAugPolygon& piece : rectangle.subtract(outline, kOffset))
            text += "piece" + ShortText(piece.getVertices());
    }
    EXPECT_TRUE(MatchesGolden(GEOMETRY_GOLDEN_FOLDER, "outlines", text));
}

}  // namespace

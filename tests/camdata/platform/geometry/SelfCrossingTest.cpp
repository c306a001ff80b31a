#include "support/Outlines.h"

#include "camdata/platform/geometry/SelfCrossing.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <random>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(SelfCrossingTest, TouchingIsNoCrossing) {
    // clang-format off
    struct Case { const char* name; OutlinePoints outline; bool crosses; };
    const Case cases[] = {
        {"bow tie", {{0, 0}, {10, 10}, {10, 0}, {0, 10}}, true},
        {"through a vertex", {{0, 0}, {5, 5}, {10, 10}, {10, 0}, {5, 5}, {0, 10}}, true},
        {"twice around", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}}, true},
        {"a finger through the edge below",
         {{0, 0}, {100, 0}, {100, 60}, {20, 30}, {70, -20}, {60, -20}, {10, 30}, {0, 60}}, true},
        {"out through an edge at a vertex", {{0, 0}, {10, 0}, {10, 10}, {5, 0}, {3, -5}}, true},
        {"square", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, false},
        {"pinched", {{0, 0}, {10, 0}, {5, 5}, {10, 10}, {0, 10}, {5, 5}}, false},
        {"opening joined to the edge",
         {{0, 0}, {50, 0}, {50, 10}, {40, 10}, {40, 20}, {60, 20}, {60, 10}, {50, 10}, {50, 0}, {100, 0}, {100, 50}, {0, 50}},
         false},
        {"0.01 through an edge", {{0, 0}, {10, 0}, {10, 10}, {5, -0.01}, {0, 10}}, false},
        {"0.011 through an edge", {{0, 0}, {10, 0}, {10, 10}, {5, -0.011}, {0, 10}}, true},
        {"0.009 through an edge, near its start", {{0, 0}, {10, 0}, {10, 10}, {0.5, -0.009}, {0, 10}}, false},
        {"0.009 through an edge, near its end", {{0, 0}, {10, 0}, {10, 10}, {9.5, -0.009}, {0, 10}}, false},
        {"0.009 through a short edge", {{0, 0}, {0.3, 0}, {0.3, 10}, {0.15, -0.009}, {0, 10}}, false},
        {"0.031 are twice inside",
         {{0, 0}, {40, 0}, {40, 0.031}, {0, 0.031}, {0, 0}, {-10, -20}, {60, -20}, {60, 20}, {-10, 20}}, true},
        {"0.029 are twice inside",
         {{0, 0}, {40, 0}, {40, 0.029}, {0, 0.029}, {0, 0}, {-10, -20}, {60, -20}, {60, 20}, {-10, 20}}, false},
        {"as large as can be", {{0, 0}, {1e12, 0}, {0, 1e12}}, false},
        {"too large", {{0, 0}, {1e300, 0}, {0, 1e300}}, true},
    };
    // clang-format on
    for (const Case& c : cases)
        for (long first = 0; first < c.outline.length(); ++first) {
            const OutlinePoints outline = StartingAt(c.outline, first);
            EXPECT_EQ(FindSelfCrossing({outline.begin(), outline.end()}).has_value(), c.crosses)
                << c.name << " from " << first;
        }
    // An inner turn and one around it that touch: the first edge of the inner one is told.
    const OutlinePoints turns = {
        {0,  0  },
        {10, -5 },
        {20, 0  },
        {10, 5  },
        {0,  0  },
        {5,  -20},
        {40, 0  },
        {5,  20 }
    };
    EXPECT_EQ(FindSelfCrossing({turns.begin(), turns.end()}), 0U);
}

/// How often the outline goes round a point that lies on no edge.
int WindingAround(const ZetGeomPoint2d& p, const OutlinePoints& points) {
    int winding = 0;
    for (long i = 0; i < points.length(); ++i) {
        const ZetGeomPoint2d a = points[i], b = points[(i + 1) % points.length()];
        const bool isLeft = (b - a).cross(p - a) > 0.0;
        if ((a.y <= p.y) != (b.y <= p.y) && isLeft == (a.y < b.y))
            winding += isLeft ? 1 : -1;
    }
    return winding;
}

struct Meetings {
    std::set<double> places = {0.0, 1.0};  ///< on an edge, from its start to its end
    bool areCrossing = false;              ///< one is between the ends of both edges
};

Meetings MeetingsOn(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b, const OutlinePoints& points) {
    Meetings meetings;
    const ZetGeomVector2d edge = b - a;
    for (long i = 0; i < points.length(); ++i) {
        const ZetGeomPoint2d c = points[i];
        const ZetGeomVector2d other = points[(i + 1) % points.length()] - c;
        const double turn = edge.cross(other);
        const double on =
            turn == 0.0 ? edge.dot(c - a) / edge.dot(edge) : (c - a).cross(other) / turn;
        const double onOther = turn == 0.0 ? 0.0 : (c - a).cross(edge) / turn;
        const bool isOnLine = turn != 0.0 || edge.cross(c - a) == 0.0;
        if (!isOnLine || on <= 0.0 || on >= 1.0 || onOther < 0.0 || onOther > 1.0)
            continue;
        meetings.places.insert(on);
        meetings.areCrossing |= onOther > 0.0 && onOther < 1.0;
    }
    return meetings;
}

/// Whether edges cross, or the outline goes round some area twice, or some both ways.
bool CrossesItself(const OutlinePoints& points) {
    int low = 0, high = 0;
    for (long i = 0; i < points.length(); ++i) {
        const ZetGeomPoint2d a = points[i], b = points[(i + 1) % points.length()];
        const ZetGeomVector2d edge = b - a;
        if (edge.length() == 0.0)
            continue;
        const Meetings meetings = MeetingsOn(a, b, points);
        if (meetings.areCrossing)
            return true;
        for (auto to = std::next(meetings.places.begin()); to != meetings.places.end(); ++to)
            for (const double aside : {1e-6, -1e-6}) {
                const double along = (*std::prev(to) + *to) / 2.0;
                const int winding = WindingAround(
                    {a.x + edge.x * along - edge.y * aside, a.y + edge.y * along + edge.x * aside},
                    points);
                low = std::min(low, winding);
                high = std::max(high, winding);
            }
    }
    return high - low > 1;
}

/// Where points are few, they lie on each other and on edges, and edges on edges.
TEST(SelfCrossingTest, EqualsPlainWindingNumbers) {
    std::mt19937_64 random(7);
    struct Grid {
        std::uint64_t places;
        double step;
    };
    for (const auto& [places, step] : {
             Grid{3,         0.2},
             {3,         10 },
             {4,         10 },
             {6,         10 },
             {9,         10 },
             {1'000'003, 10 }
    }) {
        int crossing = 0;
        for (int i = 0; i < 4000; ++i) {
            OutlinePoints points;
            for (int k = 0; k < 3 + i % 7; ++k) {
                const auto x = static_cast<double>(random() % places);
                points.append({step * x, step * static_cast<double>(random() % places)});
            }
            const bool crosses = CrossesItself(points);
            crossing += crosses ? 1 : 0;
            ASSERT_EQ(FindSelfCrossing({points.begin(), points.end()}).has_value(), crosses)
                << places << " places, outline " << i << ": " << TextOf(points);
        }
        EXPECT_GT(crossing, 400);
        EXPECT_LT(crossing, 3600);
    }
}

/// So many edges that they are sorted; some cross where two vertices have changed places, or one
/// lies on the other side.
TEST(SelfCrossingTest, ManyEdgesEqualPlainWindingNumbers) {
    std::mt19937_64 random(11);
    int crossing = 0;
    for (int i = 0; i < 400; ++i) {
        OutlinePoints points = RandomStar(random);
        if (i % 2 == 0)
            std::swap(points[0], points[1 + static_cast<long>(random() % 2)]);
        else if (i % 3 == 0)
            points[0] = {-points[0].x, -points[0].y};
        for (ZetGeomPoint2d& p : points)
            p = {10.0 * std::round(0.1 * p.x), 10.0 * std::round(0.1 * p.y)};
        const bool crosses = CrossesItself(points);
        crossing += crosses ? 1 : 0;
        ASSERT_EQ(FindSelfCrossing({points.begin(), points.end()}).has_value(), crosses)
            << i << ": " << TextOf(points);
    }
    EXPECT_GT(crossing, 50);
    EXPECT_LT(crossing, 350);
}

/// A comb with long teeth.
OutlinePoints Comb(int teeth) {
    OutlinePoints points;
    for (int i = 0; i < teeth; ++i)
        for (const ZetGeomPoint2d& p : {
                 ZetGeomPoint2d{10.0 * i,     0    },
                 {10.0 * i,     -4000},
                 {10.0 * i + 5, -4000},
                 {10.0 * i + 5, 0    }
        })
            points.append(p);
    points.append({10.0 * teeth, 10});
    points.append({0, 10});
    return points;
}

/// Beyond the number of edges up to which touching is judged, each contact counts. The comb lies
/// askew: of its full length each tooth stands beside most others along either axis, of parts of it
/// beside a few.
TEST(SelfCrossingTest, OfVeryManyEdgesTheOneThatTouchesIsTold) {
    const OutlinePoints comb = Comb(300);
    constexpr long kAt = 4 * 150;
    struct Case {
        const char* name;
        std::vector<ZetGeomPoint2d> instead;  ///< of the lower left corner of a tooth
        std::optional<std::size_t> from, to;  ///< the edge that is told is one of these
    };
    const Case cases[] = {
        {"apart",                {{1500, -4000}},                               {},      {}     },
        {"a corner on a corner", {{1495, -4000}},                               kAt + 1, kAt + 1},
        {"a corner on an edge",  {{1495, -2000}},                               kAt,     kAt + 1},
        {"through an edge",      {{1492, -2000}},                               kAt,     kAt + 1},
        {"nearly on an edge",    {{1495.002, -2000}},                           {},      {}     },
        {"off it by a hair",     {{1495.00005, -2000}},                         kAt,     kAt + 1},
        {"out and back",         {{1500, -4100}, {1500, -4000}},                kAt,     kAt + 1},
        {"back and out",         {{1500, -4000}, {1500, -3900}, {1501, -4000}}, kAt,     kAt + 1},
    };
    for (const Case& c : cases)
        for (const double length : {1.0, 0.08, 0.01}) {
            OutlinePoints points = comb;
            points[kAt + 1] = c.instead[0];
            for (std::size_t i = 1; i < c.instead.size(); ++i)
                points.insertAt(kAt + 1 + static_cast<long>(i), c.instead[i]);
            for (ZetGeomPoint2d& p : points)
                p = {4.0 * p.x - 3.0 * length * p.y, 3.0 * p.x + 4.0 * length * p.y};
            const auto told = FindSelfCrossing({points.begin(), points.end()});
            EXPECT_TRUE(told >= c.from && told <= c.to)
                << c.name << ", " << length << ": " << told.value_or(0);
            const OutlinePoints upsideDown = TurnedBy90(TurnedBy90(points));
            EXPECT_EQ(FindSelfCrossing({upsideDown.begin(), upsideDown.end()}).has_value(),
                      c.to.has_value())
                << c.name << ", " << length << ", upside down";
        }
}

/// A comb with teeth of random depth up to `deepest`, and a long edge above them.
OutlinePoints RandomComb(std::mt19937_64& random, int teeth, std::uint64_t deepest) {
    OutlinePoints points = Comb(teeth);
    for (long i = 0; i < teeth; ++i) {
        const double depth = 5.0 + static_cast<double>(random() % deepest);
        points[4 * i + 1].y = points[4 * i + 2].y = -depth;
    }
    return points;
}

/// Wherever the two edges are, however the outline lies, and in whatever order its edges come.
TEST(SelfCrossingTest, OneCrossingAmongManyEdgesIsFound) {
    std::mt19937_64 random(5);
    for (int i = 0; i < 3000; ++i) {
        const int teeth = 5 + static_cast<int>(random() % 40);
        OutlinePoints comb = RandomComb(random, teeth, 4ULL << random() % 8);
        const double degrees = static_cast<double>(random() % 3600) * 0.1;
        const long first = static_cast<long>(random() % static_cast<unsigned>(comb.length()));
        const auto crosses = [&](const OutlinePoints& points) {
            const OutlinePoints turned = TurnedBy(StartingAt(points, first), degrees);
            const OutlinePoints outline = i % 2 == 0 ? turned : Reversed(turned);
            return FindSelfCrossing({outline.begin(), outline.end()}).has_value();
        };
        ASSERT_FALSE(crosses(comb)) << i;
        // Through the tooth beside it, or through the long edge.
        const long tooth = 1 + static_cast<long>(random() % static_cast<unsigned>(teeth - 1));
        const ZetGeomPoint2d corner = comb[4 * tooth];
        const double depth = std::min(-comb[4 * tooth - 3].y, -comb[4 * tooth + 1].y);
        comb[4 * tooth + (random() % 2 == 0 ? 0 : 1)] =
            random() % 2 == 0 ? ZetGeomPoint2d{corner.x - 8.0, -0.5 * depth}
                              : ZetGeomPoint2d{corner.x, 11.0};
        ASSERT_TRUE(crosses(comb)) << i;
    }
}

TEST(SelfCrossingTest, TouchingIsJudgedUpToANumberOfEdges) {
    OutlinePoints points = Comb(249);
    points[401] = {1000 - 5, -4000};
    for (double x = 1.0; points.length() <= static_cast<long>(kMaxTouchingEdges); x += 1.0) {
        EXPECT_FALSE(FindSelfCrossing({points.begin(), points.end()}).has_value());
        points.append({x - 10.0, 5});
    }
    EXPECT_TRUE(FindSelfCrossing({points.begin(), points.end()}).has_value());
}

/// Beyond the number of edges up to which touching is judged contacts are told on the grid of
/// outlines: of 0.001 mm, or of a size that makes it 0.002.
TEST(SelfCrossingTest, ContactsOfVeryManyEdgesAreToldOnTheGrid) {
    constexpr double kDoubleGrid = 2147483.648;
    constexpr long kAt = 4 * 150;
    // The wall of a tooth, moved right, and the next tooth's lower left corner: steps from 1495.
    struct Case {
        double wall, corner, width;
        bool isContact;
    };
    for (const Case& c : {
             Case{0.0, 0.45, 0.0,         true },
             {0.0, 0.5,  0.0,         false},
             {0.0, 0.55, 0.0,         false},
             {0.0, 1.0,  0.0,         false},
             {1.0, 0.55, 0.0,         true },
             {0.0, 0.9,  kDoubleGrid, true },
             {0.0, 1.5,  kDoubleGrid, false},
    }) {
        OutlinePoints points = Comb(300);
        points[kAt - 2].x = points[kAt - 1].x = 1495.0 + 0.001 * c.wall;
        points[kAt + 1] = {1495.0 + 0.001 * c.corner, -2000.0};
        points[4 * 300].x = std::max(points[4 * 300].x, c.width);
        EXPECT_EQ(FindSelfCrossing({points.begin(), points.end()}).has_value(), c.isContact)
            << c.wall << ", " << c.corner << ", " << c.width;
    }
    // Neighbours meet, the last and the first as well.
    for (long first = 0; first < 8; ++first) {
        const OutlinePoints points = StartingAt(Comb(300), first);
        EXPECT_FALSE(FindSelfCrossing({points.begin(), points.end()}).has_value()) << first;
    }
    // Edges of a step or two that cross.
    OutlinePoints points = Comb(300);
    long at = kAt + 1;
    for (const ZetGeomPoint2d& p : {
             ZetGeomPoint2d{1500.002, -3999.999},
             {1500.001, -3999.999},
             {1500.001, -4000    }
    })
        points.insertAt(++at, p);
    EXPECT_TRUE(FindSelfCrossing({points.begin(), points.end()}).has_value());
}

}  // namespace

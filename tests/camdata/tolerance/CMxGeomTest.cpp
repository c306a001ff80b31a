#include "support/CurrentTolerance.h"

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kFar = 1e6;

using Numbers = std::vector<double>;

/// Read before main, that is before any test could set a tolerance.
const bool g_startsWithEPS = CurrentToleranceIs(0.1);

TEST(CMxGeomTest, LoadsWithTheUsualTolerancesAndLimits) {
    using G = CMxGeom;
    EXPECT_TRUE(g_startsWithEPS);
    // clang-format off
    const Numbers values = {G::GetEPS(), G::GetGenTol(), G::GetXTol(), G::GetYTol(), G::GetAngTol(),
                            G::GetMinEdgeDist(), G::GetMinEndDist(), G::GetMinEdgeDistFromFace()};
    // clang-format on
    EXPECT_EQ(values, (Numbers{0.1, 0.5, 0.5, 0.5, 0.5, -1.5, -1.5, -1.0}));
}

TEST(CMxGeomTest, SelectsAStoredToleranceOrTheGivenOne) {
    CMxGeom::SetEPS(1.0);
    CMxGeom::SetGenTol(2.0);
    CMxGeom::SetXTol(3.0);
    CMxGeom::SetYTol(4.0);
    CMxGeom::SetAngTol(5.0);
    EXPECT_TRUE(CurrentToleranceIs(0.1)) << "storing a tolerance must not make it current";
    for (const int type : {-1, 0, 1, 2, 3, 4, 5, 99}) {
        CMxGeom::SetTol(static_cast<eToleranceType>(type), 9.0);
        EXPECT_TRUE(CurrentToleranceIs(type >= 0 && type < 5 ? type + 1.0 : 9.0)) << type;
    }
}

TEST(CMxGeomTest, EachThreadHasACurrentToleranceOfItsOwn) {
    CMxGeom::SetEPS(3.0);
    CMxGeom::SetTol(eTolValue, 5.0);
    bool startsAsAny = false;
    bool takesTheStored = false;
    std::thread([&] {
        startsAsAny = CurrentToleranceIs(0.1);
        CMxGeom::SetTol(eTolEPS);
        takesTheStored = CurrentToleranceIs(3.0);
    }).join();
    EXPECT_TRUE(startsAsAny);
    EXPECT_TRUE(takesTheStored);
    EXPECT_TRUE(CurrentToleranceIs(5.0)) << "another thread changed it";
}

TEST(CMxGeomTest, ComparesWithinTheCurrentTolerance) {
    // clang-format off
    struct Case { const char* name; double a, b; bool equal, less, greater; int compare; };
    const Case cases[] = {
        {"at the tolerance", 10.0, 10.1, true, false, false, 0},
        {"below", 9.85, 10.0, false, true, false, -1},
        {"below within", 9.95, 10.0, true, false, false, 0},
        {"above within", 10.05, 10.0, true, false, false, 0},
        {"above", 10.15, 10.0, false, false, true, 1},
        {"long and just within", 3000.0, 3000.1, true, false, false, 0},
        // 1000.1 - 1000.0 is a little above 0.1, but 1000.1 - 0.1 rounds to 1000.0.
        {"rounding decides, upwards", 1000.0, 1000.1, false, false, false, 1},
        {"rounding decides, downwards", 1000.1, 1000.0, false, false, false, 1},
        {"not a number first", kNaN, 1.0, false, false, false, 1},
        {"not a number second", 1.0, kNaN, false, false, false, 1},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(CMxGeom::IsEqual_Mx(each.a, each.b), each.equal);
        EXPECT_EQ(CMxGeom::IsLess_Mx(each.a, each.b), each.less);
        EXPECT_EQ(CMxGeom::IsGreater_Mx(each.a, each.b), each.greater);
        EXPECT_EQ(CMxGeom::IsLessOrEqual_Mx(each.a, each.b), each.equal || each.less);
        EXPECT_EQ(CMxGeom::IsGreaterOrEqual_Mx(each.a, each.b), each.equal || each.greater);
        EXPECT_EQ(CMxGeom::Compare_Mx(each.a, each.b), each.compare);
    }
}

TEST(CMxGeomTest, FindsTheFirstElementWithinTolerance) {
    EXPECT_EQ(CMxGeom::find({}, 5.0), -1);
    EXPECT_EQ(CMxGeom::find({1.0, 5.05, 5.0}, 5.0), 1);
    EXPECT_EQ(CMxGeom::find({5.05, 5.0}, 5.0), 0);
    EXPECT_EQ(CMxGeom::find({1.0, kNaN, 5.2}, 5.0), -1);
}

// clang-format off
struct LimitCase { const char* name; double limit, tolerance, dist; bool isSufficient; };
constexpr LimitCase kLimitCases[] = {
    {"1.5 diameters", -1.5, 0.1, 25.0, false},  {"short by the tolerance", -1.5, 0.1, 26.9, true},
    {"short by more", -1.5, 0.1, 26.89, false}, {"absolute", 20.0, 0.1, 25.0, true},
    {"short", 20.0, 0.1, 19.85, false},         {"switched off", 0.05, 0.1, -kFar, true},
    {"off", 0.1, 0.1, -kFar, true},             {"negative off", -0.1, 0.1, -kFar, true},
    {"small multiple", -0.11, 0.1, 1.5, false}, {"off, other tolerance", 0.4, 0.5, -kFar, true},
    {"even the default", -1.5, 2.0, -kFar, true}, {"not a number", -1.5, 0.1, kNaN, false},
    {"hardly on", 0.05, 0.01, 0.03, false},
};
// clang-format on

TEST(CMxGeomTest, ChecksADistanceAgainstItsOwnLimit) {
    struct Check {
        const char* name;
        void (*setLimit)(double);
        bool (*isSufficient)(double, double);
    };
    constexpr Check kChecks[] = {
        {"edge",      CMxGeom::SetMinEdgeDist,         CMxGeom::CheckEdgeDist        },
        {"end",       CMxGeom::SetMinEndDist,          CMxGeom::CheckEndDist         },
        {"from face", CMxGeom::SetMinEdgeDistFromFace, CMxGeom::CheckEdgeDistFromFace},
    };
    for (const Check& check : kChecks) {
        for (const Check& each : kChecks)
            each.setLimit(kFar);
        for (const LimitCase& each : kLimitCases) {
            SCOPED_TRACE(std::string(check.name) + ": " + each.name);
            check.setLimit(each.limit);
            CMxGeom::SetTol(eTolValue, each.tolerance);
            EXPECT_EQ(check.isSufficient(each.dist, 18.0), each.isSufficient);
        }
    }
}

TEST(CMxGeomTest, RoundsToMultiplesOfAStep) {
    // clang-format off
    struct Case { double value, step, rounded; };
    constexpr Case kCases[] = {
        {12.26, 0.5, 12.5},  {12.24, 0.5, 12.0},   {12.25, 0.5, 12.0}, {12.75, 0.5, 13.0},
        {12.26, -0.5, 12.5}, {-12.26, 0.5, -12.5}, {11.25, 0.5, 11.0}, {7.26, 1.0, 7.0},
    };
    // clang-format on
    for (const Case& each : kCases)
        EXPECT_EQ(CMxGeom::Round_CAM(each.value, each.step), each.rounded) << each.value;
    EXPECT_TRUE(std::isnan(CMxGeom::Round_CAM(0.0, 0.0)));
    EXPECT_EQ(CMxGeom::Round_CAM(7.26, 1), 7.3) << "a whole number is a number of decimals";
}

TEST(CMxGeomTest, ConvertsAnglesWithATenDecimalPi) {
    EXPECT_EQ(CMxGeom::dtor(90.0), 1.57079632675);
    // 7 * (pi / 180) would end in ...112.
    EXPECT_EQ(CMxGeom::dtor(7.0), 0.12217304763611113);
    EXPECT_EQ(CMxGeom::rtod(3.1415926535), 180.0);
    // 3.5 * (180 / pi) would end in ...985.
    EXPECT_EQ(CMxGeom::rtod(3.5), 200.53522830151982);
}

}  // namespace

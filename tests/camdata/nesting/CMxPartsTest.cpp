#include "support/CurrentTolerance.h"

#include "camdata/holes/CMxGeom.h"
#include "camdata/nesting/CMxParts.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(CMxPartsTest, SubtractsOnlyWhatIsThere) {
    const long cases[][4] = {
        {3,  5, false, 3 },
        {3,  3, true,  0 },
        {0,  1, false, 0 },
        {-1, 0, false, -1}
    };
    for (const auto& [qty, n, isTaken, left] : cases) {
        CMxParts part;
        part.SetQty(qty);
        EXPECT_EQ(part.SubtractQty(n), isTaken != 0) << n;
        EXPECT_EQ(part.GetQty(), left) << n;
    }
}

TEST(CMxPartsTest, ComparesLengthsWithinTheGeneralTolerance) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const double cases[][4] = {
        {3000.0, 3000.1, 0,  0},
        {3000.0, 3000.2, -1, 1},
        {1000.0, 1000.1, 1,  1},
        {1000.0, kNaN,   1,  1}
    };
    for (const auto& [lengthA, lengthB, forward, backward] : cases) {
        SCOPED_TRACE(lengthB);
        CMxGeom::SetTol(eTolValue, 50.0);
        CMxParts a;
        a.SetLength(lengthA);
        CMxParts b;
        b.SetLength(lengthB);
        EXPECT_EQ(CMxParts::compare(&a, &b), forward);
        EXPECT_EQ(CMxParts::compare(&b, &a), backward);
        EXPECT_TRUE(CurrentToleranceIs(0.1));
    }
}

}  // namespace

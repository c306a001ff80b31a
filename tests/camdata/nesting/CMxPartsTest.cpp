#include "support/CurrentTolerance.h"

#include "camdata/holes/CMxGeom.h"
#include "camdata/nesting/CMxParts.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(CMxPartsTest, SubtractsOnlyWhatIsThere) {
    struct Case {
        long qty;
        long n;
        bool isTaken;
        long left;
    };
    for (const Case& c : {
             Case{3,  5, false, 3 },
             {3,  3, true,  0 },
             {0,  1, false, 0 },
             {-1, 0, false, -1}
    }) {
        SCOPED_TRACE(c.n);
        CMxParts part;
        part.SetQty(c.qty);
        EXPECT_EQ(part.SubtractQty(c.n), c.isTaken);
        EXPECT_EQ(part.GetQty(), c.left);
    }
}

TEST(CMxPartsTest, ComparesLengthsWithinTheGeneralTolerance) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        double a;
        double b;
        int forward;
        int backward;
    };
    for (const Case& c : {
             Case{3000.0, 3000.1, 0,  0},
             {3000.0, 3000.2, -1, 1},
             {1000.0, 1000.1, 1,  1},
             {1000.0, kNaN,   1,  1}
    }) {
        SCOPED_TRACE(c.b);
        CMxGeom::SetTol(eTolValue, 50.0);
        CMxParts a;
        a.SetLength(c.a);
        CMxParts b;
        b.SetLength(c.b);
        EXPECT_EQ(CMxParts::compare(&a, &b), c.forward);
        EXPECT_EQ(CMxParts::compare(&b, &a), c.backward);
        EXPECT_TRUE(CurrentToleranceIs(0.1));
    }
}

}  // namespace

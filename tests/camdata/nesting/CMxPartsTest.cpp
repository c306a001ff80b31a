#include "camdata/nesting/CMxParts.h"

#include <gtest/gtest.h>

namespace {

TEST(CMxPartsTest, SubtractsOnlyWhatIsThere) {
    // clang-format off
    const long cases[][4] = {{3, 5, false, 3}, {3, 3, true, 0}, {0, 1, false, 0}, {-1, 0, false, -1}};
    // clang-format on
    for (const auto& [qty, n, isTaken, left] : cases) {
        CMxParts part;
        part.SetQty(qty);
        EXPECT_EQ(part.SubtractQty(n), isTaken != 0) << n;
        EXPECT_EQ(part.GetQty(), left) << n;
    }
}

}  // namespace

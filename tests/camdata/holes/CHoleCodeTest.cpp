#include "camdata/holes/CHoleCode.h"

#include <gtest/gtest.h>

namespace {

TEST(CHoleCodeTest, CountsAsNonStandardUntilItHasValues) {
    CHoleCode code;
    EXPECT_EQ(code.GetPairCode(), L"");
    EXPECT_EQ(code.GetPairStatus(), -1);
    EXPECT_TRUE(code.GetNonStd());
    EXPECT_EQ(code.GetPairReplaceStr(), L"y ");

    code.SetPairReplaceStr(L"z ");
    code.SetValues(L"H18", 2);
    EXPECT_EQ(code.GetPairCode(), L"H18");
    EXPECT_EQ(code.GetPairStatus(), 2);
    EXPECT_FALSE(code.GetNonStd());
    code.SetValues(L"H22", 3, true);
    EXPECT_TRUE(code.GetNonStd());
    EXPECT_EQ(code.GetPairReplaceStr(), L"z ");
}

}  // namespace

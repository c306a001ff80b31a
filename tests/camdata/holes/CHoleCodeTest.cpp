#include "camdata/holes/CHoleCode.h"

#include <tuple>

#include <gtest/gtest.h>

namespace {

TEST(CHoleCodeTest, CountsAsNonStandardUntilItHasValues) {
    using Fields = std::tuple<ZetString, long, bool, ZetString>;
    CHoleCode code;
    const auto fields = [&] {
        return Fields(
            code.GetPairCode(), code.GetPairStatus(), code.GetNonStd(), code.GetPairReplaceStr());
    };
    EXPECT_EQ(fields(), Fields(L"", -1, true, L"y "));
    code.SetPairReplaceStr(L"z ");
    code.SetValues(L"H18", 2);
    EXPECT_EQ(fields(), Fields(L"H18", 2, false, L"z "));
    code.SetValues(L"H22", 3, true);
    EXPECT_EQ(fields(), Fields(L"H22", 3, true, L"z "));
}

}  // namespace

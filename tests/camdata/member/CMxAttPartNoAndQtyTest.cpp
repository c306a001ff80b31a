#include "support/HeaderOf.h"

#include "camdata/member/CMxAttPartNoAndQty.h"

#include <gtest/gtest.h>

namespace {

TEST(CMxAttPartNoAndQtyTest, AHeaderBringsMarkAndQuantityAndLeavesTheRest) {
    CMxAttPartNoAndQty part;
    part.SetMirrored(true);
    part.SetNonStd(true);
    part.SetOutStr(L"text");
    part = HeaderOf{.drawingNumber = L"D-7", .mark = L"P12", .quantity = 3};
    EXPECT_EQ(part.GetPartNo(), L"P12");
    EXPECT_EQ(part.GetQty(), 3);
    EXPECT_EQ(part.GetHeaderData().drawingNumber, L"D-7");
    EXPECT_TRUE(part.GetMirrored());
    EXPECT_TRUE(part.GetNonStd());
    EXPECT_EQ(part.GetOutStr(), L"text");
}

}  // namespace

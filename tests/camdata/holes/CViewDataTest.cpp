#include "camdata/holes/CViewData.h"

#include <gtest/gtest.h>

namespace {

TEST(CViewDataTest, PrintsEveryField) {
    CViewData view;
    view.SetFaceStr(L"TOP");
    view.SetDimXNegate(-1.0);
    view.SetDimYNegate(-2.0);
    view.SetFaceWidth(63.5);
    view.SetDimFromOtherFace(-3.0);
    view.SetProfileFaceWidth(62.25);
    view.SetHoleFace(eHoleFaceTopFlange);
    view.SetYValOffset(4.125);
    EXPECT_EQ(CViewData(view).GetPrintDef().toUtf8(),
              "\n Hole face :TOP\n X Negate : -1.000000\n Y Negate : -2.000000\n"
              " Face width : 63.500000\n From other face : -3.000000\n"
              " Profile Face width : 62.250000\n Hole Face :1\n Y Val Offset : 4.125000\n");
}

TEST(CViewDataTest, NamesTheFaceForOutput) {
    // clang-format off
    struct Case { int face; const char* word; };
    constexpr Case kCases[] = {
        {0, "web"}, {1, "top flange"}, {2, "bottom flange"}, {5, "web back"}, {3, "unknown face"},
        {4, "unknown face"}, {6, "unknown face"}, {-1, "unknown face"}, {700, "unknown face"},
    };
    // clang-format on
    for (const Case& each : kCases) {
        CViewData view;
        view.SetHoleFace(static_cast<eHoleFace>(each.face));
        EXPECT_EQ(view.GetFaceStrForOutPut().toUtf8(), each.word) << each.face;
    }
}

}  // namespace

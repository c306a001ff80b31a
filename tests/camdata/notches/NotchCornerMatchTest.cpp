#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"
#include "support/Outlines.h"

#include "camdata/notches/CNotchAddInfo.h"

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

// clang-format off
const OutlinePoints kRectangle = {{-20, -15}, {20, -15}, {20, 15}, {-20, 15}};
const OutlinePoints kTurned = {{10, -30}, {30, 10}, {-10, 30}, {-30, -10}};
const OutlinePoints kTriangle = {{-10, -25}, {20, -25}, {-10, 50}};
// clang-format on

/// An outline around the origin, moved to exactly (x, y).
// clang-format off
CNotchAddInfo NotchAt(double x, double y, const OutlinePoints& outline = kRectangle,
                      int face = eHoleFaceWeb, eNotchStatus status = eNotchValid) {
    // clang-format on
    CViewData view;
    view.SetHoleFace(static_cast<eHoleFace>(face));
    CNotchAddInfo notch;
    notch.setNotchFromPoly(ZetGeomAugPolygon(outline, 0.0), view, ZetNCContour::eTypeExternal);
    notch.SetXPosFrom(x);
    notch.SetYPosFrom(y);
    notch.SetNotchStatus(status);
    return notch;
}

// clang-format off
SCheckNotch Corner(double x, double y, const wchar_t* format = L"%.0f,%.0f",
                   const ZetArray<int>& selectors = {4, 5}) {
    // clang-format on
    SCheckNotch definition = {
        .cornerX = x, .cornerY = y, .outPutFormat = format, .valueSelectors = selectors};
    definition.face = eHoleFaceWeb;
    definition.vertexCount = 4;
    return definition;
}

SCheckNotch Shape(SCheckNotch definition, int vertexCount, bool mustBeRect, bool mustBeParallel) {
    definition.vertexCount = vertexCount;
    definition.mustBeRect = mustBeRect;
    definition.mustBeParallelToAxis = mustBeParallel;
    return definition;
}

TEST(NotchCornerMatch, MatchesAndFillsTheText) {
    const CNotchAddInfo notch = NotchAt(100, 200);
    const wchar_t* const three = L"%.0f,%.0f,%.0f";
    const SCheckNotch triangle = Shape(Corner(100, 50, three, {4, 5, 3}), 3, false, false);
    const SCheckNotch any = Corner(-1, -1);
    // clang-format off
    // The text "old": not matched.
    struct Case { const char* name; CNotchAddInfo notch; SCheckNotch definition; const wchar_t* text; };
    const Case cases[] = {
        {"lower left", NotchAt(20, 15), Corner(0, 0), L"40,30"},
        {"left side within", NotchAt(19.95, 15), Corner(0, 0), L"40,30"},
        // 20.1 - 20 is a little more than 0.1.
        {"left side, rounding decides", NotchAt(20.1, 15), Corner(0, 0), L"old"},
        {"lower side beyond", NotchAt(20, 15.2), Corner(0, 0), L"old"},
        {"lower right", NotchAt(2980, 15), Corner(3000, 0), L"40,30"},
        {"upper left", NotchAt(20, 185), Corner(0, 200), L"40,30"},
        {"any X", NotchAt(500, 15), Corner(-1, 0), L"40,30"},
        {"any X, but Y", NotchAt(500, 16), Corner(-1, 0), L"old"},
        {"any Y", NotchAt(20, 500), Corner(0, -1), L"40,30"},
        {"hardly above 0 is the left", NotchAt(20, 15), Corner(0.05, 0.05), L"40,30"},
        {"beyond the tolerance the right", NotchAt(20.2, 15), Corner(0.2, 0), L"old"},
        {"hardly below 0 is the left", NotchAt(20, 15), Corner(-0.05, -0.05), L"40,30"},
        {"hardly below 0 is not any", NotchAt(500, 500), Corner(-0.05, -0.05), L"old"},
        {"no rectangle: its position", NotchAt(100, 50, kTriangle), triangle, L"0,0,50"},
        {"all of the shape", notch, Shape(any, 4, true, true), L"40,30"},
        {"closing point counted", notch, Shape(any, 5, false, false), L"old"},
        {"no rectangle", NotchAt(100, 50, kTriangle), Shape(any, 3, true, false), L"old"},
        {"turned", NotchAt(100, 50, kTurned), Shape(any, 4, true, false), L"45,45"},
        {"turned, not parallel", NotchAt(100, 50, kTurned), Shape(any, 4, true, true), L"old"},
        {"another face", NotchAt(20, 15, kRectangle, eHoleFaceWebBack), Corner(0, 0), L"old"},
        {"matched", NotchAt(20, 15, kRectangle, 0, eNotchCornerMatched), Corner(0, 0), L"old"},
        {"none", NotchAt(20, 15, kRectangle, 0, eNotchNone), Corner(0, 0), L"old"},
        {"not allowed", NotchAt(20, 15, kRectangle, 0, eNotchNotAllowed), Corner(0, 0), L"old"},
        {"width, length", notch, Corner(120, 215, L"%.1f x %.0f%%", {5, 4}), L"30.0 x 40%"},
        {"X", notch, Corner(120, 215, three, {4, 5, 0}), L"40,30,100"},
        {"corner X", notch, Corner(120, 215, three, {4, 5, 1}), L"40,30,120"},
        {"Y", notch, Corner(120, 215, three, {4, 5, 2}), L"40,30,200"},
        {"corner Y", notch, Corner(120, 215, three, {4, 5, 3}), L"40,30,215"},
        {"any corner X is the left", notch, Corner(-1, -1, three, {4, 5, 1}), L"40,30,80"},
        {"any corner Y is the lower", notch, Corner(-1, -1, three, {4, 5, 3}), L"40,30,185"},
        {"selectors out of place", notch, Corner(120, 215, three, {3, 0, 4}), L"0,0,0"},
        {"values of another type", notch, Corner(-1, -1, L"%s,%d"), L"%s,%d"},
        {"too many", notch, Corner(-1, -1, L"%.0f%%", {4, 5, 0, 1}), L"%.0f%%"},
    };
    // clang-format on
    for (Case each : cases) {
        SCOPED_TRACE(each.name);
        const bool matches = each.text != std::wstring_view(L"old");
        const eNotchStatus before = each.notch.GetNotchStatus();
        each.notch.AppendMsg(eHoleMsgCode, L"old");
        EXPECT_EQ(each.notch.CheckNotchCorner(each.definition), matches);
        EXPECT_EQ(each.notch.GetNotchStatus(), matches ? eNotchCornerMatched : before);
        EXPECT_EQ(each.notch.GetOutMsg(), each.text);
    }
}

TEST(NotchCornerMatch, CornersReadTheCurrentTolerance) {
    CNotchAddInfo notch = NotchAt(20.2, 500);
    CMxGeom::SetTol(eTolValue, 0.5);
    EXPECT_FALSE(notch.CheckNotchCorner(Corner(0, -0.4))) << "around 0, not any";
    CMxGeom::SetTol(eTolValue, 0.11);
    EXPECT_FALSE(notch.CheckNotchCorner(Corner(0, -0.4)));
    EXPECT_TRUE(CurrentToleranceIs(0.11));
    CMxGeom::SetTol(eTolValue, 0.3);
    EXPECT_TRUE(notch.CheckNotchCorner(Corner(0, -0.4)));
    EXPECT_TRUE(CurrentToleranceIs(0.3));
}

TEST(NotchCornerMatch, AMatchingDefinitionNeedsTwoSelectors) {
    CNotchAddInfo notch = NotchAt(20, 15);
    for (const ZetArray<int>& selectors : {ZetArray<int>{}, ZetArray<int>{4}}) {
        const auto check = [&](double x) { notch.CheckNotchCorner(Corner(x, 0, L"", selectors)); };
        EXPECT_EQ(AssertionOf([&] { check(0); }), "isValid( index )");
        EXPECT_EQ(notch.GetNotchStatus(), eNotchValid);
        EXPECT_EQ(AssertionOf([&] { check(3000); }), "none");
    }
}

Lines ErrorBlock(const ZetString& face, const Lines& errors) {
    // clang-format off
    Lines lines = {L"before", L"                    Position x     : 1000.5",
                   L"                    Position y     : 5.0 ",
                   L"                    Face           : " + face};
    // clang-format on
    lines.appendAll(errors);
    lines.append(L"                    --------------------------------------------------");
    return lines;
}

TEST(NotchCornerMatch, NamesFacesByItsOwnWords) {
    const ZetString unknown = L"unknown face";
    const Lines words = {
        L"web", L"top flange", L"bottom flange", L"web back", unknown, unknown, unknown};
    for (int face = eHoleFaceWeb; face <= eHoleFaceNone; ++face) {
        Lines lines = {L"before"};
        NotchAt(1000.5, 5, kRectangle, face).GetWarMsgData(lines);
        EXPECT_EQ(lines, ErrorBlock(words[face], {}));
    }
}

TEST(NotchCornerMatch, ReportsErrorsAndWhatIsNotAllowed) {
    for (const eNotchStatus status :
         {eNotchValid, eNotchCornerMatched, eNotchNone, eNotchNotAllowed}) {
        SCOPED_TRACE(status);
        const bool isReported = status == eNotchNotAllowed;
        CNotchAddInfo notch = NotchAt(1000.5, 5, kRectangle, eHoleFaceWeb, status);
        notch.AppendMsg(eHoleMsgWarning, L"warning");
        Lines lines = {L"before"};
        EXPECT_EQ(notch.GetErrMsg(lines), isReported);
        EXPECT_EQ(lines, isReported ? ErrorBlock(L"web", {}) : Lines{L"before"});

        notch.AppendMsg(eHoleMsgError, L"  first %s");
        notch.AppendMsg(eHoleMsgError, L"second");
        const Lines expected =
            ErrorBlock(L"web", {L"                      first %s", L"                    second"});
        lines = {L"before"};
        EXPECT_TRUE(notch.GetErrMsg(lines));
        EXPECT_EQ(lines, expected);
        lines = {L"before"};
        notch.GetWarMsgData(lines);
        EXPECT_EQ(lines, expected) << "the errors, not the warnings";
    }
}

TEST(NotchCornerMatch, ReportsWarningsUnderTheOutputText) {
    CNotchAddInfo notch = NotchAt(20, 15);
    EXPECT_FALSE(notch.AppendMsg(eHoleMsgError, L"error"));
    Lines lines = {L"before"};
    EXPECT_FALSE(notch.GetWarMsg(lines));
    notch.AppendMsg(eHoleMsgWarning, L"  first %s");
    notch.AppendMsg(eHoleMsgWarning, L"second");
    EXPECT_TRUE(notch.GetWarMsg(lines));
    notch.AppendMsg(eHoleMsgCode, L"  new %s");
    EXPECT_TRUE(notch.GetWarMsg(lines));
    const ZetString header = L"                    *Warning in notch* ";
    // clang-format off
    const Lines expected = {L"before", header, L"  first %s", L"second",
                            header + L"new %s", L"  first %s", L"second"};
    // clang-format on
    EXPECT_EQ(lines, expected);
}

}  // namespace

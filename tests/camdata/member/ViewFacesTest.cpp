#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr double kHeight = 200.0, kWidth = 60.0, kTopWidth = 72.0, kBottomWidth = 62.0;

constexpr ZetGeomVector3d kAlong = {1.0, 0.0, 0.0};
constexpr ZetGeomVector3d kUp = {0.0, 1.0, 0.0}, kDown = {0.0, -1.0, 0.0};
constexpr ZetGeomVector3d kToFront = {0.0, 0.0, 1.0}, kToBack = {0.0, 0.0, -1.0};

/// A member with the dimensions above, the flange widths from attributes.
TestMember MemberOfCode(const wchar_t* profileCode) {
    CMemAttrib attributes;
    attributes.SetValues(0.0, kBottomWidth, kTopWidth, 0.0);
    // clang-format off
    TestMember member = MemberOf(HeaderOf{.profileCode = profileCode, .height = kHeight,
                                          .width = kWidth, .thickness = 2.0});
    // clang-format on
    member.m_memType.SetMemAttrib(attributes);
    return member;
}

/// A view of one round hole.
ZetNCView ViewAt(int position, double holeX = 0.0, double holeY = 0.0) {
    ZetNCView view;
    view.setViewPos(position);
    view.setHoles({
        {.x = holeX, .y = holeY, .size = 5.0}
    });
    return view;
}

/// The plane is in the frame of the piece: X along it, Y upwards, Z to the front. Members of codes
/// SO and B get it in (X, -Z, Y) of that frame.
// clang-format off
ZetNCView ViewIn(const ZetGeomPlane& plane, const ZetString& profileCode, double holeX = 0.0,
                 double holeY = 0.0) {
    // clang-format on
    const bool isTurned = profileCode == L"SO" || profileCode == L"B";
    const auto turned = [&](const ZetGeomVector3d& v) {
        return isTurned ? ZetGeomVector3d{v.x, -v.z, v.y} : v;
    };
    const ZetGeomVector3d origin = turned(plane.origin.asVector());
    ZetNCView view = ViewAt(5, holeX, holeY);
    view.setPlane({ZetGeomPoint3d() + origin, turned(plane.xAxis), turned(plane.yAxis)});
    return view;
}

ZetArray<CHoleAddlInfo> HolesOf(const wchar_t* profileCode, const ZetArray<ZetNCView>& views) {
    TestMember member = MemberOfCode(profileCode);
    member.m_structure.setViews(views);
    member.GetAndSortHolesNotches();
    return member.m_holes;
}

CViewData ViewDataOf(const wchar_t* profileCode, const ZetGeomPlane& plane) {
    return HolesOf(profileCode, {ViewIn(plane, profileCode)})[0].GetViewData();
}

/// What a view is judged to be: the face and its widths, and how X and Y are turned.
using Face = std::tuple<eHoleFace, ZetString, double, double, double, double>;

Face FaceOf(const CViewData& data) {
    // clang-format off
    return {data.GetHoleFace(), data.GetFaceStr(), data.GetFaceWidth(), data.GetProfileFaceWidth(),
            data.GetDimFromOtherFace(), data.GetDimXNegate()};
    // clang-format on
}

TEST(ViewFacesTest, StandardPositions) {
    const Face faces[] = {
        {eHoleFaceTopFlange,    L"TOP", kTopWidth,    kTopWidth,    1, 1},
        {eHoleFaceWeb,          L"WEB", kHeight,      kHeight,      1, 1},
        {eHoleFaceBottomFlange, L"BOT", kBottomWidth, kBottomWidth, 1, 1},
        {eHoleFaceWebBack,      L"WEB", kHeight,      kHeight,      1, 1},
        {eHoleFaceWeb,          L"WEB", kHeight,      kHeight,      1, 1},
    };
    for (int position = 0; position < 5; ++position) {
        const CViewData data = HolesOf(L"SO", {ViewAt(position)})[0].GetViewData();
        EXPECT_EQ(FaceOf(data), faces[position]) << position;
        EXPECT_EQ(data.GetDimYNegate(), 1.0);
        EXPECT_EQ(data.GetYValOffset(), 0.0);
    }
}

/// One and the same plane of a piece is the same face whatever the profile code.
TEST(ViewFacesTest, FacesOfPlanesOfTheirOwn) {
    constexpr ZetGeomVector3d kDownToFront = {0.0, -0.6, 0.8};
    constexpr ZetGeomVector3d kUpToBack = {0.0, 0.6, -0.8};
    // Both normals point down a little.
    constexpr ZetGeomVector3d kNearlyUp = {0.0, 483.0 / 485, 44.0 / 485};
    constexpr ZetGeomVector3d kNearlyDown = {0.0, -483.0 / 485, 44.0 / 485};
    constexpr double kSteep = 60 * 485.0 / 44;
    constexpr auto kWeb = eHoleFaceWeb;
    constexpr auto kTop = eHoleFaceTopFlange, kSlopedTop = eHoleFaceSlopedTopFlange;
    constexpr auto kBottom = eHoleFaceBottomFlange, kSlopedBottom = eHoleFaceSlopedBottomFlange;
    // clang-format off
    struct Case { const char* name; ZetGeomPoint3d origin; ZetGeomVector3d yAxis;
                  eHoleFace face; const wchar_t* faceStr; double width, profileWidth; };
    const Case cases[] = {
        {"web, normal to the front",   {0, 0, 60},   kUp,          kWeb,          L"WEB", 200, 200},
        {"web, normal to the back",    {0, 200, 0},  kDown,        kWeb,          L"WEB", 200, 200},
        {"top flange, normal up",      {0, 200, 60}, kToBack,      kTop,          L"TOP", 60, 72},
        {"top flange, normal down",    {0, 200, 0},  kToFront,     kTop,          L"TOP", 60, 72},
        {"bottom flange, normal up",   {0, 0, 60},   kToBack,      kBottom,       L"BOT", 60, 62},
        {"bottom flange, normal down", {0, 0, 0},    kToFront,     kBottom,       L"BOT", 60, 62},
        {"below the bottom",           {0, -40, 0},  kToFront,     kBottom,       L"BOT", 60, 62},
        {"bottom flange, inner face",  {0, 2.05, 0}, kToFront,     kBottom,       L"BOT", 60, 62},
        {"above the bottom flange",    {0, 2.2, 0},  kToFront,     kTop,          L"TOP", 60, 72},
        {"sloped top, normal down",    {0, 200, 0},  kDownToFront, kSlopedTop,    L"TOP", 75, 72},
        {"sloped top, normal up",      {0, 155, 60}, kUpToBack,    kSlopedTop,    L"TOP", 75, 72},
        {"sloped bottom, normal down", {0, 0, 0},    kDownToFront, kSlopedBottom, L"BOT", 75, 62},
        {"sloped bottom, normal up",   {0, -45, 60}, kUpToBack,    kSlopedBottom, L"BOT", 75, 62},
        {"nearly a web, to the front", {0, 200, 0},  kNearlyUp,    kSlopedTop,    L"TOP", kSteep, 72},
        {"nearly a web, to the back",  {0, 200, 0},  kNearlyDown,  kSlopedTop,    L"TOP", kSteep, 72},
    };
    // clang-format on
    for (const wchar_t* code : {L"SO", L"B", L"C"}) {
        for (const Case& each : cases) {
            SCOPED_TRACE(std::string(each.name) + " " + ZetString(code).toUtf8());
            const CViewData data = ViewDataOf(code, {each.origin, kAlong, each.yAxis});
            const double width = data.GetFaceWidth();
            EXPECT_DOUBLE_EQ(width, each.width);
            const double fromOther = each.face == kWeb ? 1.0 : -1.0;
            const Face face = {each.face, each.faceStr, width, each.profileWidth, fromOther, 1.0};
            EXPECT_EQ(FaceOf(data), face);
        }
    }
}

/// Gathering selects the tolerance first: 1 mm above the bottom flange is no bottom flange.
TEST(ViewFacesTest, PlanesAreJudgedWithTheToleranceOfGathering) {
    CMxGeom::SetTol(eTolValue, 7.0);
    const ZetGeomPoint3d aboveBottom = {0, 3, 0};
    EXPECT_EQ(ViewDataOf(L"SO", {aboveBottom, kAlong, kToFront}).GetHoleFace(), eHoleFaceTopFlange);
}

TEST(ViewFacesTest, SignAndOffsetOfYInPlanesOfTheirOwn) {
    // clang-format off
    struct Case { const char* name; const wchar_t* profileCode; ZetGeomPoint3d origin;
                  ZetGeomVector3d yAxis; double yNegate, yValOffset; };
    // clang-format on
    const Case cases[] = {
        {"SO flange from behind",        L"SO", {0, 200, 0},   kToFront,         1.0,  0.0  },
        {"SO flange from the front",     L"SO", {0, 200, 60},  kToBack,          -1.0, -60.0},
        {"SO slope from the front",      L"SO", {0, 155, 60},  {0.0, 0.6, -0.8}, -1.0, -75.0},
        {"SO flange, just behind",       L"SO", {0, 200, 0.1}, kToFront,         1.0,  -0.1 },
        {"SO web at the front",          L"SO", {0, 0, 60},    kUp,              1.0,  60.0 },
        {"SO web, normal to the back",   L"SO", {0, 200, 60},  kDown,            1.0,  -60.0},
        {"SO web from below the bottom", L"SO", {0, -5, 0},    kUp,              -1.0, 0.0  },
        {"B flange from the front",      L"B",  {0, 200, 60},  kToBack,          1.0,  0.0  },
        {"B flange below the bottom",    L"B",  {0, -5, 60},   kToBack,          -1.0, 0.0  },
        {"B web behind",                 L"B",  {0, 0, 0},     kUp,              1.0,  0.0  },
        {"B web at the front",           L"B",  {0, 0, 60},    kUp,              -1.0, 0.0  },
        {"C flange from the front",      L"C",  {0, 200, 60},  kToBack,          1.0,  0.0  },
        {"C flange, starts behind",      L"C",  {0, 200, -60}, kToFront,         -1.0, 0.0  },
        {"C web at the front",           L"C",  {0, 0, 60},    kUp,              1.0,  0.0  },
        {"C web from below the bottom",  L"C",  {0, -5, 60},   kUp,              -1.0, 0.0  },
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        const CViewData data = ViewDataOf(each.profileCode, {each.origin, kAlong, each.yAxis});
        EXPECT_EQ(data.GetDimYNegate(), each.yNegate);
        EXPECT_EQ(data.GetYValOffset(), each.yValOffset);
    }
}

TEST(ViewFacesTest, XIsNegatedInPlanesThatLookBackAlongThePiece) {
    // clang-format off
    const std::tuple<const char*, ZetGeomVector3d, double> cases[] = {
        {"square to the piece", {1.0, 0.0, 0.0},     1.0},
        {"looks forward",       {0.8, -0.6, 0.0},    1.0},
        {"looks back",          {0.8, 0.6, 0.0},     -1.0},
        {"looks back a little", {0.9968, 0.08, 0.0}, 1.0},
        {"looks back more",     {60.0 / 61, 11.0 / 61, 0.0}, -1.0},
        {"looks nearly along",  {44.0 / 485, -483.0 / 485, 0.0}, 1.0},
        {"looks nearly back",   {44.0 / 485, 483.0 / 485, 0.0}, -1.0},
    };
    // clang-format on
    const ZetGeomPoint3d origin = {0, 200, 60};
    for (const wchar_t* code : {L"SO", L"B", L"C"}) {
        for (const auto& [name, xAxis, xNegate] : cases) {
            const CHoleAddlInfo hole =
                HolesOf(code, {ViewIn({origin, xAxis, kToBack}, code, 900, 20)})[0];
            EXPECT_EQ(hole.GetXPos(), 900.0 * xNegate) << name;
            EXPECT_NEAR(hole.GetViewData().GetFaceWidth(), kWidth / xAxis.x, 0.001) << name;
            EXPECT_EQ(hole.GetViewData().GetFaceStr(), L"TOP") << name;
        }
    }
}

/// Views without holes and contours do not count.
TEST(ViewFacesTest, AWebInAPlaneOfItsOwnKeepsTheFaceOfTheViewBefore) {
    const ZetGeomPoint3d origin = {0, 0, 60};
    const ZetNCView web = ViewIn({origin, kAlong, kUp}, L"C");
    ZetNCView marksOnly;
    marksOnly.setViewPos(2);
    marksOnly.setMarks({ZetNCMark()});
    EXPECT_EQ(HolesOf(L"C", {web})[0].GetViewData().GetHoleFace(), eHoleFaceWeb);
    EXPECT_EQ(HolesOf(L"C", {marksOnly, web})[0].GetViewData().GetHoleFace(), eHoleFaceWeb);
    const ZetArray<CHoleAddlInfo> holes = HolesOf(L"C", {ViewAt(2), web});
    EXPECT_EQ(holes[1].GetViewData().GetHoleFace(), eHoleFaceBottomFlange);
    EXPECT_EQ(holes[1].GetViewData().GetFaceStr(), L"WEB");
    EXPECT_EQ(HolesOf(L"C", {ViewAt(-1)})[0].GetViewData().GetFaceStr(), L"NON");
}

}  // namespace

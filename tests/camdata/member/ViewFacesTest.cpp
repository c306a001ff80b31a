#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr double kHeight = 200.0;
constexpr double kWidth = 60.0;
constexpr double kThickness = 2.0;
constexpr double kTopWidth = 72.0;
constexpr double kBottomWidth = 62.0;

constexpr ZetGeomVector3d kAlong = {1.0, 0.0, 0.0};
constexpr ZetGeomVector3d kUp = {0.0, 1.0, 0.0};
constexpr ZetGeomVector3d kDown = {0.0, -1.0, 0.0};
constexpr ZetGeomVector3d kToFront = {0.0, 0.0, 1.0};
constexpr ZetGeomVector3d kToBack = {0.0, 0.0, -1.0};

/// A member with the dimensions above, the flange widths from attributes.
TestMember MemberOfCode(const wchar_t* profileCode) {
    ZetNCHeaderData header;
    header.profileCode = profileCode;
    header.height = kHeight;
    header.width = kWidth;
    header.thickness = kThickness;
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(2, 0,
                   eProfPropHeader, 0, 0, 0.0,
                   eProfPropHeader, 0, 0, 0.0,
                   eProfPropHeader, 0, 0, 0.0, 1.0,
                   eProfPropNone, 0, 0, 0.0, 1.0,
                   0, 0, L"", L"", 0, 0, 0);
    // clang-format on
    CMemAttrib attributes;
    attributes.SetValues(0.0, kBottomWidth, kTopWidth, 0.0);
    type.SetMemAttrib(attributes);
    type.SetHeaderData(header);
    TestMember member;
    member.m_memType = type;
    return member;
}

/// A view of one round hole.
ZetNCView ViewAt(int position, double holeX = 0.0, double holeY = 0.0) {
    ZetNCHoleData hole;
    hole.x = holeX;
    hole.y = holeY;
    hole.size = 5.0;
    ZetNCView view;
    view.setViewPos(position);
    view.setHoles({hole});
    return view;
}

/// The plane is in the frame of the piece: X along it, Y upwards, Z to the front. Members of codes
/// SO and B get it in (X, -Z, Y) of that frame.
ZetNCView ViewIn(const ZetGeomPlane& plane,
                 const ZetString& profileCode,
                 double holeX = 0.0,
                 double holeY = 0.0) {
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

TEST(ViewFacesTest, StandardPositions) {
    struct Case {
        int position;
        eHoleFace face;
        const wchar_t* faceStr;
        double width;
    };
    constexpr Case kCases[] = {
        {0, eHoleFaceTopFlange,    L"TOP", kTopWidth   },
        {1, eHoleFaceWeb,          L"WEB", kHeight     },
        {2, eHoleFaceBottomFlange, L"BOT", kBottomWidth},
        {3, eHoleFaceWebBack,      L"WEB", kHeight     },
        {4, eHoleFaceWeb,          L"WEB", kHeight     },
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.position);
        const CViewData data = HolesOf(L"SO", {ViewAt(each.position)})[0].GetViewData();
        EXPECT_EQ(data.GetHoleFace(), each.face);
        EXPECT_EQ(data.GetFaceStr(), each.faceStr);
        EXPECT_EQ(data.GetFaceWidth(), each.width);
        EXPECT_EQ(data.GetProfileFaceWidth(), each.width);
        EXPECT_EQ(data.GetDimFromOtherFace(), 1.0);
        EXPECT_EQ(data.GetDimXNegate(), 1.0);
        EXPECT_EQ(data.GetDimYNegate(), 1.0);
        EXPECT_EQ(data.GetYValOffset(), 0.0);
    }
}

/// One and the same plane of a piece is the same face whatever the profile code.
TEST(ViewFacesTest, FacesOfPlanesOfTheirOwn) {
    constexpr ZetGeomVector3d kDownToFront = {0.0, -0.6, 0.8};
    constexpr ZetGeomVector3d kUpToBack = {0.0, 0.6, -0.8};
    constexpr eHoleFace kWeb = eHoleFaceWeb;
    constexpr eHoleFace kTop = eHoleFaceTopFlange;
    constexpr eHoleFace kBottom = eHoleFaceBottomFlange;
    constexpr eHoleFace kSlopedTop = eHoleFaceSlopedTopFlange;
    constexpr eHoleFace kSlopedBottom = eHoleFaceSlopedBottomFlange;
    struct Case {
        const char* name;
        ZetGeomPoint3d origin;
        ZetGeomVector3d yAxis;
        eHoleFace face;
        const wchar_t* faceStr;
        double faceWidth;
        double profileFaceWidth;
    };
    // clang-format off
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
    };
    // clang-format on
    for (const wchar_t* code : {L"SO", L"B", L"C"}) {
        for (const Case& each : cases) {
            SCOPED_TRACE(std::string(each.name) + " " + ZetString(code).toUtf8());
            const CViewData data = ViewDataOf(code, {each.origin, kAlong, each.yAxis});
            EXPECT_EQ(data.GetHoleFace(), each.face);
            EXPECT_EQ(data.GetFaceStr(), each.faceStr);
            EXPECT_DOUBLE_EQ(data.GetFaceWidth(), each.faceWidth);
            EXPECT_EQ(data.GetProfileFaceWidth(), each.profileFaceWidth);
            EXPECT_EQ(data.GetDimFromOtherFace(), each.face == eHoleFaceWeb ? 1.0 : -1.0);
            EXPECT_EQ(data.GetDimXNegate(), 1.0);
        }
    }
}

/// Gathering selects the tolerance first: 1 mm above the bottom flange is no bottom flange.
TEST(ViewFacesTest, PlanesAreJudgedWithTheToleranceOfGathering) {
    CMxGeom::SetTol(eTolValue, 7.0);
    const ZetGeomPlane aboveBottom = {
        {0, 3, 0},
        kAlong, kToFront
    };
    EXPECT_EQ(ViewDataOf(L"SO", aboveBottom).GetHoleFace(), eHoleFaceTopFlange);
}

TEST(ViewFacesTest, SignAndOffsetOfYInPlanesOfTheirOwn) {
    struct Case {
        const char* name;
        const wchar_t* profileCode;
        ZetGeomPoint3d origin;
        ZetGeomVector3d yAxis;
        double yNegate;
        double yValOffset;
    };
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

/// On a flange of an SO profile Y counts from the front edge, however the plane's axes run.
TEST(ViewFacesTest, AHoleInEitherPlaneOfAFlangeIsTheSame) {
    const ZetGeomPlane fromBehind = {
        {0, 200, 0},
        kAlong, kToFront
    };
    const ZetGeomPlane fromFront = {
        {0, 200, 60},
        kAlong, kToBack
    };
    const CHoleAddlInfo one = HolesOf(L"SO", {ViewIn(fromBehind, L"SO", 900, 20)})[0];
    const CHoleAddlInfo other = HolesOf(L"SO", {ViewIn(fromFront, L"SO", 900, 40)})[0];
    for (const CHoleAddlInfo& hole : {one, other}) {
        EXPECT_EQ(hole.GetXPos(), 900.0);
        EXPECT_EQ(hole.GetYPos(), 40.0);
    }
}

/// On a slope too, measured along it: 20 from the front edge of a face 75 wide.
TEST(ViewFacesTest, AHoleInEitherPlaneOfASlopedFlangeIsTheSame) {
    const ZetGeomPlane fromBehind = {
        {0,   200,  0  },
        kAlong, {0.0, -0.6, 0.8}
    };
    const ZetGeomPlane fromFront = {
        {0,   155, 60  },
        kAlong, {0.0, 0.6, -0.8}
    };
    EXPECT_NEAR(HolesOf(L"SO", {ViewIn(fromBehind, L"SO", 900, 55)})[0].GetYPos(), 20.0, 1e-9);
    EXPECT_NEAR(HolesOf(L"SO", {ViewIn(fromFront, L"SO", 900, 20)})[0].GetYPos(), 20.0, 1e-9);
}

TEST(ViewFacesTest, XIsNegatedInPlanesThatLookBackAlongThePiece) {
    struct Case {
        const char* name;
        ZetGeomVector3d xAxis;
        double xNegate;
    };
    const Case cases[] = {
        {"square to the piece", {1.0, 0.0, 0.0},     1.0 },
        {"looks forward",       {0.8, -0.6, 0.0},    1.0 },
        {"looks back",          {0.8, 0.6, 0.0},     -1.0},
        {"looks back a little", {0.9968, 0.08, 0.0}, 1.0 },
    };
    for (const wchar_t* code : {L"SO", L"B", L"C"}) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.name);
            const ZetGeomPlane plane = {
                {0, 200, 60},
                each.xAxis, kToBack
            };
            const CHoleAddlInfo hole = HolesOf(code, {ViewIn(plane, code, 900, 20)})[0];
            EXPECT_EQ(hole.GetXPos(), 900.0 * each.xNegate);
        }
    }
}

/// Views without holes and contours do not count.
TEST(ViewFacesTest, AWebInAPlaneOfItsOwnKeepsTheFaceOfTheViewBefore) {
    const ZetNCView web = ViewIn(
        {
            {0, 0, 60},
            kAlong, kUp
    },
        L"C");
    ZetNCView marksOnly;
    marksOnly.setViewPos(2);
    marksOnly.setMarks({ZetNCMark()});
    EXPECT_EQ(HolesOf(L"C", {web})[0].GetViewData().GetHoleFace(), eHoleFaceWeb);
    EXPECT_EQ(HolesOf(L"C", {marksOnly, web})[0].GetViewData().GetHoleFace(), eHoleFaceWeb);
    const ZetArray<CHoleAddlInfo> holes = HolesOf(L"C", {ViewAt(2), web});
    EXPECT_EQ(holes[1].GetViewData().GetHoleFace(), eHoleFaceBottomFlange);
    EXPECT_EQ(holes[1].GetViewData().GetFaceStr(), L"WEB");
}

}  // namespace

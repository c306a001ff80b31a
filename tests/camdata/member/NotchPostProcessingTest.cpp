#include "support/CurrentTolerance.h"
#include "support/Outlines.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr bool kInternal = true;
constexpr bool kExternal = false;

/// A notch of equal sides around (x, y).
CNotchAddInfo NotchAt(double x,
                      double y,
                      eHoleFace face = eHoleFaceWeb,
                      int status = 0,
                      bool isInternal = kInternal,
                      int corners = 4) {
    CViewData view;
    view.SetHoleFace(face);
    const ZetGeomAugPolygon polygon(Disc(x, y, 5.0, corners), 0.01);
    CNotchAddInfo notch;
    notch.setNotchFromPoly(polygon, view, isInternal ? 1 : 0);
    notch.SetNotchStatus(static_cast<eNotchStatus>(status));
    return notch;
}

TEST(NotchPostProcessingTest, DuplicateNotches) {
    // clang-format off
    const std::tuple<const char*, CNotchAddInfo, bool> cases[] = {
        {"same",                   NotchAt(100, 50),                                true},
        {"rounds to the same",     NotchAt(100.04, 50),                             true},
        {"X beyond the tolerance", NotchAt(100.26, 50),                             false},
        {"Y beyond the tolerance", NotchAt(100, 49.74),                             false},
        {"web back",               NotchAt(100, 50, eHoleFaceWebBack),              true},
        {"other face",             NotchAt(100, 50, eHoleFaceTopFlange),            false},
        {"other status",           NotchAt(100, 50, eHoleFaceWeb, 5),               false},
        {"external",               NotchAt(100, 50, eHoleFaceWeb, 0, kExternal),    false},
        {"fewer corners",          NotchAt(100, 50, eHoleFaceWeb, 0, kInternal, 3), false},
    };
    // clang-format on
    for (const auto& [name, other, isDuplicate] : cases) {
        TestMember member;
        member.m_notches = {NotchAt(100, 50), other};
        member.MakeDupNotchArr();
        EXPECT_EQ(member.m_notches.length(), isDuplicate ? 1 : 2) << name;
        EXPECT_EQ(member.m_duplicateNotches.length(), isDuplicate ? 1 : 0) << name;
    }
}

/// The current tolerance is read, not set.
TEST(NotchPostProcessingTest, DuplicateNotchesFollowTheCurrentTolerance) {
    for (const bool isWide : {false, true}) {
        TestMember member;
        member.m_notches = {NotchAt(100, 50), NotchAt(100.4, 50)};
        CMxGeom::SetTol(isWide ? eTolY : eTolEPS);
        member.MakeDupNotchArr();
        EXPECT_EQ(member.m_duplicateNotches.length(), isWide ? 1 : 0);
        EXPECT_TRUE(CurrentToleranceIs(isWide ? 0.5 : 0.1));
    }
}

TEST(NotchPostProcessingTest, ARemovedNotchRemovesNothing) {
    TestMember member;
    member.m_notches = {NotchAt(100, 50), NotchAt(100.4, 50), NotchAt(100.8, 50)};
    CMxGeom::SetTol(eTolY);
    member.MakeDupNotchArr();
    ASSERT_EQ(member.m_notches.length(), 2);
    EXPECT_EQ(member.m_notches[1].GetXPos(1), 100.8);
}

TEST(NotchPostProcessingTest, ValidNotchesAreCounted) {
    TestMember member;
    for (const int status : {0, 1, 4, 5})
        member.m_notches.append(NotchAt(0, 0, eHoleFaceWeb, status, kInternal));
    for (const int status : {1, 1, 0})
        member.m_notches.append(NotchAt(0, 0, eHoleFaceWeb, status, kExternal));
    EXPECT_EQ(member.MakeValidNotches(), 3);
    EXPECT_EQ(member.GetNoOfInternalContours(), 1);
    EXPECT_EQ(member.GetNoOfExternalContours(), 2);
    std::vector<int> statuses;
    for (const CNotchAddInfo& notch : member.m_notches)
        statuses.push_back(notch.GetNotchStatus());
    EXPECT_EQ(statuses, std::vector<int>({5, 1, 4, 5, 1, 1, 5}));
    EXPECT_EQ(member.MakeValidNotches(), 6) << "the counters are not reset";
}

}  // namespace

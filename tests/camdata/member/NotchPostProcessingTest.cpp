#include "support/Outlines.h"
#include "support/TestMember.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

CNotchAddInfo NotchOf(ZetNCContour::Type type, int status) {
    CNotchAddInfo notch;
    notch.setNotchFromPoly(ZetGeomAugPolygon(Disc(0, 0, 5, 4), 0.01), CViewData(), type);
    notch.SetNotchStatus(static_cast<eNotchStatus>(status));
    return notch;
}

TEST(NotchPostProcessingTest, ValidNotchesAreCounted) {
    TestMember member;
    for (const int status : {0, 1, 4, 5})
        member.m_notches.append(NotchOf(ZetNCContour::eTypeInternal, status));
    for (const int status : {1, 1, 0})
        member.m_notches.append(NotchOf(ZetNCContour::eTypeExternal, status));
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

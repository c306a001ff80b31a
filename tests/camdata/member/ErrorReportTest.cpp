#include "support/TestMember.h"

#include <string_view>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;
using Locations = ZetArray<long>;

/// Findings by the letters of their lists: e and E errors, w and W warnings, the capital in the
/// second list, n non-standard. Then the sections in the blocks; null: no block.
struct ReportCase {
    const wchar_t* profileName;
    const char* findings;
    const wchar_t* errorSection = nullptr;
    const wchar_t* warningSection = nullptr;
    Lines warnings = {};
    Locations locations = {};
};

// clang-format off
const ReportCase kReports[] = {
    {L"Z20035-20",  "",     nullptr,       nullptr,   {},                 {}},
    {L"Z20035-20",  "E",    L"35-20",      nullptr,   {},                 {2}},
    {L"Z20035-20",  "W",    nullptr,       L"35-20",  {},                 {3}},
    {L"Z20035-20",  "n",    nullptr,       L"35-20",  {L"n"},             {3}},
    {L"Z20035-20",  "nenw", L"35-20",      L"35-20",  {L"w", L"n", L"n"}, {2, 3}},
    {L"ObsoZ35-20", "ew",   L"ObsoZ35-20", L"Z35-20", {L"w"},             {2, 3}},
    {L"12 Obso",    "e",    L"12 Obso",    nullptr,   {},                 {2}},
    {L"OBSOZ35-20", "e",    L"Z35-20",     nullptr,   {},                 {2}},
    {L"Z20",        "e",    L"",           nullptr,   {},                 {2}},
};
// clang-format on

TestMember ReportedMember(const ReportCase& row) {
    TestMember member = MemberOf(L"M1", 3, row.profileName);
    for (const char* at = row.findings; *at != '\0'; ++at) {
        // clang-format off
        Lines* const lists[] = {&member.m_errors, &member.m_secondErrors, &member.m_warnings,
                                &member.m_secondWarnings, &member.m_nonStdMsgs};
        // clang-format on
        lists[std::string_view("eEwWn").find(*at)]->append(ZetString(static_cast<wchar_t>(*at), 1));
    }
    return member;
}

Lines Block(const wchar_t* section) {
    if (section == nullptr)
        return {};
    const ZetString line = ZetString(L"          Section    = ") + section;
    return {L"Part Number = M1", line, L"          Quantity   = 3"};
}

TEST(ErrorReportTest, BlocksAreHeadedAndErrorsDecideValidity) {
    for (const ReportCase& row : kReports) {
        for (const bool wasValid : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.profileName << ' ' << row.findings);
            TestMember member = ReportedMember(row);
            member.SetValid(wasValid);
            EXPECT_TRUE(member.CreateErrWarHeader());
            EXPECT_EQ(member.GetValid(), row.errorSection == nullptr);
            EXPECT_EQ(member.m_errorReport, Block(row.errorSection));
            EXPECT_EQ(member.m_warningReport, Block(row.warningSection));
            EXPECT_EQ(member.m_warnings, row.warnings);
            EXPECT_EQ(member.GetAddInfoArrLoc(), row.locations);
        }
    }
}

TEST(ErrorReportTest, ASecondReportRepeatsBlocksLinesAndLocations) {
    TestMember member = ReportedMember({L"Z20035-20", "en"});
    Lines twice = Block(L"35-20");
    twice.appendAll(twice);
    member.CreateErrWarHeader();
    member.CreateErrWarHeader();
    EXPECT_EQ(member.m_errorReport, twice);
    EXPECT_EQ(member.m_warningReport, twice);
    EXPECT_EQ(member.m_errors, Lines{L"e"});
    EXPECT_EQ(member.m_warnings, (Lines{L"n", L"n"}));
    EXPECT_EQ(member.m_nonStdMsgs, Lines{L"n"});
    EXPECT_EQ(member.GetAddInfoArrLoc(), (Locations{2, 3, 2, 3}));
    EXPECT_EQ(member.m_message, L"          Quantity   = 3");
}

}  // namespace

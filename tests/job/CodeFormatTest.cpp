#include "job/CodeFormat.h"

#include <gtest/gtest.h>

namespace {

TEST(CodeFormat, IsFilledWithTheHole) {
    const job::CodeValues hole = {18.0, 38.25, 17.5, "top_flange", 1200.0, 60.04, -0.04};
    // clang-format off
    const std::pair<const wchar_t*, std::string> cases[] = {
        {L"W18", "W18"},
        {L"50%diameter 50%", "50%diameter 50%"},
        {L"D{diameter:.1f}", "D18.0"},
        {L"L{length:.0f}x{width}", "L38x17.5"},
        {L"{face}/{x:06.0f}/{y:.1f}/{depth:.0f}", "top_flange/001200/60.0/0"},
        {L"{{{diameter}}}", "{18}"},
        {L"{x:*>8.1f}|{x:+.0f}|{face:.3}", "**1200.0|+1200|top"},
        {L"\u00D8{diameter}", "\xC3\x98" "18"},
        {L"A-0.0 {depth:.1f} {depth:.2f}", "A-0.0 0.0 -0.04"},
        {L"{diameter:100.2f}", std::string(95, ' ') + "18.00"},
    };
    // clang-format on
    for (const auto& [code, filled] : cases) {
        EXPECT_EQ(job::FaultOfCode(code), "");
        EXPECT_EQ(job::FillCode(code, hole).toUtf8(), filled);
    }
    for (const wchar_t* code : {L"{x:.101f}",
                                L"{x:99999999999}",
                                L"{x:L}",
                                L"{x:a}",
                                L"{0}",
                                L"{x",
                                L"x}",
                                L"{x!r}",
                                L"{x:.{y}f}",
                                L"{face:f}",
                                L"D%.1f",
                                L"100%d"})
        EXPECT_NE(job::FaultOfCode(code), "") << ZetString(code).toUtf8();
}

TEST(CodeFormat, AGroupsCodeMustBeUnlikeAnyFilledCode) {
    EXPECT_TRUE(job::NeverContains(L"W18", L"DUO"));
    EXPECT_FALSE(job::NeverContains(L"W18", L"W1"));
    EXPECT_TRUE(job::NeverContains(L"D{diameter}", L"DUO"));
    EXPECT_FALSE(job::NeverContains(L"D{diameter}", L"D18"));
    EXPECT_FALSE(job::NeverContains(L"{face}", L"web"));
}

}  // namespace

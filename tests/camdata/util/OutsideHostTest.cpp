// A program that is no host: it exports no print function, and no host module is loaded.

#include "camdata/platform/system/Modules.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/HostBridge.h"

#include <gtest/gtest.h>

namespace {

TEST(OutsideHost, PrintingIsSilent) {
    ASSERT_EQ(FindFunction(nullptr, "icPrintfAsync"), nullptr);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(CMxUtil::PrintPrompt(L"nobody reads this"), 1);
    EXPECT_EQ(CMxUtil::AsArrStrPrint({L"nor", L"this"}), 1);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(OutsideHost, DrawingIsUnknown) {
    ZetString model = L"name";
    ZetString folder = L"folder";
    EXPECT_EQ(GetModelAndDirName(model, folder), 0);
    EXPECT_EQ(model, L"name");
    EXPECT_EQ(folder, L"folder");
}

}  // namespace

#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/platform/host/MxSettings.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/tolerance/CMxGeom.h"

#include <array>
#include <cstdlib>
#include <locale>
#include <optional>

#include <gtest/gtest.h>

namespace {

/// A value of CMxGeom that a test may have changed, and what it was when the library was loaded.
struct GeomValue {
    void (*set)(double);
    double initial;
};

/// Puts the process-wide state back around every test, so that the tests run in any order.
class ProcessStateReset : public ::testing::EmptyTestEventListener {
  public:
    void OnTestStart(const ::testing::TestInfo&) override { Reset(); }
    void OnTestEnd(const ::testing::TestInfo&) override { Reset(); }

  private:
    void Reset() const {
        for (const GeomValue& value : m_geomValues)
            value.set(value.initial);
        CMxGeom::SetTol(eTolEPS);
        SetZetAssertHandler(nullptr);
        SetClock(nullptr);
        SetDialogDriver(std::nullopt);
        MxSettings::getInstance().removeAll();
    }

    const std::array<GeomValue, 8> m_geomValues = {
        {
         {CMxGeom::SetEPS, CMxGeom::GetEPS()},
         {CMxGeom::SetGenTol, CMxGeom::GetGenTol()},
         {CMxGeom::SetXTol, CMxGeom::GetXTol()},
         {CMxGeom::SetYTol, CMxGeom::GetYTol()},
         {CMxGeom::SetAngTol, CMxGeom::GetAngTol()},
         {CMxGeom::SetMinEdgeDist, CMxGeom::GetMinEdgeDist()},
         {CMxGeom::SetMinEndDist, CMxGeom::GetMinEndDist()},
         {CMxGeom::SetMinEdgeDistFromFace, CMxGeom::GetMinEdgeDistFromFace()},
         }
    };
};

/// Takes the locale that CAMDATA_TEST_LOCALE names, for C and C++: no result may depend on it.
/// Raises an error when there is no locale of that name.
void TakeLocale() {
    if (const char* name = std::getenv("CAMDATA_TEST_LOCALE"))
        std::locale::global(std::locale(name));
}

/// Dialogs are drawn without a display.
void DrawNowhere() {
#if !defined(_WIN32)
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
#endif
}

}  // namespace

#if !defined(_WIN32)
/// What the leak check finds in the libraries behind the dialogs is not ours to mend.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
#endif

int main(int argc, char** argv) {
    TakeLocale();
    DrawNowhere();
    ::testing::InitGoogleTest(&argc, argv);
    // The listeners own what is appended to them.
    ::testing::UnitTest::GetInstance()->listeners().Append(new ProcessStateReset);
    return RUN_ALL_TESTS();
}

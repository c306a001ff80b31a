#include "support/TempFolder.h"
#include "support/host/FakeHost.h"

#include "camdata/platform/system/Modules.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <dlfcn.h>
#endif

namespace {

TEST(Modules, FindsALoadedModuleByItsWholeNameAndLoadsNone) {
    const auto isFound = [](const std::wstring& name) {
        return FindLoadedModule(ZetString(name)) != nullptr;
    };
    for (const std::wstring number : {L"17", L"19"}) {
        const std::wstring file = L"kwdb" + number + L".dll";
        EXPECT_FALSE(isFound(file));
        {
            const FakeModule module(file);
            EXPECT_TRUE(isFound(file) && isFound(L"KWdb" + number + L".DLL"));
            for (const wchar_t* other : {L"kwdb18.dll", L"kwdb1", L"db17.dll", L"db19.dll", L""})
                EXPECT_FALSE(isFound(other)) << ZetString(other).toUtf8();
        }
        EXPECT_FALSE(isFound(file));
    }
}

#if !defined(_WIN32)
TEST(Modules, FindsASharedObjectByItsInnerName) {
    const TempFolder folder;
    const auto copy = folder.PathOf("renamed.so");
    std::filesystem::copy_file(FakeModulePath(L"kwdb17.dll"), copy);
    void* library = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr);
    EXPECT_NE(FindLoadedModule(L"kwdb17.dll"), nullptr);
    EXPECT_EQ(FindLoadedModule(L"renamed.so"), FindLoadedModule(L"kwdb17.dll"));
    dlclose(library);
}
#endif

TEST(Modules, FindsOnlyFunctionsThatTheModuleItselfExports) {
    // The file of the module that is loaded; the one that is asked, null: the main program.
    // clang-format off
    struct Case { const char* name; const wchar_t *file, *module; const char* function; bool isFound; };
    // clang-format on
    constexpr const wchar_t* k17 = L"kwdb17.dll";
    constexpr const wchar_t* kLinking = L"linked/kwdb17.dll";
    constexpr Case kCases[] = {
        {"own",                         k17,           k17,            "kwutPrintf",    true },
        {"own without inner name",      L"kwdb19.dll", L"kwdb19.dll",  "kwutPrintf",    true },
        {"absent",                      k17,           k17,            "kwutPrint",     false},
        {"of a linked module",          kLinking,      k17,            "kwutPrintf",    false},
        {"own of the linking module",   kLinking,      k17,            "linkedPrint",   true },
        {"in the linked module",        kLinking,      L"printer.dll", "kwutPrintf",    true },
        {"of the runtime",              k17,           k17,            "toupper",       false},
        {"main program",                k17,           nullptr,        "icPrintfAsync", true },
        {"runtime of the main program", k17,           nullptr,        "toupper",       false},
        {"module of the main program",  k17,           nullptr,        "kwutPrintf",    false},
        {"main program through module", k17,           k17,            "icPrintfAsync", false},
    };
    for (const Case& each : kCases) {
        const FakeModule loaded(each.file);
        const ModuleHandle module =
            each.module == nullptr ? nullptr : FindLoadedModule(each.module);
        EXPECT_EQ(FindFunction(module, each.function) != nullptr, each.isFound) << each.name;
    }
}

TEST(Modules, OwnModuleIsTheLibraryNotTheProgram) {
#if defined(_WIN32)
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"camdata.dll"));
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"CAMDATA.dll"));
#else
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"libcamdata.so.1"));
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"libCAMDATA.so.1"));
#endif
    EXPECT_NE(OwnModule(), nullptr);
}

}  // namespace

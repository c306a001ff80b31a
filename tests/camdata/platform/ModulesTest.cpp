#include "support/TempFolder.h"
#include "support/host/FakeHost.h"

#include "camdata/platform/Modules.h"

#include <filesystem>

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <dlfcn.h>
#endif

namespace {

TEST(Modules, FindsALoadedModuleByNameAndLoadsNone) {
    for (const wchar_t* file : {L"kwdb17.dll", L"kwdb19.dll"}) {
        SCOPED_TRACE(file);
        EXPECT_EQ(FindLoadedModule(file), nullptr);
        {
            const FakeModule module(file);
            EXPECT_NE(FindLoadedModule(file), nullptr);
            EXPECT_EQ(FindLoadedModule(L"kwdb18.dll"), nullptr);
        }
        EXPECT_EQ(FindLoadedModule(file), nullptr);
    }
}

TEST(Modules, NamesAreWholeAndTheirCaseDoesNotCount) {
    const FakeModule module(L"kwdb17.dll");
    EXPECT_NE(FindLoadedModule(L"KWdb17.DLL"), nullptr);
    EXPECT_EQ(FindLoadedModule(L"kwdb1"), nullptr);
    EXPECT_EQ(FindLoadedModule(L"db17.dll"), nullptr);
    EXPECT_EQ(FindLoadedModule(L""), nullptr);
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

struct FunctionCase {
    const char* name;
    const wchar_t* file;    // module that is loaded
    const wchar_t* module;  // module that is asked; null: the main program
    const char* function;
    bool isFound;
};

void PrintTo(const FunctionCase& row, std::ostream* out) {
    *out << row.name;
}

class FindFunctionTest : public ::testing::TestWithParam<FunctionCase> {};

TEST_P(FindFunctionTest, FindsOnlyWhatTheModuleItselfExports) {
    const FakeModule loaded(GetParam().file);
    const ModuleHandle module =
        GetParam().module == nullptr ? nullptr : FindLoadedModule(GetParam().module);
    EXPECT_EQ(FindFunction(module, GetParam().function) != nullptr, GetParam().isFound);
}

INSTANTIATE_TEST_SUITE_P(
    Modules,
    FindFunctionTest,
    ::testing::Values(
        FunctionCase{"Own", L"kwdb17.dll", L"kwdb17.dll", "kwutPrintf", true},
        FunctionCase{"OwnWithoutInnerName", L"kwdb19.dll", L"kwdb19.dll", "kwutPrintf", true},
        FunctionCase{"Absent", L"kwdb17.dll", L"kwdb17.dll", "kwutPrint", false},
        FunctionCase{"OfLinkedModule", L"linked/kwdb17.dll", L"kwdb17.dll", "kwutPrintf", false},
        FunctionCase{
            "OwnOfLinkingModule", L"linked/kwdb17.dll", L"kwdb17.dll", "linkedPrint", true},
        FunctionCase{"InTheLinkedModule", L"linked/kwdb17.dll", L"printer.dll", "kwutPrintf", true},
        FunctionCase{"OfTheRuntime", L"kwdb17.dll", L"kwdb17.dll", "toupper", false},
        FunctionCase{"MainProgram", L"kwdb17.dll", nullptr, "icPrintfAsync", true},
        FunctionCase{"RuntimeOfMainProgram", L"kwdb17.dll", nullptr, "toupper", false},
        FunctionCase{"ModuleOfMainProgram", L"kwdb17.dll", nullptr, "kwutPrintf", false},
        FunctionCase{
            "MainProgramThroughModule", L"kwdb17.dll", L"kwdb17.dll", "icPrintfAsync", false}),
    [](const auto& test) { return test.param.name; });

TEST(Modules, FoundFunctionIsTheOneOfItsModule) {
    const FakeModule first(L"kwdb17.dll");
    const FakeModule second(L"kwdb18.dll");
    EXPECT_EQ(FindFunction(FindLoadedModule(L"kwdb17.dll"), "kwutPrintf"),
              first.Function<ModuleFunction>("kwutPrintf"));
    EXPECT_EQ(FindFunction(FindLoadedModule(L"kwdb18.dll"), "kwutPrintf"),
              second.Function<ModuleFunction>("kwutPrintf"));
}

TEST(Modules, OwnModuleIsTheLibraryNotTheProgram) {
#if defined(_WIN32)
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"camdata.dll"));
#else
    EXPECT_EQ(OwnModule(), FindLoadedModule(L"libcamdata.so.1"));
#endif
    EXPECT_NE(OwnModule(), nullptr);
}

TEST(Modules, FileVersionBelongsToOneModule) {
    const FakeModule with(L"kwdb17.dll");
    const FakeModule without(L"kwdb16.dll");
    const ModuleVersion version = {17, 3, 0, 65535};
    EXPECT_EQ(ModuleFileVersion(FindLoadedModule(L"kwdb17.dll")), version);
    EXPECT_EQ(ModuleFileVersion(FindLoadedModule(L"kwdb16.dll")), std::nullopt);
    EXPECT_EQ(ModuleFileVersion(nullptr), std::nullopt);
}

}  // namespace

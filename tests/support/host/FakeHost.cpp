#include "support/host/FakeHost.h"

#include <filesystem>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

std::vector<HostPrint> g_prints;

void* Load(const std::filesystem::path& file) {
#if defined(_WIN32)
    return LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
#else
    return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
#endif
}

void Unload(void* library) {
#if defined(_WIN32)
    FreeLibrary(static_cast<HMODULE>(library));
#else
    dlclose(library);
#endif
}

// The fake host prints in ASCII, so that the system's code page does not matter.
std::wstring Widened(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

}  // namespace

// The print function of a host's main program.
FAKE_HOST_API int icPrintfAsync(const wchar_t* text, ...) {
    RecordHostPrint("main program", text, nullptr);
    return 0;
}

std::wstring FakeModulePath(const std::wstring& file) {
    return (std::filesystem::absolute(FAKE_HOST_FOLDER) / file).make_preferred().wstring();
}

FakeModule::FakeModule(const std::wstring& file) : m_library(Load(FakeModulePath(file))) {
    EXPECT_NE(m_library, nullptr) << std::filesystem::path(FakeModulePath(file));
    if (m_library == nullptr)
        return;
    if (const auto setPrinted = Function<FakeHostSetPrinted>("fakeHostSetPrinted"))
        setPrinted(RecordHostPrint);
}

FakeModule::~FakeModule() {
    if (m_library != nullptr)
        Unload(m_library);
}

ModuleFunction FakeModule::Lookup(const char* name) const {
#if defined(_WIN32)
    return reinterpret_cast<ModuleFunction>(GetProcAddress(static_cast<HMODULE>(m_library), name));
#else
    return reinterpret_cast<ModuleFunction>(dlsym(m_library, name));
#endif
}

void PrintTo(const HostPrint& print, std::ostream* out) {
    *out << print.printer << (print.isNarrow ? " narrow " : " wide ")
         << ::testing::PrintToString(print.text);
}

const std::vector<HostPrint>& HostPrints() {
    return g_prints;
}

void ClearHostPrints() {
    g_prints.clear();
}

void RecordHostPrint(const char* module, const wchar_t* wideText, const char* narrowText) {
    const bool isNarrow = narrowText != nullptr;
    g_prints.push_back({module, isNarrow ? Widened(narrowText) : std::wstring(wideText), isNarrow});
}

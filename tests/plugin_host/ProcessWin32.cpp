#include "Process.h"

#include <cstdio>
#include <filesystem>

// clang-format off
#include <windows.h>
#include <tlhelp32.h>  // needs windows.h before it
// clang-format on

namespace {

long ThreadCount() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    long count = 0;
    for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread))
        count += thread.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    CloseHandle(snapshot);
    return count;
}

BOOL CALLBACK CountOwn(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId())
        ++*reinterpret_cast<long*>(count);
    return TRUE;
}

long WindowCount() {
    long count = 0;
    EnumWindows(CountOwn, reinterpret_cast<LPARAM>(&count));
    return count;
}

long HandleCount() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return static_cast<long>(count);
}

}  // namespace

Module Load(const std::string& path) {
    // Windows looks for what a module needs in the module's folder only when that is named in full.
    const std::filesystem::path full = std::filesystem::absolute(path).make_preferred();
    const HMODULE module = LoadLibraryExW(full.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr)
        std::fprintf(stderr, "%s: cannot be loaded: error %lu\n", path.c_str(), GetLastError());
    return module;
}

void* FindFunction(Module module, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void Unload(Module module) {
    FreeLibrary(static_cast<HMODULE>(module));
}

bool IsLoaded(const char* fileName) {
    return GetModuleHandleA(fileName) != nullptr;
}

ProcessState CurrentState() {
    return {ThreadCount(), HandleCount(), WindowCount()};
}

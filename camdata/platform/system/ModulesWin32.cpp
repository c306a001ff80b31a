#include "camdata/platform/system/Modules.h"

#include <cstddef>
#include <vector>
#include <windows.h>

namespace {

HMODULE HandleOf(ModuleHandle module) {
    return static_cast<HMODULE>(module);
}

// The whole version resource of a file; empty when it has none.
std::vector<std::byte> VersionResource(const wchar_t* fileName) {
    DWORD unused = 0;
    std::vector<std::byte> resource(GetFileVersionInfoSizeW(fileName, &unused));
    const auto size = static_cast<DWORD>(resource.size());
    if (size == 0 || GetFileVersionInfoW(fileName, 0, size, resource.data()) == FALSE)
        return {};
    return resource;
}

// The fixed part of a version resource; null when there is none.
const VS_FIXEDFILEINFO* FixedFileInfo(const std::vector<std::byte>& resource) {
    void* info = nullptr;
    UINT size = 0;
    if (resource.empty() || VerQueryValueW(resource.data(), L"\\", &info, &size) == FALSE)
        return nullptr;
    return size < sizeof(VS_FIXEDFILEINFO) ? nullptr : static_cast<const VS_FIXEDFILEINFO*>(info);
}

}  // namespace

ModuleHandle FindLoadedModule(const ZetString& name) {
    return name.isEmpty() ? nullptr : GetModuleHandleW(name.c_str());
}

ModuleFunction FindFunction(ModuleHandle module, const char* name) {
    const HMODULE owner = module == nullptr ? GetModuleHandleW(nullptr) : HandleOf(module);
    return reinterpret_cast<ModuleFunction>(GetProcAddress(owner, name));
}

ModuleHandle OwnModule() {
    static const char inside = 0;
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&inside),
        &module);
    return module;
}

std::optional<ModuleVersion> ModuleFileVersion(ModuleHandle module) {
    wchar_t fileName[MAX_PATH] = {};
    if (module == nullptr)
        return std::nullopt;
    const DWORD length = GetModuleFileNameW(HandleOf(module), fileName, MAX_PATH);
    if (length == 0 || length == MAX_PATH)
        return std::nullopt;
    const std::vector<std::byte> resource = VersionResource(fileName);
    const VS_FIXEDFILEINFO* info = FixedFileInfo(resource);
    if (info == nullptr)
        return std::nullopt;
    return ModuleVersion{HIWORD(info->dwFileVersionMS),
                         LOWORD(info->dwFileVersionMS),
                         HIWORD(info->dwFileVersionLS),
                         LOWORD(info->dwFileVersionLS)};
}

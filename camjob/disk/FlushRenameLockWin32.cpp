#include "camjob/disk/FlushRenameLock.h"

#include <windows.h>

namespace camjob {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Virus scanners and indexers hold new files for a moment.
constexpr int kRenameAttempts = 10;
constexpr DWORD kMillisecondsBetween = 50;

std::error_code LastError() {
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

HANDLE Open(const std::filesystem::path& file, DWORD access, DWORD share, DWORD disposition) {
    return ::CreateFileW(
        file.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool MayPass(const std::error_code& error) {
    return error.value() == ERROR_SHARING_VIOLATION || error.value() == ERROR_ACCESS_DENIED;
}

std::error_code RenameOnce(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return ::MoveFileExW(from.c_str(), to.c_str(), kFlags) != 0 ? std::error_code() : LastError();
}

}  // namespace

std::error_code FlushFile(const std::filesystem::path& file) {
    const HANDLE handle = Open(file, GENERIC_WRITE, kShareAll, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE)
        return LastError();
    const std::error_code error = ::FlushFileBuffers(handle) != 0 ? std::error_code() : LastError();
    ::CloseHandle(handle);
    return error;
}

void BeginFlush(const std::filesystem::path&) {}

std::error_code FlushFolder(const std::filesystem::path&) {
    return {};
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error = RenameOnce(from, to);
    for (int i = 1; i < kRenameAttempts && MayPass(error); ++i) {
        ::Sleep(kMillisecondsBetween);
        error = RenameOnce(from, to);
    }
    return error;
}

std::error_code CheckFree(const std::filesystem::path& file) {
    const HANDLE handle = Open(file, DELETE, kShareAll, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE)
        return ::GetLastError() == ERROR_SHARING_VIOLATION
                   ? std::make_error_code(std::errc::text_file_busy)
                   : LastError();
    ::CloseHandle(handle);
    return {};
}

std::error_code FileLock::Take(const std::filesystem::path& file) {
    const HANDLE handle = Open(file, GENERIC_READ | GENERIC_WRITE, 0, OPEN_ALWAYS);
    if (handle == INVALID_HANDLE_VALUE) {
        if (::GetLastError() == ERROR_SHARING_VIOLATION)
            return std::make_error_code(std::errc::resource_unavailable_try_again);
        return LastError();
    }
    m_handle = reinterpret_cast<std::intptr_t>(handle);
    return {};
}

FileLock::~FileLock() {
    if (IsTaken())
        ::CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

}  // namespace camjob

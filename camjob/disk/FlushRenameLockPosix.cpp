#include "camjob/disk/FlushRenameLock.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace camjob {

namespace {

std::error_code LastError() {
    return {errno, std::generic_category()};
}

std::error_code OnFile(const std::filesystem::path& path, int flags, int (*call)(int)) {
    const int file = ::open(path.c_str(), flags | O_CLOEXEC);
    if (file < 0)
        return LastError();
    const std::error_code error = call(file) == 0 ? std::error_code() : LastError();
    ::close(file);
    return error;
}

}  // namespace

std::error_code FlushFile(const std::filesystem::path& file) {
    return OnFile(file, O_RDONLY, ::fsync);
}

#ifdef __linux__
/// What fails is told when the file is flushed.
void BeginFlush(const std::filesystem::path& file) {
    OnFile(file, O_RDONLY, [](int descriptor) {
        return ::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
    });
}
#else
void BeginFlush(const std::filesystem::path&) {}
#endif

std::error_code FlushFolder(const std::filesystem::path& folder) {
    return OnFile(folder, O_RDONLY | O_DIRECTORY, ::fsync);
}

std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    return std::rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : LastError();
}

std::error_code CheckFree(const std::filesystem::path&) {
    return {};
}

std::error_code FileLock::Take(const std::filesystem::path& file) {
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return LastError();
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const std::error_code error = LastError();
        ::close(descriptor);
        return error;
    }
    m_handle = descriptor;
    return {};
}

FileLock::~FileLock() {
    if (IsTaken())
        ::close(static_cast<int>(m_handle));
}

}  // namespace camjob

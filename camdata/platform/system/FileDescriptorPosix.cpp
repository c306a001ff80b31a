#include "camdata/platform/system/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace camdata::detail {
namespace {

constexpr int kOpenFlags[] = {O_RDONLY, O_WRONLY | O_CREAT | O_TRUNC, O_WRONLY | O_CREAT};

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto Retried(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

bool IsFolder(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

int OsOpen(const ZetString& name, OsOpenMode mode) {
    const std::string path = name.toUtf8();
    const int flags = kOpenFlags[static_cast<int>(mode)] | O_CLOEXEC;
    const int file = Retried([&] { return open(path.c_str(), flags, 0666); });
    if (file < 0 || !IsFolder(file))
        return file;
    // It can be opened for reading, but not be read.
    close(file);
    errno = EISDIR;
    return -1;
}

std::ptrdiff_t OsRead(int file, char* bytes, std::size_t count) {
    return Retried([&] { return read(file, bytes, count); });
}

bool OsWriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = Retried([&] { return write(file, bytes.data(), bytes.size()); });
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::int64_t OsSeek(int file, std::int64_t position) {
    return lseek(file, position, SEEK_SET);
}

std::int64_t OsSeekEnd(int file) {
    return lseek(file, 0, SEEK_END);
}

bool OsClose(int file) {
    // After EINTR the descriptor is gone all the same: closing again could hit another file.
    return close(file) == 0 || errno == EINTR;
}

bool OsIsFile(const ZetString& name) {
    struct stat status = {};
    return stat(name.toUtf8().c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

}  // namespace camdata::detail

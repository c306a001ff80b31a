#include "camdata/platform/system/FileDescriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

namespace camdata::detail {
namespace {

constexpr int kOpenFlags[] = {_O_RDONLY, _O_WRONLY | _O_CREAT | _O_TRUNC, _O_WRONLY | _O_CREAT};

/// The C library counts the bytes of one call in 32 bits.
constexpr std::size_t kMaxBytes = 1U << 30;

}  // namespace

int OsOpen(const ZetString& name, OsOpenMode mode) {
    const int flags = kOpenFlags[static_cast<int>(mode)] | _O_BINARY | _O_NOINHERIT;
    int file = -1;
    _wsopen_s(&file, name.c_str(), flags, _SH_DENYNO, _S_IREAD | _S_IWRITE);
    return file;
}

std::ptrdiff_t OsRead(int file, char* bytes, std::size_t count) {
    return _read(file, bytes, static_cast<unsigned>(std::min(count, kMaxBytes)));
}

bool OsWriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = static_cast<unsigned>(std::min(bytes.size(), kMaxBytes));
        const int written = _write(file, bytes.data(), count);
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::int64_t OsSeek(int file, std::int64_t position) {
    return _lseeki64(file, position, SEEK_SET);
}

std::int64_t OsSeekEnd(int file) {
    return _lseeki64(file, 0, SEEK_END);
}

bool OsClose(int file) {
    return _close(file) == 0;
}

bool OsIsFile(const ZetString& name) {
    struct _stat64 status = {};
    return _wstat64(name.c_str(), &status) == 0 && (status.st_mode & _S_IFDIR) == 0;
}

}  // namespace camdata::detail

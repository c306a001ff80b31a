#pragma once

#include "camdata/platform/text/ZetString.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// @file
/// The few file calls of the operating system, bytes in and out. Each failure leaves its errno.

namespace camdata::detail {

enum class OsOpenMode {
    kRead,     ///< an existing file
    kReplace,  ///< an empty file, whatever was there
    kAppend,   ///< an existing or new file, positioned at its end
};

/// A file descriptor, -1 when the file cannot be opened.
int OsOpen(const ZetString& name, OsOpenMode mode);
/// The number of bytes read, 0 at the end, -1 for a failure.
std::ptrdiff_t OsRead(int file, char* bytes, std::size_t count);
bool OsWriteAll(int file, std::string_view bytes);
/// The new position, -1 for a failure.
std::int64_t OsSeek(int file, std::int64_t position);
std::int64_t OsSeekEnd(int file);
bool OsClose(int file);
/// Something of that name exists and is no folder.
bool OsIsFile(const ZetString& name);

}  // namespace camdata::detail

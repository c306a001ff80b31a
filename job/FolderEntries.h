#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace job {

/// What a folder holds.
struct FolderEntry {
    std::string name;  ///< UTF-8; on systems that have names in bytes these, as they are
    bool isPlain;      ///< a file and no link, as far as the folder tells without a look at it

    bool operator<(const FolderEntry& other) const { return name < other.name; }
};

/// In no order, without "." and "..". `error` tells why the folder cannot be listed, or not to its
/// end.
std::vector<FolderEntry> EntriesOf(const std::filesystem::path& folder, std::error_code& error);

}  // namespace job

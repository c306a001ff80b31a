#include "job/FolderEntries.h"

#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string_view>

// A path for each entry, as the standard library's iterators make it, takes longer than all else
// about the entry.

namespace job {

std::vector<FolderEntry> EntriesOf(const std::filesystem::path& folder, std::error_code& error) {
    std::vector<FolderEntry> entries;
    const std::unique_ptr<DIR, int (*)(DIR*)> listed(::opendir(folder.c_str()), ::closedir);
    const auto next = [&] {
        errno = 0;
        return ::readdir(listed.get());
    };
    if (listed)
        while (const dirent* const entry = next()) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..")
                entries.push_back({std::string(name), entry->d_type == DT_REG});
        }
    error.assign(errno, std::generic_category());
    return entries;
}

}  // namespace job

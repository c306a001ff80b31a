#include "job/FolderEntries.h"
#include "job/Utf8Path.h"

namespace job {

std::vector<FolderEntry> EntriesOf(const std::filesystem::path& folder, std::error_code& error) {
    std::vector<FolderEntry> entries;
    std::error_code ignored;
    std::filesystem::directory_iterator at(folder, error);
    for (; !error && at != std::filesystem::directory_iterator(); at.increment(error))
        entries.push_back({Utf8FromPath(at->path().filename()),
                           !at->is_symlink(ignored) && at->is_regular_file(ignored)});
    return entries;
}

}  // namespace job

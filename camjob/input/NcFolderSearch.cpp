#include "camjob/input/NcFolderSearch.h"

#include "camjob/console/Paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace camjob {

namespace {

namespace fs = std::filesystem;

std::string InSmallLetters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

bool IsNcFile(const fs::path& file) {
    const std::string ending = InSmallLetters(Utf8FromPath(file.extension()));
    return ending == ".nc" || ending == ".nc1";
}

/// False when some folder of it cannot be listed. Links to folders are not followed: they may go
/// round.
bool FindIn(const fs::path& folder, std::vector<std::string>& files) {
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        std::error_code ignored;
        if (IsNcFile(at->path()) && !at->is_directory(ignored))
            files.push_back(Utf8FromPath(at->path().generic_u8string()));
    }
    std::sort(files.begin(), files.end());
    return !error;
}

}  // namespace

std::vector<std::string> FindNcFiles(const std::vector<std::string>& names) {
    std::vector<std::string> files;
    for (const std::string& name : names) {
        std::vector<std::string> found;
        std::error_code ignored;
        const bool isFolder = fs::is_directory(PathFromUtf8(name), ignored);
        if (isFolder && FindIn(PathFromUtf8(name), found) && !found.empty())
            files.insert(files.end(), found.begin(), found.end());
        else
            files.push_back(name);
    }
    return files;
}

}  // namespace camjob

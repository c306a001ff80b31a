#include "job/JobFile.h"
#include "job/TextPattern.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <system_error>

// Finding the NC files of a job: names are compared byte by byte on every system.

namespace job {

namespace {

namespace fs = std::filesystem;

/// With slashes on every system.
std::string Utf8Of(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

bool HasWildcard(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

/// Whether a file's name fits, by whole characters; one that begins with a dot only fits a pattern
/// that does.
bool FitsName(const fs::path& pattern, const fs::path& name) {
    const std::u32string wanted = pattern.u32string();
    const std::u32string text = name.u32string();
    return (text.front() != U'.' || wanted.front() == U'.') &&
           MatchesPattern<char32_t>(text, wanted);
}

/// Also a link to a file that is gone: it must not be left out unseen.
bool IsMeant(const fs::path& file) {
    std::error_code ignored;
    return fs::is_regular_file(file, ignored) ||
           (fs::is_symlink(file, ignored) && !fs::exists(file, ignored));
}

/// The search for all patterns of one job; each folder is listed once.
class NcFileSearch {
  public:
    /// The files below `folder` that fit `pattern`, a relative path.
    std::vector<fs::path> Find(const fs::path& folder, const fs::path& pattern) {
        std::vector<fs::path> found = {folder};
        for (const fs::path& segment : pattern)
            found = Descend(found, segment);
        std::erase_if(found, [](const fs::path& file) { return !IsMeant(file); });
        return found;
    }

  private:
    using Names = std::vector<std::string>;

    std::vector<fs::path> Descend(const std::vector<fs::path>& folders, const fs::path& segment) {
        std::vector<fs::path> found;
        for (const fs::path& folder : folders) {
            if (HasWildcard(Utf8Of(segment)))
                AppendFitting(folder, segment, found);
            else if (IsThere(folder, Utf8Of(segment)))
                found.push_back(folder / segment);
        }
        return found;
    }

    void AppendFitting(const fs::path& folder,
                       const fs::path& pattern,
                       std::vector<fs::path>& found) {
        for (const std::string& name : ListFolder(folder))
            if (FitsName(pattern, PathFromUtf8(name)))
                found.push_back(folder / PathFromUtf8(name));
    }

    /// Also true for a name that no folder lists, such as "..", and in a folder that cannot be
    /// listed: the file is then looked for by its name alone.
    bool IsThere(const fs::path& folder, const std::string& name) {
        const Names& names = ListFolder(folder);
        return names.empty() || name.empty() || name == "." || name == ".." ||
               std::binary_search(names.begin(), names.end(), name);
    }

    const Names& ListFolder(const fs::path& folder) {
        const auto [entry, isNew] = m_folders.try_emplace(folder);
        if (isNew) {
            std::error_code error;
            const fs::path listed = folder.empty() ? fs::path(".") : folder;
            for (fs::directory_iterator file(listed, error), end; !error && file != end;
                 file.increment(error))
                entry->second.push_back(Utf8Of(file->path().filename()));
            std::sort(entry->second.begin(), entry->second.end());
        }
        return entry->second;
    }

    std::map<fs::path, Names> m_folders;
};

}  // namespace

NcFilesResult ExpandNcFiles(const Job& job) {
    const fs::path folder = PathFromUtf8(job.file).parent_path();
    NcFileSearch search;
    std::map<std::string, fs::path> files;
    std::vector<JobError> errors;
    for (const NcFilePattern& pattern : job.ncFiles) {
        const fs::path path = PathFromUtf8(pattern.text);
        const std::vector<fs::path> found =
            search.Find(path.has_root_path() ? path.root_path() : folder,
                        path.relative_path().lexically_normal());
        for (const fs::path& file : found)
            files.emplace(Utf8Of(file.lexically_normal()), file);
        if (found.empty())
            errors.push_back(
                {job.file, pattern.line, pattern.column, "no file fits \"" + pattern.text + "\""});
    }
    if (!errors.empty())
        return errors;
    std::vector<fs::path> sorted;
    for (const auto& [name, file] : files)
        sorted.push_back(file);
    return sorted;
}

}  // namespace job

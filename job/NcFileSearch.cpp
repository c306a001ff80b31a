#include "job/Ascii.h"
#include "job/FileNames.h"
#include "job/FolderEntries.h"
#include "job/JobFile.h"
#include "job/MessageTexts.h"
#include "job/SystemError.h"
#include "job/TextPattern.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

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

/// Such as "*.nc1": folders are not called so.
bool HasEnding(std::string_view pattern) {
    const std::size_t point = pattern.rfind('.');
    return HasWildcard(pattern) && point != std::string_view::npos &&
           !HasWildcard(pattern.substr(point));
}

/// For comparing by whole characters: bytes that are no UTF-8 are one each, and so are the two
/// halves of a character on Windows.
std::u32string CharactersOf(const std::string& name) {
    const ZetString text = ZetString::fromUtf8(name);
    std::u32string characters;
    for (const wchar_t c : text.view()) {
        const bool isSecondHalf = c >= 0xDC00 && c <= 0xDFFF;
        if (isSecondHalf && !characters.empty())
            characters.back() = (characters.back() << 16) | static_cast<char32_t>(c);
        else
            characters.push_back(static_cast<char32_t>(c));
    }
    return characters;
}

/// What the names of files have to fit, by whole characters. One that begins with a dot only fits a
/// pattern that does.
class NamePattern {
  public:
    explicit NamePattern(std::string pattern)
        : m_pattern(std::move(pattern)),
          m_characters(CharactersOf(m_pattern)),
          m_isAscii(IsAscii(m_pattern)) {}

    bool Fits(const std::string& name) const {
        return (name.front() != '.' || m_pattern.front() == '.') && FitsText(name);
    }

  private:
    bool FitsText(const std::string& name) const {
        return m_isAscii && IsAscii(name)
                   ? MatchesPattern<char>(name, m_pattern)
                   : MatchesPattern<char32_t>(CharactersOf(name), m_characters);
    }

    std::string m_pattern;
    std::u32string m_characters;
    bool m_isAscii;
};

std::string InSmallLetters(const std::string& name) {
    return ZetString(SmallLetters(ZetString::fromUtf8(name))).toUtf8();
}

/// What stands before the names of the files in a folder.
std::string PrefixOf(const fs::path& folder) {
    return Utf8Of(folder / "");
}

/// Names of files by which they are told apart; of those in one folder only the first takes time.
class NormalNames {
  public:
    std::string Of(const std::string& file) {
        const std::size_t begin = file.rfind('/') + 1;
        if (begin == file.size() || file[begin] == '.')
            return Utf8Of(PathFromUtf8(file).lexically_normal());
        if (const std::string_view folder(file.data(), begin); !m_folder || folder != *m_folder) {
            m_folder = folder;
            m_normal = Utf8Of(PathFromUtf8(*m_folder + kAnyName).lexically_normal());
            m_normal.pop_back();
        }
        return m_normal + file.substr(begin);
    }

  private:
    static constexpr char kAnyName = 'x';
    std::optional<std::string> m_folder;  ///< with its slash
    std::string m_normal;                 ///< of the folder
};

/// What lies behind a name.
enum class Kind {
    kFile,
    kFolder,
    kLinkToNothing,  ///< or in a loop
    kNothing,
    kOther,    ///< a device, a pipe
    kUnknown,  ///< the system does not tell
};

Kind KindOf(const fs::path& path, std::error_code& error) {
    const fs::file_status status = fs::status(path, error);
    if (fs::is_regular_file(status))
        return Kind::kFile;
    if (fs::is_directory(status))
        return Kind::kFolder;
    const bool isMissing = status.type() == fs::file_type::not_found;
    std::error_code ignored;
    if ((isMissing || error == std::errc::too_many_symbolic_link_levels) &&
        fs::is_symlink(path, ignored))
        return Kind::kLinkToNothing;
    if (isMissing)
        return Kind::kNothing;
    return fs::status_known(status) ? Kind::kOther : Kind::kUnknown;
}

/// There is nothing to list, which is an answer.
bool IsNoFolder(const std::error_code& error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

std::string TextOf(const fs::path& path, const char* what, const std::error_code& error = {}) {
    return "\"" + Utf8Of(path) + "\" " + what + ReasonBehind(error);
}

std::string AdviseOnFolder(const fs::path& folder) {
    return "it is a folder; write " + Quoted(Utf8Of(folder / "*.nc1"));
}

/// The search for all patterns of one job; each folder is listed once.
class NcFileSearch {
  public:
    /// The files below `folder` that fit `pattern`, a relative path.
    std::vector<NamedNcFile> Find(const fs::path& folder, const fs::path& pattern) {
        std::vector<NamedNcFile> found = {
            {Utf8Of(folder), false}
        };
        for (const fs::path& segment : pattern)
            found = Descend(found, segment);
        std::vector<NamedNcFile> files;
        const bool isFileMeant = HasEnding(Utf8Of(pattern.filename()));
        for (NamedNcFile& each : found)
            if (each.isPlain || IsMeant(PathFromUtf8(each.name), isFileMeant))
                files.push_back(std::move(each));
        return files;
    }

    /// Why no file fits, as the first folder tells that holds nothing for the pattern; "" when
    /// each has something, so that it is a folder that fits.
    std::string WhyNone(const fs::path& folder, const fs::path& pattern) {
        fs::path at = folder;
        for (const fs::path& segment : pattern) {
            const std::vector<NamedNcFile> found = Descend(
                {
                    {Utf8Of(at), false}
            },
                segment);
            if (found.empty())
                return DescribeMiss(at, Utf8Of(segment));
            at = PathFromUtf8(found.front().name);
        }
        return "";
    }

    /// What a search came across and could not look into, so that its result may lack files.
    std::vector<std::string> TakeFaults() { return std::exchange(m_faults, {}); }

  private:
    struct Listing {
        std::vector<FolderEntry> entries;  ///< by name
        std::error_code error;

        bool Has(const std::string& name) const {
            return std::binary_search(entries.begin(), entries.end(), FolderEntry{name, false});
        }
    };

    std::vector<NamedNcFile> Descend(const std::vector<NamedNcFile>& folders,
                                     const fs::path& segment) {
        std::vector<NamedNcFile> found;
        for (const NamedNcFile& each : folders) {
            const fs::path folder = PathFromUtf8(each.name);
            if (HasWildcard(Utf8Of(segment)))
                AppendFitting(folder, Utf8Of(segment), found);
            else if (IsThere(folder, Utf8Of(segment)))
                found.push_back({Utf8Of(folder / segment), false});
        }
        return found;
    }

    std::string DescribeMiss(const fs::path& folder, const std::string& segment) {
        const std::string where = folder.empty() ? "the job's folder" : Quoted(Utf8Of(folder));
        const Listing& listing = ListFolder(folder);
        if (listing.error)
            return where + " is no folder that can be listed";
        const NamePattern wanted(InSmallLetters(segment));
        for (const auto& [name, isPlain] : listing.entries)
            if (wanted.Fits(InSmallLetters(name)))
                return where + " holds " + Quoted(name) + ", and capitals count";
        // Hidden ones are seldom meant.
        const auto other = std::find_if(
            listing.entries.begin(), listing.entries.end(), [](const FolderEntry& entry) {
                return !entry.name.starts_with('.');
            });
        return where + (other == listing.entries.end()
                            ? " is empty"
                            : " holds other names, such as " + Quoted(other->name));
    }

    void AppendFitting(const fs::path& folder,
                       const std::string& pattern,
                       std::vector<NamedNcFile>& found) {
        const Listing& listing = ListFolder(folder);
        if (listing.error && !IsNoFolder(listing.error))
            m_faults.push_back(TextOf(folder, "cannot be listed", listing.error));
        const NamePattern wanted(pattern);
        const std::string prefix = PrefixOf(folder);
        for (const auto& [name, isPlain] : listing.entries)
            if (wanted.Fits(name))
                found.push_back({prefix + name, isPlain});
    }

    /// Also true for a name that no folder lists, such as "..", and in a folder that cannot be
    /// listed: the file is then looked for by its name alone.
    bool IsThere(const fs::path& folder, const std::string& name) {
        const Listing& listing = ListFolder(folder);
        return listing.error || name.empty() || name == "." || name == ".." || listing.Has(name);
    }

    /// Also a link to nothing: whoever reads it tells. Nothing is left out unseen but folders that
    /// only a pattern without an ending fits.
    bool IsMeant(const fs::path& file, bool isFileMeant) {
        std::error_code error;
        const Kind kind = KindOf(file, error);
        if (kind == Kind::kFolder && isFileMeant)
            m_faults.push_back(TextOf(file, "is a folder, not a file"));
        if (kind == Kind::kOther)
            m_faults.push_back(TextOf(file, "is not a file"));
        if (kind == Kind::kUnknown)
            m_faults.push_back(TextOf(file, "cannot be looked at", error));
        return kind == Kind::kFile || kind == Kind::kLinkToNothing;
    }

    const Listing& ListFolder(const fs::path& folder) {
        const auto [entry, isNew] = m_folders.try_emplace(folder);
        auto& [entries, error] = entry->second;
        if (isNew) {
            entries = EntriesOf(folder.empty() ? fs::path(".") : folder, error);
            std::sort(entries.begin(), entries.end());
            std::error_code ignored;
            if (IsNoFolder(error) && KindOf(folder, ignored) == Kind::kLinkToNothing)
                m_faults.push_back(TextOf(folder, "is a link to nothing"));
        }
        return entry->second;
    }

    std::map<fs::path, Listing> m_folders;
    std::vector<std::string> m_faults;
};

struct NormalFile {
    std::string name;  ///< by which it is told apart
    NamedNcFile file;
};

/// Whether all files are of one folder, whose listing gives them in order and once each.
bool AreOfOneFolder(const std::vector<NcFilePattern>& patterns) {
    return patterns.size() == 1 &&
           !HasWildcard(Utf8Of(PathFromUtf8(patterns.front().text).parent_path()));
}

/// Each once: as the first pattern that it fits names it.
std::vector<NamedNcFile> InOrder(std::vector<std::vector<NamedNcFile>> found) {
    std::vector<NormalFile> files;
    NormalNames names;
    for (std::vector<NamedNcFile>& ofPattern : found)
        for (NamedNcFile& file : ofPattern)
            files.push_back({names.Of(file.name), std::move(file)});
    const auto isBefore = [](const NormalFile& a, const NormalFile& b) { return a.name < b.name; };
    // One pattern gives them in order mostly.
    if (!std::is_sorted(files.begin(), files.end(), isBefore))
        std::stable_sort(files.begin(), files.end(), isBefore);
    const auto end =
        std::unique(files.begin(), files.end(), [](const NormalFile& a, const NormalFile& b) {
            return a.name == b.name;
        });
    std::vector<NamedNcFile> sorted;
    sorted.reserve(files.size());
    for (auto file = files.begin(); file != end; ++file)
        sorted.push_back(std::move(file->file));
    return sorted;
}

}  // namespace

NcFilesResult ExpandNcFiles(const Job& job) {
    const fs::path folder = PathFromUtf8(job.file).parent_path();
    NcFileSearch search;
    std::vector<std::vector<NamedNcFile>> found;  ///< by pattern
    std::vector<JobError> errors;
    for (const NcFilePattern& pattern : job.ncFiles) {
        const fs::path path = PathFromUtf8(pattern.text);
        const fs::path root = path.has_root_path() ? path.root_path() : folder;
        const fs::path below = path.relative_path().lexically_normal();
        found.push_back(search.Find(root, below));
        std::vector<std::string> faults = search.TakeFaults();
        if (found.back().empty() && faults.empty()) {
            const std::string why = search.WhyNone(root, below);
            faults.push_back("no file fits " + Quoted(pattern.text) + ": " +
                             (why.empty() ? AdviseOnFolder(path) : why));
        }
        for (std::string& fault : faults)
            errors.push_back({job.file, pattern.line, pattern.column, std::move(fault)});
    }
    if (!errors.empty())
        return errors;
    return AreOfOneFolder(job.ncFiles) ? std::move(found.front()) : InOrder(std::move(found));
}

}  // namespace job

#include "camjob/input/NcFolderSearch.h"

#include "camjob/console/Paths.h"
#include "job/SystemError.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

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

ZetString ShownReason(const std::error_code& error) {
    return ZetString::fromUtf8(job::ReasonBehind(error));
}

dstv::NcError UnknownFault(const fs::path& path, const std::error_code& error) {
    const ZetString name = ZetString::fromUtf8(Utf8FromPath(path.generic_u8string()));
    const ZetString expected = L"one that can be looked at" + ShownReason(error);
    return {name, 0, 0, L"file", name, expected};
}

/// The files of one folder and those below. Links to folders are not followed: they may go round.
class FolderSearch {
  public:
    explicit FolderSearch(FoundNcFiles& found) : m_found(found) {}

    void Find(const std::string& name) {
        const std::size_t files = m_found.files.size();
        const std::size_t faults = m_found.faults.size();
        List(PathFromUtf8(name));
        std::sort(m_found.files.begin() + static_cast<std::ptrdiff_t>(files), m_found.files.end());
        if (m_found.files.size() == files && m_found.faults.size() == faults)
            Fault(PathFromUtf8(name), L"files in it that end with .nc or .nc1");
    }

  private:
    void List(const fs::path& folder) {
        std::error_code error;
        for (fs::directory_iterator at(folder, error), end; !error && at != end;
             at.increment(error))
            Take(*at);
        if (error)
            Fault(folder, L"one that can be listed" + ShownReason(error));
    }

    void Take(const fs::directory_entry& entry) {
        std::error_code error;
        const fs::file_status status = entry.symlink_status(error);
        std::error_code ignored;
        if (!fs::status_known(status))
            m_found.faults.push_back(UnknownFault(entry.path(), error));
        else if (fs::is_directory(status))
            List(entry.path());
        else if (IsNcFile(entry.path()) && !entry.is_directory(ignored))
            m_found.files.push_back(Utf8FromPath(entry.path().generic_u8string()));
    }

    void Fault(const fs::path& path, ZetString expected) {
        const ZetString name = ZetString::fromUtf8(Utf8FromPath(path.generic_u8string()));
        m_found.faults.push_back({name, 0, 0, L"folder", name, std::move(expected)});
    }

    FoundNcFiles& m_found;
};

}  // namespace

FoundNcFiles FindNcFiles(const std::vector<std::string>& names) {
    FoundNcFiles found;
    for (const std::string& name : names) {
        std::error_code error;
        const fs::file_status status = fs::status(PathFromUtf8(name), error);
        const bool isFolder = fs::is_directory(status);
        if (isFolder)
            FolderSearch(found).Find(name);
        else if (fs::status_known(status))
            found.files.push_back(name);
        else
            found.faults.push_back(UnknownFault(PathFromUtf8(name), error));
        found.folders.resize(found.files.size(), isFolder ? name : "");
    }
    return found;
}

}  // namespace camjob

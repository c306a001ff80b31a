#include "camjob/run/JobRunner.h"
#include "job/FileNames.h"
#include "job/FormatFile.h"
#include "job/Remnants.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <system_error>
#include <utility>

// What the names of the files of an output may be, which must replace no input.

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// Windows finds no folder whose name ends with a slash.
fs::path WithoutSlash(const fs::path& path) {
    return path.has_filename() || path == path.root_path() ? path : path.parent_path();
}

bool IsSameFile(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(WithoutSlash(a), WithoutSlash(b), ignored);
}

/// Whether a file stands in a folder, by its own path or by that of the file that it is a link to.
/// Asks the system once for each folder: a run may have thousands of files.
class InFolder {
  public:
    explicit InFolder(fs::path folder) : m_folder(std::move(folder)) {}

    /// `isPlain`: it is no link, and its name has slashes.
    bool Has(const std::string& file, bool isPlain) {
        if (isPlain)
            return IsFolder(file.substr(0, file.rfind('/') + 1));
        const fs::path path = PathFromUtf8(file);
        std::error_code ignored;
        return IsFolder(Utf8FromPath(path.parent_path())) ||
               (fs::is_symlink(path, ignored) &&
                IsFolder(Utf8FromPath(fs::canonical(path, ignored).parent_path())));
    }

  private:
    bool IsFolder(const std::string& folder) {
        const auto [at, isNew] = m_known.try_emplace(folder);
        if (isNew)
            at->second = IsSameFile(folder.empty() ? "." : PathFromUtf8(folder), m_folder);
        return at->second;
    }

    fs::path m_folder;
    std::map<std::string, bool> m_known;
};

}  // namespace

/// Of all files of an output whose names begin so.
std::vector<fs::path> JobRunner::FileNames(const ZetString& fileName) const {
    std::vector<fs::path> names;
    for (const job::OutputEnding& output : job::OutputEndings(m_job))
        names.push_back(PathFromUtf8((fileName + output.ending).toUtf8()));
    return names;
}

/// An output must not take the place of what it is made from, whatever name that goes by: letters
/// in another case and links lead to the same file.
std::vector<std::string> JobRunner::InputsReplacedBy(const ZetString& fileName) const {
    std::vector<fs::path> outputs;
    for (const fs::path& name : FileNames(fileName))
        outputs.push_back(PathFromUtf8(OutputName(name)));
    std::vector<std::string> replaced;
    std::vector<InFolder> folders = {InFolder(PathFromUtf8(m_report.folder))};
    if (m_ncOutput)
        for (const std::string& name : m_ncOutput->GetNames())
            outputs.push_back(PathFromUtf8(NameIn(m_report.folder, name)));
    for (const job::OutputFile& file : m_job.files)
        if (file.nc)
            folders.emplace_back(PathFromUtf8(NameIn(m_report.folder, file.nc->folder)));
    const auto check = [&](const std::string& input, bool isPlain) {
        const bool isBesideOutput =
            std::any_of(folders.begin(), folders.end(), [&](InFolder& folder) {
                return folder.Has(input, isPlain);
            });
        const auto isInput = [&](const fs::path& output) {
            return IsSameFile(PathFromUtf8(input), output);
        };
        if (isBesideOutput && std::any_of(outputs.begin(), outputs.end(), isInput))
            replaced.push_back(input);
    };
    check(m_options.job, false);
    for (const job::NamedNcFile& file : m_ncFiles)
        check(file.name, file.isPlain);
    if (const fs::path remnants = job::GetRemnantFile(m_job); !remnants.empty())
        check(Utf8FromPath(remnants), false);
    for (const job::MachineFormat& format : m_job.formats)
        if (const fs::path file = job::GetFormatFile(m_job, format); !file.empty())
            check(Utf8FromPath(file), false);
    return replaced;
}

/// What is wrong with what the names of all output files begin with; "" for nothing.
std::string JobRunner::FindNameFault(const ZetString& fileName) const {
    if (std::string fault = job::FaultOfFileNameStart(fileName); !fault.empty())
        return fault;
    const std::wstring kept[] = {job::SmallLetters(m_job.project.settingsFile),
                                 job::SmallLetters(job::SettingsOriginFile(m_job.project))};
    for (const job::OutputEnding& output : job::OutputEndings(m_job)) {
        const ZetString name = fileName + output.ending;
        if (std::string fault = job::FaultOfFileName(name); !fault.empty())
            return name.toUtf8() + ": " + fault;
        if (std::count(std::begin(kept), std::end(kept), job::SmallLetters(name)) > 0)
            return name.toUtf8() + ": the settings are kept in a file of this name";
    }
    const std::vector<std::string> replaced = InputsReplacedBy(fileName);
    return replaced.empty() ? "" : "the output would replace " + replaced.front();
}

}  // namespace camjob

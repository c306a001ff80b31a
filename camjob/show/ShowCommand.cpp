#include "camjob/show/ShowCommand.h"

#include "camjob/check/CheckInput.h"
#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ShownText.h"
#include "camjob/disk/RevocableFiles.h"
#include "camjob/input/NcFolderSearch.h"
#include "camjob/show/PartDrawing.h"
#include "job/FileNames.h"
#include "job/SystemError.h"
#include "report/drawing/DxfDrawing.h"
#include "report/drawing/SvgDrawing.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <variant>

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// Of the file that a name leads to, without folder, in small letters.
std::wstring RealName(const fs::path& path) {
    std::error_code ignored;
    const std::string name = Utf8FromPath(fs::canonical(path, ignored).filename());
    return job::SmallLetters(ZetString::fromUtf8(name));
}

/// Of a file without its ending, with the folders below the given one that it was found in.
std::string NameBelow(const FoundNcFiles& found, std::size_t index) {
    const fs::path file = PathFromUtf8(found.files[index]);
    const std::string& folder = found.folders[index];
    const fs::path below =
        folder.empty() ? file.filename() : file.lexically_relative(PathFromUtf8(folder));
    return Utf8FromPath((below.parent_path() / below.stem()).generic_u8string());
}

/// Without a job the machine has none.
void DropCodes(report::MemberDrawing& drawing) {
    for (report::DrawnFeature& feature : drawing.features)
        feature.code.clear();
}

class Shower {
  public:
    Shower(const ShowOptions& options, OutputStream& out, OutputStream& err)
        : m_options(options), m_out(out), m_err(err) {}

    int Run();

  private:
    void FindFiles();
    bool FindTargets();
    bool IsFile() const;
    bool HasClash();
    bool WouldReplaceInput(const std::string& target);
    bool Refuse(const std::string& message);
    int DrawAll(const plugin::JudgingRules& rules);
    int DrawFile(std::size_t index, const CheckRules& rules);
    std::string DrawingText(const report::MemberDrawing& drawing) const {
        return m_options.asDxf ? report::DxfOf(drawing) : report::SvgOf(drawing);
    }
    int WriteDrawing(const std::string& target, const std::string& text);

    const ShowOptions& m_options;
    OutputStream& m_out;
    OutputStream& m_err;
    FoundNcFiles m_found;
    int m_code = kExitDone;
    std::vector<std::string> m_targets;  ///< by file; "": the standard output
    /// By their real names; filled when a target is there already.
    std::unordered_multimap<std::wstring, fs::path> m_fileOfName;
};

int Shower::Run() {
    const std::optional<job::Job> job = ReadRules(m_options.job, m_err);
    if (!job)
        return kExitBadInput;
    FindFiles();
    if (m_found.files.empty() || !FindTargets())
        return kExitBadInput;
    plugin::UseTolerances(job->tolerances);
    return DrawAll(plugin::JudgingRules(*job));
}

int Shower::DrawAll(const plugin::JudgingRules& rules) {
    for (std::size_t i = 0; i < m_found.files.size() && m_code != kExitNotWritten; ++i)
        m_code = std::max(m_code, DrawFile(i, {rules, !m_options.job.empty()}));
    return m_code;
}

/// Folders and files can name the same file.
void KeepEachOnce(FoundNcFiles& found) {
    std::set<fs::path> places;
    FoundNcFiles once;
    once.faults = std::move(found.faults);
    for (std::size_t i = 0; i < found.files.size(); ++i)
        if (places.insert(PlaceOf(PathFromUtf8(found.files[i]))).second) {
            once.files.push_back(std::move(found.files[i]));
            once.folders.push_back(std::move(found.folders[i]));
        }
    found = std::move(once);
}

void Shower::FindFiles() {
    m_found = FindNcFiles(m_options.files);
    KeepEachOnce(m_found);
    for (const dstv::NcError& fault : m_found.faults) {
        WriteError(fault, m_err);
        m_code = kExitBadInput;
    }
}

/// A name that ends like a drawing is one, unless it is a folder or there are several drawings.
bool Shower::IsFile() const {
    const fs::path out = PathFromUtf8(m_options.out);
    std::error_code ignored;
    return m_found.files.size() == 1 && !fs::is_directory(out, ignored) &&
           (out.extension() == ".svg" || out.extension() == ".dxf");
}

bool Shower::FindTargets() {
    if (m_options.out.empty()) {
        m_targets = {""};
        return m_found.files.size() == 1 || Refuse("several drawings need a folder: say --out DIR");
    }
    const char* ending = m_options.asDxf ? ".dxf" : ".svg";
    if (IsFile()) {
        m_targets = {m_options.out};
        const bool fits = PathFromUtf8(m_options.out).extension() == ending;
        return (fits || Refuse(m_options.out + ": the drawing's name must end in " + ending +
                               (m_options.asDxf ? "" : ", or say --dxf"))) &&
               !HasClash();
    }
    for (std::size_t i = 0; i < m_found.files.size(); ++i)
        m_targets.push_back(NameIn(m_options.out, NameBelow(m_found, i) + ending));
    return !HasClash();
}

/// Of two drawings with one name, or of one with an NC file.
bool Shower::HasClash() {
    std::map<std::string, std::string> fileOfTarget;
    for (std::size_t i = 0; i < m_targets.size(); ++i) {
        const auto [at, isNew] = fileOfTarget.insert({m_targets[i], m_found.files[i]});
        if (!isNew)
            return !Refuse(at->second + " and " + m_found.files[i] + " would both become " +
                           m_targets[i]);
        if (WouldReplaceInput(m_targets[i]))
            return !Refuse("the drawing would replace " + m_targets[i]);
    }
    return false;
}

/// Under whatever name the NC file goes: letters in another case and links lead to the same file.
bool Shower::WouldReplaceInput(const std::string& target) {
    const fs::path path = PathFromUtf8(target);
    std::error_code ignored;
    if (!fs::exists(path, ignored))
        return false;
    if (m_fileOfName.empty())
        for (const std::string& file : m_found.files)
            m_fileOfName.insert({RealName(PathFromUtf8(file)), PathFromUtf8(file)});
    const auto [begin, end] = m_fileOfName.equal_range(RealName(path));
    return std::any_of(
        begin, end, [&](const auto& row) { return fs::equivalent(row.second, path, ignored); });
}

bool Shower::Refuse(const std::string& message) {
    m_err.Write("camjob: " + message + "\n");
    return false;
}

int Shower::DrawFile(std::size_t index, const CheckRules& rules) {
    auto entity = ReadEntity(m_found.files[index], rules.rules.GetJob());
    CheckResult result = dstv::NcError();
    if (auto* read = std::get_if<dstv::NcFileEntity>(&entity))
        result = MakeCheckReport(*read, rules);
    else
        result = std::get<dstv::NcError>(std::move(entity));
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        WriteError(*error, m_err);
        return kExitBadInput;
    }
    const auto& checked = std::get<CheckReport>(result);
    report::MemberDrawing drawing = DrawingOf(std::get<dstv::NcFileEntity>(entity), checked);
    if (!rules.isJob)
        DropCodes(drawing);
    const int code = WriteDrawing(m_targets[index], DrawingText(drawing));
    return std::max<int>(code, checked.HasErrors() ? kExitInvalidMembers : kExitDone);
}

int Shower::WriteDrawing(const std::string& target, const std::string& text) {
    if (target.empty()) {
        m_out.Write(text);
        return kExitDone;
    }
    RevocableFiles files;
    if (const std::error_code error = files.Write(PathFromUtf8(target), text)) {
        m_err.Write("camjob: " + target + " could not be written" + job::ReasonBehind(error) +
                    "\n");
        return kExitNotWritten;
    }
    files.Keep();
    WriteLine(m_out, ZetString::fromUtf8(target));
    return kExitDone;
}

}  // namespace

int RunShow(const ShowOptions& options, OutputStream& out, OutputStream& err) {
    return Shower(options, out, err).Run();
}

}  // namespace camjob

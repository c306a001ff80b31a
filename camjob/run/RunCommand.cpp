#include "camjob/run/RunCommand.h"

#include "camjob/console/OneLineStream.h"
#include "camjob/console/Paths.h"
#include "camjob/console/Progress.h"
#include "camjob/console/ReportText.h"
#include "camjob/disk/FileStream.h"
#include "camjob/disk/RevocableFiles.h"
#include "camjob/disk/StagedOutput.h"
#include "camjob/project/ProjectDialog.h"
#include "camjob/project/ProjectSettings.h"
#include "camjob/run/JobInput.h"
#include "camjob/run/ReportPage.h"
#include "camjob/run/RunComparison.h"
#include "camjob/run/RunJson.h"
#include "camjob/run/RunReport.h"
#include "camjob/run/RunText.h"
#include "job/FileNames.h"
#include "job/FormatFile.h"
#include "job/JobFile.h"
#include "job/Remnants.h"
#include "job/SystemError.h"
#include "threads/OrderedWork.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <new>
#include <optional>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

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

/// Of a run that the memory was not enough for; what it found is let go of.
RunReport ReportWithoutMemory(const RunOptions& options, bool hasBegun) {
    RunReport report;
    report.job = options.job;
    report.folder = options.folder;
    report.status = hasBegun ? RunStatus::kFailed : RunStatus::kRefused;
    report.faults.push_back({"", 0, 0, "camjob: out of memory"});
    return report;
}

/// One run, step by step. A step that finds the run at its end says so in the report and returns
/// false.
class JobRunner {
  public:
    JobRunner(const RunOptions& options, const RunSystem& system, OutputStream& err)
        : m_options(options), m_system(system), m_progress(err) {
        m_report.job = options.job;
    }

    RunReport Run();

  private:
    bool ReadJob();
    bool RefuseFolder();
    void RunInFolder();
    bool PrepareProject(plugin::JobRun& run);
    bool ShowDialog(plugin::JobRun& run,
                    ProjectSettings& settings,
                    const std::vector<std::string>& faults);
    bool ReadInput(plugin::JobRun& run);
    bool ReadFiles(JobInput& input);
    void TakeLeftOut(JobInput& input, plugin::JobRun& run);
    std::vector<std::string> InputsReplacedBy(const ZetString& fileName) const;
    std::string FindNameFault(const ZetString& fileName) const;
    bool Write(plugin::JobRun& run, const StagedOutput& output);
    void TakeMembers(plugin::JobRun& run);
    bool AddsUp();
    void TakeResults(plugin::JobRun& run, const fs::path& staging);
    std::vector<fs::path> FileNames(const ZetString& fileName) const;
    bool WriteNcFiles(const fs::path& staging);
    bool Compare(plugin::JobRun& run);
    bool WriteReports(plugin::JobRun& run, const fs::path& staging);
    bool WriteReport(const fs::path& staged, const std::function<void(OutputStream&)>& write);

    std::string OutputName(const fs::path& file) const {
        return NameIn(m_report.folder, Utf8FromPath(file));
    }
    static std::optional<std::uintmax_t> SizeOf(const fs::path& file, const std::string& name);
    std::string TextOf(const FileFault& fault) const;
    /// About the input.
    void NoteUnprinted(const std::string& file, const plugin::MemberResult& member);
    void Complain(const std::string& file, const std::string& text);
    void Complain(const job::JobError& error);
    bool Refuse(const std::vector<job::JobError>& errors);
    bool Refuse();
    bool Cancel();
    /// By a fault of the program.
    void FailByFault(const std::string& message);
    void Fail(const std::string& message);

    const RunOptions& m_options;
    const RunSystem& m_system;
    Progress m_progress;
    RunReport m_report;
    bool m_hasBegun = false;  ///< to make the output
    job::Job m_job;
    std::vector<job::NamedNcFile> m_ncFiles;
    std::vector<MemberFile> m_memberFiles;
    std::vector<FeatureAccounts> m_memberAccounts;
    std::optional<NcFiles> m_ncOutput;
};

RunReport JobRunner::Run() {
    try {
        if (!ReadJob())
            return std::move(m_report);
        m_report.folder =
            m_options.folder.empty() ? Utf8FromPath(job::GetOutputFolder(m_job)) : m_options.folder;
        if (!RefuseFolder())
            RunInFolder();
    } catch (const OutputFailure& failure) {
        Fail(failure.what());
        m_report.DropResults();
    } catch (const std::bad_alloc&) {
        m_report = ReportWithoutMemory(m_options, m_hasBegun);
    }
    m_progress.Erase();
    return std::move(m_report);
}

bool JobRunner::ReadJob() {
    job::JobResult job = job::ReadJobFile(PathFromUtf8(m_options.job));
    if (const auto* errors = std::get_if<std::vector<job::JobError>>(&job))
        return Refuse(*errors);
    m_job = std::get<job::Job>(std::move(job));
    m_report.name = m_job.name;
    job::NcFilesResult files = job::ExpandNcFiles(m_job);
    if (const auto* errors = std::get_if<std::vector<job::JobError>>(&files))
        return Refuse(*errors);
    m_ncFiles = std::get<std::vector<job::NamedNcFile>>(std::move(files));
    return true;
}

/// True when the output cannot go to its folder.
bool JobRunner::RefuseFolder() {
    const std::string fault = m_system.faultOfFolder ? m_system.faultOfFolder(m_report.folder) : "";
    if (fault.empty())
        return false;
    Complain(m_options.job, fault);
    return !Refuse();
}

void JobRunner::RunInFolder() {
    const fs::path folder = PathFromUtf8(m_report.folder);
    StagedOutput output(folder, m_system.disk);
    m_report.hasFinishedEarlierOutput = output.Recover();
    plugin::JobRun run(m_job, folder);
    run.SetPlanner(m_system.planLeast);
    run.SetThreads(m_options.threads);
    if (!PrepareProject(run) || !ReadInput(run))
        return;
    m_hasBegun = true;
    output.Begin();
    if (!Write(run, output))
        return;
    TakeMembers(run);
    if (!AddsUp())
        return m_report.DropResults();
    const fs::path& staging = output.GetStagingFolder();
    TakeResults(run, staging);
    if (WriteNcFiles(staging) && Compare(run) && WriteReports(run, staging))
        output.Commit();
    else
        m_report.DropResults();
}

/// The project information of the job, of earlier dialogs, and of the user.
bool JobRunner::PrepareProject(plugin::JobRun& run) {
    CProjectInformation& project = run.GetProjectInfo();
    m_report.settingsFile = NameIn(m_report.folder, m_job.project.settingsFile.toUtf8());
    ProjectSettings settings(m_job, project);
    const bool isUsed =
        m_job.project.settings == job::SettingsUse::kUse && !m_options.ignoresSettings;
    const std::vector<std::string> faults = isUsed ? settings.Read() : std::vector<std::string>();
    if (m_options.showsDialog && !ShowDialog(run, settings, faults))
        return false;
    if (!m_options.showsDialog)
        for (const std::string& fault : faults)
            Complain(m_report.settingsFile,
                     fault +
                         "; correct it with --dialog, or go by the job alone with "
                         "--ignore-settings");
    SetTexts(project, settings.GetTexts());
    m_report.settings = settings.GetTaken();
    return true;
}

/// Faults of the settings lock nobody out: the dialog opens without what is at fault. It writes the
/// settings file as soon as the user confirms it, so its folder has to be there before.
bool JobRunner::ShowDialog(plugin::JobRun& run,
                           ProjectSettings& settings,
                           const std::vector<std::string>& faults) {
    RevocableFiles folders;
    if (const std::error_code error = folders.MakeFolder(PathFromUtf8(m_report.folder)))
        throw OutputFailure(m_report.folder + ": the folder cannot be made" +
                            job::ReasonBehind(error));
    std::vector<std::string> notices;
    for (const std::string& fault : faults)
        notices.push_back(m_report.settingsFile + ": " + fault +
                          ". The job's own values are shown instead; OK saves them.");
    const auto findNameFault = [&](const ZetString& name) { return FindNameFault(name); };
    ProjectDialog dialog(m_job, settings, findNameFault, std::move(notices));
    const DialogResult result = dialog.Show(run.GetProjectInfo());
    if (!dialog.GetFault().empty())
        Fail(dialog.GetFault());
    else if (result.outcome == DialogOutcome::kCancelled)
        m_report.status = RunStatus::kDeclined;
    else if (result.outcome == DialogOutcome::kNotShown) {
        Complain("", "camjob: the dialog cannot be shown: " + result.reason.toUtf8());
        Refuse();
    } else
        folders.Keep();
    return m_report.status == RunStatus::kDone;
}

bool JobRunner::ReadInput(plugin::JobRun& run) {
    const bool isTold = m_options.asJson || m_job.reports.hasPage || m_job.reports.hasRunDocument ||
                        !m_options.against.empty();
    run.SetRecordsKept(isTold);
    JobInput input(m_job, run, isTold ? &m_report.drawings : nullptr);
    if (!ReadFiles(input))
        return false;
    input.Finish();
    m_report.input = input.GetCounts();
    m_memberFiles = input.TakeMemberFiles();
    m_memberAccounts = input.TakeMemberAccounts();
    m_ncOutput.emplace(input.TakeNcFiles());
    m_report.notes = input.TakeNotes();
    m_report.unmadeFiles = input.TakeUnmadeFiles();
    for (RunFault& fault : input.TakeFaults())
        m_report.faults.push_back(std::move(fault));
    TakeLeftOut(input, run);
    for (const ZetString& conflict : run.FindPlanConflicts())
        Complain(m_options.job, conflict.toUtf8());
    for (const std::string& replaced : InputsReplacedBy(run.GetProjectInfo().GetFileName()))
        Complain(replaced, "the output would replace this file");
    return m_report.faults.empty() || Refuse();
}

void JobRunner::TakeLeftOut(JobInput& input, plugin::JobRun& run) {
    m_report.leftOut = input.TakeLeftOut();
    std::vector<ZetString> lines;
    for (const RunFault& file : m_report.leftOut)
        lines.push_back(OneLine(ZetString::fromUtf8(file.message)));
    for (const RunUnmadeFile& file : m_report.unmadeFiles)
        lines.push_back(OneLine(
            ZetString::format(L"%s: part %s is not made, nor are its features: %d",
                              ZetString::fromUtf8(NameFromFolderOf(m_options.job, file.file)),
                              file.mark,
                              file.accounts[plugin::Account::kNotMade])));
    run.SetLeftOut(std::move(lines));
}

bool JobRunner::ReadFiles(JobInput& input) {
    m_progress.Begin("reading", static_cast<long>(m_ncFiles.size()), "files");
    threads::ResultsInOrder<ReadPart> parts(
        m_ncFiles.size(), m_options.threads, [&](std::size_t i) {
            return input.Read(PathFromUtf8(m_ncFiles[i].name));
        });
    for (const job::NamedNcFile& file : m_ncFiles) {
        if (m_system.isCancelled())
            return Cancel();
        m_progress.Step(file.name);
        input.Take(parts.Next());
    }
    return true;
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

/// The file was still in the staging folder.
std::string JobRunner::TextOf(const FileFault& fault) const {
    const fs::path staged = PathFromUtf8(fault.fileName.toUtf8());
    return NameIn(m_report.folder, Utf8FromPath(staged.filename())) + ": cannot be written" +
           job::ReasonBehind(fault.systemError);
}

bool JobRunner::Write(plugin::JobRun& run, const StagedOutput& output) {
    m_progress.Begin("writing", run.GetCount(), "members");
    const bool isWritten = run.Write(output.GetStagingFolder(), [&] {
        m_progress.Step({});
        return m_system.isCancelled();
    });
    if (!isWritten || m_system.isCancelled())
        return Cancel();
    for (const auto& [file, text] : run.GetFormatConflicts()) {
        const job::OutputFile& at = m_job.files[file];
        Complain(job::JobError{m_options.job, at.formatLine, at.formatColumn, text.toUtf8()});
        Refuse();
    }
    for (const FileFault& fault : run.GetFileFaults())
        Fail(TextOf(fault));
    for (const ZetString& fault : run.GetPlanFaults())
        FailByFault("a cutting plan is wrong: " + fault.toUtf8());
    return m_report.status == RunStatus::kDone;
}

void JobRunner::TakeMembers(plugin::JobRun& run) {
    std::vector<plugin::MemberResult> members = run.TakeMemberResults();
    for (std::size_t i = 0; i < members.size(); ++i) {
        for (plugin::FeatureNote& note : members[i].notes) {
            ++m_report.input.notes;
            m_report.notes.push_back({
                m_memberFiles[i].name,
                {dstv::NcNote::Severity::kNote, note.feature.tag, std::move(note.text)}
            });
        }
        NoteUnprinted(m_memberFiles[i].name, members[i]);
        m_report.members.push_back({std::move(members[i]),
                                    std::move(m_memberFiles[i]),
                                    m_memberAccounts[i].numbers,
                                    std::move(m_memberAccounts[i].features)});
    }
}

/// A feature that is not made never vanishes: where the job leaves the finding unprinted, a note
/// tells it.
void JobRunner::NoteUnprinted(const std::string& file, const plugin::MemberResult& member) {
    for (const plugin::Finding& finding : member.findings) {
        const bool isUnmade = finding.isRefusal || finding.isSetAside;
        if (!isUnmade || finding.IsPrinted() || !finding.feature)
            continue;
        const ZetString name = ZetString::fromUtf8(job::kFindingTypes[finding.type].name);
        m_report.notes.push_back({
            file,
            {dstv::NcNote::Severity::kNote,
              finding.feature->tag,
              ZetString::format(L"not made, unreported %s: %s", name, finding.text)}
        });
        ++m_report.input.notes;
    }
}

/// Each feature of a member that is made has ended in an account.
bool JobRunner::AddsUp() {
    for (std::size_t i = 0; i < m_report.members.size(); ++i) {
        const RunMember& member = m_report.members[i];
        if (!member.result.IsMade())
            continue;
        for (const LostFeature& lost : m_memberAccounts[i].lost)
            m_report.faults.push_back(
                {member.file.name,
                 lost.line,
                 0,
                 member.file.name + ":" + std::to_string(lost.line) + ": " + lost.text.toUtf8()});
    }
    if (!m_report.faults.empty())
        m_report.status = RunStatus::kFault;
    return m_report.faults.empty();
}

/// Of a file that tells of the others.
fs::path NameOf(plugin::JobRun& run, const wchar_t* ending) {
    return PathFromUtf8((run.GetProjectInfo().GetFileName() + ending).toUtf8());
}

/// Of all files of an output whose names begin so.
std::vector<fs::path> JobRunner::FileNames(const ZetString& fileName) const {
    std::vector<fs::path> names;
    for (const job::OutputEnding& output : job::OutputEndings(m_job))
        names.push_back(PathFromUtf8((fileName + output.ending).toUtf8()));
    return names;
}

void JobRunner::TakeResults(plugin::JobRun& run, const fs::path& staging) {
    for (const plugin::GroupResult& group : run.GetGroupResults())
        m_report.groups.push_back({m_job.groups[group.group].id, group});
    m_report.profiles = run.GetProfileResults();
    for (const plugin::ProfilePlan& plan : run.GetPlans())
        m_report.plans.push_back({m_job.groups[plan.group].id, plan});
    for (const fs::path& name : FileNames(run.GetProjectInfo().GetFileName())) {
        m_report.files.push_back({OutputName(name), SizeOf(staging / name, OutputName(name))});
    }
}

/// Nothing for a file that there is none of.
std::optional<std::uintmax_t> JobRunner::SizeOf(const fs::path& file, const std::string& name) {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(file, error);
    if (!error)
        return bytes;
    if (error != std::errc::no_such_file_or_directory)
        throw OutputFailure(name + ": its size is not known" + job::ReasonBehind(error));
    return std::nullopt;
}

bool JobRunner::WriteNcFiles(const fs::path& staging) {
    std::vector<RunFile> files;
    const bool areWritten = m_ncOutput->Write(m_report.members, staging, files);
    for (RunFile& file : files) {
        file.name = NameIn(m_report.folder, file.name);
        file.folder = file.name.substr(0, file.name.rfind('/'));
        m_report.files.push_back(std::move(file));
    }
    if (!areWritten)
        Fail(m_report.files.back().name + ": cannot be written");
    return areWritten;
}

/// With the output that the user names, else with the one that is replaced, when there is one. When
/// it is the same as that, what had changed before is told again.
bool JobRunner::Compare(plugin::JobRun& run) {
    const bool isAsked = !m_options.against.empty();
    const std::string older =
        isAsked ? m_options.against : OutputName(NameOf(run, job::kRunDocumentEnding));
    std::error_code ignored;
    const bool isTold = m_report.drawings.GetCount() == m_report.members.size();
    const fs::file_type found = fs::status(PathFromUtf8(older), ignored).type();
    if (!isTold || (!isAsked && found == fs::file_type::not_found))
        return true;
    auto compared = ChangesSince(older, ToCompare(m_report));
    if (const auto* none = std::get_if<NoOutput>(&compared)) {
        if (isAsked)
            Complain("", "camjob: " + none->message);
        m_report.uncompared = none->message;
        return !isAsked || Refuse();
    }
    auto& comparison = std::get<Comparison>(compared);
    m_report.repeatsChanges = !isAsked && comparison.IsSame();
    if (m_report.repeatsChanges)
        m_report.changes = std::move(comparison.ofOlder);
    else
        m_report.changes = std::move(comparison.changes);
    return true;
}

/// The document before the page: it tells neither its own size nor that of the page, which has the
/// date.
bool JobRunner::WriteReports(plugin::JobRun& run, const fs::path& staging) {
    const auto writeDocument = [&](OutputStream& out) {
        RunJsonWriter(RunJsonWriter::Form::kDocument, out, m_options.threads).Write(m_report);
    };
    const auto writePage = [&](OutputStream& out) {
        out.Write(MakeReportPage(m_report, m_job, run.GetProjectInfo()));
    };
    return (!m_job.reports.hasRunDocument ||
            WriteReport(staging / NameOf(run, job::kRunDocumentEnding), writeDocument)) &&
           (!m_job.reports.hasPage ||
            WriteReport(staging / NameOf(run, job::kPageEnding), writePage));
}

bool JobRunner::WriteReport(const fs::path& staged,
                            const std::function<void(OutputStream&)>& write) {
    FileStream stream(staged);
    write(stream);
    const std::string name = NameIn(m_report.folder, Utf8FromPath(staged.filename()));
    if (!stream.Close()) {
        Fail(name + ": cannot be written");
        return false;
    }
    for (RunFile& file : m_report.files)
        if (file.name == name)
            file.bytes = SizeOf(staged, name);
    return true;
}

void JobRunner::Complain(const std::string& file, const std::string& text) {
    m_report.faults.push_back({file, 0, 0, file.empty() ? text : file + ": " + text});
}

void JobRunner::Complain(const job::JobError& error) {
    m_report.faults.push_back({error.file, error.line, error.column, job::DescribeJobError(error)});
}

bool JobRunner::Refuse(const std::vector<job::JobError>& errors) {
    for (const job::JobError& error : errors)
        Complain(error);
    return Refuse();
}

bool JobRunner::Refuse() {
    m_report.status = RunStatus::kRefused;
    return false;
}

bool JobRunner::Cancel() {
    m_report.status = RunStatus::kCancelled;
    return false;
}

void JobRunner::FailByFault(const std::string& message) {
    m_report.status = RunStatus::kFault;
    m_report.faults.push_back({"", 0, 0, message});
}

void JobRunner::Fail(const std::string& message) {
    m_report.status = RunStatus::kFailed;
    m_report.faults.push_back({"", 0, 0, message});
}

/// The document on its way to the screen, for its end when the memory fails.
RunJsonWriter* s_unfinished = nullptr;
bool s_isOnOneLine = false;

class Unfinished {
  public:
    Unfinished(RunJsonWriter& writer, bool isOnOneLine) {
        s_unfinished = &writer;
        s_isOnOneLine = isOnOneLine;
    }
    ~Unfinished() { s_unfinished = nullptr; }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
};

/// Calls `write` with the stream that a document goes to.
template <typename Write>
void WriteDocument(bool isOnOneLine, OutputStream& out, Write write) {
    if (!isOnOneLine)
        return write(out);
    OneLineStream line(out);
    write(line);
    line.End();
}

void ReportAsJson(RunReport& report, const RunOptions& options, OutputStream& out) {
    RunJsonWriter json(RunJsonWriter::Form::kScreen, out, options.threads);
    const Unfinished unfinished(json, options.asLine);
    WriteDocument(options.asLine, out, [&](OutputStream& to) {
        json.GoOnIn(to);
        try {
            json.Write(report);
        } catch (const std::bad_alloc&) {
            // The output is there, but not the memory to tell of it.
            report = ReportWithoutMemory(options, true);
            json.Write(report);
        }
    });
}

void ReportAsText(RunReport& report,
                  const RunOptions& options,
                  OutputStream& out,
                  OutputStream& err) {
    try {
        WriteRunText(report, options.showsNotes, out, err);
    } catch (const std::bad_alloc&) {
        report = ReportWithoutMemory(options, true);
        WriteRunText(report, options.showsNotes, out, err);
    }
}

}  // namespace

RunReport RunAndReport(const RunOptions& options,
                       const RunSystem& system,
                       OutputStream& out,
                       OutputStream& err) {
    RunReport report = JobRunner(options, system, err).Run();
    if (options.asJson)
        ReportAsJson(report, options, out);
    else
        ReportAsText(report, options, out, err);
    return report;
}

int RunJob(const RunOptions& options,
           const RunSystem& system,
           OutputStream& out,
           OutputStream& err) {
    return RunAndReport(options, system, out, err).GetExitCode();
}

void WriteRunWithoutMemory(bool isBegun, OutputStream& out) {
    const RunReport report = ReportWithoutMemory({}, true);
    if (!isBegun) {
        RunJsonWriter(RunJsonWriter::Form::kScreen, out).Write(report);
    } else if (s_unfinished != nullptr) {
        WriteDocument(s_isOnOneLine, out, [&](OutputStream& to) {
            s_unfinished->GoOnIn(to);
            s_unfinished->Write(report);
        });
    }
}

}  // namespace camjob

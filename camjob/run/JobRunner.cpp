#include "camjob/run/JobRunner.h"

#include "camjob/console/ReportText.h"
#include "camjob/disk/RevocableFiles.h"
#include "camjob/project/ProjectDialog.h"
#include "job/SystemError.h"
#include "threads/OrderedWork.h"

#include <memory>
#include <new>
#include <system_error>
#include <utility>
#include <variant>

namespace camjob {

namespace fs = std::filesystem;

RunReport ReportWithoutMemory(const RunOptions& options, bool hasBegun) {
    RunReport report;
    report.job = options.job;
    report.folder = options.folder;
    report.status = hasBegun ? RunStatus::kFailed : RunStatus::kRefused;
    report.faults.push_back({"", 0, 0, "camjob: out of memory"});
    return report;
}

RunReport& JobRunner::Run() {
    try {
        if (!ReadJob())
            return m_report;
        m_report.folder =
            m_options.folder.empty() ? Utf8FromPath(job::GetOutputFolder(m_job)) : m_options.folder;
        if (!RefuseFolder())
            RunInFolder();
    } catch (const OutputFailure& failure) {
        Fail(failure.what());
        m_report.DropResults();
    } catch (const std::bad_alloc&) {
        m_run.reset();
        m_report = ReportWithoutMemory(m_options, m_hasBegun);
    }
    m_progress.Erase();
    return m_report;
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
    m_run = std::make_unique<plugin::JobRun>(m_job, folder);
    plugin::JobRun& run = *m_run;
    run.SetPlanner([this](const auto& demand, const auto& stocks, const cutting::Effort& effort) {
        return m_system.planLeast(demand, stocks, effort.Until(m_system.isCancelled));
    });
    run.SetThreads(m_options.threads);
    if (!PrepareProject(run) || !ReadInput(run))
        return;
    m_hasBegun = true;
    std::vector<job::NamedNcFile>().swap(m_ncFiles);  // what follows takes much memory
    output.Begin();
    if (!Write(run, output))
        return m_report.DropResults();
    NoteMembers();
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
    JobInput input(m_job, run, m_ncFiles.size(), isTold ? &m_report.drawings : nullptr);
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
            return input.Read(m_ncFiles[i].name);
        });
    for (const job::NamedNcFile& file : m_ncFiles) {
        if (m_system.isCancelled())
            return Cancel();
        m_progress.Step(file.name);
        input.Take(parts.Next());
    }
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

}  // namespace camjob

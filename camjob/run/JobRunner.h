#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/console/Paths.h"
#include "camjob/console/Progress.h"
#include "camjob/disk/StagedOutput.h"
#include "camjob/project/ProjectSettings.h"
#include "camjob/run/JobInput.h"
#include "camjob/run/MemberJson.h"
#include "camjob/run/RunCommand.h"
#include "camjob/run/RunReport.h"
#include "job/Job.h"
#include "job/JobFile.h"
#include "plugin/output/JobRun.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace camjob {

/// Of a run that the memory was not enough for; what it found is let go of.
RunReport ReportWithoutMemory(const RunOptions& options, bool hasBegun);

/// One run, step by step. A step that finds the run at its end says so in the report and returns
/// false.
///
/// Its steps are in JobRunner.cpp, those behind the reading in JobRunnerOutput.cpp; OutputNames.cpp
/// has what the names of its files may be.
class JobRunner {
  public:
    JobRunner(const RunOptions& options, const RunSystem& system, OutputStream& err)
        : m_options(options), m_system(system), m_progress(err) {
        m_report.job = options.job;
    }

    /// Once. What is reported is the runner's, until it is moved away.
    RunReport& Run();

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
    bool Write(plugin::JobRun& run, StagedOutput& output);
    void TakeMembers(plugin::JobRun& run);
    void TakeSums(const plugin::JobRun& run);
    /// By position.
    void TakeShare(plugin::JobRun& run, std::size_t begin, std::size_t end);
    bool AddsUp();
    void TakeResults(plugin::JobRun& run, const std::filesystem::path& staging);
    std::vector<std::filesystem::path> FileNames(const ZetString& fileName) const;
    bool WriteNcFiles(const std::filesystem::path& staging);
    bool Compare(plugin::JobRun& run);
    bool WriteReports(plugin::JobRun& run, const std::filesystem::path& staging);
    bool WriteReport(const std::filesystem::path& staged,
                     const std::function<void(OutputStream&)>& write);

    std::string OutputName(const std::filesystem::path& file) const {
        return NameIn(m_report.folder, Utf8FromPath(file));
    }
    static std::optional<std::uintmax_t> SizeOf(const std::filesystem::path& file,
                                                const std::string& name);
    std::string TextOf(const FileFault& fault) const;
    /// About the input.
    void NoteMembers();
    void NoteUnprinted(const RunMember& member);
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
    std::unique_ptr<plugin::JobRun> m_run;
    std::vector<job::NamedNcFile> m_ncFiles;
    std::vector<MemberFile> m_memberFiles;
    std::vector<FeatureAccounts> m_memberAccounts;
    std::optional<NcFiles> m_ncOutput;
    MadeMembers m_madeMembers;
};

}  // namespace camjob

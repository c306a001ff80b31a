#include "camjob/run/SeveralJobs.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ReportJson.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/ShownText.h"
#include "camjob/console/TextTable.h"
#include "camjob/run/MemberJson.h"
#include "camjob/run/RunJson.h"
#include "camjob/run/RunText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace camjob {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSchema = "camjob-run-summary/1";

/// By RunStatus.
constexpr std::array kEndings = {L"done",
                                 L"nothing was written",
                                 L"stopped",
                                 L"could not be written",
                                 L"the dialog was cancelled",
                                 L"fault of the program"};

/// What is left of the report of a job.
struct JobOutcome {
    std::string job;  ///< UTF-8, as the user named it
    RunStatus status = RunStatus::kDone;
    int exitCode = kExitDone;
    long members = 0;
    long invalid = 0;
    plugin::AccountNumbers accounts;

    bool HasErrors() const { return exitCode == kExitInvalidMembers; }
    const wchar_t* GetEnding() const {
        return HasErrors() ? L"done, with errors" : kEndings[static_cast<std::size_t>(status)];
    }
    Tone GetTone() const {
        if (exitCode > kExitInvalidMembers)
            return Tone::kError;
        return HasErrors() ? Tone::kWarning : Tone::kPlain;
    }
};

JobOutcome OutcomeOf(const RunReport& report) {
    return {report.job,
            report.status,
            report.GetExitCode(),
            static_cast<long>(report.members.size()),
            report.SumGroups().invalid,
            report.SumAccounts()};
}

/// Folders that earlier jobs of the call have their output in.
class UsedFolders {
  public:
    /// The job that has its output there; "": none.
    std::string JobOf(const std::string& folder) const {
        const fs::path path = AsPath(folder);
        const auto at = std::find_if(m_folders.begin(), m_folders.end(), [&](const Used& used) {
            std::error_code ignored;
            return used.folder == path || fs::equivalent(used.folder, path, ignored);
        });
        return at == m_folders.end() ? "" : at->job;
    }
    void Add(const std::string& folder, const std::string& job) {
        if (!folder.empty())
            m_folders.push_back({AsPath(folder), job});
    }

  private:
    struct Used {
        fs::path folder;
        std::string job;
    };

    static fs::path AsPath(const std::string& folder) {
        std::error_code ignored;
        return fs::absolute(PathFromUtf8(folder), ignored).lexically_normal();
    }

    std::vector<Used> m_folders;
};

/// What the jobs of a call came to.
class JobsSummary {
  public:
    explicit JobsSummary(std::size_t jobs) : m_jobs(static_cast<long>(jobs)) {}

    void Add(JobOutcome outcome) { m_outcomes.push_back(std::move(outcome)); }

    int GetExitCode() const {
        int code = kExitDone;
        for (const JobOutcome& outcome : m_outcomes)
            code = std::max(code, outcome.exitCode);
        return code;
    }

    void WriteText(OutputStream& out) const {
        TextTable table({
            {L"job",           TextTable::Align::kLeft },
            {L"how it ended",  TextTable::Align::kLeft },
            {L"members",       TextTable::Align::kRight},
            {L"with errors",   TextTable::Align::kRight},
            {L"features made", TextTable::Align::kRight}
        });
        for (const JobOutcome& outcome : m_outcomes)
            table.AddRow({OneLine(ZetString::fromUtf8(outcome.job)),
                          outcome.GetEnding(),
                          Integer(outcome.members),
                          Integer(outcome.invalid),
                          Integer(outcome.accounts[plugin::Account::kMade])},
                         outcome.GetTone());
        camjob::WriteText(out,
                          Paragraphs({Count(m_jobs, L"job") + L"\n",
                                      table.Format(out.GetTerminal()),
                                      LeftLine(),
                                      DescribeAccounts(SumAccounts()) + L"\n"}));
    }

    void WriteJson(OutputStream& out) const {
        Json ended = Json::object();
        long members = 0;
        long invalid = 0;
        for (const JobOutcome& outcome : m_outcomes) {
            Json& count = ended[WordOf(outcome.status)];
            count = count.is_null() ? 1 : count.get<long>() + 1;
            members += outcome.members;
            invalid += outcome.invalid;
        }
        out.Write(Dump({
                      {"schema",         kSchema                    },
                      {"jobs",           m_jobs                     },
                      {"ended",          std::move(ended)           },
                      {"withErrors",     CountWithErrors()          },
                      {"members",        members                    },
                      {"invalidMembers", invalid                    },
                      {"accounts",       AccountsJson(SumAccounts())},
                      {"exitCode",       GetExitCode()              },
        }) +
                  "\n");
    }

  private:
    plugin::AccountNumbers SumAccounts() const {
        plugin::AccountNumbers sum;
        for (const JobOutcome& outcome : m_outcomes)
            sum += outcome.accounts;
        return sum;
    }
    long CountWithErrors() const {
        return static_cast<long>(
            std::count_if(m_outcomes.begin(), m_outcomes.end(), [](const JobOutcome& outcome) {
                return outcome.HasErrors();
            }));
    }
    /// Jobs behind the one that was stopped.
    ZetString LeftLine() const {
        const long left = m_jobs - static_cast<long>(m_outcomes.size());
        return left == 0 ? ZetString() : Count(left, L"job") + L" not begun\n";
    }

    long m_jobs;
    std::vector<JobOutcome> m_outcomes;
};

}  // namespace

int RunJobs(const JobsOptions& options,
            const RunSystem& system,
            OutputStream& out,
            OutputStream& err) {
    RunOptions each = options.each;
    each.asJson = each.asJson || options.asLines;
    each.asLine = options.asLines || options.jobs.size() > 1;
    if (options.jobs.size() == 1) {
        // Behind its report nothing may need memory: the document tells the exit code.
        each.job = options.jobs.front();
        return RunJob(each, system, out, err);
    }
    UsedFolders folders;
    RunSystem inOwnFolder = system;
    inOwnFolder.faultOfFolder = [&](const std::string& folder) {
        const std::string other = folders.JobOf(folder);
        return other.empty() ? ""
                             : "its output folder is that of " + other +
                                   ", which stands before it: give each job one of its own";
    };
    JobsSummary summary(options.jobs.size());
    for (const std::string& job : options.jobs) {
        each.job = job;
        const RunReport report = RunAndReport(each, inOwnFolder, out, err);
        folders.Add(report.folder, job);
        summary.Add(OutcomeOf(report));
        if (report.status == RunStatus::kCancelled)
            break;
        if (!each.asJson && report.status == RunStatus::kDone)
            WriteLine(out, L"");
    }
    each.asJson ? summary.WriteJson(out) : summary.WriteText(out);
    return summary.GetExitCode();
}

}  // namespace camjob

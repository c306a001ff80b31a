#include "camjob/disk/FileStream.h"
#include "camjob/run/JobRunner.h"
#include "camjob/run/ReportPage.h"
#include "camjob/run/RunComparison.h"
#include "camjob/run/RunJson.h"
#include "job/FileNames.h"
#include "job/SystemError.h"
#include "threads/OrderedWork.h"

#include <functional>
#include <optional>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

// What a run does with its members when they are judged.

namespace camjob {

namespace fs = std::filesystem;

namespace {

/// Of a file that tells of the others.
fs::path NameOf(plugin::JobRun& run, const wchar_t* ending) {
    return PathFromUtf8((run.GetProjectInfo().GetFileName() + ending).toUtf8());
}

}  // namespace

/// The file was still in the staging folder.
std::string JobRunner::TextOf(const FileFault& fault) const {
    const fs::path staged = PathFromUtf8(fault.fileName.toUtf8());
    return NameIn(m_report.folder, Utf8FromPath(staged.filename())) + ": cannot be written" +
           job::ReasonBehind(fault.systemError);
}

/// The disk has most of the output while the rest is made.
bool JobRunner::Write(plugin::JobRun& run, StagedOutput& output) {
    constexpr long kMembersAtATime = 1000;
    m_progress.Begin("writing", run.GetCount(), "members");
    long begun = 0;
    const auto isCancelled = [&] {
        m_progress.Step({});
        if (++begun % kMembersAtATime == 0)
            output.BeginFlush();
        return m_system.isCancelled();
    };
    if (!run.Write(output.GetStagingFolder(), isCancelled, [&] { output.BeginFlush(); }) ||
        m_system.isCancelled())
        return Cancel();
    TakeMembers(run);
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

/// In shares, for each look at all members of a large run takes long.
void JobRunner::TakeMembers(plugin::JobRun& run) {
    constexpr std::size_t kWorthAThread = 4000;
    const std::size_t count = m_memberFiles.size();
    const unsigned threads = count < kWorthAThread ? 1 : run.GetThreadsForMembers();
    const std::size_t shares = std::size_t{2} * threads;
    m_report.members.resize(count);
    std::vector<std::function<void()>> pieces = {[&] { TakeSums(run); }};
    for (std::size_t share = 0; share < shares; ++share)
        pieces.emplace_back(
            [&, share] { TakeShare(run, count * share / shares, count * (share + 1) / shares); });
    threads::DoAll(pieces, threads);
}

void JobRunner::TakeSums(const plugin::JobRun& run) {
    for (const plugin::GroupResult& group : run.GetGroupResults())
        m_report.groups.push_back({m_job.groups[group.group].id, group});
    m_report.profiles = run.GetProfileResults();
}

void JobRunner::TakeShare(plugin::JobRun& run, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
        RunMember& member = m_report.members[i];
        member.result = run.TakeMemberResult(i);
        member.file = std::move(m_memberFiles[i]);
        member.accounts = m_memberAccounts[i].numbers;
        if (m_memberAccounts[i].lists != nullptr)
            member.features = std::move(m_memberAccounts[i].lists->features);
    }
}

void JobRunner::NoteMembers() {
    for (RunMember& member : m_report.members) {
        for (plugin::FeatureNote& note : member.result.notes) {
            ++m_report.input.notes;
            m_report.notes.push_back({
                member.file.name,
                {dstv::NcNote::Severity::kNote, note.feature.tag, std::move(note.text)}
            });
        }
        NoteUnprinted(member);
    }
}

/// A feature that is not made never vanishes: where the job leaves the finding unprinted, a note
/// tells it.
void JobRunner::NoteUnprinted(const RunMember& member) {
    for (const plugin::Finding& finding : member.result.findings) {
        const bool isUnmade = finding.isRefusal || finding.isSetAside;
        if (!isUnmade || finding.IsPrinted() || !finding.feature)
            continue;
        const ZetString name = ZetString::fromUtf8(job::kFindingTypes[finding.type].name);
        m_report.notes.push_back({
            member.file.name,
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
        if (!member.result.IsMade() || m_memberAccounts[i].lists == nullptr)
            continue;
        for (const LostFeature& lost : m_memberAccounts[i].lists->lost)
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

void JobRunner::TakeResults(plugin::JobRun& run, const fs::path& staging) {
    for (plugin::ProfilePlan& plan : run.TakePlans())
        m_report.plans.push_back({m_job.groups[plan.group].id, std::move(plan)});
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
    auto compared = ChangesSince(older, ToCompare(m_report, m_madeMembers));
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

/// The document is whole before the page is written: it tells neither its own size nor that of the
/// page, which has the date.
bool JobRunner::WriteReports(plugin::JobRun& run, const fs::path& staging) {
    const auto writeDocument = [&](OutputStream& out) {
        RunJsonWriter(
            RunJsonWriter::Form::kDocument, out, m_options.threads, std::move(m_madeMembers))
            .Write(m_report);
    };
    bool isDocumentWritten = true;
    std::optional<ReportPage> page;
    std::vector<std::function<void()>> pieces;
    if (m_job.reports.hasRunDocument)
        pieces.emplace_back([&] {
            isDocumentWritten =
                WriteReport(staging / NameOf(run, job::kRunDocumentEnding), writeDocument);
        });
    if (m_job.reports.hasPage) {
        page.emplace(m_report, m_job, run.GetProjectInfo());
        pieces.emplace_back([&] { page->AddMembersAndPlans(); });
    }
    threads::DoAll(pieces, m_options.threads);
    return isDocumentWritten &&
           (!page || WriteReport(staging / NameOf(run, job::kPageEnding),
                                 [&](OutputStream& out) { page->Write(out); }));
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

}  // namespace camjob

#include "camjob/run/RunReport.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace camjob {

std::string RunFault::TextBehindFile() const {
    return !file.empty() && message.starts_with(file) ? message.substr(file.size()) : message;
}

std::string DescribeNote(const RunNote& note) {
    const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
    const std::string line = note.note.line > 0 ? ":" + std::to_string(note.note.line) : "";
    return note.file + line + (isWarning ? ": warning: " : ": note: ") + note.note.text.toUtf8();
}

std::string DescribeRefusedNote(const RunNote& note) {
    return DescribeNote(note) + "; the job refuses files with warnings ([nc] warnings)";
}

std::string RunReport::WithinFolder(const std::string& file) const {
    const std::string start = NameIn(folder, {});
    return file.starts_with(start) ? file.substr(start.size()) : file;
}

/// Changes that are told again may be those against an output that has gone from this very place.
std::string RunReport::NameAgainst() const {
    const std::string& against = changes->against;
    const bool isOwn = against == Utf8FromPath(PathFromUtf8(folder).filename()) ||
                       std::any_of(files.begin(), files.end(), [&](const RunFile& file) {
                           return WithinFolder(file.name) == against;
                       });
    return repeatsChanges && isOwn ? "the output that was replaced" : against;
}

void RunReport::DropResults() {
    members.clear();
    groups.clear();
    profiles.clear();
    plans.clear();
    files.clear();
    drawings = {};
    changes.reset();
}

plugin::GroupResult RunReport::SumGroups() const {
    plugin::GroupResult sum;
    for (const RunGroup& of : groups) {
        const plugin::GroupResult& group = of.result;
        sum.members += group.members;
        sum.steel += group.steel;
        sum.invalid += group.invalid;
        sum.withWarnings += group.withWarnings;
        sum.nonStandard += group.nonStandard;
    }
    return sum;
}

std::vector<long> RunReport::FindUncut() const {
    std::vector<long> uncut(members.size());
    for (const RunPlan& run : plans)
        for (std::size_t part = 0; part < run.plan.plan.uncut.size(); ++part)
            uncut[run.plan.parts[part].member] += static_cast<long>(run.plan.plan.uncut[part]);
    return uncut;
}

long RunReport::CountUncut() const {
    long count = 0;
    for (const RunPlan& run : plans)
        count = std::accumulate(run.plan.plan.uncut.begin(), run.plan.plan.uncut.end(), count);
    return count;
}

std::vector<RunFile> RunReport::FoldFiles() const {
    std::vector<RunFile> folded;
    std::map<std::string, std::pair<std::size_t, long>> folders;  // place and number of files
    for (const RunFile& file : files) {
        const auto [at, isNew] = folders.insert({
            file.folder, {folded.size(), 0}
        });
        if (file.folder.empty() || isNew) {
            folded.push_back(file);
            at->second.second = 1;
            continue;
        }
        auto& [place, count] = at->second;
        RunFile& whole = folded[place];
        whole.name = file.folder + "/ (" + std::to_string(++count) + " files)";
        whole.bytes = whole.bytes.value_or(0) + file.bytes.value_or(0);
    }
    return folded;
}

plugin::AccountNumbers RunReport::SumAccounts() const {
    plugin::AccountNumbers sum;
    for (const RunMember& member : members)
        sum += member.CountAccounts();
    for (const RunUnmadeFile& file : unmadeFiles)
        sum += file.accounts;
    return sum;
}

int RunReport::GetExitCode() const {
    switch (status) {
        case RunStatus::kRefused:
            return kExitBadInput;
        case RunStatus::kFailed:
            return kExitNotWritten;
        case RunStatus::kCancelled:
            return kExitCancelled;
        case RunStatus::kFault:
            return kExitFault;
        default:
            return SumGroups().invalid > 0 || CountUncut() > 0 || !leftOut.empty()
                       ? kExitInvalidMembers
                       : kExitDone;
    }
}

}  // namespace camjob

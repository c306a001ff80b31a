#include "camjob/run/RunReport.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"

namespace camjob {

std::string RunFault::TextBehindFile() const {
    return !file.empty() && message.starts_with(file) ? message.substr(file.size()) : message;
}

std::string DescribeNote(const RunNote& note) {
    const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
    const std::string line = note.note.line > 0 ? ":" + std::to_string(note.note.line) : "";
    return note.file + line + (isWarning ? ": warning: " : ": note: ") + note.note.text.toUtf8();
}

std::string RunReport::WithinFolder(const std::string& file) const {
    const std::string start = NameIn(folder, {});
    return file.starts_with(start) ? file.substr(start.size()) : file;
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

plugin::AccountNumbers RunMember::CountAccounts() const {
    plugin::AccountNumbers numbers;
    for (const AccountedFeature& feature : features)
        ++numbers[feature.Get(result.IsMade())];
    return numbers;
}

long RunReport::CountInvalid() const {
    long count = 0;
    for (const RunGroup& group : groups)
        count += group.result.invalid;
    return count;
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
            return CountInvalid() > 0 || !leftOut.empty() ? kExitInvalidMembers : kExitDone;
    }
}

}  // namespace camjob

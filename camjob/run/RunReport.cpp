#include "camjob/run/RunReport.h"

#include "camjob/console/ExitCode.h"

namespace camjob {

std::string DescribeNote(const RunNote& note) {
    const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
    const std::string line = note.note.line > 0 ? ":" + std::to_string(note.note.line) : "";
    return note.file + line + (isWarning ? ": warning: " : ": note: ") + note.note.text.toUtf8();
}

void RunReport::DropResults() {
    members.clear();
    groups.clear();
    plans.clear();
    files.clear();
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
        sum += member.accounts;
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

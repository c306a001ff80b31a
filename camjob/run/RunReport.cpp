#include "camjob/run/RunReport.h"

#include "camjob/console/ExitCode.h"

namespace camjob {

long RunReport::CountInvalid() const {
    long count = 0;
    for (const RunGroup& group : groups)
        count += group.result.invalid;
    return count;
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

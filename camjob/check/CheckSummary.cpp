#include "camjob/check/CheckSummary.h"

#include "camjob/console/ExitCode.h"

namespace camjob {

void CheckSummary::Add(const CheckReport& report) {
    ++filesRead;
    holes += static_cast<long>(report.holes.size());
    for (const HoleReport& hole : report.holes) {
        ++holesByShape[hole.shape];
        holesSetAside += hole.IsSetAside() ? 1 : 0;
    }
    for (const NotchReport& notch : report.notches)
        notches += notch.isDuplicate ? 0 : 1;
    for (const plugin::Finding& finding : report.findings)
        warnings += !finding.IsError() && finding.IsPrinted() ? 1 : 0;
    invalidMembers += report.HasErrors() ? 1 : 0;
    for (const dstv::NcNote& note : report.notes)
        ++(note.severity == dstv::NcNote::Severity::kWarning ? warnings : notes);
}

void CheckSummary::Add(const dstv::NcError& error) {
    ++filesRefused;
    if (errors.size() < kMaxListedErrors)
        errors.push_back(error);
}

int CheckSummary::GetExitCode() const {
    if (filesRefused > 0)
        return kExitBadInput;
    return invalidMembers > 0 ? kExitInvalidMembers : kExitDone;
}

}  // namespace camjob

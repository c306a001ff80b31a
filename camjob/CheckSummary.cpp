#include "camjob/CheckSummary.h"

namespace camjob {

void CheckSummary::Add(const CheckReport& report) {
    ++filesRead;
    holes += static_cast<long>(report.holes.size());
    for (const HoleReport& hole : report.holes)
        ++holesByShape[hole.shape];
    for (const dstv::NcNote& note : report.notes)
        ++(note.severity == dstv::NcNote::Severity::kWarning ? warnings : notes);
}

void CheckSummary::Add(const dstv::NcError& error) {
    ++filesRefused;
    if (errors.size() < kMaxListedErrors)
        errors.push_back(error);
}

}  // namespace camjob

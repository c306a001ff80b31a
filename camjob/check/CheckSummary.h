#pragma once

#include "camjob/check/CheckReport.h"
#include "dstv/NcNote.h"

#include "camdata/platform/text/ZetString.h"

#include <cstddef>
#include <map>
#include <vector>

namespace camjob {

/// Refused files whose errors are kept for the summary.
inline constexpr std::size_t kMaxListedErrors = 20;

/// Counts over all files. Its size does not grow with their number.
struct CheckSummary {
    long filesRead = 0;
    long filesRefused = 0;
    long holes = 0;
    std::map<ZetString, long> holesByShape;
    long holesSetAside = 0;
    long notches = 0;  ///< without duplicates
    long invalidMembers = 0;
    long notes = 0;
    long warnings = 0;                  ///< of reader and library
    std::vector<dstv::NcError> errors;  ///< the first kMaxListedErrors

    void Add(const CheckReport& report);
    void Add(const dstv::NcError& error);
    /// The highest of what any file asks for.
    int GetExitCode() const;
};

}  // namespace camjob

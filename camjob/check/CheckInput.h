#pragma once

#include "camjob/check/CheckReport.h"
#include "camjob/console/OutputStream.h"
#include "dstv/NcHost.h"
#include "job/Job.h"

#include <optional>
#include <string>
#include <variant>

namespace camjob {

/// The job whose rules count; `name` "": the built-in one, which every member passes. Nothing when
/// it is faulty: the errors are written to `err` then.
std::optional<job::Job> ReadRules(const std::string& name, OutputStream& err);

/// Reads the NC file of that name, as the command line gives it, the way the job says.
std::variant<dstv::NcFileEntity, dstv::NcError> ReadEntity(const std::string& name,
                                                           const job::Job& job);

/// A line for people, and one for each error of the file behind it.
void WriteError(const dstv::NcError& error, OutputStream& err);

}  // namespace camjob

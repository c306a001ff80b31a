#pragma once

#include "camjob/init/JobDraft.h"

#include <string>

namespace camjob {

/// The job file, UTF-8: what the draft says, sorted, with comments on what was found and on what a
/// person has to decide.
std::string WriteJobText(const JobDraft& draft);

}  // namespace camjob

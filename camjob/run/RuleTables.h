#pragma once

#include "job/Job.h"
#include "report/page/RunPage.h"

#include <vector>

namespace camjob {

/// The rules of a job that judged its members, as tables of the page; those that it does not have
/// are left out.
std::vector<report::PageTable> RuleTables(const job::Job& job);

}  // namespace camjob

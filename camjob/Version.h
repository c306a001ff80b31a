#pragma once

#include <string>

namespace camjob {

/// "camjob 1.0.0 (commit 0123456789)"; "+" behind a commit that was changed before it was built, no
/// commit for sources without their history.
std::string VersionText();

}  // namespace camjob

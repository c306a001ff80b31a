#include "camjob/Version.h"

#include <CamjobCommit.h>
#include <string_view>

namespace camjob {

std::string VersionText() {
    constexpr std::string_view kCommit = CAMJOB_COMMIT;
    std::string text = "camjob " CAMJOB_VERSION;
    return kCommit.empty() ? text : text.append(" (commit ").append(kCommit).append(")");
}

}  // namespace camjob

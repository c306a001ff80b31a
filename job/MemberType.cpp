#include "job/Job.h"

namespace job {

eReportingTypes MemberType::GetReportType(int check) const {
    return check < kFirstOwnType ? limits.GetReportType(static_cast<eValidationTypes>(check))
                                 : ownReports[static_cast<std::size_t>(check - kFirstOwnType)];
}

void MemberType::SetReportType(int check, eReportingTypes report) {
    if (check < kFirstOwnType)
        limits.SetReportType(static_cast<eValidationTypes>(check), report);
    else
        ownReports[static_cast<std::size_t>(check - kFirstOwnType)] = report;
}

}  // namespace job

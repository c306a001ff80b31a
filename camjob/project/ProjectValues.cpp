#include "camjob/project/ProjectValues.h"

namespace camjob {

namespace {

using Info = CProjectInformation;
using enum ValueKind;

}  // namespace

// clang-format off
const std::array<ProjectValue, kProjectValueCount> kProjectValues = {{
    {"file_name", L"File Name", kText, 0, 1101, &Info::GetFileName, &Info::SetFileName},
    {"cold_rolled_order_no", L"Cold Rolled Order No", kText, 1, 1206, &Info::GetColdRolledOrderNo, &Info::SetColdRolledOrderNo},
    {"cold_rolled_order_date", L"Cold Rolled Order Date", kDate, 1, 1207, &Info::GetColdRolledOrderDate, &Info::SetColdRolledOrderDate, &job::ProjectData::coldRolledOrderDate},
    {"comments", L"Comments", kLines, 1, 1211, &Info::GetMxComments, &Info::SetMxComments},
    {"revision", L"Revision", kText, 1, 1212, &Info::GetRevision, &Info::SetRevision},
    {"revision_date", L"Revision Date", kDate, 1, 1213, &Info::GetRevisionDate, &Info::SetRevisionDate, &job::ProjectData::revisionDate},
    {"delivery_date", L"Delivery Date", kDate, 2, 1301, &Info::GetDeliveryDate, &Info::SetDeliveryDate, &job::ProjectData::deliveryDate},
    {"delivery_address", L"Delivery Address", kLines, 2, 1302, &Info::GetMxDeliveryAddress, &Info::SetMxDeliveryAddress},
}};
// clang-format on

ProjectTexts TextsOf(const CProjectInformation& project) {
    ProjectTexts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = (project.*kProjectValues[i].get)();
    return texts;
}

void SetTexts(CProjectInformation& project, const ProjectTexts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
        (project.*kProjectValues[i].set)(texts[i]);
}

}  // namespace camjob

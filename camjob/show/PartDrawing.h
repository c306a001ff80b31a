#pragma once

#include "camjob/check/CheckReport.h"
#include "dstv/NcHost.h"
#include "plugin/ledger/Finding.h"
#include "report/drawing/MemberDrawing.h"

#include <vector>

namespace camjob {

/// What the job wants to have told, the worst first; what is only not standard last.
std::vector<report::DrawnFinding> DrawnFindings(const std::vector<plugin::Finding>& findings,
                                                const HeaderPlaces& places);

/// The drawing of a part: its geometry as the file has it, judged as the report says.
report::MemberDrawing DrawingOf(const dstv::NcFileEntity& entity, const CheckReport& report);

}  // namespace camjob

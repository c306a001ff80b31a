#pragma once

#include "camjob/check/CheckReport.h"
#include "dstv/NcHost.h"
#include "report/drawing/MemberDrawing.h"

namespace camjob {

/// The drawing of a part: its geometry as the file has it, judged as the report says.
report::MemberDrawing DrawingOf(const dstv::NcFileEntity& entity, const CheckReport& report);

}  // namespace camjob

#pragma once

#include "job/Job.h"

#include "camdata/holes/CMxSingleMemValidation.h"

namespace plugin {

/// A fixed pattern as the library has it, none of its holes found yet. All positions are distances
/// from the start. Sets the current tolerance to m_EPS.
CMxSingleMemValidation MakePrescription(const job::FixedPattern& pattern);

}  // namespace plugin

#pragma once

#include "plugin/JobDocument.h"

#include <string_view>

namespace plugin {

/// Tells the first line that the parser would not tell well, or not survive. The rest is for the
/// parser.
void CheckLines(std::string_view bytes, JobFaults& faults);

}  // namespace plugin

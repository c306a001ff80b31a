#pragma once

#include "job/FormatDocument.h"

#include <string_view>

namespace job {

/// Checks what no single key can show, and makes the format; of use only without faults. `stem` is
/// the file's name without its ending.
MachineFormat ResolveFormat(const FormatDocument& document,
                            std::string_view stem,
                            JobFaults& faults);

}  // namespace job

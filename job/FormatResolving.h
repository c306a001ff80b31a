#pragma once

#include "job/FormatDocument.h"

#include <initializer_list>
#include <string_view>

namespace job {

/// Checks what no single key can show, and makes the format; of use only without faults. `stem` is
/// the file's name without its ending.
MachineFormat ResolveFormat(const FormatDocument& document,
                            std::string_view stem,
                            JobFaults& faults);

/// Whether lines for one of the parts show {header}.
bool ShowsHeader(const MachineFormat& format, std::initializer_list<FormatPart> parts);

}  // namespace job

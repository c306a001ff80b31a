#pragma once

#include "job/formats/MachineFormat.h"

#include <string>
#include <variant>

namespace job {

/// Reads the braces of a line for `part`; else why it is none, UTF-8.
std::variant<LineTemplate, std::string> ReadLineTemplate(const ZetString& text,
                                                         FormatPart part,
                                                         const codepages::CodePage* page);

}  // namespace job

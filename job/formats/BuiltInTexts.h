#pragma once

#include <string_view>

namespace job {

/// The built-in formats as format files; they lie beside this one.
extern const std::string_view kRecordsFormat;
extern const std::string_view kCsvFormat;

}  // namespace job

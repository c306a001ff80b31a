#pragma once

#include <string_view>

namespace report {

/// drawing.css.
extern const std::string_view kDrawingStyle;

}  // namespace report

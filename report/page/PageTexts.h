#pragma once

#include <string_view>

namespace report {

/// The files of this folder.
extern const std::string_view kPageTemplate;
extern const std::string_view kPageStyle;
extern const std::string_view kDrawingScript;
extern const std::string_view kTableScript;
extern const std::string_view kPageScript;

}  // namespace report

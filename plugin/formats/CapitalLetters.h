#pragma once

#include <string>
#include <string_view>

namespace plugin {

/// The text in capitals; Latin letters without their accents. What is no letter that is known here
/// stays as it is.
std::wstring InPlainCapitals(std::wstring_view text);

}  // namespace plugin

#pragma once

#include <map>
#include <string>
#include <string_view>

namespace report {

/// An HTML element around a text, which is escaped.
std::string Element(std::string_view name, std::string_view text);

/// A template with each {{name}} replaced. What a value holds is not looked at again.
std::string Filled(std::string_view pattern, const std::map<std::string, std::string>& values);

}  // namespace report

#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace report {

/// An HTML element around a text, which is escaped.
std::string Element(std::string_view name, std::string_view text);

/// Takes a text piece by piece.
using Sink = std::function<void(std::string_view)>;

/// What hands over the value of each name.
using Values = std::map<std::string_view, std::function<void()>>;

/// Hands over a template with each {{name}} replaced.
void Fill(std::string_view pattern, const Values& values, const Sink& sink);

}  // namespace report

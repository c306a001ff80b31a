#pragma once

#include <string>
#include <string_view>

namespace report {

/// A number with at most `decimals` places, none of them a trailing zero; whatever the locale.
/// Never "-0".
std::string Number(double value, int decimals = 3);
void AppendNumber(std::string& text, double value, int decimals = 3);

/// Text of an XML or HTML document: markup escaped, control characters and what is no character as
/// U+FFFD.
std::string Escaped(std::string_view text);

/// Appends all of them.
template <typename... Texts>
void Append(std::string& to, const Texts&... texts) {
    (to.append(texts), ...);
}

}  // namespace report

#pragma once

#include <string>

namespace numbers {

/// Appends a number with so many decimals, 0 or more: the digits that the C library's "%.*f" prints
/// of it. A zero never has a sign; "nan" and "inf" stand for what is no number.
void AppendFixed(std::string& text, double value, int decimals);

/// The same without the zeros at its end, and without a point there.
void AppendTrimmed(std::string& text, double value, int decimals);

}  // namespace numbers

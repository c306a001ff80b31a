#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace numbers {

/// Appends a number with so many decimals, 0 or more: the digits that the C library's "%.*f" prints
/// of it. A zero never has a sign; "nan" and "inf" stand for what is no number.
void AppendFixed(std::string& text, double value, int decimals);

/// The same without the zeros at its end, and without a point there.
void AppendTrimmed(std::string& text, double value, int decimals);

/// Characters that there must be room for where PrintShort prints.
inline constexpr std::size_t kRoomOfShort = 32;

/// Prints the same digits as AppendFixed, and some characters behind them that mean nothing. The
/// end of the digits; null for a number that is too long, or too hard to tell: AppendFixed has all.
char* PrintShort(char* at, double value, int decimals);
/// The same of a number of units of which 10^decimals are one; at most 6 decimals.
char* PrintShortUnits(char* at, std::int64_t value, int decimals);

}  // namespace numbers

#pragma once

#include <optional>
#include <string_view>

/// @file
/// Rounding to decimals and reading of plain decimal numbers, independent of any locale.

namespace camdata::detail {

/// value * 10^decimals as a whole number, rounded half to even on the exact value of the double, as
/// `printf` does; keeps the sign of zero. Nothing where the fast arithmetic is not exact: beyond 6
/// decimals (0 is the least), from 1e9 on, and for NaN.
std::optional<double> ScaledToWhole(double value, int decimals);

/// The double nearest to what `printf("%.*f")` prints of `value`. Decimals below 0 count as 0.
/// NaN, infinities and the sign of zero are kept.
double RoundToDecimals(double value, int decimals);

/// A number at the beginning of a text and how many characters it takes with the blanks before it.
struct ParsedNumber {
    double value = 0.0;
    std::size_t length = 0;  ///< 0: the text does not begin with a number
};

/// Reads blanks, then the longest run of a sign, digits and a point, or a sign and "nan" or "inf"
/// in any case. No exponent, no hexadecimal form. Too large a number is infinite.
ParsedNumber ParseNumber(std::wstring_view text);

}  // namespace camdata::detail

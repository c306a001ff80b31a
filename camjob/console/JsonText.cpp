#include "camjob/console/JsonText.h"

#include "numbers/FixedDecimals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace camjob {

namespace {

constexpr int kDecimals = 3;

/// By character; a text is asked for each of its own.
constexpr auto kStandsAsItIs = [] {
    std::array<bool, 256> stands{};
    for (std::size_t c = ' '; c <= '~'; ++c)
        stands[c] = c != '"' && c != '\\';
    return stands;
}();

bool StandsAsItIs(char c) {
    return kStandsAsItIs[static_cast<unsigned char>(c)];
}

constexpr double kLarge = 1e9;

bool IsMinusZero(double number) {
    return number == 0.0 && std::signbit(number);
}

bool IsWhole(double number) {
    return std::abs(number) < kLarge &&
           static_cast<double>(static_cast<std::int64_t>(number)) == number;
}

/// Whether three decimals hold all of the number: its shortest form is then these, without the
/// zeros at the end.
bool IsInThousandths(double number) {
    return std::abs(number) < kLarge && std::nearbyint(number * 1000.0) / 1000.0 == number;
}

}  // namespace

void AppendJson(std::string& json, std::string_view text) {
    const std::size_t start = json.size();
    json += '"';
    for (auto at = text.begin(); at != text.end();) {
        const auto end = std::find_if_not(at, text.end(), StandsAsItIs);
        json.append(at, end);
        at = end;
        if (at == text.end())
            break;
        if (*at != '"' && *at != '\\') {
            json.resize(start);
            json += Dump(text);
            return;
        }
        json += '\\';
        json += *at++;
    }
    json += '"';
}

void AppendJson(std::string& json, double number) {
    const bool isWhole = IsWhole(number);
    if (IsMinusZero(number) || !(isWhole || IsInThousandths(number))) {
        json += Dump(number);
        return;
    }
    numbers::AppendTrimmed(json, number, kDecimals);
    if (isWhole)
        json += ".0";
}

}  // namespace camjob

#include "camjob/console/JsonText.h"

#include "numbers/FixedDecimals.h"

#include <algorithm>
#include <cmath>

namespace camjob {

namespace {

constexpr int kDecimals = 3;

bool IsPrintable(char c) {
    return c >= ' ' && c <= '~';
}

/// Whether three decimals hold all of the number: its shortest form is then these, without the
/// zeros at the end.
bool IsInThousandths(double number) {
    constexpr double kLarge = 1e9;
    const bool isMinusZero = number == 0.0 && std::signbit(number);
    return std::abs(number) < kLarge && !isMinusZero &&
           std::nearbyint(number * 1000.0) / 1000.0 == number;
}

}  // namespace

void AppendJson(std::string& json, std::string_view text) {
    if (!std::all_of(text.begin(), text.end(), IsPrintable)) {
        json += Dump(text);
        return;
    }
    json += '"';
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\"\\", 1), text.size());
        json.append(text.front() == '"' || text.front() == '\\' ? "\\" : "")
            .append(text.substr(0, end));
        text.remove_prefix(end);
    }
    json += '"';
}

void AppendJson(std::string& json, double number) {
    if (!IsInThousandths(number)) {
        json += Dump(number);
        return;
    }
    numbers::AppendTrimmed(json, number, kDecimals);
    if (std::trunc(number) == number)
        json += ".0";
}

JsonText JsonObject::ToText() const {
    constexpr std::size_t kAroundField = 4;
    std::size_t length = 2;
    for (const auto& [key, text] : m_fields)
        length += key.size() + text.size() + kAroundField;
    std::string json;
    json.reserve(length);
    for (const auto& [key, text] : m_fields)
        json.append(json.empty() ? "{\"" : ",\"").append(key).append("\":").append(text);
    return {json.empty() ? "{}" : json + "}"};
}

std::string& JsonObject::TextOf(std::string_view key) {
    for (auto& [known, text] : m_fields)
        if (known == key)
            return text;
    return m_fields.emplace_back(key, std::string()).second;
}

}  // namespace camjob

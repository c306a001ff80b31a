#include "report/drawing/DrawingText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace report {

namespace {

/// What stands for a character that must not be in a document; "" for one that may.
std::string_view EscapeOf(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\t':
        case '\n':
        case '\r':
            return " ";
        default:
            return static_cast<unsigned char>(character) < 0x20 ? "\xEF\xBF\xBD" : "";
    }
}

}  // namespace

std::string Number(double value, int decimals) {
    if (!std::isfinite(value))
        return "0";
    // The longest double has 309 digits before its point.
    std::array<char, 400> buffer;
    const auto end =
        std::to_chars(
            buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    std::string text(buffer.data(), end);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        const std::string_view escape = EscapeOf(character);
        if (escape.empty())
            escaped += character;
        else
            escaped += escape;
    }
    return escaped;
}

}  // namespace report

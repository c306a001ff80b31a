#include "report/drawing/DrawingText.h"

#include "numbers/FixedDecimals.h"

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
    std::string text;
    AppendNumber(text, value, decimals);
    return text;
}

void AppendNumber(std::string& text, double value, int decimals) {
    numbers::AppendTrimmed(text, std::isfinite(value) ? value : 0.0, decimals);
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

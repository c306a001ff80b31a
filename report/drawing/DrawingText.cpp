#include "report/drawing/DrawingText.h"

#include "numbers/FixedDecimals.h"

#include <cmath>

namespace report {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

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
            return static_cast<unsigned char>(character) < 0x20 ? kReplacement : "";
    }
}

/// Whether a text ends with U+FFFE or U+FFFF, which XML documents must not have.
bool IsNoCharacter(std::string_view text) {
    return text.ends_with("\xEF\xBF\xBE") || text.ends_with("\xEF\xBF\xBF");
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
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view escape = EscapeOf(text[at]);
        if (!escape.empty())
            escaped += escape;
        else
            escaped += IsNoCharacter(text.substr(0, at + 1)) ? kReplacement.back() : text[at];
    }
    return escaped;
}

}  // namespace report

#include "report/drawing/DrawingText.h"

#include "numbers/FixedDecimals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

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

/// By character: whether it stands in a document as it is, whatever is before it.
constexpr auto kIsPlain = [] {
    std::array<bool, 256> isPlain{};
    for (std::size_t c = 0x20; c < isPlain.size(); ++c)
        isPlain[c] = c != '&' && c != '<' && c != '>' && c != '"' && c != 0xBE && c != 0xBF;
    return isPlain;
}();

bool IsPlain(char character) {
    return kIsPlain[static_cast<unsigned char>(character)];
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
    for (auto at = text.begin(); at != text.end();) {
        const auto end = std::find_if_not(at, text.end(), IsPlain);
        escaped.append(at, end);
        if (end == text.end())
            break;
        at = end + 1;
        const std::string_view escape = EscapeOf(*end);
        if (!escape.empty())
            escaped += escape;
        else
            escaped += IsNoCharacter({text.begin(), at}) ? kReplacement.back() : *end;
    }
    return escaped;
}

}  // namespace report

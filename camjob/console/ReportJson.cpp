#include "camjob/console/ReportJson.h"

#include <cstddef>
#include <string_view>

namespace camjob {

namespace {

/// In UTF-8 U+0080 to U+009F are a byte C2 and the byte of their number.
constexpr char kC1Lead = '\xC2';

bool IsDelete(char c) {
    return c == '\x7F';
}

bool IsC1(char lead, char c) {
    const auto byte = static_cast<unsigned char>(c);
    return lead == kC1Lead && byte >= 0x80 && byte < 0xA0;
}

void AppendEscape(std::string& text, char c) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    text += "\\u00";
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 0xF];
}

}  // namespace

/// The writer escapes what is below U+0020; others stand in texts only, where an escape is as good.
std::string Dump(const Json& value, int indent) {
    const std::string raw = value.dump(indent, ' ', false, Json::error_handler_t::replace);
    std::string text;
    text.reserve(raw.size());
    for (std::size_t at = 0; at < raw.size(); ++at) {
        const bool isPair = at + 1 < raw.size() && IsC1(raw[at], raw[at + 1]);
        at += isPair ? 1 : 0;
        if (isPair || IsDelete(raw[at]))
            AppendEscape(text, raw[at]);
        else
            text += raw[at];
    }
    return text;
}

}  // namespace camjob

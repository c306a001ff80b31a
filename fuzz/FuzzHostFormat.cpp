#include "fuzz/Law.h"
#include "fuzz/Numbers.h"

#include "camdata/platform/text/ZetFormat.h"

#include <cstring>
#include <string>

// Any text is a format: conversions of numbers print as the C library prints them, and nothing
// grows beyond its fields.

namespace {

using camdata::detail::FormatConversion;

/// The format that the C library knows the conversion by.
std::string PlainFormatOf(const FormatConversion& conversion, const char* length) {
    std::string format = "%";
    const std::pair<bool, char> flags[] = {
        {conversion.leftAligned, '-'},
        {conversion.plusSign,    '+'},
        {conversion.blankSign,   ' '},
        {conversion.zeroPadded,  '0'},
        {conversion.alternate,   '#'}
    };
    for (const auto& [isSet, flag] : flags)
        if (isSet)
            format += flag;
    if (conversion.width > 0)
        format += std::to_string(conversion.width);
    if (conversion.precision >= 0)
        format += "." + std::to_string(conversion.precision);
    return format + length + static_cast<char>(conversion.letter);
}

template <typename Value>
std::wstring PrintPlainly(const std::string& format, Value value) {
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, format.c_str(), value)), 0);
    std::snprintf(text.data(), text.size() + 1, format.c_str(), value);
    return {text.begin(), text.end()};
}

void CheckConversion(std::wstring_view text, double real, std::int32_t whole) {
    const FormatConversion conversion = camdata::detail::ParseFormatConversion(text);
    const std::wstring_view alone = text.substr(0, conversion.length);
    if (camdata::detail::Fits(conversion.letter, ZetFormatArg::Kind::kDouble))
        Check(camdata::detail::Format(alone, {real}) ==
                  PrintPlainly(PlainFormatOf(conversion, ""), real),
              "a real number prints as the C library prints it");
    if (camdata::detail::Fits(conversion.letter, ZetFormatArg::Kind::kInteger))
        Check(camdata::detail::Format(alone, {whole}) ==
                  PrintPlainly(PlainFormatOf(conversion, ""), whole),
              "a whole number prints as the C library prints it");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    double real = 0.0;
    if (size < sizeof(real))
        return 0;
    std::memcpy(&real, data, sizeof(real));
    std::int32_t whole = 0;
    std::memcpy(&whole, data, sizeof(whole));
    const std::wstring format(data + sizeof(real), data + size);
    for (std::size_t at = format.find(L'%'); at != format.npos; at = format.find(L'%', at + 1))
        CheckConversion(std::wstring_view(format).substr(at), real, whole);
    const std::wstring text =
        camdata::detail::Format(format, {real, whole, L"text", L'c', real, whole});
    Check(text.size() <= format.size() + 6 * (kZetFormatMaxField + 400),
          "a text is no longer than its format and the fields of its arguments");
    return 0;
}

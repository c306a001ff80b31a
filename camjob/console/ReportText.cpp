#include "camjob/console/ReportText.h"

#include "job/ControlCharacters.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace camjob {

namespace {

bool IsEscaped(wchar_t c) {
    return (camdata::detail::IsControl(c) && c != L'\n') || camdata::detail::IsLayoutControl(c);
}

}  // namespace

std::string Printable(const ZetString& text) {
    const std::wstring_view characters = text.view();
    if (std::none_of(characters.begin(), characters.end(), IsEscaped))
        return text.toUtf8();
    std::wstring shown;
    for (const wchar_t c : text.view()) {
        if (IsEscaped(c))
            job::AppendEscape(shown, c);
        else
            shown += c;
    }
    return ZetString(std::move(shown)).toUtf8();
}

ZetString PrintableText(const ZetString& text) {
    const std::wstring_view characters = text.view();
    const auto isPlain = [](wchar_t c) { return (c >= L' ' && c <= L'~') || c == L'\n'; };
    const bool standsAsItIs = std::all_of(characters.begin(), characters.end(), isPlain);
    return standsAsItIs ? text : ZetString::fromUtf8(Printable(text));
}

ZetString OneLine(const ZetString& text) {
    std::wstring line(text.view());
    std::replace(line.begin(), line.end(), L'\n', wchar_t{0xFFFD});
    return ZetString(std::move(line));
}

ZetString Number(double value) {
    const ZetString text = ZetString::format(L"%.1f", value);
    return text == L"-0.0" ? ZetString(L"0.0") : text;
}

ZetString CountOf(long count, const wchar_t* one, const wchar_t* many) {
    return ZetString::format(L"%d %s", count, count == 1 ? one : many);
}

ZetString Integer(long value) {
    return ZetString::format(L"%d", value);
}

ZetString Count(long count, const ZetString& noun) {
    return ZetString::format(L"%d %s%s", count, noun, count == 1 ? L"" : L"s");
}

ZetString Joined(const std::vector<ZetString>& texts, const wchar_t* separator) {
    ZetString joined;
    for (const ZetString& text : texts)
        joined += joined.isEmpty() ? text : separator + text;
    return joined;
}

ZetString Line(const ZetString& text) {
    return L"  " + text + L"\n";
}

ZetString MoreLine(long count) {
    return count > 0 ? Line(ZetString::format(L"and %d more", count)) : ZetString();
}

ZetString Paragraphs(const std::vector<ZetString>& paragraphs) {
    ZetString text;
    for (const ZetString& paragraph : paragraphs)
        if (!paragraph.isEmpty())
            text += text.isEmpty() ? paragraph : L"\n" + paragraph;
    return text;
}

}  // namespace camjob

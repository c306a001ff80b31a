#include "camdata/platform/text/ZetString.h"

#include "camdata/platform/text/FixedPoint.h"
#include "camdata/platform/text/Unicode.h"

#include <algorithm>

namespace {

wchar_t Lowered(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

int Sign(int value) {
    return (value > 0) - (value < 0);
}

}  // namespace

ZetString::ZetString(wchar_t character, long count)
    : m_text(static_cast<std::size_t>(std::max(count, 0L)), character) {}

ZetString ZetString::fromUtf8(std::string_view bytes) {
    return ZetString(camdata::detail::WideFromUtf8(bytes));
}

std::string ZetString::toUtf8() const {
    return camdata::detail::Utf8FromWide(m_text);
}

std::string ZetString::toNarrow() const {
    return camdata::detail::NarrowFromWide(m_text);
}

wchar_t ZetString::operator[](long index) const {
    return index >= 0 && index < length() ? m_text[static_cast<std::size_t>(index)] : L'\0';
}

int ZetString::compare(const ZetString& other) const {
    return Sign(m_text.compare(other.m_text));
}

int ZetString::compareNoCase(const ZetString& other) const {
    std::wstring a = m_text;
    std::wstring b = other.m_text;
    std::transform(a.begin(), a.end(), a.begin(), Lowered);
    std::transform(b.begin(), b.end(), b.begin(), Lowered);
    return Sign(a.compare(b));
}

long ZetString::find(const ZetString& part, long start) const {
    if (start < 0 || start > length())
        return -1;
    const std::size_t at = m_text.find(part.m_text, static_cast<std::size_t>(start));
    return at == std::wstring::npos ? -1 : static_cast<long>(at);
}

ZetString ZetString::mid(long start, long count) const {
    if (start < 0 || count <= 0 || start >= length())
        return {};
    return ZetString(
        view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count)));
}

ZetString ZetString::trimmedLeft() const {
    const std::size_t start = m_text.find_first_not_of(L' ');
    return start == std::wstring::npos ? ZetString() : ZetString(view().substr(start));
}

double ZetString::toDouble(bool wholeText) const {
    const camdata::detail::ParsedNumber number = camdata::detail::ParseNumber(m_text);
    const std::wstring_view rest = view().substr(number.length);
    if (wholeText && rest.find_first_not_of(L' ') != std::wstring_view::npos)
        return 0.0;
    return number.value;
}

ZetString& ZetString::operator+=(const ZetString& other) {
    m_text += other.m_text;
    return *this;
}

ZetString& ZetString::operator+=(wchar_t character) {
    m_text += character;
    return *this;
}

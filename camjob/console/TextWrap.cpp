#include "camjob/console/TextWrap.h"

#include "camjob/console/Colour.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace camjob {

namespace {

bool TakesRoom(wchar_t c) {
    return (static_cast<unsigned long>(c) & 0xFC00UL) != 0xDC00UL && !IsToneMark(c);
}

/// The first characters of a text, and what is left of it.
std::pair<ZetString, ZetString> SplitAt(const ZetString& text, long width) {
    const std::wstring_view all = text.view();
    std::size_t end = 0;
    while (end < all.size() && DisplayedLength(ZetString(all.substr(0, end + 1))) <= width)
        ++end;
    return {ZetString(all.substr(0, end)), ZetString(all.substr(end))};
}

bool IsBlank(wchar_t c) {
    return c == L' ' || IsToneMark(c);
}

/// Where the text of a line begins: behind the indent, or the last gap of several blanks in the
/// first half.
std::size_t TextStart(std::wstring_view line, long width) {
    std::size_t start = 0;
    while (start < line.size() && IsBlank(line[start]))
        ++start;
    const std::size_t half = std::min(line.size(), static_cast<std::size_t>(width) / 2 + 1);
    for (std::size_t i = start + 2; i < half; ++i)
        if (line[i] != L' ' && line[i - 1] == L' ' && line[i - 2] == L' ')
            start = i;
    return start;
}

ZetString FittedLine(const ZetString& line, long width) {
    constexpr long kHanging = 2;
    if (DisplayedLength(line) <= width)
        return line;
    const std::wstring_view all = line.view();
    const ZetString before(all.substr(0, TextStart(all, width)));
    const bool isIndent = std::all_of(before.view().begin(), before.view().end(), IsBlank);
    const long indent = DisplayedLength(before) + (isIndent ? kHanging : 0);
    const std::vector<ZetString> lines =
        Wrapped(ZetString(all.substr(before.view().size())), std::max(width - indent, 1L));
    ZetString fitted = before + lines.front();
    for (std::size_t i = 1; i < lines.size(); ++i)
        fitted += L"\n" + ZetString(L' ', indent) + lines[i];
    return fitted;
}

}  // namespace

long DisplayedLength(const ZetString& text) {
    return static_cast<long>(std::count_if(text.view().begin(), text.view().end(), TakesRoom));
}

std::vector<ZetString> WordsOf(const ZetString& text) {
    std::vector<ZetString> words;
    const std::wstring_view all = text.view();
    for (std::size_t start = 0; start <= all.size();) {
        const std::size_t end = std::min(all.find(L' ', start), all.size());
        if (end > start)
            words.emplace_back(all.substr(start, end - start));
        start = end + 1;
    }
    return words;
}

std::vector<ZetString> Wrapped(const ZetString& text, long width) {
    if (DisplayedLength(text) <= width)
        return {text};
    std::vector<ZetString> lines;
    for (ZetString word : WordsOf(text)) {
        const bool isFirst = lines.empty();
        if (!isFirst && DisplayedLength(lines.back()) + 1 + DisplayedLength(word) <= width) {
            lines.back() += L" " + word;
            continue;
        }
        while (DisplayedLength(word) > width) {
            auto [line, rest] = SplitAt(word, width);
            lines.push_back(std::move(line));
            word = std::move(rest);
        }
        lines.push_back(std::move(word));
    }
    return lines;
}

ZetString Fitted(const ZetString& text, long width) {
    if (width <= 0)
        return text;
    const std::wstring_view all = text.view();
    ZetString fitted;
    for (std::size_t start = 0; start < all.size();) {
        const std::size_t end = std::min(all.find(L'\n', start), all.size());
        fitted += FittedLine(ZetString(all.substr(start, end - start)), width);
        if (end < all.size())
            fitted += L"\n";
        start = end + 1;
    }
    return fitted;
}

}  // namespace camjob

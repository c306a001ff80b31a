#include "camjob/console/TextTable.h"

#include "camjob/console/ReportText.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

namespace camjob {

namespace {

constexpr const wchar_t* kGap = L"  ";

/// Characters, not the two halves that one beyond U+FFFF has in some systems' text.
long DisplayedLength(const ZetString& text) {
    return static_cast<long>(std::count_if(text.view().begin(), text.view().end(), [](wchar_t c) {
        return (static_cast<unsigned long>(c) & 0xFC00UL) != 0xDC00UL;
    }));
}

ZetString WithoutTrailingBlanks(const ZetString& text) {
    const std::size_t last = text.view().find_last_not_of(L' ');
    return text.left(last == std::wstring_view::npos ? 0 : static_cast<long>(last) + 1);
}

/// The middle of a text that is too long makes room for an ellipsis: both ends tell more.
ZetString Shortened(const ZetString& text, long width) {
    if (DisplayedLength(text) <= width)
        return text;
    const auto left = static_cast<std::size_t>((width - 1) / 2);
    const auto right = static_cast<std::size_t>(width - 1) - left;
    const std::wstring_view all = text.view();
    return ZetString(all.substr(0, left)) + L"\u2026" + ZetString(all.substr(all.size() - right));
}

}  // namespace

TextTable::TextTable(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size()), m_rows(1) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_rows[0].cells.emplace_back(m_columns[i].title);
        m_widths[i] = DisplayedLength(m_rows[0].cells.back());
    }
}

void TextTable::AddRow(std::vector<ZetString> cells, Tone tone) {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_widths[i] = std::max(m_widths[i], DisplayedLength(cells[i]));
    m_rows.push_back({std::move(cells), tone});
}

/// The widest texts give way; numbers never do. 0: there is room for all.
std::vector<long> TextTable::WidthsFor(long lineWidth) const {
    constexpr long kLeast = 6;
    constexpr long kGapWidth = 2;
    std::vector<long> widths = m_widths;
    long excess = std::accumulate(widths.begin(), widths.end(), 0L) +
                  kGapWidth * static_cast<long>(widths.size()) - lineWidth;
    for (; lineWidth > 0 && excess > 0; --excess) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (m_columns[i].align == Align::kLeft && widths[i] > kLeast &&
                (widest == widths.size() || widths[i] > widths[widest]))
                widest = i;
        if (widest == widths.size())
            break;
        --widths[widest];
    }
    return widths;
}

ZetString TextTable::Format(const Terminal& terminal) const {
    if (m_rows.size() <= 1)
        return {};
    const std::vector<long> widths = WidthsFor(terminal.width);
    std::vector<ZetString> rule;
    for (const long width : widths)
        rule.emplace_back(L'-', width);
    ZetString text = Line(FormatRow(m_rows.front().cells, widths)) + Line(FormatRow(rule, widths));
    for (std::size_t i = 1; i < m_rows.size(); ++i)
        text += Toned(Line(FormatRow(m_rows[i].cells, widths)), m_rows[i].tone, terminal.hasColour);
    return text;
}

ZetString TextTable::FormatRow(const std::vector<ZetString>& cells,
                               const std::vector<long>& widths) const {
    ZetString line;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const ZetString cell = Shortened(cells[i], widths[i]);
        const ZetString padding(L' ', widths[i] - DisplayedLength(cell));
        line += i == 0 ? L"" : kGap;
        line += m_columns[i].align == Align::kRight ? padding + cell : cell + padding;
    }
    return WithoutTrailingBlanks(line);
}

}  // namespace camjob

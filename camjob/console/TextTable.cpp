#include "camjob/console/TextTable.h"

#include "camjob/console/ReportText.h"

#include <algorithm>
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

}  // namespace

TextTable::TextTable(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size()), m_rows(2) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_rows[0].emplace_back(m_columns[i].title);
        m_widths[i] = DisplayedLength(m_rows[0].back());
    }
}

void TextTable::AddRow(std::vector<ZetString> cells) {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_widths[i] = std::max(m_widths[i], DisplayedLength(cells[i]));
    m_rows.push_back(std::move(cells));
}

ZetString TextTable::Format() const {
    if (m_rows.size() <= 2)
        return {};
    std::vector<ZetString> rule;
    for (const long width : m_widths)
        rule.emplace_back(L'-', width);
    ZetString text;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        text += Line(FormatRow(i == 1 ? rule : m_rows[i]));
    return text;
}

ZetString TextTable::FormatRow(const std::vector<ZetString>& cells) const {
    ZetString line;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const ZetString padding(L' ', m_widths[i] - DisplayedLength(cells[i]));
        line += i == 0 ? L"" : kGap;
        line += m_columns[i].align == Align::kRight ? padding + cells[i] : cells[i] + padding;
    }
    return WithoutTrailingBlanks(line);
}

}  // namespace camjob

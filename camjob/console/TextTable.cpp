#include "camjob/console/TextTable.h"

#include "camjob/console/ReportText.h"
#include "camjob/console/TextWrap.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>

namespace camjob {

namespace {

constexpr const wchar_t* kGap = L"  ";

ZetString WithoutTrailingBlanks(const ZetString& text) {
    const std::size_t last = text.view().find_last_not_of(L' ');
    return text.left(last == std::wstring_view::npos ? 0 : static_cast<long>(last) + 1);
}

/// A word of more characters may be broken.
constexpr long kLongestWord = 16;

/// The width that a text can give way to.
long LeastWidth(const ZetString& text) {
    long least = 0;
    for (const ZetString& word : WordsOf(text))
        least = std::max(least, std::min(DisplayedLength(word), kLongestWord));
    return least;
}

}  // namespace

TextTable::TextTable(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size()), m_rows(1) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_rows[0].cells.emplace_back(m_columns[i].title);
        m_widths[i] = DisplayedLength(m_rows[0].cells.back());
    }
}

/// Characters that a terminal does not take are as wide as what stands for them.
void TextTable::AddRow(std::vector<ZetString> cells, Tone tone) {
    for (ZetString& cell : cells)
        cell = PrintableText(cell);
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_widths[i] = std::max(m_widths[i], DisplayedLength(cells[i]));
    m_rows.push_back({std::move(cells), tone});
}

/// What a column needs at least: numbers never break.
long TextTable::LeastWidthOf(std::size_t column) const {
    long least = LeastWidth(m_rows.front().cells[column]);
    for (std::size_t row = 1; row < m_rows.size(); ++row) {
        const ZetString& cell = m_rows[row].cells[column];
        const bool isNumber = m_columns[column].align == Align::kRight;
        least = std::max(least, isNumber ? DisplayedLength(cell) : LeastWidth(cell));
    }
    return least;
}

/// The widest columns give way. Nothing where that does not help.
std::optional<std::vector<long>> TextTable::WidthsFor(long lineWidth) const {
    constexpr long kGapWidth = 2;
    std::vector<long> widths = m_widths;
    long excess = std::accumulate(widths.begin(), widths.end(), 0L) +
                  kGapWidth * static_cast<long>(widths.size()) - lineWidth;
    if (lineWidth == 0 || excess <= 0)
        return widths;
    std::vector<long> least;
    for (std::size_t i = 0; i < widths.size(); ++i)
        least.push_back(LeastWidthOf(i));
    for (; excess > 0; --excess) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (widths[i] > least[i] && (widest == widths.size() || widths[i] > widths[widest]))
                widest = i;
        if (widest == widths.size())
            return std::nullopt;
        --widths[widest];
    }
    return widths;
}

ZetString TextTable::Format(const Terminal& terminal) const {
    if (m_rows.size() <= 1)
        return {};
    const auto widths = WidthsFor(terminal.width);
    if (!widths)
        return FormatList(terminal);
    std::vector<ZetString> rule;
    for (const long width : *widths)
        rule.emplace_back(L'-', width);
    ZetString text = FormatRow(m_rows.front().cells, *widths) + FormatRow(rule, *widths);
    for (std::size_t i = 1; i < m_rows.size(); ++i)
        text += Toned(FormatRow(m_rows[i].cells, *widths), m_rows[i].tone, terminal.hasColour);
    return text;
}

ZetString TextTable::FormatRow(const std::vector<ZetString>& cells,
                               const std::vector<long>& widths) const {
    std::vector<std::vector<ZetString>> columns;
    std::size_t lines = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        columns.push_back(Wrapped(cells[i], widths[i]));
        lines = std::max(lines, columns.back().size());
    }
    ZetString text;
    for (std::size_t line = 0; line < lines; ++line) {
        std::vector<ZetString> parts;
        for (const std::vector<ZetString>& column : columns)
            parts.push_back(line < column.size() ? column[line] : ZetString());
        text += Line(FormatLine(parts, widths));
    }
    return text;
}

ZetString TextTable::FormatLine(const std::vector<ZetString>& cells,
                                const std::vector<long>& widths) const {
    ZetString line;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const ZetString padding(L' ', widths[i] - DisplayedLength(cells[i]));
        line += i == 0 ? L"" : kGap;
        line += m_columns[i].align == Align::kRight ? padding + cells[i] : cells[i] + padding;
    }
    return WithoutTrailingBlanks(line);
}

/// For a terminal that is too narrow for the columns: the cells of a row one after another.
ZetString TextTable::FormatList(const Terminal& terminal) const {
    constexpr long kIndent = 4;
    ZetString text;
    for (std::size_t i = 1; i < m_rows.size(); ++i) {
        std::vector<ZetString> cells;
        for (std::size_t column = 1; column < m_columns.size(); ++column)
            if (const ZetString& cell = m_rows[i].cells[column]; !cell.isEmpty())
                cells.push_back(m_rows.front().cells[column] + L" " + cell);
        ZetString lines = Line(m_rows[i].cells.front());
        for (const ZetString& line : Wrapped(Joined(cells, L"; "), terminal.width - kIndent))
            lines += Line(L"  " + line);
        text += Toned(lines, m_rows[i].tone, terminal.hasColour);
    }
    return text;
}

}  // namespace camjob

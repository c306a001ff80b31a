#pragma once

#include "camjob/console/Colour.h"
#include "camjob/console/OutputStream.h"

#include "camdata/platform/text/ZetString.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace camjob {

/// Lines of text in aligned columns: a header, a rule, rows. Columns are as wide as their longest
/// text and parted by two blanks; no line ends in blanks.
class TextTable {
  public:
    enum class Align {
        kLeft,
        kRight,
    };
    struct Column {
        const wchar_t* title;
        Align align;
    };

    explicit TextTable(std::vector<Column> columns);

    /// One text per column.
    void AddRow(std::vector<ZetString> cells, Tone tone = Tone::kPlain);
    /// The whole table as lines of a report below their heading; "" without rows. On a terminal
    /// texts go on below until the lines fit; where that does not help the cells of a row are
    /// told one after another. Rows have the colour of their tone.
    ZetString Format(const Terminal& terminal = {}) const;

  private:
    struct Row {
        std::vector<ZetString> cells;
        Tone tone = Tone::kPlain;
    };

    long LeastWidthOf(std::size_t column) const;
    std::optional<std::vector<long>> WidthsFor(long lineWidth) const;
    ZetString FormatList(const Terminal& terminal) const;
    /// As many lines as its longest cell.
    ZetString FormatRow(const std::vector<ZetString>& cells, const std::vector<long>& widths) const;
    ZetString FormatLine(const std::vector<ZetString>& cells,
                         const std::vector<long>& widths) const;

    std::vector<Column> m_columns;
    std::vector<long> m_widths;
    std::vector<Row> m_rows;  ///< the first: titles
};

}  // namespace camjob

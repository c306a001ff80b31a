#pragma once

#include "camdata/platform/text/ZetString.h"

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
    void AddRow(std::vector<ZetString> cells);
    /// The whole table as lines of a report below their heading; "" without rows.
    ZetString Format() const;

  private:
    ZetString FormatRow(const std::vector<ZetString>& cells) const;

    std::vector<Column> m_columns;
    std::vector<long> m_widths;
    std::vector<std::vector<ZetString>> m_rows;  ///< the first: titles; the second: the rule
};

}  // namespace camjob

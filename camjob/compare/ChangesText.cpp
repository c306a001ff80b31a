#include "camjob/compare/ChangesText.h"

#include "camjob/compare/ChangeRows.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/TextTable.h"

#include <algorithm>

namespace camjob {

namespace {

ZetString Cell(const std::string& text) {
    return OneLine(ZetString::fromUtf8(text));
}

}  // namespace

ZetString ChangesText(const OutputChanges& changes, long mostRows, const Terminal& terminal) {
    constexpr TextTable::Align kLeft = TextTable::Align::kLeft;
    TextTable table({
        {L"changed", kLeft},
        {L"what",    kLeft},
        {L"before",  kLeft},
        {L"now",     kLeft}
    });
    const std::vector<ChangeRow> rows = RowsOf(changes);
    const long count = static_cast<long>(rows.size());
    for (long i = 0; i < std::min(count, mostRows); ++i) {
        const ChangeRow& row = rows[static_cast<std::size_t>(i)];
        table.AddRow({Cell(row.name), Cell(row.what), Cell(row.before), Cell(row.after)});
    }
    return ZetString::format(L"against %s: %s\n",
                             Cell(changes.against),
                             ZetString::fromUtf8(DescribeChanges(changes))) +
           table.Format(terminal) + MoreLine(count - mostRows);
}

}  // namespace camjob

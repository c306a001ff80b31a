#include "plugin/output/CuttingList.h"

#include "job/Ascii.h"
#include "job/CsvTable.h"
#include "numbers/TextBuffer.h"

#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace plugin {

namespace {

constexpr double kPercent = 100.0;
constexpr double kMillimetresAMetre = 1000.0;
constexpr std::size_t kUsualBar = 1000;
constexpr std::size_t kUsualField = 32;

using numbers::TextBuffer;

// ---- text ---------------------------------------------------------------------------------------

void AddBarNumbers(TextBuffer& text, long first, long count) {
    text.Add(count == 1 ? "Bar " : "Bars ");
    text.AddWhole(first);
    if (count == 1)
        return;
    text.Add(" to ");
    text.AddWhole(first + count - 1);
    text.Add(": ");
    text.AddWhole(count);
    text.Add(" bars");
}

/// Millimetres with one decimal, at the end of a column.
void AddLength(TextBuffer& text, cutting::Length length, std::size_t width = 0) {
    const std::size_t begin = text.GetSize();
    text.AddFixed(Millimetres(length), 1);
    text.AlignRight(begin, width);
}

/// At the end of a column.
void AddCount(TextBuffer& text, long count, std::size_t width) {
    const std::size_t begin = text.GetSize();
    text.AddWhole(count);
    text.AlignRight(begin, width);
}

/// At the beginning of a column.
void AddMark(TextBuffer& text, const std::string& mark) {
    constexpr long kWidth = 12;
    const long width =
        job::IsAscii(mark) ? static_cast<long>(mark.size()) : ZetString::fromUtf8(mark).length();
    text.Add(mark);
    text.AddBlanks(static_cast<std::size_t>(std::max(kWidth - width, 0L)));
}

/// "6000.0, kerf 3.0, grips 20.0 and 30.0", "2350.0, remnant R-17, kerf 3.0"
ZetString DescribeStock(const BarStock& stock) {
    ZetString text = ZetString::format(L"%.1f", stock.length);
    if (stock.remnant)
        text += L", remnant" + (stock.name.isEmpty() ? ZetString() : L" " + stock.name);
    text += ZetString::format(L", kerf %.1f", stock.kerf);
    if (stock.gripStart > 0.0 || stock.gripEnd > 0.0)
        text += ZetString::format(L", grips %.1f and %.1f", stock.gripStart, stock.gripEnd);
    return text;
}

/// With its beginning and end.
void AddOffCut(TextBuffer& text, const ProfilePlan& plan, const cutting::PlannedBars& bars) {
    if (bars.offCut == 0) {
        text.Add("\tNo off-cut\n");
        return;
    }
    text.Add("\tOff-cut ");
    AddLength(text, bars.offCut);
    text.Add(IsKept(plan, bars) ? ", kept\n" : "\n");
}

/// How many pieces of the part are on one bar.
cutting::Count CountOn(const cutting::PlannedBars& bars, std::size_t part) {
    cutting::Count count = 0;
    for (const cutting::Cut& cut : bars.cuts)
        count += cut.part == part ? cut.count : 0;
    return count;
}

/// With the piece's number on the last of the bars that are cut alike, when they are several.
void AddPiece(TextBuffer& text,
              const BarPart& part,
              const PieceOnBar& piece,
              const cutting::PlannedBars& bars) {
    text.Add('\t');
    AddLength(text, piece.position, 9);
    text.Add("  ");
    AddMark(text, part.mark);
    text.Add(' ');
    AddLength(text, piece.length, 9);
    text.Add("  ");
    AddCount(text, piece.number, 6);
    text.Add("  ");
    if (bars.bars == 1)
        text.AddBlanks(6);
    else
        AddCount(
            text, piece.number + static_cast<long>((bars.bars - 1) * CountOn(bars, piece.part)), 6);
    text.Add("  ");
    text.Add(part.file);
    text.Add('\n');
}

void WriteBars(const ProfilePlan& plan, ZetFileAccess& file) {
    BarWalk walk(plan);
    long number = plan.firstBar;
    std::vector<std::string> stocks;
    for (const BarStock& stock : plan.stocks)
        stocks.push_back(DescribeStock(stock).toUtf8());
    TextBuffer text(kUsualBar);
    text.Add("\n\t position  mark            length   piece    last  member\n");
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const auto count = static_cast<long>(bars.bars);
        text.Add('\n');
        AddBarNumbers(text, number, count);
        text.Add(" of ");
        text.Add(stocks[bars.stock]);
        text.Add('\n');
        for (const PieceOnBar& piece : walk.Next(bars))
            AddPiece(text, plan.parts[piece.part], piece, bars);
        AddOffCut(text, plan, bars);
        walk.Skip(bars, bars.bars - 1);
        number += count;
        file.WriteUtf8(text.View());
        text.Clear();
    }
    file.WriteUtf8(text.View());
}

void AppendUncut(const ProfilePlan& plan, ZetArray<ZetString>& lines) {
    if (plan.plan.uncut.empty())
        return;
    lines.append(L"");
    lines.append(L"Not cut: no bar is long enough, or none is left");
    for (std::size_t part = 0; part < plan.parts.size(); ++part)
        if (const auto count = static_cast<long>(plan.plan.uncut[part]); count > 0)
            lines.append(ZetString::format(L"\t%d of %s, %.1f",
                                           count,
                                           ZetString::fromUtf8(plan.parts[part].mark),
                                           Millimetres(plan.demand[part].length)));
}

/// Bars of each stock that is used.
void AppendStocks(const ProfilePlan& plan, ZetArray<ZetString>& lines) {
    for (std::size_t stock = 0; stock < plan.stocks.size(); ++stock) {
        cutting::Count count = 0;
        for (const cutting::PlannedBars& bars : plan.plan.bars)
            count += bars.stock == stock ? bars.bars : 0;
        if (count > 0)
            lines.append(ZetString::format(
                L"Bars of %-14.1f: %d", plan.stocks[stock].length, static_cast<long>(count)));
    }
}

ZetString MetreLine(const wchar_t* what, double millimetres) {
    return ZetString::format(L"%-22s: %.1f m", what, millimetres / kMillimetresAMetre);
}

ZetString CostLine(const ProfilePlan& plan,
                   const wchar_t* what,
                   std::optional<cutting::Cost> cost) {
    return ZetString::format(L"%-22s: %s", what, DescribeCost(plan, cost));
}

void AppendTotals(const ProfilePlan& plan, ZetArray<ZetString>& lines) {
    const PlanTotals totals = TotalsOf(plan);
    lines.append(L"");
    AppendStocks(plan, lines);
    lines.append(MetreLine(L"Length of all bars", totals.barLength));
    lines.append(MetreLine(L"Length of all pieces", totals.pieceLength));
    lines.append(
        ZetString::format(L"%-22s: %.1f %%", L"Utilisation", totals.GetUtilisation() * kPercent));
    lines.append(MetreLine(L"Saw cuts", totals.kerfLoss));
    lines.append(MetreLine(L"Off-cuts kept", totals.kept));
    lines.append(MetreLine(L"Scrapped", totals.scrapped));
    if (plan.weightPerMetre > 0.0)
        lines.append(
            ZetString::format(L"%-22s: %.1f kg",
                              L"Weight of all bars",
                              plan.weightPerMetre * totals.barLength / kMillimetresAMetre));
    lines.append(CostLine(plan, L"This plan", plan.plan.cost) + L" (" + DescribeProof(plan) + L")");
    lines.append(CostLine(plan, L"No plan takes less", plan.GetBound()));
    lines.append(CostLine(plan, L"First-fit-decreasing", plan.firstFit));
    if (plan.kind == job::BarPlan::kLeast)
        lines.append(CostLine(plan, L"From the shortest up", plan.given));
    if (HasRemnants(plan))
        lines.append(L"A remnant counts half.");
}

// ---- table --------------------------------------------------------------------------------------

/// Millimetres with all decimals that a plan counts.
void AddField(TextBuffer& row, cutting::Length length) {
    row.AddUnits(length, 3);
    row.Add(',');
}

std::string Field(cutting::Length length) {
    TextBuffer field(kUsualField);
    AddField(field, length);
    return std::string(field.View());
}

/// The marks of all parts.
std::vector<std::string> MarkFields(const ProfilePlan& plan) {
    std::vector<std::string> fields;
    for (const BarPart& part : plan.parts)
        fields.push_back(job::CsvField(ZetString::fromUtf8(part.mark)));
    return fields;
}

}  // namespace

void WriteCuttingList(const ProfilePlan& plan, const ZetString& group, ZetFileAccess& file) {
    const ZetString title =
        ZetString::format(L"Cutting list of group %s, %s", group, NameOfProfile(plan));
    file.WriteUtf8(title.toUtf8() + '\n');
    WriteBars(plan, file);
    ZetArray<ZetString> lines;
    AppendUncut(plan, lines);
    AppendTotals(plan, lines);
    lines.append(L"");
    CMxUtil::AsArrStrPrint(lines, &file);
}

std::string CuttingTable::MakeHead() {
    return std::string("group,profile,material,bar,stock,position,mark,piece,length,offcut,kept") +
           job::kCsvLineEnd;
}

void CuttingTable::WriteRows(const ProfilePlan& plan, const ZetString& group, ZetFileAccess& file) {
    const std::string begin = job::CsvField(group) + "," + job::CsvField(plan.profileName) + "," +
                              job::CsvField(plan.material) + ",";
    const std::vector<std::string> marks = MarkFields(plan);
    TextBuffer rows(kUsualBar);  // of a bar
    BarWalk walk(plan);
    long bar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const std::string stock = Field(plan.cutStocks[bars.stock].length);
        const std::string end =
            Field(bars.offCut) + (IsKept(plan, bars) ? "yes" : "no") + job::kCsvLineEnd;
        for (cutting::Count i = 0; i < bars.bars; ++i, ++bar) {
            rows.Clear();
            for (const PieceOnBar& piece : walk.Next(bars)) {
                rows.Add(begin);
                rows.AddWhole(bar);
                rows.Add(',');
                rows.Add(stock);
                AddField(rows, piece.position);
                rows.Add(marks[piece.part]);
                rows.Add(',');
                rows.AddWhole(piece.number);
                rows.Add(',');
                AddField(rows, piece.length);
                rows.Add(end);
            }
            file.WriteUtf8(rows.View());
        }
    }
}

}  // namespace plugin

#include "plugin/output/CuttingList.h"

#include "job/CsvTable.h"

#include <string_view>

namespace plugin {

namespace {

constexpr double kPercent = 100.0;
constexpr double kMillimetresAMetre = 1000.0;
constexpr cutting::Length kUnitsAMillimetre = 1000;

// ---- text ---------------------------------------------------------------------------------------

ZetString BarNumbers(long first, long count) {
    if (count == 1)
        return ZetString::format(L"Bar %d", first);
    return ZetString::format(L"Bars %d to %d: %d bars", first, first + count - 1, count);
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

ZetString OffCutLine(const ProfilePlan& plan, const cutting::PlannedBars& bars) {
    if (bars.offCut == 0)
        return L"\tNo off-cut";
    return ZetString::format(
        L"\tOff-cut %.1f%s", Millimetres(bars.offCut), IsKept(plan, bars) ? L", kept" : L"");
}

/// The piece's number on the last of the bars that are cut alike; "" for a single bar.
ZetString NumberOnLastBar(const PieceOnBar& piece, const cutting::PlannedBars& bars) {
    if (bars.bars == 1)
        return {};
    cutting::Count perBar = 0;
    for (const cutting::Cut& cut : bars.cuts)
        perBar += cut.part == piece.part ? cut.count : 0;
    return ZetString::format(L"%d", piece.number + static_cast<long>((bars.bars - 1) * perBar));
}

void AppendBars(const ProfilePlan& plan, ZetArray<ZetString>& lines) {
    BarWalk walk(plan);
    long number = plan.firstBar;
    std::vector<ZetString> stocks;
    for (const BarStock& stock : plan.stocks)
        stocks.push_back(DescribeStock(stock));
    lines.append(L"");
    lines.append(L"\t position  mark            length   piece    last  member");
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const auto count = static_cast<long>(bars.bars);
        lines.append(L"");
        lines.append(BarNumbers(number, count) + L" of " + stocks[bars.stock]);
        for (const PieceOnBar& piece : walk.Next(bars))
            lines.append(ZetString::format(L"\t%9.1f  %-12s %9.1f  %6d  %6s  %s",
                                           Millimetres(piece.position),
                                           plan.parts[piece.part].mark,
                                           Millimetres(piece.length),
                                           piece.number,
                                           NumberOnLastBar(piece, bars),
                                           plan.parts[piece.part].file));
        lines.append(OffCutLine(plan, bars));
        for (cutting::Count other = 1; other < bars.bars; ++other)
            walk.Next(bars);
        number += count;
    }
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
                                           plan.parts[part].mark,
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

/// Millimetres with all decimals that a plan counts; length >= 0. A table has four per piece, so
/// they are put together from whole numbers.
std::string Field(cutting::Length length) {
    const auto decimals = static_cast<int>(length % kUnitsAMillimetre);
    const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
    std::string field = std::to_string(length / kUnitsAMillimetre);
    field += {'.', digit(decimals / 100), digit(decimals / 10), digit(decimals)};
    return field;
}

/// The marks of all parts.
std::vector<std::string> MarkFields(const ProfilePlan& plan) {
    std::vector<std::string> fields;
    for (const BarPart& part : plan.parts)
        fields.push_back(job::CsvField(part.mark));
    return fields;
}

}  // namespace

ZetArray<ZetString> MakeCuttingLines(const ProfilePlan& plan, const ZetString& group) {
    ZetArray<ZetString> lines = {
        ZetString::format(L"Cutting list of group %s, %s", group, NameOfProfile(plan))};
    AppendBars(plan, lines);
    AppendUncut(plan, lines);
    AppendTotals(plan, lines);
    lines.append(L"");
    return lines;
}

std::string CuttingTable::MakeHead() {
    return std::string("group,profile,material,bar,stock,position,mark,piece,length,offcut,kept") +
           job::kCsvLineEnd;
}

void CuttingTable::WriteRows(const ProfilePlan& plan, const ZetString& group, ZetFileAccess& file) {
    const std::string begin = job::CsvField(group) + "," + job::CsvField(plan.profileName) + "," +
                              job::CsvField(plan.material) + ",";
    const std::vector<std::string> marks = MarkFields(plan);
    std::string rows;  // of a bar; the memory is that of the bar before
    BarWalk walk(plan);
    long bar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const std::string end = "," + Field(bars.offCut) + (IsKept(plan, bars) ? ",yes" : ",no");
        for (cutting::Count i = 0; i < bars.bars; ++i, ++bar) {
            const std::string onBar =
                begin + std::to_string(bar) + "," + Field(plan.cutStocks[bars.stock].length) + ",";
            rows.clear();
            for (const PieceOnBar& piece : walk.Next(bars))
                rows.append(onBar)
                    .append(Field(piece.position))
                    .append(",")
                    .append(marks[piece.part])
                    .append(",")
                    .append(std::to_string(piece.number))
                    .append(",")
                    .append(Field(piece.length))
                    .append(end)
                    .append(job::kCsvLineEnd);
            file.WriteUtf8(rows);
        }
    }
}

}  // namespace plugin

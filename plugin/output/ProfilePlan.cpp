#include "plugin/output/ProfilePlan.h"

#include "threads/OrderedWork.h"

#include "camdata/nesting/NestPieces.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>

namespace plugin {

namespace {

constexpr double kUnits = 1000.0;    ///< of a millimetre
constexpr double kRounding = 0.001;  ///< of such a unit: what a sum of doubles may be off
constexpr std::int64_t kStepsOfEffort = 1'000'000;

cutting::Length RoundedUp(double length) {
    return static_cast<cutting::Length>(std::ceil(length * kUnits - kRounding));
}

cutting::Length RoundedDown(double length) {
    return static_cast<cutting::Length>(std::floor(length * kUnits + kRounding));
}

PlanUnit UnitOf(const std::vector<BarStock>& stocks) {
    if (stocks.front().price)
        return PlanUnit::kPrice;
    return stocks.size() == 1 ? PlanUnit::kBars : PlanUnit::kLength;
}

/// A remnant counts half: it is paid for, but what is cut from it leaves less to keep.
cutting::Cost CostOf(const BarStock& stock, PlanUnit unit) {
    if (unit == PlanUnit::kBars)
        return 1;
    const double full = unit == PlanUnit::kPrice ? *stock.price : stock.length;
    return std::max<cutting::Cost>(1, std::llround(full * kUnits / (stock.remnant ? 2.0 : 1.0)));
}

cutting::Stock StockOf(const BarStock& stock, PlanUnit unit) {
    return {.length = RoundedDown(stock.length),
            .kerf = RoundedUp(stock.kerf),
            .gripStart = RoundedUp(stock.gripStart),
            .gripEnd = RoundedUp(stock.gripEnd),
            .cost = CostOf(stock, unit),
            .count = stock.quantity ? *stock.quantity : cutting::kUnlimited};
}

// ---- the library's plan -------------------------------------------------------------------------

/// A mark that stands for a position, and back: the digits of a number to a large base, the lowest
/// first; position 0 has none. So few characters need no memory beside the text.
constexpr std::size_t kBase = 0x4000;
constexpr wchar_t kDigitZero = 0x4000;  ///< neither it nor a digit is half of a character

ZetString MarkAt(std::size_t position) {
    std::wstring mark;
    for (std::size_t rest = position; rest > 0; rest /= kBase)
        mark += static_cast<wchar_t>(kDigitZero + rest % kBase);
    return ZetString(std::move(mark));
}

std::size_t PositionOf(const ZetString& mark) {
    std::size_t position = 0;
    for (auto digit = mark.view().rbegin(); digit != mark.view().rend(); ++digit)
        position = position * kBase + static_cast<std::size_t>(*digit - kDigitZero);
    return position;
}

/// The marks of the nest are positions of parts.
cutting::PlannedBars BarsOf(const CMxNestParts& nest, const ProfilePlan& plan) {
    const camdata::detail::NestPieces onBar(nest);
    cutting::PlannedBars bars;
    bars.bars = nest.GetQty();
    bars.cuts.reserve(static_cast<std::size_t>(onBar.marks.length()));
    cutting::Length pieceLength = 0;
    cutting::Count pieces = 0;
    for (long i = 0; i < onBar.marks.length(); ++i) {
        const std::size_t part = PositionOf(onBar.marks[i]);
        const cutting::Count count = onBar.quantities[i];
        bars.cuts.push_back({part, count});
        pieceLength += count * plan.demand[part].length;
        pieces += count;
    }
    bars.offCut = cutting::OffCutOf(plan.cutStocks[bars.stock], pieceLength, pieces);
    return bars;
}

/// The parts that fit a bar, each named by its position.
ZetArray<CMxParts> PartsToNest(const ProfilePlan& plan) {
    ZetArray<CMxParts> parts;
    parts.reserve(static_cast<long>(plan.demand.size()));
    for (std::size_t i = 0; i < plan.demand.size(); ++i) {
        if (plan.demand[i].length > plan.cutStocks.front().GetUsable())
            continue;
        CMxParts part;
        part.SetPartNo(MarkAt(i));
        part.SetQty(static_cast<long>(plan.demand[i].count));
        part.SetLength(Millimetres(plan.demand[i].length));
        parts.append(std::move(part));
    }
    return parts;
}

std::optional<cutting::Cost> CostOfAll(const cutting::Plan& plan) {
    return plan.uncut.empty() ? std::optional(plan.cost) : std::nullopt;
}

/// All of it but its bound.
cutting::Plan MakeGivenPlan(const ProfilePlan& plan, const NestMaker& makeNests) {
    cutting::Plan given;
    const auto isCutBefore = [&](std::size_t a, std::size_t b) {
        return given.bars[a].cuts < given.bars[b].cuts;
    };
    const auto mainPartOf = [&](std::size_t bars) { return given.bars[bars].cuts.front().part; };
    std::set<std::size_t, decltype(isCutBefore)> known(isCutBefore);
    given.bars.reserve(plan.demand.size());
    makeNests(PartsToNest(plan), [&](const CMxNestParts& nest) {
        cutting::PlannedBars bars = BarsOf(nest, plan);
        given.cost += bars.bars * plan.cutStocks[bars.stock].cost;
        // A nest is one bar or two; a large quantity gives many nests that are cut alike. They
        // begin with the same part, the first that is left.
        if (!known.empty() && mainPartOf(*known.begin()) != bars.cuts.front().part)
            known.clear();
        const cutting::Count count = bars.bars;
        given.bars.push_back(std::move(bars));
        const auto [alike, isNew] = known.insert(given.bars.size() - 1);
        if (!isNew) {
            given.bars[*alike].bars += count;
            given.bars.pop_back();
        }
    });
    given.uncut = cutting::FindTooLong(plan.demand, plan.cutStocks);
    return given;
}

}  // namespace

cutting::Length PieceLength(double length) {
    return RoundedUp(length);
}

double Millimetres(cutting::Length length) {
    return static_cast<double>(length) / kUnits;
}

std::optional<cutting::Cost> ProfilePlan::GetBound() const {
    return IsComplete() ? std::optional(plan.bound) : std::nullopt;
}

cutting::Cost ProfilePlan::GetSaving() const {
    return IsComplete() && given ? std::max(*given - plan.cost, cutting::Cost{0}) : 0;
}

ProfilePlan MakeProfilePlan(const job::Job& job,
                            PartsOfProfile parts,
                            job::BarPlan kind,
                            std::vector<BarStock> stocks,
                            const PlanMakers& makers,
                            unsigned threads) {
    ProfilePlan plan;
    static_cast<PartsOfProfile&>(plan) = std::move(parts);
    plan.kind = kind;
    plan.stocks = std::move(stocks);
    plan.unit = UnitOf(plan.stocks);
    for (const BarStock& stock : plan.stocks)
        plan.cutStocks.push_back(StockOf(stock, plan.unit));
    const auto findFirstFit = [&] {
        plan.firstFit = cutting::FindFirstFitCost(plan.demand, plan.cutStocks);
    };
    if (plan.kind == job::BarPlan::kLeast) {
        findFirstFit();
        plan.given = cutting::CostFromShortest(plan.demand, plan.cutStocks);
        plan.plan = makers.least(plan.demand, plan.cutStocks, job.cutting.effort * kStepsOfEffort);
    } else {
        threads::DoAll({[&] { plan.plan = MakeGivenPlan(plan, makers.given); }, findFirstFit},
                       threads);
        plan.plan.bound = cutting::FindCostBound(plan.demand, plan.cutStocks, plan.firstFit);
        plan.given = CostOfAll(plan.plan);
    }
    return plan;
}

// ---- what is on the bars ------------------------------------------------------------------------

const std::vector<PieceOnBar>& BarWalk::Next(const cutting::PlannedBars& bars) & {
    const cutting::Stock& stock = m_plan.cutStocks[bars.stock];
    m_pieces.clear();
    cutting::Length position = stock.gripStart;
    for (const cutting::Cut& cut : bars.cuts)
        for (cutting::Count i = 0; i < cut.count; ++i) {
            const cutting::Length length = m_plan.demand[cut.part].length;
            m_pieces.push_back({cut.part, position, length, ++m_numbers[cut.part]});
            position += length + stock.kerf;
        }
    return m_pieces;
}

void BarWalk::Skip(const cutting::PlannedBars& bars, cutting::Count count) {
    for (const cutting::Cut& cut : bars.cuts)
        m_numbers[cut.part] += static_cast<long>(count * cut.count);
}

bool HasRemnants(const ProfilePlan& plan) {
    return std::any_of(plan.stocks.begin(), plan.stocks.end(), [](const BarStock& stock) {
        return stock.remnant.has_value();
    });
}

bool IsKept(const ProfilePlan& plan, const cutting::PlannedBars& bars) {
    const std::optional<double>& least = plan.stocks[bars.stock].leastOffcut;
    return least && bars.offCut >= RoundedUp(*least);
}

double KeptLength(const ProfilePlan& plan, const cutting::PlannedBars& bars) {
    return IsKept(plan, bars) ? Millimetres(bars.offCut + plan.cutStocks[bars.stock].gripEnd) : 0.0;
}

PlanTotals& PlanTotals::operator+=(const PlanTotals& other) {
    bars += other.bars;
    pieces += other.pieces;
    uncut += other.uncut;
    barLength += other.barLength;
    pieceLength += other.pieceLength;
    kerfLoss += other.kerfLoss;
    kept += other.kept;
    scrapped += other.scrapped;
    return *this;
}

PlanTotals TotalsOf(const ProfilePlan& plan) {
    PlanTotals totals;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const cutting::Stock& stock = plan.cutStocks[bars.stock];
        cutting::Length pieces = 0;
        cutting::Count count = 0;
        for (const cutting::Cut& cut : bars.cuts) {
            pieces += cut.count * plan.demand[cut.part].length;
            count += cut.count;
        }
        const auto times = static_cast<double>(bars.bars);
        const double kept = KeptLength(plan, bars);
        const cutting::Length grips = stock.gripStart + stock.gripEnd;
        totals.bars += static_cast<long>(bars.bars);
        totals.pieces += static_cast<long>(bars.bars * count);
        totals.barLength += times * Millimetres(stock.length);
        totals.pieceLength += times * Millimetres(pieces);
        totals.kerfLoss += times * Millimetres(stock.GetUsable() - pieces - bars.offCut);
        totals.kept += times * kept;
        totals.scrapped += times * (Millimetres(grips + bars.offCut) - kept);
    }
    for (const cutting::Count count : plan.plan.uncut)
        totals.uncut += static_cast<long>(count);
    return totals;
}

// ---- words --------------------------------------------------------------------------------------

ZetString NameOfProfile(const PartsOfProfile& parts) {
    return parts.material.isEmpty() ? parts.profileName
                                    : parts.profileName + L", " + parts.material;
}

double CostNumber(const ProfilePlan& plan, cutting::Cost cost) {
    return plan.unit == PlanUnit::kBars ? static_cast<double>(cost) : Millimetres(cost);
}

ZetString DescribeCost(const ProfilePlan& plan, std::optional<cutting::Cost> cost) {
    if (!cost)
        return L"-";
    const double number = CostNumber(plan, *cost);
    switch (plan.unit) {
        case PlanUnit::kBars:
            return ZetString::format(L"%d %s", *cost, *cost == 1 ? L"bar" : L"bars");
        case PlanUnit::kLength:
            return ZetString::format(L"%.1f m", number / kUnits);
        default:
            return ZetString::format(L"%.3f", number);
    }
}

ZetString DescribeUncut(const ProfilePlan& plan) {
    constexpr int kMaxMarks = 20;
    ZetString text;
    int marks = 0;
    for (std::size_t part = 0; part < plan.plan.uncut.size(); ++part)
        if (const auto count = static_cast<long>(plan.plan.uncut[part]);
            count > 0 && ++marks <= kMaxMarks)
            text += ZetString::format(L"%s%d of %s",
                                      marks == 1 ? L"" : L", ",
                                      count,
                                      ZetString::fromUtf8(plan.parts[part].mark));
    return marks > kMaxMarks ? text + ZetString::format(L" and %d more marks", marks - kMaxMarks)
                             : text;
}

ZetString DescribeProof(const ProfilePlan& plan) {
    if (plan.plan.IsProvedLeast())
        return L"proved least";
    if (!plan.plan.uncut.empty())
        return L"pieces are left";
    return ZetString::format(L"at most %s above the least",
                             DescribeCost(plan, plan.plan.cost - plan.plan.bound));
}

}  // namespace plugin

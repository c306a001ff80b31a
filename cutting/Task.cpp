#include "cutting/Task.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

namespace cutting {

namespace {

/// An uncut piece costs more than all bars of the pieces that make room for it, but not so much
/// that prices lose their digits or products grow too large.
constexpr Count kMaxBarsOfUncut = 100;
constexpr Cost kMaxCostOfUncut = 4 * kMaxCost;

Length SmallestKerf(const std::vector<Stock>& stocks) {
    Length smallest = std::numeric_limits<Length>::max();
    for (const Stock& stock : stocks)
        smallest = std::min(smallest, stock.kerf);
    return smallest;
}

/// What the widths of all pieces on all stocks have in common.
Length CommonDivisor(const Demand& demand, const std::vector<Stock>& stocks, Length kerf) {
    Length divisor = 0;
    for (const Part& part : demand)
        divisor = std::gcd(divisor, part.length + kerf);
    for (const Stock& stock : stocks)
        divisor = std::gcd(divisor, stock.kerf - kerf);
    return std::max<Length>(divisor, 1);
}

std::vector<Task::Size> MakeSizes(const Demand& demand, Length kerf, Length unit) {
    std::vector<Task::Size> all;
    all.reserve(demand.size());
    for (const Part& part : demand)
        if (part.count > 0)
            all.push_back({(part.length + kerf) / unit, part.count});
    std::sort(all.begin(), all.end(), [](const Task::Size& a, const Task::Size& b) {
        return a.width > b.width;
    });
    std::vector<Task::Size> sizes;
    for (const Task::Size& size : all) {
        if (sizes.empty() || sizes.back().width != size.width)
            sizes.push_back({size.width, 0});
        sizes.back().count += size.count;
    }
    return sizes;
}

/// Where a piece may find no bar any more, bars without end stand for those that are not there, one
/// for each piece.
void AddKindForUncut(Task& task) {
    Length longest = 0;
    Length longestUnlimited = 0;
    Cost highest = 1;
    for (const Task::Kind& kind : task.kinds) {
        longest = std::max(longest, kind.capacity - kind.extra);
        if (kind.count == kUnlimited)
            longestUnlimited = std::max(longestUnlimited, kind.capacity - kind.extra);
        highest = std::max(highest, kind.cost);
    }
    if (task.sizes.empty() || task.sizes.front().width <= longestUnlimited)
        return;
    const Cost cost =
        std::min(std::min(CountPieces(task) + 1, kMaxBarsOfUncut) * highest, kMaxCostOfUncut);
    task.kinds.push_back({2 * longest, longest, cost, kUnlimited, Task::kNoStock});
}

/// Hands the pieces of each size out to the marks of that length.
class Marks {
  public:
    Marks(const Demand& demand, const Task& task, Length kerf, Length unit)
        : m_marks(task.sizes.size()) {
        for (std::size_t part = demand.size(); part-- > 0;)
            if (demand[part].count > 0)
                m_marks[SizeOf(task, (demand[part].length + kerf) / unit)].push_back(
                    {part, demand[part].count});
    }

    /// Bars that can be cut alike before one of the marks runs out; at least 1.
    Count CountAlike(const Pattern& pattern, Count most) const {
        for (const Take& take : pattern.takes)
            most = std::min(most, m_marks[take.size].back().count / take.count);
        return std::max<Count>(most, 1);
    }

    /// The cuts of that many bars.
    std::vector<Cut> TakeBars(const Pattern& pattern, Count bars) {
        std::vector<Cut> cuts;
        for (const Take& take : pattern.takes)
            for (Count left = take.count; left > 0;)
                cuts.push_back(TakeMark(m_marks[take.size], left, bars));
        return cuts;
    }

  private:
    static std::size_t SizeOf(const Task& task, Length width) {
        const auto at = std::lower_bound(
            task.sizes.begin(), task.sizes.end(), width, [](const Task::Size& size, Length wanted) {
                return size.width > wanted;
            });
        return static_cast<std::size_t>(at - task.sizes.begin());
    }

    static Cut TakeMark(std::vector<Cut>& marks, Count& left, Count bars) {
        Cut& mark = marks.back();
        const Cut cut = {mark.part, std::min(left, mark.count / bars)};
        left -= cut.count;
        mark.count -= cut.count * bars;
        if (mark.count == 0)
            marks.pop_back();
        return cut;
    }

    std::vector<std::vector<Cut>> m_marks;  ///< by size; the next mark last
};

void AddBars(Plan& plan,
             std::size_t stock,
             std::vector<Cut> cuts,
             Count bars,
             const Demand& demand,
             const std::vector<Stock>& stocks) {
    Length pieceLength = 0;
    Count pieces = 0;
    for (const Cut& cut : cuts) {
        pieceLength += cut.count * demand[cut.part].length;
        pieces += cut.count;
    }
    plan.cost += bars * stocks[stock].cost;
    plan.bars.push_back(
        {stock, std::move(cuts), bars, OffCutOf(stocks[stock], pieceLength, pieces)});
}

void AddUncut(Plan& plan, const std::vector<Cut>& cuts, Count bars, std::size_t parts) {
    plan.uncut.resize(parts);
    for (const Cut& cut : cuts)
        plan.uncut[cut.part] += cut.count * bars;
}

}  // namespace

Rest::Rest(const Task& task) {
    for (const Task::Size& size : task.sizes)
        pieces.push_back(size.count);
    for (const Task::Kind& kind : task.kinds)
        bars.push_back(kind.count);
}

bool Rest::IsCut() const {
    return std::all_of(pieces.begin(), pieces.end(), [](Count count) { return count == 0; });
}

Count Rest::CountUses(const Pattern& pattern) const {
    Count uses = bars[pattern.kind] == kUnlimited ? kMaxPieces : bars[pattern.kind];
    for (const Take& take : pattern.takes)
        uses = std::min(uses, pieces[take.size] / take.count);
    return uses;
}

void Rest::Use(const Pattern& pattern, Count times) {
    for (const Take& take : pattern.takes)
        pieces[take.size] -= times * take.count;
    if (bars[pattern.kind] != kUnlimited)
        bars[pattern.kind] -= times;
}

Task MakeTask(const Demand& demand, const std::vector<Stock>& stocks) {
    const Length kerf = SmallestKerf(stocks);
    const Length unit = CommonDivisor(demand, stocks, kerf);
    Task task;
    task.sizes = MakeSizes(demand, kerf, unit);
    Cost costUnit = 0;
    for (const Stock& stock : stocks)
        costUnit = std::gcd(costUnit, stock.cost);
    task.costUnit = std::max<Cost>(costUnit, 1);
    for (std::size_t i = 0; i < stocks.size(); ++i) {
        const Stock& stock = stocks[i];
        if (stock.count != 0 && stock.GetUsable() > 0)
            task.kinds.push_back({(stock.GetUsable() + stock.kerf) / unit,
                                  (stock.kerf - kerf) / unit,
                                  stock.cost / task.costUnit,
                                  stock.count,
                                  i});
    }
    AddKindForUncut(task);
    return task;
}

Plan MakePlanOf(const Task& task,
                const Solution& solution,
                const Demand& demand,
                const std::vector<Stock>& stocks) {
    const Length kerf = SmallestKerf(stocks);
    Marks marks(demand, task, kerf, CommonDivisor(demand, stocks, kerf));
    Plan plan;
    for (const auto& [pattern, times] : solution) {
        const std::size_t stock = task.kinds[pattern.kind].stock;
        for (Count left = times; left > 0;) {
            const Count bars = marks.CountAlike(pattern, left);
            std::vector<Cut> cuts = marks.TakeBars(pattern, bars);
            left -= bars;
            if (stock == Task::kNoStock)
                AddUncut(plan, cuts, bars, demand.size());
            else
                AddBars(plan, stock, std::move(cuts), bars, demand, stocks);
        }
    }
    return plan;
}

Count CountPieces(const Task& task) {
    Count pieces = 0;
    for (const Task::Size& size : task.sizes)
        pieces += size.count;
    return pieces;
}

Count CountPieces(const Pattern& pattern) {
    Count pieces = 0;
    for (const Take& take : pattern.takes)
        pieces += take.count;
    return pieces;
}

Length SlackOf(const Task& task, const Pattern& pattern) {
    Length slack = task.kinds[pattern.kind].capacity;
    for (const Take& take : pattern.takes)
        slack -= take.count * task.WidthOn(pattern.kind, take.size);
    return slack;
}

Cost CostOf(const Task& task, const Solution& solution) {
    Cost cost = 0;
    for (const auto& [pattern, times] : solution)
        cost += times * task.kinds[pattern.kind].cost;
    return cost;
}

Pattern TrimPattern(const Pattern& pattern, const Rest& rest) {
    Pattern trimmed = {pattern.kind, {}};
    if (!rest.HasBar(pattern.kind))
        return trimmed;
    for (const Take& take : pattern.takes)
        if (rest.pieces[take.size] > 0)
            trimmed.takes.push_back({take.size, std::min(take.count, rest.pieces[take.size])});
    return trimmed;
}

void MergeEqual(Solution& solution) {
    const auto isBefore = [](const PatternUse& a, const PatternUse& b) {
        return a.pattern < b.pattern;
    };
    // First fit makes most in this order.
    if (!std::is_sorted(solution.begin(), solution.end(), isBefore))
        std::sort(solution.begin(), solution.end(), isBefore);
    auto last = solution.begin();
    for (auto use = solution.begin(); use != solution.end(); ++use) {
        if (use == last)
            continue;
        if (last->pattern == use->pattern)
            last->times += use->times;
        else if (++last != use)
            *last = std::move(*use);
    }
    if (!solution.empty())
        solution.erase(last + 1, solution.end());
}

bool IsBetter(const Task& task, const Solution& solution, const Solution& than) {
    if (solution.empty() || than.empty())
        return than.empty() && !solution.empty();
    const auto longestOffCut = [&](const Solution& of) {
        Length longest = 0;
        for (const PatternUse& use : of)
            longest = std::max(longest, SlackOf(task, use.pattern));
        return longest;
    };
    const auto score = [&](const Solution& of) {
        return std::tuple(CostOf(task, of), of.size(), -longestOffCut(of));
    };
    return score(solution) < score(than);
}

}  // namespace cutting

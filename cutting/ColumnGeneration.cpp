#include "cutting/ColumnGeneration.h"

#include "cutting/Knapsack.h"
#include "cutting/Simplex.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace cutting {

namespace {

constexpr double kWorthUnit = 1e8;                 ///< worth of the dearest bar
constexpr std::int64_t kMaxWorth = 2'000'000'000;  ///< of a pattern; above it products may overflow
constexpr double kOldPrices = 0.6;
constexpr double kWhole = 1e-6;
constexpr std::size_t kRowsPerMorePatterns = 15;
constexpr double kHighestPrice = 1e9;
constexpr std::int64_t kStepsPerTrimming = 200;
constexpr std::size_t kMaxPatternsPerRow = 6;
constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

using Prices = std::vector<double>;

double HighestCost(const Task& task) {
    Cost highest = 1;
    for (const Task::Kind& kind : task.kinds)
        if (kind.stock != Task::kNoStock)
            highest = std::max(highest, kind.cost);
    return static_cast<double>(highest);
}

/// Of a piece: as many as fit on a bar are worth a number of 64 bits together.
double MostWorthOf(const Task& task) {
    Length longest = 0;
    for (const Task::Kind& kind : task.kinds)
        longest = std::max(longest, kind.capacity);
    const Length narrowest = task.sizes.empty() ? 1 : task.sizes.back().width;
    return 9e18 / (static_cast<double>(longest / narrowest) + 1.0);
}

/// One relaxation.
class Program {
  public:
    Program(const Task& task, Effort& effort, const Rest& rest, std::set<Pattern>& pool)
        : m_task(task),
          m_effort(effort),
          m_rest(rest),
          m_pool(pool),
          m_highestCost(HighestCost(task)),
          m_mostWorth(MostWorthOf(task)),
          m_rowOfSize(task.sizes.size(), kNoRow),
          m_rowOfKind(task.kinds.size(), kNoRow),
          m_rightSides(MakeRows()),
          m_simplex(m_rightSides, MakeStart()) {
        for (const Pattern& pattern : TrimmedPool())
            Add(pattern);
        StartFromLengths();
    }

    Relaxation Solve(Cost knownBound) {
        do {
            while (!m_effort.IsSpent() && m_simplex.Improve())
                m_effort.Spend(m_simplex.GetWork());
            if (m_effort.IsSpent() || GetCost() <= static_cast<double>(knownBound) + kWhole)
                break;
        } while (FindPatterns() && std::ceil(GetCost() - kWhole) > static_cast<double>(m_bound));
        return MakeResult();
    }

    /// The prices of all sizes, then of all kinds; 0 where there is no row.
    Prices GetPrices() const {
        Prices prices;
        const auto append = [&](const std::vector<std::size_t>& rows) {
            for (const std::size_t row : rows)
                prices.push_back(row == kNoRow ? 0.0 : m_simplex.GetPrices()[row]);
        };
        append(m_rowOfSize);
        append(m_rowOfKind);
        return prices;
    }

  private:
    double GetCost() const { return m_simplex.GetValue() * m_highestCost; }
    double RelativeCost(std::size_t kind) const {
        return static_cast<double>(m_task.kinds[kind].cost) / m_highestCost;
    }

    std::vector<double> MakeRows() {
        std::vector<double> rightSides;
        const auto addRow = [&](std::size_t& row, Count count) {
            row = rightSides.size();
            rightSides.push_back(static_cast<double>(count));
        };
        for (std::size_t size = 0; size < m_rowOfSize.size(); ++size)
            if (m_rest.pieces[size] > 0)
                addRow(m_rowOfSize[size], m_rest.pieces[size]);
        for (std::size_t kind = 0; kind < m_rowOfKind.size(); ++kind)
            if (m_rest.bars[kind] > 0)
                addRow(m_rowOfKind[kind], m_rest.bars[kind]);
        return rightSides;
    }

    /// Bars of one size only, of the kind without limit where a piece costs least.
    std::vector<Simplex::Column> MakeStart() {
        std::vector<Simplex::Column> columns;
        for (std::size_t size = 0; size < m_rowOfSize.size(); ++size) {
            if (m_rowOfSize[size] == kNoRow)
                continue;
            m_patterns.push_back(CheapestOfOneSize(size));
            columns.push_back(MakeColumn(m_patterns.back()));
        }
        return columns;
    }

    Pattern CheapestOfOneSize(std::size_t size) const {
        Pattern cheapest;
        double least = 0.0;
        for (std::size_t kind = 0; kind < m_task.kinds.size(); ++kind) {
            const Count fitting = m_task.kinds[kind].capacity / m_task.WidthOn(kind, size);
            const Count count = std::min(fitting, m_rest.pieces[size]);
            if (m_task.kinds[kind].count != kUnlimited || count == 0)
                continue;
            const double cost = RelativeCost(kind) / static_cast<double>(count);
            if (cheapest.takes.empty() || cost < least) {
                cheapest = {kind, {{size, count}}};
                least = cost;
            }
        }
        return cheapest;
    }

    Simplex::Column MakeColumn(const Pattern& pattern) const {
        Simplex::Column column = {RelativeCost(pattern.kind), {}};
        for (const Take& take : pattern.takes)
            column.entries.push_back({m_rowOfSize[take.size], static_cast<double>(take.count)});
        if (m_rowOfKind[pattern.kind] != kNoRow)
            column.entries.push_back({m_rowOfKind[pattern.kind], 1.0});
        return column;
    }

    void Add(const Pattern& pattern) {
        m_patterns.push_back(pattern);
        m_simplex.Add(MakeColumn(pattern));
    }

    /// Prices by length, as if nothing were lost. They are near the last ones when little is, and
    /// better than the first ones of the start columns.
    void StartFromLengths() {
        std::optional<double> perWidth;
        for (const Task::Kind& kind : m_task.kinds)
            if (kind.count == kUnlimited && kind.stock != Task::kNoStock)
                perWidth = std::min(perWidth.value_or(kHighestPrice), PerWidth(kind));
        if (!perWidth)
            return;
        m_bestPrices.resize(m_rightSides.size());
        for (std::size_t size = 0; size < m_rowOfSize.size(); ++size)
            if (m_rowOfSize[size] != kNoRow)
                m_bestPrices[m_rowOfSize[size]] =
                    *perWidth * static_cast<double>(m_task.sizes[size].width);
        for (std::size_t kind = 0; kind < m_rowOfKind.size(); ++kind)
            if (m_rowOfKind[kind] != kNoRow)
                m_bestPrices[m_rowOfKind[kind]] =
                    std::min(0.0,
                             RelativeCost(kind) -
                                 *perWidth * static_cast<double>(m_task.kinds[kind].capacity));
        for (std::size_t row = 0; row < m_rightSides.size(); ++row)
            m_exactBound += m_bestPrices[row] * m_rightSides[row] * m_highestCost;
    }

    double PerWidth(const Task::Kind& kind) const {
        return static_cast<double>(kind.cost) / m_highestCost / static_cast<double>(kind.capacity);
    }

    /// The pool, cut down to what is left.
    std::set<Pattern> TrimmedPool() const {
        m_effort.Spend(static_cast<std::int64_t>(m_pool.size()) * kStepsPerTrimming);
        std::set<Pattern> trimmed;
        for (const Pattern& pattern : m_pool) {
            Pattern rest = TrimPattern(pattern, m_rest);
            if (!rest.takes.empty())
                trimmed.insert(std::move(rest));
        }
        return trimmed;
    }

    // ---- pricing --------------------------------------------------------------------------------

    /// Patterns that lower the cost: with prices between the best so far and these, else with
    /// these.
    bool FindPatterns() {
        const Prices prices = m_simplex.GetPrices();
        if (m_bestPrices.empty())
            return FindPatternsAt(prices);
        Prices smooth = prices;
        for (std::size_t row = 0; row < smooth.size(); ++row)
            smooth[row] = kOldPrices * m_bestPrices[row] + (1.0 - kOldPrices) * prices[row];
        return FindPatternsAt(smooth) || (!m_effort.IsSpent() && FindPatternsAt(prices));
    }

    bool FindPatternsAt(const Prices& prices) {
        const Worths worths = MakeWorths(prices);
        Knapsack knapsack(m_task, m_rest.pieces, worths, m_effort);
        std::vector<Heaviest> heaviest(m_task.kinds.size());
        bool isExact = true;
        bool isAnyAdded = false;
        for (std::size_t kind = 0; kind < heaviest.size(); ++kind) {
            if (!m_rest.HasBar(kind))
                continue;
            heaviest[kind] = knapsack.Find(kind, ThresholdOf(kind, prices));
            isExact = isExact && heaviest[kind].isExact;
            isAnyAdded = AddIfGain(heaviest[kind].pattern) || isAnyAdded;
        }
        if (isExact)
            RaiseBound(worths, heaviest, prices);
        if (isAnyAdded)
            AddPatternsOfOtherSizes(worths, heaviest);
        return isAnyAdded;
    }

    /// More patterns per round need fewer rounds: those that do without the sizes of the first
    /// ones.
    void AddPatternsOfOtherSizes(Worths worths, std::vector<Heaviest>& heaviest) {
        const std::size_t rounds = m_rightSides.size() / kRowsPerMorePatterns;
        for (std::size_t kind = 0; kind < heaviest.size(); ++kind) {
            Pattern pattern = std::move(heaviest[kind].pattern);
            for (std::size_t round = 0; round < rounds && !pattern.takes.empty(); ++round) {
                for (const Take& take : pattern.takes)
                    worths[take.size] = 0;
                Knapsack knapsack(m_task, m_rest.pieces, worths, m_effort);
                pattern = knapsack.FindRoughly(kind);
                if (!AddIfGain(pattern))
                    break;
            }
        }
    }

    /// Prices that stand for missing bars can be beyond all whole numbers: what fits on a bar has
    /// to be worth less than that.
    std::int64_t WorthOf(double whole) const {
        return static_cast<std::int64_t>(std::clamp(whole, -m_mostWorth, m_mostWorth));
    }

    Worths MakeWorths(const Prices& prices) const {
        Worths worths(m_rowOfSize.size());
        for (std::size_t size = 0; size < worths.size(); ++size)
            if (m_rowOfSize[size] != kNoRow)
                worths[size] =
                    WorthOf(std::floor(std::max(0.0, prices[m_rowOfSize[size]]) * kWorthUnit));
        return worths;
    }

    std::int64_t ThresholdOf(std::size_t kind, const Prices& prices) const {
        const double ofLimit = m_rowOfKind[kind] == kNoRow ? 0.0 : prices[m_rowOfKind[kind]];
        return WorthOf(std::ceil((RelativeCost(kind) - ofLimit) * kWorthUnit * (1.0 + 1e-7)));
    }

    bool AddIfGain(const Pattern& pattern) {
        if (pattern.takes.empty() || m_simplex.GainOf(MakeColumn(pattern)) <= Simplex::kLeastGain)
            return false;
        Add(pattern);
        m_pool.insert(pattern);
        return true;
    }

    /// Take a worth per cost that no heaviest pattern of a kind without limit goes above. Then a
    /// bar is worth at most its cost times that, plus, where there is a limit, a surplus. So the
    /// worth of all pieces, less the surplus of all limited bars, divided by it, is a bound. It is
    /// highest for one of the ratios of the kinds.
    void RaiseBound(const Worths& worths,
                    const std::vector<Heaviest>& heaviest,
                    const Prices& prices) {
        for (std::size_t kind = 0; kind < heaviest.size(); ++kind)
            if (heaviest[kind].worth > kMaxWorth)
                return;
        std::int64_t sum = 0;
        for (std::size_t size = 0; size < worths.size(); ++size)
            sum += worths[size] * m_rest.pieces[size];
        for (std::size_t kind = 0; kind < heaviest.size(); ++kind)
            if (heaviest[kind].worth > 0 && IsAboveUnlimited(kind, heaviest))
                KeepBound(sum - SurplusOver(kind, heaviest), kind, heaviest[kind].worth, prices);
    }

    bool IsAboveUnlimited(std::size_t kind, const std::vector<Heaviest>& heaviest) const {
        const Cost cost = m_task.kinds[kind].cost;
        for (std::size_t other = 0; other < heaviest.size(); ++other)
            if (m_task.kinds[other].count == kUnlimited &&
                heaviest[other].worth * cost > heaviest[kind].worth * m_task.kinds[other].cost)
                return false;
        return true;
    }

    /// What limited bars are worth above the ratio of this kind.
    std::int64_t SurplusOver(std::size_t kind, const std::vector<Heaviest>& heaviest) const {
        std::int64_t surplus = 0;
        for (std::size_t other = 0; other < heaviest.size(); ++other) {
            if (m_rowOfKind[other] == kNoRow)
                continue;
            const std::int64_t covered =
                heaviest[kind].worth * m_task.kinds[other].cost / m_task.kinds[kind].cost;
            surplus +=
                m_rest.bars[other] * std::max<std::int64_t>(0, heaviest[other].worth - covered);
        }
        return surplus;
    }

    /// The bound is the sum divided by the worth per cost of the kind, rounded up.
    void KeepBound(std::int64_t sum, std::size_t kind, std::int64_t worth, const Prices& prices) {
        if (sum <= 0)
            return;
        const Cost cost = m_task.kinds[kind].cost;
        const Cost whole = sum / worth * cost;
        const std::int64_t numerator = sum % worth * cost;
        m_bound = std::max(m_bound, whole + CeilDivide(numerator, worth));
        const double bound = static_cast<double>(whole) +
                             static_cast<double>(numerator) / static_cast<double>(worth);
        if (m_bestPrices.empty() || bound > m_exactBound) {
            m_exactBound = bound;
            m_bestPrices = prices;
        }
    }

    Relaxation MakeResult() const {
        Relaxation result = {{}, GetCost(), m_bound};
        for (const auto& [column, times] : m_simplex.GetUses())
            result.uses.push_back({m_patterns[column], times});
        return result;
    }

    const Task& m_task;
    Effort& m_effort;
    const Rest& m_rest;
    std::set<Pattern>& m_pool;
    double m_highestCost;
    double m_mostWorth;
    std::vector<std::size_t> m_rowOfSize;
    std::vector<std::size_t> m_rowOfKind;
    std::vector<double> m_rightSides;
    std::vector<Pattern> m_patterns;  ///< by column
    Simplex m_simplex;
    Prices m_bestPrices;  ///< those with the highest bound
    double m_exactBound = 0.0;
    Cost m_bound = 0;
};

}  // namespace

void ColumnGeneration::Remember(const Solution& solution) {
    for (const PatternUse& use : solution)
        m_pool.insert(use.pattern);
}

Relaxation ColumnGeneration::Relax(const Rest& rest, Cost knownBound, Effort& effort) {
    DropWorstPatterns();
    Program program(m_task, effort, rest, m_pool);
    Relaxation relaxation = program.Solve(knownBound);
    if (m_prices.empty())
        m_prices = program.GetPrices();
    return relaxation;
}

void ColumnGeneration::DropWorstPatterns() {
    const std::size_t most = kMaxPatternsPerRow * (m_task.sizes.size() + m_task.kinds.size());
    if (m_prices.empty() || m_pool.size() <= 2 * most)
        return;
    std::vector<std::pair<double, std::set<Pattern>::const_iterator>> byLoss;
    for (auto at = m_pool.begin(); at != m_pool.end(); ++at)
        byLoss.push_back({LossOf(*at), at});
    std::stable_sort(byLoss.begin(), byLoss.end(), [](const auto& a, const auto& b) {
        return a.first < b.first;
    });
    for (std::size_t i = most; i < byLoss.size(); ++i)
        m_pool.erase(byLoss[i].second);
}

double ColumnGeneration::LossOf(const Pattern& pattern) const {
    const std::size_t sizes = m_task.sizes.size();
    double loss = static_cast<double>(m_task.kinds[pattern.kind].cost) / HighestCost(m_task) -
                  m_prices[sizes + pattern.kind];
    for (const Take& take : pattern.takes)
        loss -= m_prices[take.size] * static_cast<double>(take.count);
    return loss;
}

}  // namespace cutting

#include "cutting/ExactSearch.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

namespace cutting {

namespace {

constexpr std::int64_t kStepsPerBar = 150;
constexpr std::int64_t kStepsPerTake = 15;
constexpr std::int64_t kMaxStates = std::numeric_limits<std::int64_t>::max();

/// Depth first: a bar for the longest piece that is left, with each set of other pieces that leaves
/// no room for one more.
class Search {
  public:
    Search(const Task& task, const Rest& rest, Cost below, Effort& effort)
        : m_task(task), m_whole(rest), m_rest(rest), m_below(below), m_effort(effort) {
        for (std::size_t size = 0; size < rest.pieces.size(); ++size)
            if (rest.pieces[size] > 0)
                m_sizes.push_back(size);
        for (std::size_t kind = 0; kind < rest.bars.size(); ++kind)
            if (rest.HasBar(kind))
                m_kinds.push_back(kind);
        std::sort(m_kinds.begin(), m_kinds.end(), [&](std::size_t a, std::size_t b) {
            const Wide left = Wide{task.kinds[a].cost} * Holds(b);
            const Wide right = Wide{task.kinds[b].cost} * Holds(a);
            return left != right ? left < right : a < b;
        });
    }

    ExactAnswer Run() {
        if (!CanCountStates())
            return {};
        Branch(0);
        MergeEqual(m_best);
        return {std::move(m_best), !m_effort.IsSpent()};
    }

  private:
    /// The most that pieces on a bar of the kind measure.
    Length Holds(std::size_t kind) const {
        return m_task.kinds[kind].capacity - m_task.kinds[kind].extra;
    }

    /// Whether each state has a number of its own.
    bool CanCountStates() const {
        std::int64_t states = 1;
        const auto multiply = [&](Count count) {
            const bool isSmall = states <= kMaxStates / (count + 1);
            states *= isSmall ? count + 1 : 1;
            return isSmall;
        };
        return std::all_of(m_sizes.begin(),
                           m_sizes.end(),
                           [&](std::size_t size) { return multiply(m_rest.pieces[size]); }) &&
               std::all_of(m_kinds.begin(), m_kinds.end(), [&](std::size_t kind) {
                   return multiply(std::max<Count>(m_rest.bars[kind], 0));
               });
    }

    std::int64_t NumberOfState() const {
        std::int64_t number = 0;
        for (const std::size_t size : m_sizes)
            number = number * (m_whole.pieces[size] + 1) + m_rest.pieces[size];
        for (const std::size_t kind : m_kinds)
            if (m_whole.bars[kind] != kUnlimited)
                number = number * (m_whole.bars[kind] + 1) + m_rest.bars[kind];
        return number;
    }

    /// Cuts what is left, with bars of that cost so far.
    void Branch(Cost cost) {
        m_effort.Spend(kStepsPerBar);
        const auto next = std::find_if(m_sizes.begin(), m_sizes.end(), [&](std::size_t size) {
            return m_rest.pieces[size] > 0;
        });
        if (next == m_sizes.end()) {
            m_below = cost;
            m_best = m_bars;
            return;
        }
        if (cost + FindBound() >= m_below || IsKnown(cost))
            return;
        const auto first = static_cast<std::size_t>(next - m_sizes.begin());
        for (const std::size_t kind : m_kinds) {
            const Length room = m_task.kinds[kind].capacity - m_task.WidthOn(kind, *next);
            if (!m_rest.HasBar(kind) || room < 0 || cost + m_task.kinds[kind].cost >= m_below)
                continue;
            m_bars.push_back({
                {kind, {}},
                1
            });
            m_rest.Use(m_bars.back().pattern, 1);
            Fill(first, m_task.kinds[kind].capacity, 1, cost);
            m_rest.Use({kind, {}}, -1);
            m_bars.pop_back();
        }
    }

    /// Whether this state was met at no higher cost.
    bool IsKnown(Cost cost) {
        const auto [at, isNew] = m_costs.insert({NumberOfState(), cost});
        if (!isNew && at->second <= cost)
            return true;
        at->second = cost;
        return false;
    }

    /// Cost of the cheapest bars, the last of them in part, that hold what is left.
    Cost FindBound() const {
        Length left = 0;
        for (const std::size_t size : m_sizes)
            left += m_rest.pieces[size] * m_task.sizes[size].width;
        Cost bound = 0;
        for (const std::size_t kind : m_kinds) {
            const Length holds = Holds(kind);
            const Count full = left / holds;
            const Count bars = m_rest.bars[kind];
            if (bars == kUnlimited || full < bars) {
                const Wide part = Wide{left} * m_task.kinds[kind].cost;
                return bound + static_cast<Cost>((part + holds - 1) / holds);
            }
            bound += bars * m_task.kinds[kind].cost;
            left -= bars * holds;
        }
        return left > 0 ? m_below : bound;
    }

    /// Goes on with the last bar: pieces of this size, at least so many, and of those behind it.
    void Fill(std::size_t position, Length room, Count fewest, Cost cost) {
        m_effort.Spend(kStepsPerTake);
        if (m_effort.IsSpent())
            return;
        const std::size_t kind = m_bars.back().pattern.kind;
        while (position < m_sizes.size() && (m_rest.pieces[m_sizes[position]] == 0 ||
                                             m_task.WidthOn(kind, m_sizes[position]) > room))
            ++position;
        if (position == m_sizes.size())
            return Close(room, cost);
        const std::size_t size = m_sizes[position];
        const Length width = m_task.WidthOn(kind, size);
        for (Count count = std::min(m_rest.pieces[size], room / width); count >= fewest; --count) {
            Put(size, count);
            Fill(position + 1, room - count * width, 0, cost);
            Put(size, -count);
        }
    }

    /// Puts pieces on the last bar, or takes them off again.
    void Put(std::size_t size, Count count) {
        m_rest.pieces[size] -= count;
        std::vector<Take>& takes = m_bars.back().pattern.takes;
        if (count > 0)
            takes.push_back({size, count});
        else if (count < 0)
            takes.pop_back();
    }

    void Close(Length room, Cost cost) {
        const Pattern& pattern = m_bars.back().pattern;
        if (HasRoomForMore(pattern.kind, room) || IsCheaperElsewhere(pattern))
            return;
        Branch(cost + m_task.kinds[pattern.kind].cost);
    }

    bool HasRoomForMore(std::size_t kind, Length room) const {
        return std::any_of(m_sizes.begin(), m_sizes.end(), [&](std::size_t size) {
            return m_rest.pieces[size] > 0 && m_task.WidthOn(kind, size) <= room;
        });
    }

    bool IsCheaperElsewhere(Pattern pattern) const {
        const std::size_t kind = pattern.kind;
        return std::any_of(m_kinds.begin(), m_kinds.end(), [&](std::size_t other) {
            pattern.kind = other;
            return m_rest.bars[other] == kUnlimited &&
                   std::pair(m_task.kinds[other].cost, other) <
                       std::pair(m_task.kinds[kind].cost, kind) &&
                   SlackOf(m_task, pattern) >= 0;
        });
    }

    const Task& m_task;
    const Rest& m_whole;
    Rest m_rest;
    Cost m_below;
    Effort& m_effort;
    std::vector<std::size_t> m_sizes;  ///< with pieces, the longest first
    std::vector<std::size_t> m_kinds;  ///< with bars, by cost per length
    Solution m_bars;
    Solution m_best;
    std::unordered_map<std::int64_t, Cost> m_costs;  ///< by number of state
};

}  // namespace

ExactAnswer SearchExactly(const Task& task, const Rest& rest, Cost below, Effort& effort) {
    return Search(task, rest, below, effort).Run();
}

}  // namespace cutting

#include "cutting/FirstFit.h"

#include <algorithm>
#include <utility>

namespace cutting {

namespace {

/// The first bar that has enough room: a tree whose leaves are the bars and whose nodes hold the
/// most that a bar below them has.
class RoomTree {
  public:
    std::size_t Count() const { return m_count; }

    /// The first bar with at least this room; Count() when there is none.
    std::size_t Find(Length room) const {
        if (m_most[1] < room)
            return m_count;
        std::size_t node = 1;
        while (node < m_leaves)
            node = m_most[2 * node] >= room ? 2 * node : 2 * node + 1;
        return node - m_leaves;
    }

    void Add(Length room) {
        if (m_count == m_leaves)
            Grow();
        Set(m_count++, room);
    }

    void Set(std::size_t bar, Length room) {
        std::size_t node = m_leaves + bar;
        m_most[node] = room;
        while ((node /= 2) > 0)
            m_most[node] = std::max(m_most[2 * node], m_most[2 * node + 1]);
    }

  private:
    static constexpr Length kNoBar = -1;

    void Grow() {
        const std::vector<Length> old = m_most;
        const std::size_t oldLeaves = m_leaves;
        m_leaves *= 2;
        m_most.assign(2 * m_leaves, kNoBar);
        for (std::size_t bar = 0; bar < oldLeaves; ++bar)
            Set(bar, old[oldLeaves + bar]);
    }

    std::size_t m_leaves = 1;
    std::size_t m_count = 0;
    std::vector<Length> m_most = {kNoBar, kNoBar};
};

/// One plan, whose new bars are of one kind where the piece fits it.
class Fitting {
  public:
    Fitting(const Task& task, const Rest& rest, std::size_t kind)
        : m_task(task), m_rest(rest), m_kind(kind) {
        for (std::size_t size = 0; size < task.sizes.size(); ++size)
            Place(size);
    }

    Solution Finish() {
        for (PatternUse& bar : m_bars) {
            bar.pattern.kind = FindCheapestKind(bar.pattern);
            m_rest.Use({bar.pattern.kind, {}}, 1);
        }
        MergeEqual(m_bars);
        return std::move(m_bars);
    }

  private:
    void Place(std::size_t size) {
        for (Count left = m_rest.pieces[size]; left > 0;) {
            std::size_t bar = m_rooms.Find(m_task.sizes[size].width);
            if (bar == m_rooms.Count())
                Open(size);
            left -= Fill(bar, size, left);
        }
    }

    void Open(std::size_t size) {
        Pattern pattern = {m_kind, {{size, 1}}};
        if (SlackOf(m_task, pattern) < 0)
            pattern.kind = FindCheapestUnlimited(pattern);
        const Task::Kind& kind = m_task.kinds[pattern.kind];
        pattern.takes.clear();
        m_rooms.Add(kind.capacity - kind.extra);
        m_bars.push_back({std::move(pattern), 1});
    }

    /// As many pieces as go on the bar; returns their number.
    Count Fill(std::size_t bar, std::size_t size, Count most) {
        Pattern& pattern = m_bars[bar].pattern;
        const Length room = SlackOf(m_task, pattern);
        const Length width = m_task.WidthOn(pattern.kind, size);
        const Count count = std::min(most, room / width);
        pattern.takes.push_back({size, count});
        m_rooms.Set(bar, room - count * width - m_task.kinds[pattern.kind].extra);
        return count;
    }

    std::size_t FindCheapestUnlimited(Pattern pattern) const {
        return FindCheapest(
            pattern, [&](std::size_t kind) { return m_task.kinds[kind].count == kUnlimited; });
    }

    std::size_t FindCheapestKind(Pattern pattern) const {
        return FindCheapest(pattern, [&](std::size_t kind) { return m_rest.HasBar(kind); });
    }

    template <typename IsAllowed>
    std::size_t FindCheapest(Pattern& pattern, const IsAllowed& isAllowed) const {
        std::size_t cheapest = pattern.kind;
        Cost least = SlackOf(m_task, pattern) < 0 ? -1 : m_task.kinds[cheapest].cost;
        for (pattern.kind = 0; pattern.kind < m_task.kinds.size(); ++pattern.kind) {
            const Cost cost = m_task.kinds[pattern.kind].cost;
            const bool isCheaper = least < 0 || cost < least;
            if (isCheaper && isAllowed(pattern.kind) && SlackOf(m_task, pattern) >= 0) {
                cheapest = pattern.kind;
                least = cost;
            }
        }
        return cheapest;
    }

    const Task& m_task;
    Rest m_rest;
    std::size_t m_kind;
    Solution m_bars;
    RoomTree m_rooms;
};

}  // namespace

Solution FitDecreasing(const Task& task, const Rest& rest) {
    Solution best;
    for (std::size_t kind = 0; kind < task.kinds.size(); ++kind) {
        if (task.kinds[kind].count != kUnlimited)
            continue;
        Solution solution = Fitting(task, rest, kind).Finish();
        if (IsBetter(task, solution, best))
            best = std::move(solution);
    }
    return best;
}

}  // namespace cutting

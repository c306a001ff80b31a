#include "cutting/FirstFit.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace cutting {

namespace {

/// Of more kinds only those without limit are tried as the first.
constexpr std::size_t kMaxKindsTried = 8;

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

/// One plan, whose new bars are of one kind where a piece fits it and there is one, else of the
/// kind with the least cost per length.
class Fitting {
  public:
    Fitting(const Task& task, const Rest& rest, std::optional<std::size_t> kind)
        : m_task(task), m_rest(rest), m_kind(kind) {
        for (std::size_t size = 0; size < task.sizes.size(); ++size)
            Place(size);
    }

    Solution Finish() {
        for (PatternUse& bar : m_bars) {
            m_rest.Use({bar.pattern.kind, {}}, -1);
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
                Open(m_task.sizes[size].width);
            left -= Fill(bar, size, left);
        }
    }

    /// A bar for a piece of that width.
    void Open(Length width) {
        const std::size_t kind =
            m_kind && Fits(*m_kind, width) ? *m_kind : FindCheapestPerLength(width);
        m_rest.Use({kind, {}}, 1);
        m_rooms.Add(HoldsOf(kind));
        m_bars.push_back({
            {kind, {}},
            1
        });
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

    /// The longest piece that goes on a bar of the kind.
    Length HoldsOf(std::size_t kind) const {
        return m_task.kinds[kind].capacity - m_task.kinds[kind].extra;
    }

    bool Fits(std::size_t kind, Length width) const {
        return m_rest.HasBar(kind) && width <= HoldsOf(kind);
    }

    /// There is one: bars that stand for uncut pieces have no limit.
    std::size_t FindCheapestPerLength(Length width) const {
        std::optional<std::size_t> cheapest;
        for (std::size_t kind = 0; kind < m_task.kinds.size(); ++kind)
            if (Fits(kind, width) && (!cheapest || IsCheaperPerLength(kind, *cheapest)))
                cheapest = kind;
        return *cheapest;
    }

    bool IsCheaperPerLength(std::size_t kind, std::size_t than) const {
        return m_task.kinds[kind].cost * HoldsOf(than) < m_task.kinds[than].cost * HoldsOf(kind);
    }

    std::size_t FindCheapestKind(const Pattern& pattern) const {
        const Task::Kind& own = m_task.kinds[pattern.kind];
        const Count pieces = CountPieces(pattern);
        const Length width = own.capacity - SlackOf(m_task, pattern) - pieces * own.extra;
        std::size_t cheapest = pattern.kind;
        for (std::size_t kind = 0; kind < m_task.kinds.size(); ++kind)
            if (m_rest.HasBar(kind) && m_task.kinds[kind].cost < m_task.kinds[cheapest].cost &&
                width + pieces * m_task.kinds[kind].extra <= m_task.kinds[kind].capacity)
                cheapest = kind;
        return cheapest;
    }

    const Task& m_task;
    Rest m_rest;
    std::optional<std::size_t> m_kind;  ///< that is taken first
    Solution m_bars;
    RoomTree m_rooms;
};

/// Kinds to take first; at last none.
std::vector<std::optional<std::size_t>> KindsToTry(const Task& task) {
    std::vector<std::optional<std::size_t>> kinds;
    for (std::size_t kind = 0; kind < task.kinds.size(); ++kind)
        if (task.kinds[kind].stock != Task::kNoStock &&
            (task.kinds[kind].count == kUnlimited || task.kinds.size() <= kMaxKindsTried))
            kinds.push_back(kind);
    if (task.kinds.size() > 1)
        kinds.push_back(std::nullopt);
    return kinds;
}

}  // namespace

Solution FitDecreasing(const Task& task, const Rest& rest) {
    Solution best;
    for (const std::optional<std::size_t> kind : KindsToTry(task)) {
        Solution solution = Fitting(task, rest, kind).Finish();
        if (IsBetter(task, solution, best))
            best = std::move(solution);
    }
    return best;
}

}  // namespace cutting

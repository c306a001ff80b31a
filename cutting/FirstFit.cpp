#include "cutting/FirstFit.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace cutting {

namespace {

/// Of more kinds only those without limit are tried as the first.
constexpr std::size_t kMaxKindsTried = 8;

/// Bars that stand next to each other and are filled alike.
struct Run {
    Count firstBar = 0;
    PatternUse use;
};

/// The first run whose bars have enough room: a tree over the numbers of all bars, of which only
/// what leads to the first bar of a run is there. Each node holds the most room below it.
class RoomTree {
  public:
    /// The run, by the number that Set was given; nothing when there is none.
    std::optional<std::size_t> Find(Length room) const {
        if (m_nodes[m_root].most < room)
            return std::nullopt;
        Index node = m_root;
        for (int level = m_levels; level > 0; --level) {
            const auto& [left, right] = m_nodes[node].below;
            node = m_nodes[left].most >= room ? left : right;
        }
        return m_nodes[node].below[0];
    }

    /// Each of the run's bars has this room.
    void Set(Count firstBar, std::size_t run, Length room) {
        while (firstBar >> m_levels != 0)
            Grow();
        std::array<Index, kMaxLevels> way{};
        Index node = m_root;
        for (int level = m_levels; level > 0; --level) {
            way[static_cast<std::size_t>(level)] = node;
            node = GoDown(node, (firstBar >> (level - 1)) & 1);
        }
        m_nodes[node].most = room;
        m_nodes[node].below[0] = static_cast<Index>(run);
        for (int level = 1; level <= m_levels; ++level) {
            Node& above = m_nodes[way[static_cast<std::size_t>(level)]];
            const auto& [left, right] = above.below;
            const Length most = std::max(m_nodes[left].most, m_nodes[right].most);
            if (std::exchange(above.most, most) == most)
                return;
        }
    }

  private:
    using Index = std::uint32_t;

    static constexpr std::size_t kMaxLevels = 64;
    static constexpr Length kNoBar = -1;
    static constexpr Index kNothing = 0;

    struct Node {
        Length most = kNoBar;
        std::array<Index, 2> below = {kNothing, kNothing};  ///< of a leaf the run
    };

    Index GoDown(Index node, Count side) {
        const auto to = static_cast<std::size_t>(side);
        if (m_nodes[node].below[to] == kNothing) {
            m_nodes[node].below[to] = static_cast<Index>(m_nodes.size());
            m_nodes.emplace_back();
        }
        return m_nodes[node].below[to];
    }

    void Grow() {
        const Node root = {
            m_nodes[m_root].most, {m_root, kNothing}
        };
        m_root = static_cast<Index>(m_nodes.size());
        m_nodes.push_back(root);
        ++m_levels;
    }

    std::vector<Node> m_nodes = {{}, {}};  ///< the first is nothing's
    Index m_root = 1;
    int m_levels = 0;
};

/// One plan, whose new bars are of one kind where a piece fits it and there is one, else of the
/// kind with the least cost per length. Takes as long for a thousand pieces of a size as for one.
class Fitting {
  public:
    Fitting(const Task& task, const Rest& rest, std::optional<std::size_t> kind)
        : m_task(task), m_rest(rest), m_kind(kind) {
        for (std::size_t size = 0; size < task.sizes.size(); ++size)
            Place(size);
    }

    Solution Finish() {
        std::sort(m_runs.begin(), m_runs.end(), [](const Run& a, const Run& b) {
            return a.firstBar < b.firstBar;
        });
        for (Run& run : m_runs)
            TakeCheapest(run.use);
        MergeEqual(m_solution);
        return std::move(m_solution);
    }

  private:
    void Place(std::size_t size) {
        for (Count left = m_rest.pieces[size]; left > 0;) {
            const std::optional<std::size_t> run = m_rooms.Find(m_task.sizes[size].width);
            left -= Fill(run ? *run : Open(size, left), size, left);
        }
    }

    /// Bars for pieces of that size: as many as they fill, and there are.
    std::size_t Open(std::size_t size, Count pieces) {
        const Length width = m_task.sizes[size].width;
        const std::size_t kind =
            m_kind && Fits(*m_kind, width) ? *m_kind : FindCheapestPerLength(width);
        const Count onEach = m_task.kinds[kind].capacity / m_task.WidthOn(kind, size);
        const Count bars = CountBars(kind, (pieces + onEach - 1) / onEach);
        m_rest.Use({kind, {}}, bars);
        return Add({
            std::exchange(m_nextBar, m_nextBar + bars), {{kind, {}}, bars}
        });
    }

    /// Of the kind: those that there are, or no more than that.
    Count CountBars(std::size_t kind, Count most) const {
        return std::min(m_rest.CountUses({kind, {}}), most);
    }

    std::size_t Add(Run run) {
        m_rooms.Set(run.firstBar, m_runs.size(), RoomOf(run.use.pattern));
        m_runs.push_back(std::move(run));
        return m_runs.size() - 1;
    }

    /// As many pieces as go on the bars; returns their number.
    Count Fill(std::size_t run, std::size_t size, Count most) {
        const Pattern& pattern = m_runs[run].use.pattern;
        const Count onEach = SlackOf(m_task, pattern) / m_task.WidthOn(pattern.kind, size);
        const Count count = std::min(most, onEach);
        const Count bars = std::min(most / count, m_runs[run].use.times);
        SplitBehind(run, bars);
        m_runs[run].use.pattern.takes.push_back({size, count});
        m_rooms.Set(m_runs[run].firstBar, run, RoomOf(m_runs[run].use.pattern));
        return bars * count;
    }

    /// Leaves that many bars to the run; the others become one of their own.
    void SplitBehind(std::size_t run, Count bars) {
        if (m_runs[run].use.times == bars)
            return;
        Run others = m_runs[run];
        m_runs[run].use.times = bars;
        others.firstBar += bars;
        others.use.times -= bars;
        Add(std::move(others));
    }

    /// The longest piece that still goes on the bar.
    Length RoomOf(const Pattern& pattern) const {
        return SlackOf(m_task, pattern) - m_task.kinds[pattern.kind].extra;
    }

    /// Bars that are cut like this, each of the cheapest kind that holds its pieces.
    void TakeCheapest(PatternUse& use) {
        while (use.times > 0) {
            const std::size_t own = use.pattern.kind;
            const std::size_t kind = FindCheapestKind(use.pattern);
            const Count bars = kind == own ? use.times : CountBars(kind, use.times);
            m_rest.Use({own, {}}, -bars);
            m_rest.Use({kind, {}}, bars);
            use.times -= bars;
            m_solution.push_back({
                {kind, use.times > 0 ? use.pattern.takes : std::move(use.pattern.takes)},
                bars
            });
        }
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
    std::vector<Run> m_runs;
    Count m_nextBar = 0;
    RoomTree m_rooms;
    Solution m_solution;
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

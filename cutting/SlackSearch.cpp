#include "cutting/SlackSearch.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace cutting {

namespace {

constexpr std::int64_t kMaxNodesPerBar = 20'000;
constexpr std::int64_t kFewestNodesPerBar = 500;
constexpr std::int64_t kNodesPerSearch = 60'000'000;
constexpr std::int64_t kStepsPerNode = 8;

/// Sizes that still have pieces; those that have none are skipped in nearly constant time.
class OpenSizes {
  public:
    explicit OpenSizes(std::size_t count) : m_next(count + 1) {
        std::iota(m_next.begin(), m_next.end(), std::size_t(0));
    }

    std::size_t FindFrom(std::size_t size) {
        while (m_next[size] != size) {
            m_next[size] = m_next[m_next[size]];
            size = m_next[size];
        }
        return size;
    }

    void Close(std::size_t size) { m_next[size] = size + 1; }

  private:
    std::vector<std::size_t> m_next;  ///< of a closed size: one behind it
};

class Search {
  public:
    Search(const Task& task, const Rest& rest, Effort& effort)
        : m_task(task), m_rest(rest), m_effort(effort), m_open(task.sizes.size()) {
        for (std::size_t size = 0; size < task.sizes.size(); ++size)
            CloseIfCut(size);
        const Count pieces = std::accumulate(rest.pieces.begin(), rest.pieces.end(), Count(0));
        m_nodesPerBar = std::clamp(
            kNodesPerSearch / std::max<Count>(pieces, 1), kFewestNodesPerBar, kMaxNodesPerBar);
    }

    Solution Run() {
        Solution solution;
        for (;;) {
            const std::size_t longest = m_open.FindFrom(0);
            if (longest == m_task.sizes.size())
                break;
            Pattern pattern = FindBar(longest);
            const Count times = m_rest.CountUses(pattern);
            m_rest.Use(pattern, times);
            for (const Take& take : pattern.takes)
                CloseIfCut(take.size);
            solution.push_back({std::move(pattern), times});
        }
        MergeEqual(solution);
        return solution;
    }

  private:
    void CloseIfCut(std::size_t size) {
        if (m_rest.pieces[size] == 0)
            m_open.Close(size);
    }

    Pattern FindBar(std::size_t longest) {
        std::optional<Pattern> best;
        Length bestUsed = 0;
        for (std::size_t kind = 0; kind < m_task.kinds.size(); ++kind) {
            if (!m_rest.HasBar(kind) || m_task.WidthOn(kind, longest) > m_task.kinds[kind].capacity)
                continue;
            Pattern pattern = FillBar(kind, longest);
            const Length used = m_task.kinds[kind].capacity - SlackOf(m_task, pattern);
            if (!best || m_task.kinds[kind].cost * bestUsed < CostOfKind(*best) * used) {
                best = std::move(pattern);
                bestUsed = used;
            }
        }
        return *best;
    }

    Cost CostOfKind(const Pattern& pattern) const { return m_task.kinds[pattern.kind].cost; }

    /// Depth first, the longest sizes first, as many of each as go.
    Pattern FillBar(std::size_t kind, std::size_t longest) {
        m_takes = {
            {longest, 1}
        };
        Length room = m_task.kinds[kind].capacity - m_task.WidthOn(kind, longest);
        Length least = room + 1;
        std::vector<Take> best;
        std::size_t size = longest;
        std::int64_t nodes = 0;
        do {
            nodes += Descend(kind, size, room);
            if (room < least) {
                least = room;
                best = m_takes;
            }
        } while (least > 0 && nodes < m_nodesPerBar && StepBack(kind, size, room));
        m_effort.Spend(nodes * kStepsPerNode);
        return MakePattern(kind, best);
    }

    std::int64_t Descend(std::size_t kind, std::size_t size, Length& room) {
        std::int64_t nodes = 1;
        for (;; ++nodes) {
            size = m_open.FindFrom(std::max(size, FirstThatFits(kind, room)));
            if (size == m_task.sizes.size())
                return nodes;
            const Length width = m_task.WidthOn(kind, size);
            const Count left = m_rest.pieces[size] - (size == m_takes.front().size ? 1 : 0);
            const Count count = std::min(left, room / width);
            if (count > 0)
                m_takes.push_back({size, count});
            room -= count * width;
            ++size;
        }
    }

    /// One piece fewer of the last size; false when only the longest piece is left.
    bool StepBack(std::size_t kind, std::size_t& size, Length& room) {
        if (m_takes.size() == 1)
            return false;
        Take& last = m_takes.back();
        room += m_task.WidthOn(kind, last.size);
        size = last.size + 1;
        if (--last.count == 0)
            m_takes.pop_back();
        return true;
    }

    std::size_t FirstThatFits(std::size_t kind, Length room) const {
        const Length width = room - m_task.kinds[kind].extra;
        const auto isWider = [](const Task::Size& size, Length limit) {
            return size.width > limit;
        };
        return static_cast<std::size_t>(
            std::lower_bound(m_task.sizes.begin(), m_task.sizes.end(), width, isWider) -
            m_task.sizes.begin());
    }

    /// The longest piece stands alone in front; it joins the others of its size.
    static Pattern MakePattern(std::size_t kind, const std::vector<Take>& takes) {
        Pattern pattern = {kind, {}};
        for (const Take& take : takes) {
            if (!pattern.takes.empty() && pattern.takes.back().size == take.size)
                pattern.takes.back().count += take.count;
            else
                pattern.takes.push_back(take);
        }
        return pattern;
    }

    const Task& m_task;
    Rest m_rest;
    Effort& m_effort;
    OpenSizes m_open;
    std::int64_t m_nodesPerBar = 0;
    std::vector<Take> m_takes;  ///< of the bar that is being filled; the longest piece first
};

}  // namespace

Solution SearchLeastSlack(const Task& task, const Rest& rest, Effort& effort) {
    return Search(task, rest, effort).Run();
}

}  // namespace cutting

#include "cutting/CoarseTask.h"

#include <algorithm>
#include <utility>

namespace cutting {

namespace {

/// Hands out the pieces of coarse sizes.
class Pieces {
  public:
    Pieces(const Task& task, std::vector<std::vector<std::size_t>> sizes)
        : m_rest(task), m_sizes(std::move(sizes)) {}

    /// One bar cut like this.
    Pattern TakeBar(const Pattern& coarse) {
        Pattern pattern = {coarse.kind, {}};
        for (const Take& take : coarse.takes)
            for (Count left = take.count; left > 0; left -= pattern.takes.back().count)
                pattern.takes.push_back(TakeSize(m_sizes[take.size], left));
        return pattern;
    }

  private:
    /// Up to `most` of the next size.
    Take TakeSize(std::vector<std::size_t>& sizes, Count most) {
        const std::size_t size = sizes.back();
        const Take take = {size, std::min(most, m_rest.pieces[size])};
        m_rest.pieces[size] -= take.count;
        if (m_rest.pieces[size] == 0)
            sizes.pop_back();
        return take;
    }

    Rest m_rest;
    std::vector<std::vector<std::size_t>> m_sizes;  ///< that are left, by coarse size
};

}  // namespace

CoarseTask::CoarseTask(const Task& task, std::size_t mostSizes) : m_task(task), m_coarse(task) {
    const Length range = task.sizes.front().width - task.sizes.back().width;
    const Length unit = range / static_cast<Length>(mostSizes) + 1;
    Length longest = 0;
    for (Task::Kind& kind : m_coarse.kinds) {
        kind.capacity /= unit;
        kind.extra = CeilDivide(kind.extra, unit);
        if (kind.stock != Task::kNoStock)
            longest = std::max(longest, kind.capacity - kind.extra);
    }
    if (m_coarse.kinds.back().stock == Task::kNoStock) {
        m_coarse.kinds.back().capacity = 2 * longest;
        m_coarse.kinds.back().extra = longest;
    }
    m_coarse.sizes.clear();
    for (std::size_t size = 0; size < task.sizes.size(); ++size) {
        // What fills the longest bar alone still does.
        const Length width = std::min(CeilDivide(task.sizes[size].width, unit), longest);
        if (m_coarse.sizes.empty() || m_coarse.sizes.back().width != width) {
            m_coarse.sizes.push_back({width, 0});
            m_sizes.emplace_back();
        }
        m_coarse.sizes.back().count += task.sizes[size].count;
        m_sizes.back().push_back(size);
    }
}

Solution CoarseTask::Translate(const Solution& solution) const {
    Pieces pieces(m_task, m_sizes);
    Solution translated;
    for (const auto& [pattern, times] : solution)
        for (Count bar = 0; bar < times; ++bar)
            translated.push_back({pieces.TakeBar(pattern), 1});
    for (PatternUse& use : translated)
        std::sort(use.pattern.takes.begin(), use.pattern.takes.end());
    MergeEqual(translated);
    return translated;
}

}  // namespace cutting

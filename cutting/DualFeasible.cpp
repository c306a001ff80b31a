#include "cutting/DualFeasible.h"

#include <algorithm>

namespace cutting {

namespace {

constexpr Length kMaxSteps = 100;
constexpr std::size_t kMaxCutOffs = 400;

/// Bars that the pieces need at least when a piece counts `value(width)` and a bar holds `full`.
template <typename Value>
Count CountBars(const Task& task, Length full, const Value& value) {
    Length sum = 0;
    for (const Task::Size& size : task.sizes)
        sum += size.count * value(size.width);
    return CeilDivide(sum, full);
}

Count BoundBySteps(const Task& task, Length capacity, Length k) {
    return CountBars(task, k * capacity, [&](Length width) {
        const Length scaled = (k + 1) * width;
        return scaled % capacity == 0 ? k * width : scaled / capacity * capacity;
    });
}

/// Pieces below the cut-off count nothing, those that only go with such pieces a whole bar.
Count BoundByCutOff(const Task& task, Length capacity, Length cutOff) {
    return CountBars(task, capacity, [&](Length width) {
        if (width > capacity - cutOff)
            return capacity;
        return width >= cutOff ? width : 0;
    });
}

/// A long piece counts the pieces of the cut-off's width that it leaves no room for.
Count BoundByRoom(const Task& task, Length capacity, Length cutOff) {
    const Length most = capacity / cutOff;
    return CountBars(task, most, [&](Length width) {
        if (2 * width > capacity)
            return most - (capacity - width) / cutOff;
        return Length(width >= cutOff ? 1 : 0);
    });
}

std::vector<Length> CutOffs(const Task& task, Length capacity) {
    std::vector<Length> cutOffs;
    for (const Task::Size& size : task.sizes) {
        const Length cutOff = 2 * size.width <= capacity ? size.width : capacity - size.width;
        if (cutOff > 0)
            cutOffs.push_back(cutOff);
    }
    std::sort(cutOffs.begin(), cutOffs.end());
    cutOffs.erase(std::unique(cutOffs.begin(), cutOffs.end()), cutOffs.end());
    const std::size_t step = cutOffs.size() / kMaxCutOffs + 1;
    std::vector<Length> some;
    for (std::size_t i = 0; i < cutOffs.size(); i += step)
        some.push_back(cutOffs[i]);
    return some;
}

/// Nothing bounds higher than the bars of a solution.
Count FindBarBound(const Task& task, Count known) {
    const Length capacity = task.kinds.front().capacity;
    Count bound = CountBars(task, capacity, [](Length width) { return width; });
    for (Length k = 1; k <= kMaxSteps && bound < known; ++k)
        bound = std::max(bound, BoundBySteps(task, capacity, k));
    if (bound >= known)
        return bound;
    for (const Length cutOff : CutOffs(task, capacity)) {
        bound = std::max(bound, BoundByCutOff(task, capacity, cutOff));
        bound = std::max(bound, BoundByRoom(task, capacity, cutOff));
    }
    return bound;
}

/// Those whose length costs least first.
std::vector<Task::Kind> KindsByPrice(const Task& task) {
    std::vector<Task::Kind> kinds = task.kinds;
    std::stable_sort(kinds.begin(), kinds.end(), [](const Task::Kind& a, const Task::Kind& b) {
        return a.cost * b.capacity < b.cost * a.capacity;
    });
    return kinds;
}

/// As if every bar could be filled: the bars whose length costs least, as many as there are.
Cost BoundByCheapestLengths(const Task& task) {
    Length left = 0;
    for (const Task::Size& size : task.sizes)
        left += size.count * size.width;
    Cost bound = 0;
    for (const Task::Kind& kind : KindsByPrice(task)) {
        if (kind.count == kUnlimited || kind.count > left / kind.capacity)
            return bound + left / kind.capacity * kind.cost +
                   CeilDivide(left % kind.capacity * kind.cost, kind.capacity);
        bound += kind.count * kind.cost;
        left -= kind.count * kind.capacity;
    }
    return bound;
}

}  // namespace

Cost FindQuickBound(const Task& task, Cost known) {
    if (task.sizes.empty())
        return 0;
    const Task::Kind& kind = task.kinds.front();
    if (task.kinds.size() == 1 && kind.count == kUnlimited)
        return FindBarBound(task, known / kind.cost) * kind.cost;
    return BoundByCheapestLengths(task);
}

}  // namespace cutting

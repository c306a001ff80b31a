#include "camdata/member/HoleAndNotchSorting.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

namespace camdata::detail {
namespace {

using Keys = std::vector<PositionKey>;

/// Up to this number a sort alone is as quick.
constexpr std::size_t kFewKeys = 24;

/// The exchange sort's rule for a key and one that stands behind it.
bool ChangePlaces(const PositionKey& key, const PositionKey& behind) {
    return key.x > behind.x || (key.x == behind.x && key.y >= behind.y);
}

/// A strict order of keys that are numbers: the later of equal positions comes first. An object, as
/// a sort calls it in place.
constexpr auto kComesBefore = [](const PositionKey& a, const PositionKey& b) {
    if (a.x != b.x)
        return a.x < b.x;
    if (a.y != b.y)
        return a.y < b.y;
    return a.index > b.index;
};

/// Sorts keys by their share of the length first, in one pass, and then those of each share: time
/// in proportion to their number unless they crowd. False, with nothing done, where the keys have
/// no length, or an endless one.
bool SortByShares(Keys& keys) {
    const auto [least, greatest] = std::minmax_element(
        keys.begin(), keys.end(), [](const PositionKey& a, const PositionKey& b) {
            return a.x < b.x;
        });
    const double from = least->x;
    const double length = greatest->x - from;
    const double perMm = static_cast<double>(keys.size()) / length;
    if (!std::isfinite(length) || !std::isfinite(perMm))
        return false;
    const long last = static_cast<long>(keys.size()) - 1;
    const auto shareOf = [&](const PositionKey& key) {
        return static_cast<std::size_t>(std::min(static_cast<long>((key.x - from) * perMm), last));
    };
    std::vector<std::size_t> ends(keys.size() + 1);
    for (const PositionKey& key : keys)
        ++ends[shareOf(key) + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    Keys sorted(keys.size());
    for (const PositionKey& key : keys)
        sorted[ends[shareOf(key)]++] = key;
    auto first = sorted.begin();
    for (const std::size_t end : ends) {
        const auto next = sorted.begin() + static_cast<std::ptrdiff_t>(end);
        if (next - first > 1)
            std::sort(first, next, kComesBefore);
        first = next;
    }
    keys.swap(sorted);
    return true;
}

void Sort(Keys& keys) {
    if (keys.size() <= kFewKeys || !SortByShares(keys))
        std::sort(keys.begin(), keys.end(), kComesBefore);
}

void ExchangeSort(Keys& keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t j = i + 1; j < keys.size(); ++j) {
            if (ChangePlaces(keys[i], keys[j]))
                std::swap(keys[i], keys[j]);
        }
    }
}

bool HasX(const PositionKey& key) {
    return !std::isnan(key.x);
}

/// Among equal X, a Y that is not a number changes places with none: then where the others end
/// depends on every step.
bool DependsOnEveryStep(const PositionKey& key) {
    return HasX(key) && std::isnan(key.y);
}

/// Sorts the keys with an X among the places that they have.
void SortAmongTheirPlaces(Keys& keys) {
    Keys movable;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(movable), HasX);
    std::sort(movable.begin(), movable.end(), kComesBefore);
    auto next = movable.begin();
    for (PositionKey& key : keys) {
        if (HasX(key))
            key = *next++;
    }
}

}  // namespace

std::vector<std::size_t> PositionOrder(Keys keys) {
    if (std::any_of(keys.begin(), keys.end(), DependsOnEveryStep))
        ExchangeSort(keys);
    else if (!std::all_of(keys.begin(), keys.end(), HasX))
        SortAmongTheirPlaces(keys);
    else if (!std::is_sorted(keys.begin(), keys.end(), kComesBefore))
        Sort(keys);
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const PositionKey& key : keys)
        order.push_back(key.index);
    return order;
}

}  // namespace camdata::detail

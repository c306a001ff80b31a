#include "camdata/member/HoleAndNotchSorting.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace camdata::detail {
namespace {

using Keys = std::vector<PositionKey>;

/// The exchange sort's rule for a key and one that stands behind it.
bool ChangePlaces(const PositionKey& key, const PositionKey& behind) {
    return key.x > behind.x || (key.x == behind.x && key.y >= behind.y);
}

/// A strict order of keys that are numbers: the later of equal positions comes first.
bool ComesBefore(const PositionKey& a, const PositionKey& b) {
    if (a.x != b.x)
        return a.x < b.x;
    if (a.y != b.y)
        return a.y < b.y;
    return a.index > b.index;
}

bool IsInOrder(const Keys& keys) {
    const auto changePlaces = [](const PositionKey& a, const PositionKey& b) {
        return !ComesBefore(a, b);
    };
    return std::adjacent_find(keys.begin(), keys.end(), changePlaces) == keys.end();
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
    std::sort(movable.begin(), movable.end(), ComesBefore);
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
    else if (!IsInOrder(keys))
        std::sort(keys.begin(), keys.end(), ComesBefore);
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const PositionKey& key : keys)
        order.push_back(key.index);
    return order;
}

}  // namespace camdata::detail

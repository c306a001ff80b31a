#pragma once

#include <cstddef>
#include <vector>

/// A merge sort of copies, the first part being the smaller one: what the library's sorting in
/// place is held against.
template <typename T, typename Compare>
std::vector<T> PlainSorted(const std::vector<T>& items, const Compare& compare) {
    if (items.size() < 2)
        return items;
    const auto middle = items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2);
    const std::vector<T> left = PlainSorted(std::vector<T>(items.begin(), middle), compare);
    const std::vector<T> right = PlainSorted(std::vector<T>(middle, items.end()), compare);
    std::vector<T> sorted;
    std::size_t l = 0;
    std::size_t r = 0;
    while (sorted.size() < items.size()) {
        const bool isRight =
            l == left.size() || (r < right.size() && compare(left[l], right[r]) > 0);
        sorted.push_back(isRight ? right[r++] : left[l++]);
    }
    return sorted;
}

#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace camdata::detail {

/// Sorts `count` items at `items` as MergeSort does; `buffer` has room for half of them.
template <typename T, typename Compare>
void MergeSortPart(T* items, std::size_t count, T* buffer, const Compare& compare) {
    if (count < 2)
        return;
    const std::size_t half = count / 2;
    T* right = items + half;
    T* const end = items + count;
    MergeSortPart(items, half, buffer, compare);
    MergeSortPart(right, count - half, buffer, compare);
    T* left = buffer;
    T* const leftEnd = std::move(items, right, buffer);
    T* to = items;
    while (left != leftEnd && right != end)
        *to++ = compare(*left, *right) > 0 ? std::move(*right++) : std::move(*left++);
    std::move(left, leftEnd, to);
}

/// Sorts by a comparison that need not be a strict order: `compare(a, b)` is above 0 when `a`,
/// which stands before `b`, has to stand behind it. Equal items keep their order.
///
/// Tolerant comparisons are not transitive. The order is then that of one fixed sequence of steps,
/// the same on every platform: each half is sorted, the first half being the smaller one, then both
/// are merged from their beginnings. Nothing may be skipped, even where halves seem to be in order.
template <typename T, typename Compare>
void MergeSort(std::vector<T>& items, const Compare& compare) {
    std::vector<T> buffer(items.size() / 2);
    MergeSortPart(items.data(), items.size(), buffer.data(), compare);
}

}  // namespace camdata::detail

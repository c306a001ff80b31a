#pragma once

#include "camdata/platform/base/ZetArray.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace camdata::detail {

/// What decides the place of a record: its position, and where it stood before.
struct PositionKey {
    double x;
    double y;
    std::size_t index;
};

/// The order in which an exchange sort leaves records: element i of the result is the index of the
/// record that ends at place i.
///
/// The sort holds each place i against every later place j and swaps them when x(i) > x(j), or when
/// x(i) == x(j) and y(i) >= y(j). So positions come out ascending, and records at one position in
/// the reverse of their former order: each place takes the last of them that it meets. A record
/// whose X is not a number stays where it is.
std::vector<std::size_t> PositionOrder(std::vector<PositionKey> keys);

/// Moves each record to its place in an order, along its cycles: a second list of large records
/// would cost more than the moves.
template <typename Record>
void MoveToPlaces(ZetArray<Record>& records, std::vector<std::size_t> order) {
    for (std::size_t start = 0; start < order.size(); ++start) {
        if (order[start] == start)
            continue;
        Record held = std::move(records[static_cast<long>(start)]);
        std::size_t to = start;
        while (order[to] != start) {
            const std::size_t from = std::exchange(order[to], to);
            records[static_cast<long>(to)] = std::move(records[static_cast<long>(from)]);
            to = from;
        }
        records[static_cast<long>(to)] = std::move(held);
        order[to] = to;
    }
}

/// Orders records by GetXPos and GetYPos as PositionOrder tells.
template <typename Record>
void OrderByPosition(ZetArray<Record>& records) {
    std::vector<PositionKey> keys;
    keys.reserve(static_cast<std::size_t>(records.length()));
    for (const Record& record : records)
        keys.push_back({record.GetXPos(), record.GetYPos(), keys.size()});
    MoveToPlaces(records, PositionOrder(std::move(keys)));
}

}  // namespace camdata::detail

#pragma once

#include "camdata/platform/base/ZetArray.h"

#include <algorithm>
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

/// Orders records by GetXPos and GetYPos as PositionOrder tells.
template <typename Record>
void OrderByPosition(ZetArray<Record>& records) {
    std::vector<PositionKey> keys;
    keys.reserve(static_cast<std::size_t>(records.length()));
    for (const Record& record : records)
        keys.push_back({record.GetXPos(), record.GetYPos(), keys.size()});
    const std::vector<std::size_t> order = PositionOrder(std::move(keys));
    if (std::is_sorted(order.begin(), order.end()))
        return;
    ZetArray<Record> ordered;
    ordered.reserve(records.length());
    for (const std::size_t from : order)
        ordered.append(std::move(records[static_cast<long>(from)]));
    records = std::move(ordered);
}

}  // namespace camdata::detail

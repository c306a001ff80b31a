#pragma once

#include "camdata/platform/base/ZetArray.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace camdata::detail {

/// For each record of a list the index of the one that removes it, or kKept.
using Removers = std::vector<long>;
constexpr long kKept = -1;

/// Every record kept so far: the search that needs no knowledge of the records.
class KeptRecords {
  public:
    void Add(long index) { m_kept.push_back(index); }

    template <typename Visit>
    void ForEachNear(long /*index*/, const Visit& visit) const {
        for (const long kept : m_kept)
            visit(kept);
    }

  private:
    std::vector<long> m_kept;
};

/// Finds what is left when each record, from the first, removes its duplicates among those behind
/// it, and a removed record removes nothing.
///
/// A record is removed exactly when it is a duplicate of one that is kept, and the first such one
/// removes it: one walk suffices. `kept` files the records that are kept (Add) and must visit at
/// least those of which a record may be a duplicate (ForEachNear), but for those behind one where
/// the visit said true; `isDuplicate(first, later)` decides.
template <typename Kept, typename IsDuplicate>
Removers FindRemovers(long count, Kept kept, const IsDuplicate& isDuplicate) {
    Removers removers(static_cast<std::size_t>(count), kKept);
    for (long index = 0; index < count; ++index) {
        long& remover = removers[static_cast<std::size_t>(index)];
        kept.ForEachNear(index, [&](long candidate) {
            if ((remover == kKept || candidate < remover) && isDuplicate(candidate, index))
                remover = candidate;
            return remover == candidate;
        });
        if (remover == kKept)
            kept.Add(index);
    }
    return removers;
}

/// Makes room for more records at once, as appending them one by one would do in steps: a step
/// moves all of the large records.
template <typename Record>
void MakeRoom(ZetArray<Record>& records, std::size_t more) {
    const long length = records.length();
    if (static_cast<long>(more) > length / 2)
        records.reserve(length + static_cast<long>(more));
}

/// Drops the records for which `isDropped(index)` holds; the others keep their order.
template <typename Record, typename IsDropped>
void DropRecords(ZetArray<Record>& records, const IsDropped& isDropped) {
    long kept = 0;
    for (long index = 0; index < records.length(); ++index) {
        if (isDropped(index))
            continue;
        if (kept != index)
            records[kept] = std::move(records[index]);
        ++kept;
    }
    records.setLength(kept);
}

/// The removed records: those that the first record removed first, each group in the order of the
/// list.
std::vector<long> RemovedInOrder(const Removers& removers);

/// Moves the removed records to the end of `removed`, in the order of RemovedInOrder.
template <typename Record>
void MoveRemoved(const Removers& removers, ZetArray<Record>& records, ZetArray<Record>& removed) {
    const std::vector<long> leaving = RemovedInOrder(removers);
    MakeRoom(removed, leaving.size());
    for (const long index : leaving)
        removed.append(std::move(records[index]));
    DropRecords(records,
                [&](long index) { return removers[static_cast<std::size_t>(index)] != kKept; });
}

}  // namespace camdata::detail

#include "camdata/member/Duplicates.h"

#include <algorithm>
#include <numeric>

namespace camdata::detail {

std::vector<long> RemovedInOrder(const Removers& removers) {
    if (std::all_of(
            removers.begin(), removers.end(), [](long remover) { return remover == kKept; }))
        return {};
    // The places of those that a record removed end where those of the next one begin.
    std::vector<std::size_t> places(removers.size() + 1);
    for (const long remover : removers)
        ++places[static_cast<std::size_t>(remover + 1)];
    places[0] = 0;
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<long> removed(places.back());
    for (std::size_t index = 0; index < removers.size(); ++index) {
        if (removers[index] != kKept)
            removed[places[static_cast<std::size_t>(removers[index])]++] = static_cast<long>(index);
    }
    return removed;
}

}  // namespace camdata::detail

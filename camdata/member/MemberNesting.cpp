#include "camdata/member/MemberNesting.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/nesting/NestMaker.h"
#include "camdata/util/MergeSort.h"

#include <utility>
#include <vector>

namespace {

/// The parts that have pieces, by ascending length. Parts without pieces are sorted like the others
/// before they are dropped: what is sorted decides the order, and whether the tolerance is set.
ZetArray<CMxParts> PartsByLength(ZetArray<CMxParts> parts) {
    std::vector<CMxParts*> order;
    order.reserve(static_cast<std::size_t>(parts.length()));
    for (CMxParts& part : parts)
        order.push_back(&part);
    camdata::detail::MergeSort(
        order, [](const CMxParts* a, const CMxParts* b) { return CMxParts::compare(a, b); });
    ZetArray<CMxParts> sorted;
    sorted.reserve(parts.length());
    for (CMxParts* part : order) {
        if (part->GetQty() > 0)
            sorted.append(std::move(*part));
    }
    return sorted;
}

}  // namespace

void CMxPeilaib::AppendNestQtyLen(long qty, double length, ZetString mark) {
    CMxParts part;
    part.SetPartNo(std::move(mark));
    part.SetQty(qty);
    part.SetLength(length);
    m_partsToNest.append(std::move(part));
}

void CMxPeilaib::Nesting() {
    camdata::detail::MakeNests(std::exchange(m_partsToNest, {}),
                               m_reserveLength,
                               [&](CMxNestParts nest) { m_nests.append(std::move(nest)); });
}

void camdata::detail::MakeNests(ZetArray<CMxParts> parts,
                                double reserveLength,
                                const NestTaker& take) {
    NestMaker maker(PartsByLength(std::move(parts)), reserveLength);
    while (maker.HasParts())
        take(maker.Next());
}

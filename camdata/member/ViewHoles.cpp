#include "camdata/member/ViewHoles.h"

#include "camdata/member/CountersunkHoleSearch.h"
#include "camdata/member/DuplicateHoleSearch.h"
#include "camdata/member/Duplicates.h"
#include "camdata/member/HoleAndNotchSorting.h"

#include <algorithm>
#include <utility>

namespace camdata::detail {
namespace {

/// Records that are still in the nearest caches when the first of them is filled.
constexpr long kRecordsAtOnce = 32;

using Holes = std::vector<ViewHole>;

bool IsSetAside(const ViewHole& hole) {
    return hole.data->commented == 1;
}

bool IsCountersink(const ViewHole& hole) {
    return hole.data->kind == ZetNCHoleData::eKindCountersunk;
}

Holes HolesOf(const ZetArray<ZetNCHoleData>& holes, const CViewData& view) {
    Holes gathered;
    gathered.reserve(static_cast<std::size_t>(holes.length()));
    for (const ZetNCHoleData& hole : holes)
        gathered.push_back({&hole, PlaceOf(hole, view), false});
    return gathered;
}

/// Takes the holes for which `isLeaving` holds out of a list; both keep their order.
Holes TakeOut(Holes& holes, bool (*isLeaving)(const ViewHole&)) {
    if (std::none_of(holes.begin(), holes.end(), isLeaving))
        return {};
    const auto leaving = std::stable_partition(
        holes.begin(), holes.end(), [&](const ViewHole& hole) { return !isLeaving(hole); });
    Holes taken(leaving, holes.end());
    holes.erase(leaving, holes.end());
    return taken;
}

/// What stands at a place of its own behind the one before stays there. Not what is no number.
bool IsOrdered(const Holes& holes) {
    const auto isNotBehind = [](const ViewHole& a, const ViewHole& b) {
        return !(a.place.x < b.place.x || (a.place.x == b.place.x && a.place.y < b.place.y));
    };
    return std::adjacent_find(holes.begin(), holes.end(), isNotBehind) == holes.end();
}

Holes Ordered(Holes holes) {
    if (IsOrdered(holes))
        return holes;
    std::vector<PositionKey> keys;
    keys.reserve(holes.size());
    for (const ViewHole& hole : holes)
        keys.push_back({hole.place.x, hole.place.y, keys.size()});
    Holes ordered;
    ordered.reserve(holes.size());
    for (const std::size_t index : PositionOrder(std::move(keys)))
        ordered.push_back(holes[index]);
    return ordered;
}

Holes TakeCountersinksOut(Holes& holes) {
    if (std::none_of(holes.begin(), holes.end(), IsCountersink))
        return {};
    std::vector<CountersinkRole> roles;
    for (const ViewHole& hole : holes)
        roles.push_back({hole.place.x, hole.place.y, IsCountersink(hole), !IsCountersink(hole)});
    for (const long index : FindCountersunkHoles(roles))
        holes[static_cast<std::size_t>(index)].isCountersunk = true;
    return TakeOut(holes, IsCountersink);
}

std::vector<HolePlace> PlacesOf(const Holes& holes) {
    std::vector<HolePlace> places;
    places.reserve(holes.size());
    for (const ViewHole& hole : holes)
        places.push_back(hole.place);
    return places;
}

Holes TakeDuplicatesOut(Holes& holes) {
    const Removers removers = FindDuplicateHoles(PlacesOf(holes));
    const std::vector<long> leaving = RemovedInOrder(removers);
    if (leaving.empty())
        return {};
    Holes duplicates;
    duplicates.reserve(leaving.size());
    for (const long index : leaving)
        duplicates.push_back(holes[static_cast<std::size_t>(index)]);
    std::size_t kept = 0;
    for (std::size_t index = 0; index < holes.size(); ++index) {
        if (removers[index] == kKept)
            holes[kept++] = holes[index];
    }
    holes.resize(kept);
    return duplicates;
}

}  // namespace

ViewHoles GatherHoles(const ZetArray<ZetNCHoleData>& holes, const CViewData& view) {
    ViewHoles gathered;
    gathered.kept = HolesOf(holes, view);
    gathered.setAside = TakeOut(gathered.kept, IsSetAside);
    gathered.kept = Ordered(std::move(gathered.kept));
    gathered.countersinks = TakeCountersinksOut(gathered.kept);
    gathered.duplicates = TakeDuplicatesOut(gathered.kept);
    return gathered;
}

void AppendRecords(const Holes& holes, const CViewData& view, ZetArray<CHoleAddlInfo>& records) {
    if (holes.empty())
        return;
    MakeRoom(records, holes.size());
    auto next = records.length();
    const long end = next + static_cast<long>(holes.size());
    for (const ViewHole& hole : holes) {
        if (next == records.length())
            records.setLength(std::min(next + kRecordsAtOnce, end));
        CHoleAddlInfo& record = records[next++];
        record.SetHoleData(*hole.data);
        record.CorrectData(view);
        if (hole.isCountersunk)
            MarkAsCountersunk(record);
    }
}

}  // namespace camdata::detail

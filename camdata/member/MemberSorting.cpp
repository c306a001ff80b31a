#include "camdata/member/MemberSorting.h"

#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/MergeSort.h"

#include <algorithm>
#include <array>
#include <vector>

namespace camdata::detail {
namespace {

using Comparison = int (*)(const MemberKeys&, const MemberKeys&);

template <const ZetString* MemberKeys::*Value>
int Texts(const MemberKeys& a, const MemberKeys& b) {
    return (a.*Value)->compare(*(b.*Value));
}

template <double MemberKeys::*Value>
int Numbers(const MemberKeys& a, const MemberKeys& b) {
    return CMxGeom::Compare_Mx(a.*Value, b.*Value);
}

template <std::int64_t MemberKeys::*Value>
int Difference(const MemberKeys& a, const MemberKeys& b) {
    return static_cast<int>(a.*Value - b.*Value);
}

/// By eSortOrder.
constexpr std::array<Comparison, 8> kComparisons = {
    Texts<&MemberKeys::mark>,
    Texts<&MemberKeys::profileName>,
    Numbers<&MemberKeys::height>,
    Numbers<&MemberKeys::width>,
    Numbers<&MemberKeys::thick>,
    Numbers<&MemberKeys::length>,
    Difference<&MemberKeys::profileNameLength>,
    Difference<&MemberKeys::groupID>,
};
static_assert(kComparisons.size() == eSortGroupID + 1);

}  // namespace

MemberKeys::MemberKeys(const CMxPeilaib& member)
    : order(&member.m_sortOrder),
      mark(&member.m_memType.GetHeaderData().mark),
      profileName(&member.m_memType.GetHeaderData().profileName),
      height(member.GetWebWidth()),
      width(member.GetProfileWidth()),
      thick(member.GetProfileThick()),
      length(member.GetLength()),
      profileNameLength(profileName->length()),
      groupID(member.GetGroupID()) {}

int MemberKeys::Compare(const MemberKeys& other) const {
    for (const eSortOrder key : *order) {
        const auto index = static_cast<std::size_t>(key);
        const int result = index < kComparisons.size() ? kComparisons[index](*this, other) : 0;
        if (result != 0)
            return result;
    }
    return 0;
}

void SortMembers(ZetArray<CMxPeilaib*>& members) {
    struct Entry {
        MemberKeys keys;
        CMxPeilaib* member;
    };
    // A lone member is compared with none, and the tolerance stays.
    if (members.length() < 2)
        return;
    CMxGeom::SetTol(eTolEPS);
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(members.length()));
    for (CMxPeilaib* member : members)
        entries.push_back({MemberKeys(*member), member});
    std::vector<const Entry*> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries)
        order.push_back(&entry);
    MergeSort(order, [](const Entry* a, const Entry* b) { return a->keys.Compare(b->keys); });
    std::transform(order.begin(), order.end(), members.begin(), [](const Entry* entry) {
        return entry->member;
    });
}

}  // namespace camdata::detail

int CMxPeilaib::compare(const void* first, const void* second) {
    using camdata::detail::MemberKeys;
    const auto keysOf = [](const void* element) {
        return MemberKeys(**static_cast<const CMxPeilaib* const*>(element));
    };
    CMxGeom::SetTol(eTolEPS);
    return keysOf(first).Compare(keysOf(second));
}

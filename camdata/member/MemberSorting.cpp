#include "camdata/member/MemberSorting.h"

#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/MergeSort.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace camdata::detail {
namespace {

void ReadNothing(const CMxPeilaib&, MemberKeys&) {}

template <double MemberKeys::*Value, double (CMxPeilaib::*Get)() const>
void Read(const CMxPeilaib& member, MemberKeys& keys) {
    keys.*Value = (member.*Get)();
}

template <const ZetString* MemberKeys::*Value>
int Texts(const MemberKeys& a, const MemberKeys& b) {
    return a.*Value == b.*Value ? 0 : (a.*Value)->compare(*(b.*Value));
}

template <double MemberKeys::*Value>
int Numbers(const MemberKeys& a, const MemberKeys& b) {
    return CMxGeom::Compare_Mx(a.*Value, b.*Value);
}

template <std::int64_t MemberKeys::*Value>
int Difference(const MemberKeys& a, const MemberKeys& b) {
    return static_cast<int>(a.*Value - b.*Value);
}

/// One of the values that members are ordered by.
struct SortKey {
    void (*read)(const CMxPeilaib& member, MemberKeys& keys);  ///< where it takes time to find
    int (*compare)(const MemberKeys& a, const MemberKeys& b);
};

/// By eSortOrder.
constexpr std::array<SortKey, 8> kSortKeys = {
    {
     {ReadNothing, Texts<&MemberKeys::mark>},
     {ReadNothing, Texts<&MemberKeys::profileName>},
     {Read<&MemberKeys::height, &CMxPeilaib::GetWebWidth>, Numbers<&MemberKeys::height>},
     {Read<&MemberKeys::width, &CMxPeilaib::GetProfileWidth>, Numbers<&MemberKeys::width>},
     {Read<&MemberKeys::thick, &CMxPeilaib::GetProfileThick>, Numbers<&MemberKeys::thick>},
     {Read<&MemberKeys::length, &CMxPeilaib::GetLength>, Numbers<&MemberKeys::length>},
     {ReadNothing, Difference<&MemberKeys::profileNameLength>},
     {ReadNothing, Difference<&MemberKeys::groupID>},
     }
};
static_assert(kSortKeys.size() == eSortGroupID + 1);

/// Null for a value outside the enumeration, which tells no members apart.
const SortKey* KeyOf(eSortOrder value) {
    const auto index = static_cast<std::size_t>(value);
    return index < kSortKeys.size() ? &kSortKeys[index] : nullptr;
}

/// By `keysOf` each of them; two members or more.
template <typename KeysOf>
void Sort(ZetArray<CMxPeilaib*>& members, const KeysOf& keysOf) {
    struct Entry {
        MemberKeys keys;
        CMxPeilaib* member;
    };
    CMxGeom::SetTol(eTolEPS);
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(members.length()));
    // Many have one profile: where its name is one and the same text, no two texts are looked at.
    std::unordered_map<std::wstring_view, const ZetString*> names;
    for (CMxPeilaib* member : members) {
        MemberKeys& keys = entries.emplace_back(Entry{keysOf(*member), member}).keys;
        keys.profileName =
            names.try_emplace(keys.profileName->view(), keys.profileName).first->second;
    }
    std::vector<const Entry*> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries)
        order.push_back(&entry);
    MergeSort(order, [](const Entry* a, const Entry* b) { return a->keys.Compare(b->keys); });
    std::transform(order.begin(), order.end(), members.begin(), [](const Entry* entry) {
        return entry->member;
    });
}

}  // namespace

MemberKeys::MemberKeys(const CMxPeilaib& member) : MemberKeys(member, member.m_sortOrder) {
    // The other may come first, with other keys.
    for (const SortKey& key : kSortKeys)
        key.read(member, *this);
}

MemberKeys::MemberKeys(const CMxPeilaib& member, const ZetArray<eSortOrder>& keys)
    : order(&keys),
      mark(&member.m_memType.GetHeaderData().mark),
      profileName(&member.m_memType.GetHeaderData().profileName),
      profileNameLength(profileName->length()),
      groupID(member.GetGroupID()) {
    for (const eSortOrder value : keys)
        if (const SortKey* const key = KeyOf(value))
            key->read(member, *this);
}

bool MemberKeys::AreIn(const CMxPeilaib& member) {
    return !member.m_sortOrder.isEmpty();
}

int MemberKeys::Compare(const MemberKeys& other) const {
    for (const eSortOrder value : *order) {
        const SortKey* const key = KeyOf(value);
        const int result = key != nullptr ? key->compare(*this, other) : 0;
        if (result != 0)
            return result;
    }
    return 0;
}

// A lone member is compared with none, and the tolerance stays.

void SortMembers(ZetArray<CMxPeilaib*>& members) {
    if (members.length() < 2)
        return;
    // Members that nothing tells apart stay as they are.
    const auto hasKeys = [](const CMxPeilaib* member) { return MemberKeys::AreIn(*member); };
    if (std::any_of(members.begin(), members.end(), hasKeys))
        Sort(members, [](const CMxPeilaib& member) { return MemberKeys(member); });
    else
        CMxGeom::SetTol(eTolEPS);
}

void SortMembersBy(const ZetArray<eSortOrder>& keys, ZetArray<CMxPeilaib*>& members) {
    if (members.length() >= 2)
        Sort(members, [&](const CMxPeilaib& member) { return MemberKeys(member, keys); });
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

#pragma once

#include "camdata/member/CMxPeilaib.h"

#include <cstdint>

namespace camdata::detail {

/// What one member is ordered by, read once. Refers to the keys and to texts of the member, which
/// must not change meanwhile.
struct MemberKeys {
    /// By its own keys; beside any other member.
    explicit MemberKeys(const CMxPeilaib& member);
    /// By these; beside members that are ordered by the same.
    MemberKeys(const CMxPeilaib& member, const ZetArray<eSortOrder>& keys);

    /// Whether it has keys of its own.
    static bool AreIn(const CMxPeilaib& member);

    /// As CMxPeilaib::compare, with the current tolerance as it stands.
    int Compare(const MemberKeys& other) const;

    const ZetArray<eSortOrder>* order;
    const ZetString* mark;
    const ZetString* profileName;
    double height = 0.0;
    double width = 0.0;
    double thick = 0.0;
    double length = 0.0;
    std::int64_t profileNameLength;
    std::int64_t groupID;
};

/// Sorts members as MergeSort with CMxPeilaib::compare does. That sets the current tolerance to
/// m_EPS when there are two members or more.
CAMDATA_API void SortMembers(ZetArray<CMxPeilaib*>& members);
/// The same as if each of them had these keys.
CAMDATA_API void SortMembersBy(const ZetArray<eSortOrder>& keys, ZetArray<CMxPeilaib*>& members);

}  // namespace camdata::detail

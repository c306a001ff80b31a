#pragma once

#include "camdata/member/CMxPeilaib.h"

#include <cstdint>

namespace camdata::detail {

/// What one member is ordered by, read once. Refers to texts and keys of the member, which must not
/// change meanwhile.
struct MemberKeys {
    explicit MemberKeys(const CMxPeilaib& member);

    /// As CMxPeilaib::compare, with the current tolerance as it stands.
    int Compare(const MemberKeys& other) const;

    const ZetArray<eSortOrder>* order;
    const ZetString* mark;
    const ZetString* profileName;
    double height;
    double width;
    double thick;
    double length;
    std::int64_t profileNameLength;
    std::int64_t groupID;
};

/// Sorts members as MergeSort with CMxPeilaib::compare does. That sets the current tolerance to
/// m_EPS when there are two members or more.
CAMDATA_API void SortMembers(ZetArray<CMxPeilaib*>& members);

}  // namespace camdata::detail

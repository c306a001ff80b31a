#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/MemberOrder.h"
#include "camdata/tolerance/CMxGeom.h"

namespace {

const CMxPeilaib& MemberAt(const void* element) {
    return **static_cast<const CMxPeilaib* const*>(element);
}

}  // namespace

int CMxPeilaib::compare(const void* first, const void* second) {
    using camdata::detail::MemberKeys;
    CMxGeom::SetTol(eTolEPS);
    return MemberKeys(MemberAt(first)).Compare(MemberKeys(MemberAt(second)));
}

#include "camdata/output/CMxAddlInfo.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/util/CMxUtil.h"

#include <utility>

namespace {

ZetString LineOf(const CMxPeilaib& member) {
    return ZetString::format(
        L"%-20s%-20s%-4d", member.GetMark(), member.GetProfileName(), member.GetQty());
}

}  // namespace

void CMxAddlInfo::SetAddInfoArr(ZetArray<ZetArray<ZetString>>& blocks, ZetArray<long>& writeOrder) {
    SetAddInfoArr(std::move(blocks), std::move(writeOrder));
}

void CMxAddlInfo::SetAddInfoArr(ZetArray<ZetArray<ZetString>>&& blocks,
                                ZetArray<long>&& writeOrder) {
    m_blocks = std::exchange(blocks, {});
    m_writeOrder = std::exchange(writeOrder, {});
}

void CMxAddlInfo::AppendInfo(CMxPeilaibArr* list) {
    if (list != nullptr)
        AppendInfo(list->GetMembers());
}

void CMxAddlInfo::AppendInfo(const ZetArray<CMxPeilaib*>& members) {
    ZetArray<ZetString>& allMembers = m_blocks[0];
    // Joins block 0 at the end, so that a failed assertion leaves that block as it was.
    ZetArray<ZetString> added;
    for (const CMxPeilaib* member : members) {
        const ZetString line = LineOf(*member);
        added.append(line);
        for (const long location : member->GetAddInfoArrLoc())
            (location == 0 ? added : m_blocks[location]).append(line);
    }
    allMembers.appendAll(added);
}

void CMxAddlInfo::WriteAddInfo(ZetFileAccess*& file) const {
    const ZetArray<ZetString> gap = {L"  ", L"  ", L"  "};
    for (const long position : m_writeOrder) {
        CMxUtil::AsArrStrPrint(gap, file);
        CMxUtil::AsArrStrPrint(m_blocks[position], file);
    }
}

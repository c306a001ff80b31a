#include "camdata/output/CMxAddlInfo.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace {

/// A text, and blanks up to a width.
void AppendColumn(std::wstring& line, std::wstring_view text, std::size_t width) {
    line += text;
    line.append(width - std::min(text.size(), width), L' ');
}

ZetString LineOf(const CMxPeilaib& member) {
    constexpr std::size_t kTextWidth = 20;
    constexpr std::size_t kQtyWidth = 4;
    const std::string qty = std::to_string(member.GetQty());
    std::wstring line;
    line.reserve(2 * kTextWidth + kQtyWidth);
    AppendColumn(line, member.GetMark().view(), kTextWidth);
    AppendColumn(line, member.GetProfileName().view(), kTextWidth);
    AppendColumn(line, std::wstring(qty.begin(), qty.end()), kQtyWidth);
    return ZetString(std::move(line));
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
        ZetString line = LineOf(*member);
        for (const long location : member->GetAddInfoArrLoc())
            (location == 0 ? added : m_blocks[location]).append(line);
        added.append(std::move(line));
    }
    for (ZetString& line : added)
        allMembers.append(std::move(line));
}

void CMxAddlInfo::WriteAddInfo(ZetFileAccess*& file) const {
    const ZetArray<ZetString> gap = {L"  ", L"  ", L"  "};
    for (const long position : m_writeOrder) {
        CMxUtil::AsArrStrPrint(gap, file);
        CMxUtil::AsArrStrPrint(m_blocks[position], file);
    }
}

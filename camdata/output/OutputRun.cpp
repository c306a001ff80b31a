#include "camdata/output/OutputRun.h"

#include "camdata/member/MemberSorting.h"
#include "camdata/platform/base/ZetAssert.h"

#include <algorithm>
#include <utility>

namespace camdata::detail {

namespace {

/// The text of the assertion that a member fails which changes the run that writes it.
constexpr const char* kNotWriting = "!isWriting()";

/// Of the runs that are under way in this thread the one that began last. A member calls back in
/// the thread that writes it.
thread_local const OutputRun* s_innermost = nullptr;

}  // namespace

OutputRun::OutputRun(const MemberLists& lists,
                     ZetArray<CMxFileGroups>& fileGroups,
                     CMxAddlInfo& info)
    : m_lists(lists),
      m_fileGroups(fileGroups),
      m_info(info),
      m_infoBefore(info),
      m_outer(std::exchange(s_innermost, this)) {}

OutputRun::~OutputRun() {
    s_innermost = m_outer;
    for (CMxFileGroups& fileGroup : m_fileGroups)
        fileGroup.closeFile();
    if (!m_isDone)
        std::swap(m_info, m_infoBefore);
}

bool OutputRun::IsWriting(const MemberLists& lists) {
    for (const OutputRun* run = s_innermost; run != nullptr; run = run->m_outer)
        if (&run->m_lists == &lists)
            return true;
    return false;
}

bool OutputRun::IsWriting(const CMxPeilaibArr& list) {
    for (const OutputRun* run = s_innermost; run != nullptr; run = run->m_outer)
        if (std::any_of(run->m_lists.begin(), run->m_lists.end(), [&](const auto& each) {
                return each.get() == &list;
            }))
            return true;
    return false;
}

void OutputRun::CheckNone(const MemberLists& lists) {
    ZET_ASSERT(!IsWriting(lists), kNotWriting);
}

void OutputRun::CheckNone(const CMxPeilaibArr& list) {
    ZET_ASSERT(!IsWriting(list), kNotWriting);
}

void OutputRun::CheckNoneOfAny(const MemberLists& lists) {
    CheckNone(lists);
    for (const auto& list : lists)
        CheckNone(*list);
}

void SortLists(MemberLists& lists) {
    // No two lists have one member group ID, so the order is settled whatever the algorithm.
    std::sort(lists.begin(), lists.end(), [](const auto& a, const auto& b) {
        return a->GetGroup().GetMemGroupID() < b->GetGroup().GetMemGroupID();
    });
    for (const auto& list : lists)
        SortMembers(list->GetMembers());
}

}  // namespace camdata::detail

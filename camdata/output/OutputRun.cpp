#include "camdata/output/OutputRun.h"

#include <algorithm>
#include <utility>

namespace camdata::detail {

namespace {

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

}  // namespace camdata::detail

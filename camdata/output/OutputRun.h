#pragma once

#include "camdata/output/CMxAddlInfo.h"
#include "camdata/output/CMxFileGroups.h"
#include "camdata/output/CMxPeilaibArr.h"
#include "camdata/platform/base/ZetArray.h"

#include <memory>

namespace camdata::detail {

using MemberLists = ZetArray<std::shared_ptr<CMxPeilaibArr>>;

/// A run of an accumulator while it writes. Its end closes the files, however it comes; a run that
/// an exception cut off leaves nothing in the additional information.
///
/// Members write through code of the host, which may call the accumulator back: the runs that are
/// under way know what must not change then. A run is its thread's own.
class OutputRun {
  public:
    /// All that it refers to must outlive the run.
    OutputRun(const MemberLists& lists, ZetArray<CMxFileGroups>& fileGroups, CMxAddlInfo& info);
    ~OutputRun();
    OutputRun(const OutputRun&) = delete;
    OutputRun& operator=(const OutputRun&) = delete;

    void SetDone() { m_isDone = true; }

    /// Fails the assertion "!isWriting()" when a run is under way that writes these lists.
    static void CheckNone(const MemberLists& lists);
    /// The same for one list, which copies of the accumulator may share.
    static void CheckNone(const CMxPeilaibArr& list);
    /// The same for these lists and for each of them.
    static void CheckNoneOfAny(const MemberLists& lists);

  private:
    static bool IsWriting(const MemberLists& lists);
    static bool IsWriting(const CMxPeilaibArr& list);

    const MemberLists& m_lists;
    ZetArray<CMxFileGroups>& m_fileGroups;
    CMxAddlInfo& m_info;
    CMxAddlInfo m_infoBefore;
    bool m_isDone = false;
    const OutputRun* m_outer;
};

/// Orders the lists by member group ID, and the members of each.
void SortLists(MemberLists& lists);

}  // namespace camdata::detail

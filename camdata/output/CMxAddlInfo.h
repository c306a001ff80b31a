#pragma once

#include "camdata/output/CMxPeilaibArr.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetString.h"

/// The summary of a run: blocks of lines, one line per member (mark, profile name, quantity). Block
/// 0 has the lines of all members, the others those of the members that name them
/// (CMxPeilaib::GetAddInfoArrLoc). A value.
class CAMDATA_API CMxAddlInfo {
  public:
    /// Sets the blocks, each with its header lines, and the order in which they are written. Both
    /// arrays are taken and left empty.
    void SetAddInfoArr(ZetArray<ZetArray<ZetString>>& blocks, ZetArray<long>& writeOrder);
    void SetAddInfoArr(ZetArray<ZetArray<ZetString>>&& blocks, ZetArray<long>&& writeOrder);

    /// Adds the line of each member of a list to block 0 and to the blocks that the member names,
    /// in order; twice to block 0 when it names that. Null: nothing happens.
    ///
    /// Without any block, and for a member that names one that is not there, the assertion
    /// "isValid( index )" fails; block 0 then stays as it was before the call.
    void AppendInfo(CMxPeilaibArr* list);
    /// The same for the members of an array.
    void AppendInfo(const ZetArray<CMxPeilaib*>& members);

    /// Writes the blocks in the write order at the file's write position, each after three lines of
    /// two blanks. A block outside the write order is not written, one that stands there twice is
    /// written twice. The lines go to the host's command line unless the file is open
    /// (CMxUtil::AsArrStrPrint). A position without a block fails the assertion "isValid( index )".
    void WriteAddInfo(ZetFileAccess*& file) const;

  private:
    ZetArray<ZetArray<ZetString>> m_blocks;
    ZetArray<long> m_writeOrder;
};

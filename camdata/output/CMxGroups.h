#pragma once

#include "camdata/member/eSortOrder.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// A member group: the files its members are written to, the header lines of its section, the order
/// of its members, and whether they are nested. A value.
class CAMDATA_API CMxGroups {
  public:
    /// Sets ID, file groups and header lines; sort order and nesting stay. The arrays are taken and
    /// left empty.
    void setValues(long memGroupID, ZetArray<long>& fileGroupIDs, ZetArray<ZetString>& headerInfos);
    void setValues(long memGroupID,
                   ZetArray<long>&& fileGroupIDs,
                   ZetArray<ZetString>&& headerInfos);
    /// Sets all but nesting, which stays. The arrays are taken and left empty.
    void setValues(long memGroupID,
                   ZetArray<long>& fileGroupIDs,
                   ZetArray<ZetString>& headerInfos,
                   ZetArray<eSortOrder>& sortOrder);
    void setValues(long memGroupID,
                   ZetArray<long>&& fileGroupIDs,
                   ZetArray<ZetString>&& headerInfos,
                   ZetArray<eSortOrder>&& sortOrder);

    /// -1: not set.
    void SetMemGroupID(long id) { m_memGroupID = id; }
    long GetMemGroupID() const { return m_memGroupID; }
    /// Positions in the run's list of file groups; the first is the group's main file.
    void SetFileGroupIDs(ZetArray<long> ids) { m_fileGroupIDs = std::move(ids); }
    ZetArray<long> GetFileGroupIDs() const { return m_fileGroupIDs; }
    /// Lines at the head of the group's section in its main file.
    void SetHeaderInfos(ZetArray<ZetString> lines) { m_headerInfos = std::move(lines); }
    ZetArray<ZetString> GetHeaderInfos() const { return m_headerInfos; }
    /// The keys by which the members are ordered, the first decides first.
    void SetSortOrderArr(ZetArray<eSortOrder> keys) { m_sortOrderArr = std::move(keys); }
    ZetArray<eSortOrder> GetSortOrderArr() const { return m_sortOrderArr; }
    /// The members are cut from stock bars together.
    void SetNesting(bool nesting) { m_nesting = nesting; }
    bool GetNesting() const { return m_nesting; }

  private:
    long m_memGroupID = -1;
    ZetArray<long> m_fileGroupIDs;
    ZetArray<ZetString> m_headerInfos;
    ZetArray<eSortOrder> m_sortOrderArr;
    bool m_nesting = false;
};

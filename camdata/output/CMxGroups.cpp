#include "camdata/output/CMxGroups.h"

void CMxGroups::setValues(long memGroupID,
                          ZetArray<long>& fileGroupIDs,
                          ZetArray<ZetString>& headerInfos) {
    setValues(memGroupID, std::move(fileGroupIDs), std::move(headerInfos));
}

void CMxGroups::setValues(long memGroupID,
                          ZetArray<long>&& fileGroupIDs,
                          ZetArray<ZetString>&& headerInfos) {
    m_memGroupID = memGroupID;
    m_fileGroupIDs = std::exchange(fileGroupIDs, {});
    m_headerInfos = std::exchange(headerInfos, {});
}

void CMxGroups::setValues(long memGroupID,
                          ZetArray<long>& fileGroupIDs,
                          ZetArray<ZetString>& headerInfos,
                          ZetArray<eSortOrder>& sortOrder) {
    setValues(memGroupID, std::move(fileGroupIDs), std::move(headerInfos), std::move(sortOrder));
}

void CMxGroups::setValues(long memGroupID,
                          ZetArray<long>&& fileGroupIDs,
                          ZetArray<ZetString>&& headerInfos,
                          ZetArray<eSortOrder>&& sortOrder) {
    setValues(memGroupID, std::move(fileGroupIDs), std::move(headerInfos));
    m_sortOrderArr = std::exchange(sortOrder, {});
}

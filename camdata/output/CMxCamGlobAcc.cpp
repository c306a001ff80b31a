#include "camdata/output/CMxCamGlobAcc.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/output/OutputRun.h"
#include "camdata/platform/host/MxSettings.h"
#include "camdata/platform/system/Modules.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>

namespace {

using camdata::detail::MemberLists;
using camdata::detail::OutputRun;

/// Index in the group table of the group that takes all secondary parts of assemblies.
constexpr int kSecondaryPartsIndex = 1;

/// Characters of the library's file version that make the product version.
constexpr long kProductVersionLength = 4;

bool IsSecondaryPart(const CMxPeilaib& member) {
    return member.getIsPartOfAssy() && !member.getIsMainPart();
}

/// The first list with the member group ID of `group`; null when there is none.
CMxPeilaibArr* FindList(const MemberLists& lists, const CMxGroups& group) {
    for (const auto& list : lists) {
        if (list->GetGroup().GetMemGroupID() == group.GetMemGroupID())
            return list.get();
    }
    return nullptr;
}

/// A member may neither begin a list of the run that writes it nor get into one of its lists.
void CheckNotWriting(const MemberLists& lists, const CMxGroups& group) {
    OutputRun::CheckNone(lists);
    if (const CMxPeilaibArr* list = FindList(lists, group))
        OutputRun::CheckNone(*list);
}

}  // namespace

// Members of the run would go on with what has ended. Nothing can be thrown out of here: behind the
// handler of assertions the program ends.
CMxCamGlobAcc::~CMxCamGlobAcc() {
    OutputRun::CheckNone(m_memberLists);
}

CMxCamGlobAcc& CMxCamGlobAcc::operator=(const CMxCamGlobAcc& other) {
    return *this = CMxCamGlobAcc(other);
}

CMxCamGlobAcc::CMxCamGlobAcc(CMxCamGlobAcc&& other) : CMxCamGlobAcc() {
    *this = std::move(other);
}

CMxCamGlobAcc& CMxCamGlobAcc::operator=(CMxCamGlobAcc&& other) {
    OutputRun::CheckNone(m_memberLists);
    OutputRun::CheckNone(other.m_memberLists);
    m_prefix = std::move(other.m_prefix);
    m_dirName = std::move(other.m_dirName);
    m_fullName = std::move(other.m_fullName);
    m_minEdgeDist = other.m_minEdgeDist;
    m_minGaugeLine = other.m_minGaugeLine;
    m_handing = other.m_handing;
    m_projectData = std::move(other.m_projectData);
    m_addInfo = std::move(other.m_addInfo);
    m_memberLists = std::move(other.m_memberLists);
    m_productVersion = std::move(other.m_productVersion);
    m_libraryVersion = std::move(other.m_libraryVersion);
    m_count = other.m_count;
    m_isCancelled = other.m_isCancelled;
    m_groupIndexMap = std::move(other.m_groupIndexMap);
    m_groups = std::move(other.m_groups);
    m_fileGroups = std::move(other.m_fileGroups);
    m_projectInfo = std::move(other.m_projectInfo);
    m_baseLibraryVersion = std::move(other.m_baseLibraryVersion);
    return *this;
}

bool CMxCamGlobAcc::SetManuFacturerDetails(ZetString prefix,
                                           ZetString dirName,
                                           ZetString fullName) {
    m_prefix = std::move(prefix);
    m_dirName = std::move(dirName);
    m_fullName = std::move(fullName);
    return true;
}

void CMxCamGlobAcc::appendGroups(ZetArray<int>& groupIndexMap, ZetArray<CMxGroups>& groups) {
    appendGroups(std::move(groupIndexMap), std::move(groups));
}

void CMxCamGlobAcc::appendGroups(ZetArray<int>&& groupIndexMap, ZetArray<CMxGroups>&& groups) {
    OutputRun::CheckNone(m_memberLists);
    m_groupIndexMap = std::exchange(groupIndexMap, {});
    m_groups = std::exchange(groups, {});
}

void CMxCamGlobAcc::appendFileGroups(ZetArray<CMxFileGroups>& fileGroups) {
    appendFileGroups(std::move(fileGroups));
}

void CMxCamGlobAcc::appendFileGroups(ZetArray<CMxFileGroups>&& fileGroups) {
    OutputRun::CheckNone(m_memberLists);
    m_fileGroups = std::exchange(fileGroups, {});
}

void CMxCamGlobAcc::SetGeomEPSs(double eps,
                                double generalTol,
                                double xTol,
                                double yTol,
                                double angleTol,
                                double minEdgeDist,
                                double minEdgeDistFromFace,
                                double minEndDist) {
    CMxGeom::SetEPS(eps);
    CMxGeom::SetGenTol(generalTol);
    CMxGeom::SetXTol(xTol);
    CMxGeom::SetYTol(yTol);
    CMxGeom::SetAngTol(angleTol);
    CMxGeom::SetMinEdgeDist(minEdgeDist);
    CMxGeom::SetMinEdgeDistFromFace(minEdgeDistFromFace);
    CMxGeom::SetMinEndDist(minEndDist);
}

bool CMxCamGlobAcc::SetGeomEPSsFromDefault(const ZetString&) {
    return false;
}

void CMxCamGlobAcc::SetMxProductVersion() {
    m_productVersion =
        MxSettings::getInstance().getValue(L"CurrentMxVersion").value_or(L"[Unknown]");
}

void CMxCamGlobAcc::SetDllVer(ZetString version) {
    m_libraryVersion = std::move(version);
    m_baseLibraryVersion = CMxUtil::GetDllVersion(OwnModule());
    m_productVersion = m_baseLibraryVersion.left(kProductVersionLength);
}

bool CMxCamGlobAcc::Append(CMxPeilaib* member) {
    ZET_ASSERT(member != nullptr, "member != nullptr");
    int index = m_groupIndexMap[member->GetGroupID()];
    if (IsSecondaryPart(*member))
        index = kSecondaryPartsIndex;
    const CMxGroups& group = m_groups[index];
    CheckNotWriting(m_memberLists, group);
    member->SetSortOrderArr(group.GetSortOrderArr());
    ++m_count;
    ListOf(group).Append(member);
    return true;
}

/// The first list with the member group ID of `group`; a new one when there is none.
CMxPeilaibArr& CMxCamGlobAcc::ListOf(const CMxGroups& group) {
    if (CMxPeilaibArr* list = FindList(m_memberLists, group))
        return *list;
    m_memberLists.append(std::make_shared<CMxPeilaibArr>(group));
    return *m_memberLists.last();
}

void CMxCamGlobAcc::SortPeilaibArr() {
    OutputRun::CheckNoneOfAny(m_memberLists);
    camdata::detail::SortLists(m_memberLists);
}

ZetString CMxCamGlobAcc::GetAnyName(ZetNCProjectData::ID id, long width) const {
    const ZetString name = m_projectData.GetData(id);
    return name + ZetString(CMxUtil::m_SpaceChar, std::max(width, 0L) - name.length());
}

void CMxCamGlobAcc::SetProjectInfo(CProjectInformation* info) {
    // Setting the object that is there already must not end it.
    if (info != m_projectInfo.get())
        m_projectInfo.reset(info);
}

void CMxCamGlobAcc::showProjInfoUID() {
    if (m_projectInfo)
        m_projectInfo->ShowDialog();
}

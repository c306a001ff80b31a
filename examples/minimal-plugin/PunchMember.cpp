#include "PunchMember.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/rules/MemberTypeValues.h"
#include "camdata/util/CMxUtil.h"

namespace {

/// Becomes the group ID, and so the member's place in the table of groups: 1 is that of secondary
/// parts of assemblies, and below 2 a member counts as not processed.
constexpr int kRecordType = 2;
constexpr double kLongestMember = 12000.0;

/// All dimensions come from the NC header.
CMemTypeAndAttrib TypeOfMembers() {
    constexpr DimensionValues kHeader = {.source = eProfPropHeader};
    return MakeMemberType({.recordType = kRecordType,
                           .height = kHeader,
                           .width = kHeader,
                           .thickness = kHeader,
                           .description = L"Punched member",
                           .shortName = L"PM",
                           .nameStart = 0});
}

CMemberValidations LimitsOfTheMachine() {
    CMemberValidations limits;
    limits.SetNoOfHoles(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfInternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfExternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetMaximumLength(kLongestMember);
    return limits;
}

}  // namespace

PunchMember::PunchMember(ZetNCCreator& creator) {
    SetMemObjects(TypeOfMembers(), LimitsOfTheMachine());
    SetNCObjects(&creator);
    SetEntTypeAndProfileName(creator.getNCEntity()->getType(), creator.getHeader().profileName);
    ValidateMember();
    CreateErrWarHeader();
    GenerateMemData();
}

void PunchMember::ValidateMember() {
    GetAndSortHolesNotches();
    SetNoOfHoles(m_holes.length());
    ZetArray<ZetString> warnings;
    for (CHoleAddlInfo& hole : m_holes) {
        hole.CheckEdgeAndEndDist(m_memType, GetLength());
        hole.GetWarMsg(warnings);
    }
    AppendMsg_VT(eReportingWarning, warnings);
    CMxPeilaib::ValidateMember();
}

void PunchMember::GenerateMemData() {
    m_output =
        ZetString::format(L"%s x%d %s %.1f\n", GetMark(), GetQty(), GetProfileName(), GetLength());
    for (const CHoleAddlInfo& hole : m_holes)
        m_output += ZetString::format(L"  %s %.1f %.1f %.1f\n",
                                      hole.GetHoleType(),
                                      hole.GetXPos(),
                                      hole.GetYPos(),
                                      hole.GetSize());
}

void PunchMember::WriteMemOutPut(const ZetArray<ZetFileAccess*>& files, ZetArray<CMxPeilaib*>&) {
    if (GetValid())
        files.first()->Write(GetMemOutPutStr());
    WriteMemWarnings(WarningFileOf(files));
    WriteMemErrors(ErrorFileOf(files));
}

void PunchMember::WriteMemErrors(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(m_errorReport, file);
    CMxUtil::AsArrStrPrint(m_errors, file);
}

void PunchMember::WriteMemWarnings(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(m_warningReport, file);
    CMxUtil::AsArrStrPrint(m_warnings, file);
}

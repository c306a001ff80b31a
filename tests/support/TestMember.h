#pragma once

#include "camdata/member/CMxPeilaib.h"

/// A member whose output is empty, open to the tests: the record and the operations for derived
/// classes.
class TestMember : public CMxPeilaib {
  public:
    void GenerateMemData() override {}
    ZetString GetMemOutPutStr() override { return {}; }
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>&, ZetArray<CMxPeilaib*>&) override {}
    void WriteMemErrors(ZetFileAccess*) override {}
    void WriteMemWarnings(ZetFileAccess*) override {}

    using CMxPeilaib::AppendMsg_VT;
    using CMxPeilaib::ChangeHolePosition;
    using CMxPeilaib::ChangeHolesStatus;
    using CMxPeilaib::CheckAttachedPartsSelection;
    using CMxPeilaib::CreateErrWarHeader;
    using CMxPeilaib::GetAndSortHolesNotches;
    using CMxPeilaib::GetAttachedEntityHeaderData;
    using CMxPeilaib::GetAttachedPartNos;
    using CMxPeilaib::GetBeamEndPoints;
    using CMxPeilaib::GetEqualPartObj;
    using CMxPeilaib::GetStBeamObj;
    using CMxPeilaib::MakeCSKHoleArrAndMark;
    using CMxPeilaib::MakeDupHoleArr;
    using CMxPeilaib::MakeDupHoleArrForHolesInsideSlot;
    using CMxPeilaib::MakeDupNotchArr;
    using CMxPeilaib::MakeValidHoles;
    using CMxPeilaib::MakeValidNotches;
    using CMxPeilaib::OrderHoles;
    using CMxPeilaib::OrderNotches;
    using CMxPeilaib::SetHoleDataArr;
    using CMxPeilaib::SetNotchDataArr;
    using CMxPeilaib::SetWebFaceForCSKHoles;
    using CMxPeilaib::TagThisCSKtoMainHole;

    using CMxPeilaib::m_attachedParts;
    using CMxPeilaib::m_creator;
    using CMxPeilaib::m_cskHoles;
    using CMxPeilaib::m_duplicateHoles;
    using CMxPeilaib::m_duplicateNotches;
    using CMxPeilaib::m_entity;
    using CMxPeilaib::m_entityType;
    using CMxPeilaib::m_equalPart;
    using CMxPeilaib::m_errorReport;
    using CMxPeilaib::m_errors;
    using CMxPeilaib::m_generalMsgs;
    using CMxPeilaib::m_holes;
    using CMxPeilaib::m_memType;
    using CMxPeilaib::m_message;
    using CMxPeilaib::m_nests;
    using CMxPeilaib::m_nonStdMsgs;
    using CMxPeilaib::m_notches;
    using CMxPeilaib::m_partsToNest;
    using CMxPeilaib::m_reserveLength;
    using CMxPeilaib::m_secondErrors;
    using CMxPeilaib::m_secondWarnings;
    using CMxPeilaib::m_shortfallAsWarning;
    using CMxPeilaib::m_splOutStr;
    using CMxPeilaib::m_structure;
    using CMxPeilaib::m_validations;
    using CMxPeilaib::m_warningReport;
    using CMxPeilaib::m_warnings;
};

/// A member with this header and with the dimensions that it gives.
inline TestMember MemberOf(const ZetNCHeaderData& header) {
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(2, 0,
                   eProfPropHeader, 0, 0, 0.0,
                   eProfPropHeader, 0, 0, 0.0,
                   eProfPropHeader, 0, 0, 0.0, 1.0,
                   eProfPropNone, 0, 0, 0.0, 1.0,
                   0, 0, L"", L"", 4, 0, 0);
    // clang-format on
    type.SetHeaderData(header);
    TestMember member;
    member.SetMemObjects(type, CMemberValidations());
    return member;
}

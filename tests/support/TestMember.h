#pragma once

#include "support/HeaderOf.h"

#include "camdata/member/CMxPeilaib.h"

#include <vector>

/// A member whose output is empty, open to the tests: the record and the operations for derived
/// classes.
class TestMember : public CMxPeilaib {
    using M = CMxPeilaib;

  public:
    void GenerateMemData() override {}
    ZetString GetMemOutPutStr() override { return {}; }
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>&, ZetArray<CMxPeilaib*>&) override {}
    void WriteMemErrors(ZetFileAccess*) override {}
    void WriteMemWarnings(ZetFileAccess*) override {}

    // clang-format off
    using M::AppendMsg_VT, M::ChangeHolePosition, M::ChangeHolesStatus;
    using M::CheckAttachedPartsSelection, M::CreateErrWarHeader, M::GetAndSortHolesNotches;
    using M::GetAttachedEntityHeaderData, M::GetAttachedPartNos, M::GetBeamEndPoints;
    using M::GetEqualPartObj, M::GetStBeamObj, M::MakeCSKHoleArrAndMark, M::MakeDupHoleArr;
    using M::MakeDupHoleArrForHolesInsideSlot, M::MakeDupNotchArr, M::MakeValidHoles;
    using M::MakeValidNotches, M::OrderHoles, M::OrderNotches, M::SetHoleDataArr;
    using M::SetNotchDataArr, M::SetWebFaceForCSKHoles, M::TagThisCSKtoMainHole;
    using M::m_attachedParts, M::m_creator, M::m_cskHoles, M::m_duplicateHoles;
    using M::m_duplicateNotches, M::m_entity, M::m_entityType, M::m_equalPart, M::m_errorReport;
    using M::m_errors, M::m_generalMsgs, M::m_holes, M::m_memType, M::m_message, M::m_nests;
    using M::m_nonStdMsgs, M::m_notches, M::m_partsToNest, M::m_reserveLength, M::m_secondErrors;
    using M::m_secondWarnings, M::m_shortfallAsWarning, M::m_splOutStr, M::m_structure;
    using M::m_validations, M::m_warningReport, M::m_warnings;
    // clang-format on
};

inline std::vector<double> SizesOf(const ZetArray<CHoleAddlInfo>& holes) {
    std::vector<double> sizes;
    for (const CHoleAddlInfo& hole : holes)
        sizes.push_back(hole.GetSize());
    return sizes;
}

/// A member with this header and with the dimensions that it gives.
inline TestMember MemberOf(const ZetNCHeaderData& header) {
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(2, 0, eProfPropHeader, 0, 0, 0.0, eProfPropHeader, 0, 0, 0.0, eProfPropHeader, 0, 0,
                   0.0, 1.0, eProfPropNone, 0, 0, 0.0, 1.0, 0, 0, L"", L"", 4, 0, 0);
    // clang-format on
    type.SetHeaderData(header);
    TestMember member;
    member.SetMemObjects(type, CMemberValidations());
    return member;
}

inline TestMember MemberOf(ZetString mark, long qty, ZetString profileName) {
    return MemberOf(HeaderOf{.mark = mark, .quantity = qty, .profileName = profileName});
}

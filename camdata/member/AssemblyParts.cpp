#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/MemberFiles.h"
#include "camdata/member/SinglePartTexts.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/HostBridge.h"
#include "camdata/util/ReportIndent.h"

namespace {

/// What is left of a part that was not found. It is also what one piece too few leaves: the search
/// then goes on, on purpose.
constexpr int kNotFound = -1;

/// Formats of a number of parts and their part number.
using ShortfallFormat = ZetFormatString<ZetString, int, ZetString>;
constexpr ShortfallFormat kShortfallWarning =
    L"%s*Warning*: %d of the single parts (Part no : %s) are not selected / valid for this assembly";
constexpr ShortfallFormat kShortfallError =
    L"%s*Error: %d of the single parts (Part no : %s) are not selected / valid for this assembly";

}  // namespace

void CMxPeilaib::PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files) {
    ZetFileAccess* const errorFile = ErrorFileOf(files);
    ZetFileAccess* const warningFile = WarningFileOf(files);
    DropReported();
    AppendQtyFinding();
    CreateErrWarHeader();
    CMxUtil::AsArrStrPrint(m_errorReport, errorFile);
    CMxUtil::AsArrStrPrint(m_errors, errorFile);
    if (!m_valid)
        return;
    CMxUtil::AsArrStrPrint(m_warningReport, warningFile);
    CMxUtil::AsArrStrPrint(m_warnings, warningFile);
}

// The non-standard messages stay: they become warnings again.
void CMxPeilaib::DropReported() {
    m_addInfoArrLoc.removeAll();
    for (auto* lines : {&m_errorReport,
                        &m_secondErrors,
                        &m_errors,
                        &m_warningReport,
                        &m_secondWarnings,
                        &m_warnings})
        lines->removeAll();
}

void CMxPeilaib::AppendQtyFinding() {
    const ZetString indent = MemberLineIndent();
    const long left = GetQty();
    if (left < 0)
        AppendLine(m_errors, ZetString::format(kTooFewPartsFormat, indent, -left));
    if (left > 0)
        AppendLine(m_warnings, ZetString::format(kLeftOverPartsFormat, indent, left));
}

void CMxPeilaib::GetAttachedPartNos() {
    if (!m_attachedParts.isEmpty() || m_creator == nullptr)
        return;
    ZetArray<CMxAttPartNoAndQty> parts;
    for (ZetNCEntity* entity : m_creator->getAttachedEntities()) {
        CMxAttPartNoAndQty part;
        part = GetAttachedEntityHeaderData(entity);
        parts.append(std::move(part));
    }
    m_attachedParts = std::move(parts);
}

ZetNCHeaderData CMxPeilaib::GetAttachedEntityHeaderData(ZetNCEntity* entity) const {
    ZetNCCreator creator;
    if (m_creator != nullptr)
        creator.setStyle(m_creator->getStyle());
    creator.setNCEntity(entity);
    creator.create();
    ZetNCHeaderData header = creator.getHeader();
    header.profileName = GetProfileNameFromCreator(&creator);
    return header;
}

void CMxPeilaib::CheckAttachedPartsSelection(ZetArray<CMxPeilaib*>& members) {
    for (CMxAttPartNoAndQty& part : m_attachedParts) {
        const int left = TakeFromSelection(part, members);
        if (left < 0)
            FileShortfall(-left, part.GetPartNo());
    }
}

int CMxPeilaib::TakeFromSelection(CMxAttPartNoAndQty& part,
                                  const ZetArray<CMxPeilaib*>& members) const {
    const ZetString partNo = part.GetPartNo();
    int left = kNotFound;
    for (CMxPeilaib* member : members) {
        if (left != kNotFound)
            break;
        if (member->m_memType.GetHeaderData().mark != partNo)
            continue;
        left = member->SubtractQty(static_cast<int>(GetQty()));
        part.SetMirrored(member->GetHolesMirrored());
        part.SetNonStd(member->GetNonStd());
        part.SetOutStr(member->GetSplOutStr());
    }
    return left;
}

void CMxPeilaib::FileShortfall(int missing, const ZetString& partNo) {
    const ZetString indent = MemberLineIndent();
    if (m_shortfallAsWarning)
        AppendLine(m_nonStdMsgs, ZetString::format(kShortfallWarning, indent, missing, partNo));
    else
        AppendLine(m_errors, ZetString::format(kShortfallError, indent, missing, partNo));
}

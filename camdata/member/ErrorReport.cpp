#include "camdata/member/CMxPeilaib.h"
#include "camdata/util/ReportIndent.h"

namespace {

/// Names that contain it are reported whole among the errors.
constexpr const wchar_t* kWholeNameMark = L"Obso";

/// Blocks of the additional information.
constexpr long kErrorBlock = 2;
constexpr long kWarningBlock = 3;

}  // namespace

bool CMxPeilaib::CreateErrWarHeader() {
    const ZetString name = m_memType.GetProfileName();
    const ZetString shortName = name.mid(m_memType.GetNameStartPos());
    m_valid = m_errors.isEmpty() && m_secondErrors.isEmpty();
    if (!m_valid)
        HeadReport(m_errorReport, name.contains(kWholeNameMark) ? name : shortName, kErrorBlock);
    m_warnings.appendAll(m_nonStdMsgs);
    // Not IsWarningExist: here one line in the second list is enough.
    if (!m_warnings.isEmpty() || !m_secondWarnings.isEmpty())
        HeadReport(m_warningReport, shortName, kWarningBlock);
    return true;
}

void CMxPeilaib::HeadReport(ZetArray<ZetString>& report, const ZetString& section, long block) {
    const ZetString indent = MemberLineIndent();
    AppendLine(report, ZetString::format(L"%s = %s", L"Part Number", GetMark()));
    AppendLine(report, ZetString::format(L"%s%-10s = %s", indent, L"Section", section));
    AppendLine(report, ZetString::format(L"%s%-10s = %d", indent, L"Quantity", GetQty()));
    m_addInfoArrLoc.append(block);
}

void CMxPeilaib::AppendLine(ZetArray<ZetString>& list, ZetString line) {
    m_message = std::move(line);
    list.append(m_message);
}

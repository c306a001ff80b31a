#include "plugin/rules/JobMember.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/member/SinglePartTexts.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <utility>

namespace plugin {

/// The library's line for each kind of parts that is missing becomes a finding.
void JobMember::CheckAttachedParts(ZetArray<CMxPeilaib*>& members) {
    const long before = m_errors.length();
    CheckAttachedPartsSelection(members);
    const ZetArray<ZetString> lines = m_errors;
    m_errors.setLength(before);
    for (long i = before; i < lines.length(); ++i)
        FileFinding({.type = job::kMissingParts, .text = lines[i].trimmedLeft()});
}

void JobMember::PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files) {
    SetAddInfoArrLoc({});
    for (auto* lines : {&m_errorReport,
                        &m_secondErrors,
                        &m_errors,
                        &m_warningReport,
                        &m_secondWarnings,
                        &m_warnings})
        lines->removeAll();
    const long left = GetQty();
    if (left < 0)
        FileFinding({.type = job::kMissingParts,
                     .text = ZetString::format(kTooFewPartsFormat, ZetString(), -left)});
    if (left > 0)
        FileFinding({.type = job::kUnusedParts,
                     .text = ZetString::format(kLeftOverPartsFormat, ZetString(), left)});
    HeadReports();
    // A part that is made all the same has something that somebody should see.
    if (m_outcome.isValid && !(m_errorReport.isEmpty() && m_warningReport.isEmpty()))
        m_outcome.hasWarnings = true;
    CMxUtil::AsArrStrPrint(GetErrorBlock(), ErrorFileOf(files));
    if (GetValid())
        CMxUtil::AsArrStrPrint(GetWarningBlock(), WarningFileOf(files));
}

}  // namespace plugin

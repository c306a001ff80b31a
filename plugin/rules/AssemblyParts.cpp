#include "plugin/rules/JobMember.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/member/SinglePartTexts.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace plugin {

namespace {

long CountOf(const ZetString& mark, const ZetArray<CMxAttPartNoAndQty>& parts) {
    return static_cast<long>(std::count_if(
        parts.begin(), parts.end(), [&](const auto& part) { return part.GetPartNo() == mark; }));
}

/// Pieces of a single part that are left; below 0: missing. Nothing: none is selected and valid.
std::optional<long> LeftOf(const ZetString& mark, const ZetArray<CMxPeilaib*>& members) {
    for (const CMxPeilaib* member : members)
        if (member->GetMark() == mark)
            return member->GetValid() ? std::optional(member->GetQty()) : std::nullopt;
    return std::nullopt;
}

}  // namespace

const job::Assembly* JobMember::FindAssembly() const {
    const std::vector<job::Assembly>& assemblies = GetJob().assemblies;
    const auto names = [&](const auto& part) { return part.mark == GetMark(); };
    const auto at = std::find_if(assemblies.begin(), assemblies.end(), [&](const auto& assembly) {
        return names(assembly) || std::any_of(assembly.parts.begin(), assembly.parts.end(), names);
    });
    return at == assemblies.end() ? nullptr : &*at;
}

/// As the assembly that is the first to name the member has judged it.
void JobMember::FileParts(Finding finding) {
    if (const job::Assembly* assembly = FindAssembly()) {
        finding.rule = assembly->mark;
        finding.ruleLine = assembly->line;
    }
    FileFinding(std::move(finding));
}

/// The library's line for each piece that is missing becomes a finding.
void JobMember::CheckAttachedParts(ZetArray<CMxPeilaib*>& members) {
    const ZetArray<CMxAttPartNoAndQty> parts = m_attachedParts;
    for (long i = 0; i < parts.length(); ++i) {
        m_attachedParts = {parts[i]};
        const long before = m_errors.length();
        CheckAttachedPartsSelection(members);
        const bool isShort = m_errors.length() > before;
        const ZetString text = isShort ? m_errors.last().trimmedLeft() : ZetString();
        m_errors.setLength(before);
        if (!isShort)
            continue;
        const ZetString mark = parts[i].GetPartNo();
        const long needed = CountOf(mark, parts) * GetQty();
        const std::optional<long> left = LeftOf(mark, members);
        FileParts({.type = job::kMissingParts,
                   .text = text,
                   .required = static_cast<double>(needed),
                   .found = static_cast<double>(left ? std::max(needed + *left, 0L) : 0L)});
    }
    m_attachedParts = parts;
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
    const double needed = static_cast<double>(m_ordered - left);
    const double ordered = static_cast<double>(m_ordered);
    if (left < 0)
        FileParts({.type = job::kMissingParts,
                   .text = ZetString::format(kTooFewPartsFormat, ZetString(), -left),
                   .required = needed,
                   .found = ordered});
    if (left > 0)
        FileParts({.type = job::kUnusedParts,
                   .text = ZetString::format(kLeftOverPartsFormat, ZetString(), left),
                   .required = needed,
                   .found = ordered});
    HeadReports();
    // A part that is made all the same has something that somebody should see.
    if (m_outcome.isValid && !(m_errorReport.isEmpty() && m_warningReport.isEmpty()))
        m_outcome.hasWarnings = true;
    CMxUtil::AsArrStrPrint(GetErrorBlock(), ErrorFileOf(files));
    if (GetValid())
        CMxUtil::AsArrStrPrint(GetWarningBlock(), WarningFileOf(files));
}

}  // namespace plugin

#include "plugin/rules/JobMember.h"

#include "plugin/rules/BarStock.h"
#include "plugin/rules/FlangeZero.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/HostBridge.h"
#include "camdata/util/ReportIndent.h"

#include <utility>

namespace plugin {

namespace {

ZetString Indented(const ZetString& text) {
    return MemberLineIndent() + text;
}

/// The lines under their heading; nothing without one.
ZetArray<ZetString> BlockOf(ZetArray<ZetString> heading,
                            const ZetArray<ZetString>& lines,
                            const ZetArray<ZetString>& furtherLines) {
    if (heading.isEmpty())
        return heading;
    heading.appendAll(lines);
    heading.appendAll(furtherLines);
    return heading;
}

}  // namespace

JobMember::JobMember(const JudgingRules& rules, const job::MemberType& type, ZetNCCreator& creator)
    : m_rules(rules), m_type(type) {
    const ZetNCHeaderData header = creator.getHeader();
    m_material = header.material;
    m_weightPerMetre = header.weightPerMetre;
    CMemberValidations limits = type.limits;
    limits.SetPartofAssy(rules.IsPartOfAssembly(header.mark));
    SetMemObjects(type.type, std::move(limits));
    SetNCObjects(&creator);
    SetEntTypeAndProfileName(creator.getNCEntity()->getType(), GetProfileNameFromCreator(&creator));
    SetNesting(GetGroup().isNested);
    m_reserveLength = GetGroup().reserveLength;
}

std::size_t JobMember::GetGroupPosition() const {
    return IsSecondaryPart() ? std::size_t{job::kSecondaryGroup} : m_type.group;
}

// ---- judging ------------------------------------------------------------------------------------

void JobMember::ValidateMember() {
    ApplyFlangeZeros(m_structure, m_type);
    GetAndSortHolesNotches();
    FileSetAside();
    TakeRectangularHoles();
    CheckDistances();
    CodeHoles();
    FindPairs();
    FindGroups();
    MatchCornerNotches();
    SetNoOfHoles(MakeValidHoles());
    SettleNotches();
    CheckFixedPattern();
    CMxPeilaib::ValidateMember();
    CheckQuantity();
    CheckStockLength();
}

void JobMember::CheckDistances() {
    if (!GetJob().areDistancesChecked)
        return;
    const double length = GetLength();
    for (CHoleAddlInfo& hole : m_holes) {
        ZetArray<ZetString> lines;
        hole.CheckEdgeAndEndDist(m_memType, length);
        // Not without lines: they would make the member invalid or non-standard too.
        if (hole.GetWarMsg(lines))
            AppendMsg_VT(ReportTypeOf(job::kHoleDistance), lines);
    }
}

void JobMember::CheckQuantity() {
    const long most = GetJob().maximumQuantity;
    if (GetQty() > most)
        FileFinding(job::kQuantity,
                    ZetString::format(L"Quantity (%d) is above %d", GetQty(), most));
}

void JobMember::CheckStockLength() {
    const std::vector<job::Stock> stocks = StocksFor(GetJob(), GetProfileName());
    const job::Stock& longest = LongestOf(stocks);
    const double usable = UsableLength(longest);
    CMxGeom::SetTol(eTolEPS);
    if (!GetGroup().isNested || !CMxGeom::IsGreater_Mx(GetLength(), usable))
        return;
    const ZetString grips =
        usable < longest.length ? ZetString::format(L", of which %.0f can be used", usable) : L"";
    FileFinding(job::kLongerThanStock,
                ZetString::format(L"Member length (%.1f) is greater than the stock length %.0f%s",
                                  GetLength(),
                                  longest.length,
                                  grips));
}

eReportingTypes JobMember::ReportTypeOf(job::ValidationType type) const {
    return m_validations.GetReportType(static_cast<eValidationTypes>(type));
}

void JobMember::FileFinding(job::ValidationType type, const ZetString& text) {
    AppendMsg_VT(ReportTypeOf(type), Indented(text));
}

void JobMember::FileHole(job::ValidationType type, const wchar_t* what, const CHoleAddlInfo& hole) {
    FileFinding(type, ZetString::format(L"%s: %s", what, hole.GetHoleMsg().trimmedLeft()));
}

/// In the lines of the library, with this finding as the notch's error.
void JobMember::FileNotch(job::ValidationType type, const wchar_t* what, CNotchAddInfo notch) {
    ZetArray<ZetString> lines;
    notch.AppendMsg(eHoleMsgError, what);
    notch.GetErrMsg(lines);
    AppendMsg_VT(ReportTypeOf(type), lines);
}

// ---- report -------------------------------------------------------------------------------------

void JobMember::SettleReport() {
    if (std::exchange(m_isSettled, true))
        return;
    CreateErrWarHeader();
    m_outcome = {GetValid(), !m_warningReport.isEmpty(), GetNonStd()};
    if (!m_outcome.isNonStandard)
        return;
    ZetArray<long> blocks = GetAddInfoArrLoc();
    blocks.append(job::kNonStandardBlock);
    SetAddInfoArrLoc(std::move(blocks));
}

ZetArray<ZetString> JobMember::GetErrorBlock() const {
    return BlockOf(m_errorReport, m_errors, m_secondErrors);
}

ZetArray<ZetString> JobMember::GetWarningBlock() const {
    return BlockOf(m_warningReport, m_warnings, m_secondWarnings);
}

// ---- output -------------------------------------------------------------------------------------

void JobMember::MakeOutput() {
    if (IsMainPart())
        GetAttachedPartNos();
    GenerateOutPutStringForHoles();
    GenerateOutPutStringForNotches();
    GenerateMemData();
    m_records = GetMemOutPutStr().toUtf8();
    ReleaseSources();
}

/// Of a hundred thousand members only what is written or asked for later may stay.
void JobMember::ReleaseSources() {
    m_creator = nullptr;
    m_entity = nullptr;
    m_structure = {};
    m_holes = {};
    m_cskHoles = {};
    m_duplicateHoles = {};
    m_notches = {};
    m_duplicateNotches = {};
    m_textList1 = {};
    m_textList2 = {};
    m_textList3 = {};
    SetSingleMemValid({});
    m_entryOfHole = {};
    m_insideSlots.clear();
}

void JobMember::WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                               ZetArray<CMxPeilaib*>& secondaryParts) {
    if (IsMainPart())
        CheckAttachedPartsSelection(secondaryParts);
    SettleReport();
    for (long i = 0; i < CountGroupFiles(files) && GetValid(); ++i)
        WriteRecords(files[i]);
    m_records = {};
    WriteMemErrors(ErrorFileOf(files));
    WriteMemWarnings(WarningFileOf(files));
}

void JobMember::WriteRecords(ZetFileAccess* file) const {
    if (file != nullptr && file->IsOpen())
        file->Write(ZetString::fromUtf8(m_records));
}

void JobMember::WriteMemErrors(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(GetErrorBlock(), file);
}

void JobMember::WriteMemWarnings(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(GetWarningBlock(), file);
}

// ---- nesting ------------------------------------------------------------------------------------

ZetArray<CMxNestParts> JobMember::MakeNests(ZetArray<CMxParts> parts) {
    m_partsToNest = std::move(parts);
    // With one kind of part, nesting reads what is there.
    CMxGeom::SetTol(eTolEPS);
    Nesting();
    return std::exchange(m_nests, {});
}

}  // namespace plugin

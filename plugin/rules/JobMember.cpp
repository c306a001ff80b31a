#include "plugin/rules/JobMember.h"

#include "plugin/rules/CircularOpenings.h"
#include "plugin/rules/FaceText.h"
#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/NegativeZeros.h"

#include "camdata/member/MemberFiles.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/HostBridge.h"
#include "camdata/util/ReportIndent.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace plugin {

namespace {

/// What numbers of findings are rounded to.
constexpr int kDecimals = 6;

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
    const ZetNCHeaderData& header = creator.getHeader();
    CMemberValidations limits = type.limits;
    limits.SetPartofAssy(rules.IsPartOfAssembly(header.mark));
    for (int check = 0; check < job::kUncoveredHole; ++check)
        limits.SetReportType(static_cast<eValidationTypes>(check), ReportTypeOf(check));
    SetMemObjects(type.type, std::move(limits));
    SetNCObjects(&creator);
    m_section = SectionOf(m_memType.GetHeaderData().profileCode);
    for (std::size_t view = 0; view < m_judging->viewsOfWall.size(); ++view)
        m_judging->viewsOfWall[view] = FindViewsOfWall(static_cast<int>(view));
    m_ordered = GetQty();
    // The height of a plate is its width.
    m_weightPerMetre = header.weightPerMetre * (IsPlate() ? header.height / 1000.0 : 1.0);
    m_ledger = Ledger(FeaturesOf(m_structure));
    SetEntTypeAndProfileName(creator.getNCEntity()->getType(), GetProfileNameFromCreator(&creator));
    SetNesting(GetGroup().isNested);
    m_reserveLength = GetGroup().reserveLength;
}

std::size_t JobMember::GetGroupPosition() const {
    return IsSecondaryPart() ? std::size_t{job::kSecondaryGroup} : m_type.group;
}

// ---- judging ------------------------------------------------------------------------------------

void JobMember::ValidateMember() {
    // Whatever the member before it has left there, in whichever thread that was.
    CMxGeom::SetTol(eTolEPS);
    ApplyFlangeZeros(m_structure, m_type);
    for (const CircularOpening& circle : TakeCircularOpenings(m_structure, m_notes))
        m_judging->circles[circle.viewPosition].Add(circle.corners);
    SeePlanes();
    GetAndSortHolesNotches();
    CheckOutlines();
    CheckCuts();
    CheckOpenings();
    SetAsideNotches();
    PartCountersinks();
    SettleSetAsideHoles();
    SetAsideOtherSides();
    JoinCountersinks();
    TakeRectangularHoles();
    CheckPlanes();
    CheckPlaces();
    CheckDistances();
    CodeHoles();
    FindPairs();
    FindGroups();
    MatchCornerNotches();
    SetNoOfHoles(MakeValidHoles());
    SettleNotches();
    CheckFixedPattern();
    CheckLimits();
    CheckQuantity();
    CheckStockLength();
    WriteFormats();
    NoteMarks();
}

// ---- findings -----------------------------------------------------------------------------------

std::optional<Feature> JobMember::FeatureOf(long tag) const {
    const Feature* const feature = m_ledger.Find(tag);
    return feature == nullptr ? std::nullopt : std::optional(*feature);
}

void JobMember::Tell(int type, const ZetArray<ZetString>& lines) {
    if (ReportTypeOf(type) != job::kReportingOff)
        AppendMsg_VT(ReportTypeOf(type), lines);
}

void JobMember::RecordFinding(Finding finding) {
    finding.text = WithoutNegativeZeros(finding.text);
    finding.report = ReportTypeOf(finding.type);
    if (finding.rule.isEmpty()) {
        finding.rule = m_type.id;
        finding.ruleLine = m_type.line;
    }
    for (std::optional<double>* number : {&finding.required, &finding.found})
        if (*number)
            *number = CMxGeom::Round_CAM(**number, kDecimals) + 0.0;  // never -0
    if (finding.feature && (finding.isRefusal || finding.IsError()))
        m_ledger.Claim(finding.feature->tag, Account::kRefused);
    m_findings.push_back(std::move(finding));
}

void JobMember::FileFinding(Finding finding) {
    Tell(finding.type, {Indented(WithoutNegativeZeros(finding.text))});
    RecordFinding(std::move(finding));
}

/// As an error, whatever the job says of its type; once.
void JobMember::FileError(Finding finding) {
    const auto isSame = [&](const Finding& other) { return other.text == finding.text; };
    if (std::any_of(m_findings.begin(), m_findings.end(), isSame))
        return;
    AppendMsg_VT(eReportingError, ZetArray<ZetString>{Indented(finding.text)});
    RecordFinding(std::move(finding));
    m_findings.back().report = eReportingError;
}

void JobMember::FileHole(Finding finding, const CHoleAddlInfo& hole) {
    Finding told = finding;
    told.text = ZetString::format(L"%s: %s", finding.text, HoleText(hole));
    told.feature = FeatureOf(hole.GetHoleData().hostTag);
    FileFinding(std::move(told));
    if (finding.isRefusal && hole.GetHoleData().kind != ZetNCHoleData::eKindCountersunk)
        RefuseSinkOf(hole, std::move(finding));
}

/// In the lines of the library, with this finding as the notch's error.
void JobMember::FileNotch(Finding finding, CNotchAddInfo notch) {
    ZetArray<ZetString> lines;
    notch.AppendMsg(eHoleMsgError, finding.text);
    notch.GetErrMsg(lines);
    for (ZetString& line : lines)
        line = WithFaceNamed(WithoutNegativeZeros(line), notch.GetViewData());
    Tell(finding.type, lines);
    // The library's outlines repeat their first corner.
    finding.text = ZetString::format(L"%s: notch on %s at (X:%.1f, Y:%.1f), %d corners",
                                     finding.text,
                                     FaceText(notch.GetViewData().GetHoleFace()),
                                     notch.GetXPos(),
                                     notch.GetYPos(),
                                     notch.GetNoOfVertices() - 1);
    finding.feature = FeatureOf(notch.GetContour().hostTag);
    RecordFinding(std::move(finding));
}

// ---- report -------------------------------------------------------------------------------------

void JobMember::SettleReport() {
    if (std::exchange(m_isSettled, true))
        return;
    HeadReports();
    m_outcome = {GetValid(), !m_warningReport.isEmpty(), GetNonStd(), m_outcome.hasPieces};
    if (!m_outcome.isNonStandard)
        return;
    ZetArray<long> blocks = GetAddInfoArrLoc();
    blocks.append(job::kNonStandardBlock);
    SetAddInfoArrLoc(std::move(blocks));
}

void JobMember::HeadReports() {
    CreateErrWarHeader();
    TellSource(m_errorReport);
    TellSource(m_warningReport);
}

/// Below the part number, as the library aligns its lines.
void JobMember::TellSource(ZetArray<ZetString>& report) const {
    if (!m_source.isEmpty() && !report.isEmpty())
        report.insertAt(1, Indented(ZetString::format(L"%-10s = %s", L"NC file", m_source)));
}

ZetArray<ZetString> JobMember::GetErrorBlock() const {
    ZetArray<ZetString> block = BlockOf(m_errorReport, m_errors, m_secondErrors);
    TellUnmade(block);
    return block;
}

ZetArray<ZetString> JobMember::GetWarningBlock() const {
    ZetArray<ZetString> block = BlockOf(m_warningReport, m_warnings, m_secondWarnings);
    if (m_errorReport.isEmpty())
        TellUnmade(block);
    return block;
}

/// Below what is wrong with a member that is not made.
void JobMember::TellUnmade(ZetArray<ZetString>& block) const {
    const ZetString word = m_unmadeFeatures == 1 ? L"feature" : L"features";
    if (!IsMade() && !block.isEmpty() && m_unmadeFeatures > 0)
        block.append(Indented(
            ZetString::format(L"Not made with the member: %d %s", m_unmadeFeatures, word)));
}

// ---- output -------------------------------------------------------------------------------------

void JobMember::MakeOutput() {
    if (IsMainPart())
        GetAttachedPartNos();
    MakeOperations();
    ClaimOperations();
    GenerateMemData();
    m_records.text = MakeRecords();
    m_records.operations = std::move(m_judging->operationTags);
    m_unmadeFeatures = m_notedFeatures + m_ledger.CountNotMade();
    ReleaseSources();
}

/// Of a hundred thousand members only what is written or asked for later may stay.
void JobMember::ReleaseSources() {
    m_judging.reset();
    m_creator = nullptr;
    m_entity = nullptr;
    // Only parts of assemblies are asked later which part they are.
    if (!getIsPartOfAssy())
        m_equalPart = {};
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
}

void JobMember::WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                               ZetArray<CMxPeilaib*>& secondaryParts) {
    if (IsMainPart())
        CheckAttachedParts(secondaryParts);
    SettleReport();
    for (long i = 0; i < CountGroupFiles(files) && IsMade(); ++i)
        WriteRecords(files[i]);
    WriteMemErrors(ErrorFileOf(files));
    WriteMemWarnings(WarningFileOf(files));
}

void JobMember::WriteRecords(ZetFileAccess* file) const {
    if (file != nullptr && file->IsOpen())
        file->WriteUtf8(GetRecordText());
}

void JobMember::WriteMemErrors(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(GetErrorBlock(), file);
}

void JobMember::WriteMemWarnings(ZetFileAccess* file) {
    CMxUtil::AsArrStrPrint(GetWarningBlock(), file);
}

// ---- nesting ------------------------------------------------------------------------------------

void JobMember::MakeNests(ZetArray<CMxParts> parts, const camdata::detail::NestTaker& take) const {
    // With one kind of part, nesting reads what is there.
    CMxGeom::SetTol(eTolEPS);
    camdata::detail::MakeNests(std::move(parts), m_reserveLength, take);
}

}  // namespace plugin

#include "plugin/rules/JobMember.h"

#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <utility>

// The library checks all limits at once and tells nothing but lines. Here each is checked alone, so
// that it is known what a line is about.

namespace plugin {

namespace {

/// One limit of the library.
struct LimitCheck {
    eValidationTypes type;
    void (*take)(CMemberValidations& limits, const CMemberValidations& given);
    double (*limit)(const CMemberValidations& given);
    double (*found)(const CMxPeilaib& member);
};

template <auto Set, auto Get, auto Found>
constexpr LimitCheck Check(eValidationTypes type) {
    return {type,
            [](CMemberValidations& limits, const CMemberValidations& given) {
                (limits.*Set)((given.*Get)());
            },
            [](const CMemberValidations& given) { return static_cast<double>((given.*Get)()); },
            [](const CMxPeilaib& member) { return static_cast<double>((member.*Found)()); }};
}

constexpr LimitCheck kCountChecks[] = {
    Check<&CMemberValidations::SetNoOfHoles,
          &CMemberValidations::GetNoOfHoles,
          &CMxPeilaib::GetNoOfHoles>(eValidationNoOfHoles),
    Check<&CMemberValidations::SetNoOfExternalContours,
          &CMemberValidations::GetNoOfExternalContours,
          &CMxPeilaib::GetNoOfExternalContours>(eValidationNoOfExternalContours),
    Check<&CMemberValidations::SetNoOfInternalContours,
          &CMemberValidations::GetNoOfInternalContours,
          &CMxPeilaib::GetNoOfInternalContours>(eValidationNoOfInternalContours),
};

constexpr LimitCheck kLengthChecks[] = {
    Check<&CMemberValidations::SetMaximumLength,
          &CMemberValidations::GetMaximumLength,
          &CMxPeilaib::GetLength>(eValidationMaximumLength),
    Check<&CMemberValidations::SetMinimumLength,
          &CMemberValidations::GetMinimumLength,
          &CMxPeilaib::GetLength>(eValidationMinimumLength),
};

/// The library fills numbers up with blanks.
ZetString WithoutEndBlanks(const ZetString& text) {
    return text.left(static_cast<long>(text.view().find_last_not_of(L' ') + 1));
}

/// With the report types.
CMemberValidations Unlimited(CMemberValidations limits) {
    limits.SetNoOfHoles(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfInternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfExternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetMinimumLength(0.0);
    limits.SetMaximumLength(job::kAnyLength);
    return limits;
}

}  // namespace

/// A fixed length takes the place of the limits of length.
void JobMember::CheckLimits() {
    const CMemberValidations given = m_validations;
    const CMemberValidations unlimited = Unlimited(given);
    CMxSingleMemValidation prescription = GetSingleMemValid();
    SetSingleMemValid({});
    // As the library leaves it, also when there is nothing for it to check.
    CMxGeom::SetTol(eTolX);
    const auto check = [&](const LimitCheck& limit) {
        if (limit.limit(given) == limit.limit(unlimited))
            return;
        m_validations = unlimited;
        limit.take(m_validations, given);
        CheckLimit(
            {.type = limit.type, .required = limit.limit(given), .found = limit.found(*this)});
    };
    for (const LimitCheck& limit : kCountChecks)
        check(limit);
    for (const LimitCheck& limit : kLengthChecks)
        if (!m_type.pattern)
            check(limit);
    m_validations = unlimited;
    SetSingleMemValid(std::move(prescription));
    if (m_type.pattern)
        CheckLimit({.type = eValidationFixedLength,
                    .rule = GetJob().patterns[*m_type.pattern].id,
                    .ruleLine = GetJob().patterns[*m_type.pattern].line,
                    .required = GetSingleMemValid().GetFixedLength(),
                    .found = GetLength()});
    m_validations = given;
}

/// What the library finds with the limits as they are now, which is one line at most.
void JobMember::CheckLimit(Finding finding) {
    const long warnings = m_warnings.length();
    m_message = {};
    CMxPeilaib::ValidateMember();
    // The library takes a report type that it does not know for a warning.
    if (ReportTypeOf(finding.type) == job::kReportingOff)
        m_warnings.setLength(warnings);
    finding.text = WithoutEndBlanks(m_message.trimmedLeft());
    if (!finding.text.isEmpty())
        RecordFinding(std::move(finding));
}

void JobMember::CheckQuantity() {
    const long most = GetJob().maximumQuantity;
    m_outcome.hasPieces = GetQty() > 0 && GetLength() > 0.0;
    if (GetQty() <= 0)
        FileFinding(
            {.type = job::kQuantity,
             .text = ZetString::format(L"Quantity (%d): there is nothing to make", GetQty()),
             .required = 1.0,
             .found = static_cast<double>(GetQty())});
    else if (!m_outcome.hasPieces)
        FileFinding(
            {.type = job::kQuantity,
             .text = ZetString::format(L"Length (%.1f): there is nothing to make", GetLength()),
             .found = GetLength()});
    // Its features are told as not made, also where the finding has no line.
    if (!m_outcome.hasPieces && !m_findings.back().IsPrinted())
        AppendMsg_VT(eReportingWarning, {MemberLineIndent() + L"Without pieces it is not made"});
    if (GetQty() > most)
        FileFinding({.type = job::kQuantity,
                     .text = ZetString::format(L"Quantity (%d) is above %d", GetQty(), most),
                     .required = static_cast<double>(most),
                     .found = static_cast<double>(GetQty())});
}

void JobMember::CheckStockLength() {
    if (!GetGroup().isNested)
        return;
    const std::vector<BarStock> stocks = StocksFor(GetJob(), GetNestedMembers());
    const BarStock& longest = LongestOf(stocks);
    const double usable = UsableLength(longest);
    CMxGeom::SetTol(eTolEPS);
    if (!CMxGeom::IsGreater_Mx(GetLength(), usable))
        return;
    const ZetString grips =
        usable < longest.length ? ZetString::format(L", of which %.0f can be used", usable) : L"";
    FileFinding(
        {.type = job::kLongerThanStock,
         .text = ZetString::format(L"Member length (%.1f) is greater than the stock length %.0f%s",
                                   GetLength(),
                                   longest.length,
                                   grips),
         .required = usable,
         .found = GetLength()});
}

/// The member's blocks stand in the files already.
void JobMember::TellUncut(long pieces) {
    RecordFinding({.type = job::kNoBar,
                   .text = ZetString::format(
                       L"%d of %d pieces %s no bar to be cut from: none is long enough or left",
                       pieces,
                       GetQty(),
                       ZetString(pieces == 1 ? L"has" : L"have")),
                   .required = static_cast<double>(GetQty()),
                   .found = static_cast<double>(GetQty() - pieces)});
    m_outcome.hasWarnings = m_outcome.hasWarnings || m_findings.back().IsPrinted();
}

}  // namespace plugin

#include "plugin/rules/JobMember.h"
#include "plugin/rules/UprightRectangle.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>

namespace plugin {

namespace {

constexpr const wchar_t* kUncoveredText = L"No corner notch describes it";
constexpr const wchar_t* kNotAllowedText = L"Members of this type may have no such notch";

/// A corner coordinate that fits any notch.
constexpr double kAnywhere = -1.0;

double CornerAt(job::NotchCorner corner, double farEnd) {
    if (corner == job::NotchCorner::kAny)
        return kAnywhere;
    return corner == job::NotchCorner::kStart ? 0.0 : farEnd;
}

/// It asks for a rectangle, or its code tells a length or a width.
bool TellsRectangle(const SCheckNotch& definition) {
    constexpr int kLengthSelector = 4;
    constexpr int kWidthSelector = 5;
    const ZetArray<int>& selectors = definition.valueSelectors;
    return definition.mustBeRect ||
           std::any_of(selectors.begin(), selectors.end(), [](int selector) {
               return selector == kLengthSelector || selector == kWidthSelector;
           });
}

}  // namespace

void JobMember::MatchCornerNotches() {
    CMxGeom::SetTol(eTolGeneral);
    for (CNotchAddInfo& notch : m_notches)
        MatchCornerNotch(notch);
}

/// The first definition that fits counts.
void JobMember::MatchCornerNotch(CNotchAddInfo& notch) const {
    const double faceWidth = notch.GetViewData().GetFaceWidth();
    const bool isFalseRectangle = notch.GetIsRect() && !IsRectangle(notch);
    for (const job::CornerNotch& corner : GetJob().cornerNotches) {
        if (isFalseRectangle && TellsRectangle(corner.definition))
            continue;
        SCheckNotch definition = corner.definition;
        definition.cornerX = CornerAt(corner.along, GetLength());
        definition.cornerY = CornerAt(corner.across, faceWidth);
        if (notch.CheckNotchCorner(definition))
            return;
    }
}

/// Settles what becomes of the notches that no definition describes, and counts the contours.
void JobMember::SettleNotches() {
    const job::Uncovered action = GetJob().uncoveredNotches.action;
    if (action == job::Uncovered::kAccept) {
        FileNotches(eNotchNotAllowed, kNotAllowedText);
        CodeUncoveredNotches(eNotchValid);
        CountContours();
        return;
    }
    FileNotches(eNotchValid, kUncoveredText);
    FileNotches(eNotchNotAllowed, kNotAllowedText);
    if (action == job::Uncovered::kOutput)
        CodeUncoveredNotches(eNotchCornerMatched);
    MakeValidNotches();
}

void JobMember::FileNotches(eNotchStatus status, const wchar_t* what) {
    const bool isRefusal =
        status != eNotchValid || GetJob().uncoveredNotches.action == job::Uncovered::kReport;
    for (const CNotchAddInfo& notch : m_notches) {
        if (notch.GetNotchStatus() == status)
            FileNotch({.type = job::kUncoveredNotch, .text = what, .isRefusal = isRefusal}, notch);
    }
}

/// Gives every notch without a definition the fallback code, and a status.
void JobMember::CodeUncoveredNotches(eNotchStatus status) {
    for (CNotchAddInfo& notch : m_notches) {
        if (notch.GetNotchStatus() != eNotchValid)
            continue;
        notch.AppendMsg(eHoleMsgCode, GetJob().uncoveredNotches.code);
        notch.SetNotchStatus(status);
    }
}

/// Counts all contours that cut anything: also those that the type does not allow, so that the
/// check of their number tells them.
void JobMember::CountContours() {
    for (const CNotchAddInfo& notch : m_notches) {
        if (notch.GetIsInternal())
            NoOfInternalContours_Increment();
        else if (notch.GetNotchStatus() != eNotchNone)
            NoOfExternalContours_Increment();
    }
}

}  // namespace plugin

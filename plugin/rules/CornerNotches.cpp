#include "job/CodeFormat.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/NearestNotch.h"

#include "camdata/tolerance/CMxGeom.h"

#include <utility>

namespace plugin {

namespace {

constexpr const wchar_t* kUncoveredText = L"No corner notch describes it";
constexpr const wchar_t* kNotAllowedText = L"Members of this type may have no such notch";

constexpr const wchar_t* kNearestFormat =
    L"No corner notch describes it; the nearest, %s, is for another %s";

job::CodeValues ValuesOf(const CNotchAddInfo& notch) {
    return {.length = notch.GetLength(),
            .width = notch.GetWidth(),
            .face = job::NameOf(notch.GetViewData().GetHoleFace()),
            .x = notch.GetXPos(),
            .y = notch.GetYPos()};
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
    for (const job::CornerNotch& corner : GetJob().cornerNotches)
        if (corner.definition.face == notch.GetViewData().GetHoleFace() &&
            !IsFalseRectangleFor(corner.definition, notch) &&
            notch.CheckNotchCorner(DefinitionOf(corner, GetLength(), faceWidth)))
            return;
}

/// Settles what becomes of the notches that no definition describes, and counts the contours.
void JobMember::SettleNotches() {
    const job::Uncovered action = GetJob().uncoveredNotches.action;
    if (action == job::Uncovered::kAccept) {
        FileNotAllowedNotches();
        CodeUncoveredNotches(eNotchValid);
        CountContours();
        return;
    }
    FileUncoveredNotches();
    FileNotAllowedNotches();
    if (action == job::Uncovered::kOutput)
        CodeUncoveredNotches(eNotchCornerMatched);
    MakeValidNotches();
}

void JobMember::FileNotAllowedNotches() {
    for (const CNotchAddInfo& notch : m_notches)
        if (notch.GetNotchStatus() == eNotchNotAllowed)
            FileNotch({.type = job::kUncoveredNotch, .text = kNotAllowedText, .isRefusal = true},
                      notch);
}

/// With the corner notch that comes nearest, and what it wants.
void JobMember::FileUncoveredNotches() {
    const bool isRefusal = GetJob().uncoveredNotches.action == job::Uncovered::kReport;
    for (const CNotchAddInfo& notch : m_notches) {
        if (notch.GetNotchStatus() != eNotchValid)
            continue;
        CMxGeom::SetTol(eTolGeneral);
        const NotchMiss miss = FindNearestNotch(GetJob().cornerNotches, notch, GetLength());
        Finding finding = {.type = job::kUncoveredNotch,
                           .text = kUncoveredText,
                           .required = miss.required,
                           .found = miss.found,
                           .isRefusal = isRefusal};
        if (miss.corner != nullptr) {
            finding.text = ZetString::format(kNearestFormat, miss.corner->id, ZetString(miss.what));
            finding.rule = miss.corner->id;
            finding.ruleLine = miss.corner->line;
        }
        FileNotch(std::move(finding), notch);
    }
}

/// Gives every notch without a definition the fallback code, and a status.
void JobMember::CodeUncoveredNotches(eNotchStatus status) {
    for (CNotchAddInfo& notch : m_notches) {
        if (notch.GetNotchStatus() != eNotchValid)
            continue;
        notch.AppendMsg(eHoleMsgCode,
                        job::FillCode(GetJob().uncoveredNotches.code, ValuesOf(notch)));
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

#include "plugin/rules/FaceText.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/ReachIndex.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>

namespace plugin {

namespace {

constexpr const wchar_t* kDuplicateFormat =
    L"Left out, it repeats another notch on %s at (X:%.1f, Y:%.1f)";

/// Positions that agree after rounding are no farther apart, whatever the tolerance is by then, mm.
constexpr double kFarthest = 100.5;

/// Nothing is left out that reaches farther beyond what it repeats, beside the tolerance, mm.
constexpr double kSlack = 0.1;

std::vector<ZetGeomPoint2d> CornersOf(const CNotchAddInfo& notch) {
    return {notch.GetOutline().begin(), notch.GetOutline().end()};
}

/// The library compares middles and numbers of corners.
bool Holds(const CNotchAddInfo& kept, const CNotchAddInfo& notch) {
    const double touch =
        kSlack + std::fmax(std::abs(CMxGeom::GetXTol()), std::abs(CMxGeom::GetYTol()));
    return FaceOutline(CornersOf(kept)).Holds(CornersOf(notch), touch);
}

/// Profile codes of sections with two walls: an opening in each is no repetition.
constexpr std::wstring_view kHollowCodes[] = {L"M", L"RO"};

}  // namespace

bool JobMember::IsHollow() const {
    return std::find(std::begin(kHollowCodes),
                     std::end(kHollowCodes),
                     m_memType.GetHeaderData().profileCode.view()) != std::end(kHollowCodes);
}

/// An outline that cuts nothing is no notch.
void JobMember::DropPlainOutlines(ZetArray<CNotchAddInfo>& notches) {
    const auto isPlain = [](const CNotchAddInfo& notch) {
        return notch.GetNotchStatus() == eNotchNone;
    };
    if (std::none_of(notches.begin(), notches.end(), isPlain))
        return;
    ZetArray<CNotchAddInfo> rest;
    for (CNotchAddInfo& notch : notches) {
        if (!isPlain(notch))
            rest.append(std::move(notch));
    }
    notches = std::move(rest);
}

/// The tolerance is still the one by which the library has compared the notches.
void JobMember::SetAsideNotches() {
    DropPlainOutlines(m_notches);
    DropPlainOutlines(m_duplicateNotches);
    if (m_duplicateNotches.isEmpty())
        return;
    const bool isHollow = IsHollow();
    ReachIndex kept;
    for (long i = 0; i < m_notches.length(); ++i)
        kept.Add(i, m_notches[i].GetXPos(), 0.0);
    for (CNotchAddInfo& notch : std::exchange(m_duplicateNotches, {})) {
        long other = -1;
        kept.FindNear(notch.GetXPos(), kFarthest, [&](long index) {
            const CNotchAddInfo& each = m_notches[index];
            const bool isSameWall =
                !isHollow || each.GetViewData().GetHoleFace() == notch.GetViewData().GetHoleFace();
            other = isSameWall && each == notch && Holds(each, notch) ? index : -1;
            return other >= 0;
        });
        if (other < 0) {
            m_notches.append(std::move(notch));
            kept.Add(m_notches.length() - 1, m_notches.last().GetXPos(), 0.0);
            continue;
        }
        const CNotchAddInfo& repeated = m_notches[other];
        FileNotch({.type = job::kDuplicateNotch,
                   .text = ZetString::format(kDuplicateFormat,
                                             FaceText(repeated.GetViewData().GetHoleFace()),
                                             repeated.GetXPos(),
                                             repeated.GetYPos()),
                   .isSetAside = true},
                  notch);
        AddSetAside(
            notch.GetContour().hostTag, SetAside::kDuplicate, repeated.GetContour().hostTag);
        m_duplicateNotches.append(std::move(notch));
    }
}

}  // namespace plugin

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <array>

namespace {

constexpr int kDividerLength = 59;

/// Formats of the indent and a distance.
using DistanceFormat = ZetFormatString<ZetString, double>;
constexpr DistanceFormat kEdgeFormat = L"%sEdge distance (%3.1f) are incorrect";
// The flanges are named on every face, a flange itself included, on purpose.
constexpr DistanceFormat kLowerFaceFormat =
    L"%sDistance (%3.1f) from bottom flange is insufficient";
constexpr DistanceFormat kUpperFaceFormat = L"%sDistance (%3.1f) from top flange is insufficient";
constexpr DistanceFormat kEndFormat = L"%sEnd distance (%3.1f) is less than standard";

constexpr const wchar_t* kHoleFormat = L"%s %2.1f %s holes on %s at (X:%.1f, Y:%.1f)";
constexpr const wchar_t* kLongHoleFormat = L"%s %2.1fx%2.1f %s holes on %s at (X:%.1f, Y:%.1f)";
constexpr const wchar_t* kWarningHeaderFormat = L"%s*Warning in Hole* %s";
constexpr const wchar_t* kSizeFormat = L"\tHole Size/Dia  \t: %-3.0f";
constexpr const wchar_t* kXFormat = L"\tPosition x     \t: %-4.1f";
constexpr const wchar_t* kYFormat = L"\tPosition y     \t: %-4.1f";
constexpr const wchar_t* kErrorFormat = L"\t\t%s";

/// What the width of a face is, by eHoleFace.
constexpr std::array kFaceWidths = {
    &CMemTypeAndAttrib::GetProfileHeight,
    &CMemTypeAndAttrib::GetTopFlangeWidth,
    &CMemTypeAndAttrib::GetBottomFlangeWidth,
    &CMemTypeAndAttrib::GetTopFlangeWidth,
    &CMemTypeAndAttrib::GetBottomFlangeWidth,
    &CMemTypeAndAttrib::GetProfileHeight,
};
static_assert(kFaceWidths.size() == eHoleFaceNone);

/// 0 for a face that is not known.
double FaceWidthOf(const CMemTypeAndAttrib& memType, eHoleFace face) {
    const auto index = static_cast<std::size_t>(face);
    return index < kFaceWidths.size() ? (memType.*kFaceWidths[index])() : 0.0;
}

/// What distances are measured from; 0: from the origin of the coordinates.
struct Origins {
    double zero;
    double farEdge;
    double farEnd;
};

/// A far side that is not known, or no number, leaves only the origin to measure from.
double KnownOrZero(double extent) {
    return extent > 0.0 ? extent : 0.0;
}

/// The faces that a check is made on.
enum class Faces {
    kAll,
    kWebs,    ///< web and web back
    kOthers,  ///< all but these
};

bool IsAmong(Faces faces, eHoleFace face) {
    const bool isWeb = face == eHoleFaceWeb || face == eHoleFaceWebBack;
    return faces == Faces::kAll || isWeb == (faces == Faces::kWebs);
}

/// One distance that a hole has to keep.
struct DistanceCheck {
    Faces faces;
    double (CHoleAddlInfo::*distanceFrom)(double) const;
    double Origins::*origin;
    bool (*isSufficient)(double, double);
    DistanceFormat format;
};

constexpr auto kAcross = &CHoleAddlInfo::GetYPosForCheck;
constexpr auto kAlong = &CHoleAddlInfo::GetXPosForCheck;

/// In the order of the texts. Without a length both end checks measure the same distance.
constexpr DistanceCheck kDistanceChecks[] = {
    {Faces::kOthers, kAcross, &Origins::farEdge, CMxGeom::CheckEdgeDist,         kEdgeFormat     },
    {Faces::kAll,    kAcross, &Origins::zero,    CMxGeom::CheckEdgeDistFromFace, kLowerFaceFormat},
    {Faces::kWebs,   kAcross, &Origins::farEdge, CMxGeom::CheckEdgeDistFromFace, kUpperFaceFormat},
    {Faces::kAll,    kAlong,  &Origins::zero,    CMxGeom::CheckEndDist,          kEndFormat      },
    {Faces::kAll,    kAlong,  &Origins::farEnd,  CMxGeom::CheckEndDist,          kEndFormat      },
};

}  // namespace

void CHoleAddlInfo::CheckEdgeAndEndDist(const CMemTypeAndAttrib& memType, double memberLength) {
    const eHoleFace face = m_viewData.GetHoleFace();
    const Origins origins{0.0, KnownOrZero(FaceWidthOf(memType, face)), KnownOrZero(memberLength)};
    CMxGeom::SetTol(eTolEPS);
    for (const DistanceCheck& check : kDistanceChecks) {
        if (!IsAmong(check.faces, face))
            continue;
        const double distance = (this->*check.distanceFrom)(origins.*check.origin);
        if (check.isSufficient(distance, GetSize()))
            continue;
        const ZetString indent = FeatureLineIndent();
        AppendMsg(eHoleMsgWarning, ZetString::format(check.format, indent, distance));
    }
}

ZetString CHoleAddlInfo::GetHoleMsg() const {
    const ZetString indent = FeatureLineIndent();
    const ZetString shape = GetHoleTypeForOutPut();
    const ZetString face = GetHoleFaceStr();
    if (GetIsSlot() || m_isRectangular) {
        const double length = m_holeData.slotLength;
        return ZetString::format(
            kLongHoleFormat, indent, GetSize(), length, shape, face, GetXPos(), GetYPos());
    }
    return ZetString::format(kHoleFormat, indent, GetSize(), shape, face, GetXPos(), GetYPos());
}

bool CHoleAddlInfo::GetWarMsg(ZetArray<ZetString>& lines) const {
    if (m_warningMsgs.isEmpty())
        return false;
    const ZetString indent = MemberLineIndent();
    lines.append(ZetString::format(kWarningHeaderFormat, indent, GetHoleMsg().trimmedLeft()));
    lines.appendAll(m_warningMsgs);
    return true;
}

bool CHoleAddlInfo::GetErrMsg(ZetArray<ZetString>& lines) const {
    if (m_errorMsgs.isEmpty())
        return false;
    const ZetString divider = L"\t" + CMxUtil::GetLineDivider(kDividerLength, false);
    lines.append(divider);
    lines.append(ZetString::format(kSizeFormat, GetSize()));
    lines.append(ZetString::format(kXFormat, GetXPos()));
    lines.append(ZetString::format(kYFormat, GetYPos()));
    for (const ZetString& text : m_errorMsgs)
        lines.append(ZetString::format(kErrorFormat, text));
    lines.append(divider);
    return true;
}

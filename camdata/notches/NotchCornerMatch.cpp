#include "camdata/notches/CNotchAddInfo.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kDividerLength = 50;

constexpr const wchar_t* kPositionFormat = L"%s%-15s: %-4.1f";
constexpr const wchar_t* kFaceFormat = L"%s%-15s: %s";
constexpr const wchar_t* kLineFormat = L"%s%s";
constexpr const wchar_t* kWarningFormat = L"%s*Warning in notch* %s";

/// By eHoleFace. Not the words of CViewData, on purpose: here 3 is the back of the web, not 5.
constexpr std::array kFaceWords = {L"web", L"top flange", L"bottom flange", L"web back"};
constexpr const wchar_t* kUnknownFace = L"unknown face";

const wchar_t* FaceWordOf(eHoleFace face) {
    const auto index = static_cast<std::size_t>(face);
    return index < kFaceWords.size() ? kFaceWords[index] : kUnknownFace;
}

/// What a definition's selectors choose from.
struct Values {
    double x;
    double y;
    double length;
    double width;
    double cornerX;
    double cornerY;
};

/// One selector and the value that it stands for.
struct Selector {
    int number;
    double Values::*value;
};

/// For the first two values.
constexpr std::array kSizeSelectors = {
    Selector{4, &Values::length},
    Selector{5, &Values::width },
};
/// For the third value.
constexpr std::array kPlaceSelectors = {
    Selector{0, &Values::x      },
    Selector{1, &Values::cornerX},
    Selector{2, &Values::y      },
    Selector{3, &Values::cornerY},
};

template <typename Selectors>
double Selected(const Values& values, const Selectors& selectors, int number) {
    const auto row = std::find_if(selectors.begin(),
                                  selectors.end(),
                                  [number](const Selector& each) { return each.number == number; });
    return row == selectors.end() ? 0.0 : values.*row->value;
}

double CornerOf(double middle, double size, double wanted) {
    return CMxGeom::IsGreater_Mx(wanted, 0.0) ? middle + size / 2.0 : middle - size / 2.0;
}

Values ValuesOf(const CNotchAddInfo& notch, const SCheckNotch& definition) {
    const double x = notch.GetXPos();
    const double y = notch.GetYPos();
    const double length = notch.GetLength();
    const double width = notch.GetWidth();
    return {x,
            y,
            length,
            width,
            CornerOf(x, length, definition.cornerX),
            CornerOf(y, width, definition.cornerY)};
}

bool IsWanted(double corner, double wanted) {
    return CMxGeom::IsLess_Mx(wanted, 0.0) || CMxGeom::IsEqual_Mx(wanted, corner);
}

ZetString TextOf(const SCheckNotch& definition, const Values& values) {
    const ZetArray<int>& selectors = definition.valueSelectors;
    const double first = Selected(values, kSizeSelectors, selectors[0]);
    const double second = Selected(values, kSizeSelectors, selectors[1]);
    if (selectors.length() == 2)
        return ZetString::formatRuntime(definition.outPutFormat, first, second);
    if (selectors.length() > 3)
        return definition.outPutFormat;
    const double third = Selected(values, kPlaceSelectors, selectors[2]);
    return ZetString::formatRuntime(definition.outPutFormat, first, second, third);
}

}  // namespace

bool CNotchAddInfo::CheckNotchCorner(const SCheckNotch& definition) {
    if (m_eStatus != eNotchValid || !HasShapeOf(definition))
        return false;
    const Values values = ValuesOf(*this, definition);
    if (!IsWanted(values.cornerX, definition.cornerX) ||
        !IsWanted(values.cornerY, definition.cornerY))
        return false;
    AppendMsg(eHoleMsgCode, TextOf(definition, values));
    m_eStatus = eNotchCornerMatched;
    return true;
}

bool CNotchAddInfo::HasShapeOf(const SCheckNotch& definition) const {
    return m_Polygon.getLength() == definition.vertexCount &&
           m_ViewData.GetHoleFace() == definition.face && (m_bIsRect || !definition.mustBeRect) &&
           (m_bIsParallelToAxis || !definition.mustBeParallelToAxis);
}

bool CNotchAddInfo::GetErrMsg(ZetArray<ZetString>& lines) const {
    if (m_ErrMsgArr.isEmpty() && m_eStatus != eNotchNotAllowed)
        return false;
    GetWarMsgData(lines);
    return true;
}

void CNotchAddInfo::GetWarMsgData(ZetArray<ZetString>& lines) const {
    const ZetString indent = FeatureLineIndent();
    lines.append(ZetString::format(kPositionFormat, indent, L"Position x", m_dXPos));
    lines.append(ZetString::format(kPositionFormat, indent, L"Position y", m_dYPos));
    const ZetString face = FaceWordOf(m_ViewData.GetHoleFace());
    lines.append(ZetString::format(kFaceFormat, indent, L"Face", face));
    for (const ZetString& text : m_ErrMsgArr)
        lines.append(ZetString::format(kLineFormat, indent, text));
    const ZetString divider = CMxUtil::GetLineDivider(kDividerLength, false);
    lines.append(ZetString::format(kLineFormat, indent, divider));
}

bool CNotchAddInfo::GetWarMsg(ZetArray<ZetString>& lines) const {
    if (m_WarMsgArr.isEmpty())
        return false;
    const ZetString indent = FeatureLineIndent();
    lines.append(ZetString::format(kWarningFormat, indent, GetOutMsg().trimmedLeft()));
    lines.appendAll(m_WarMsgArr);
    return true;
}

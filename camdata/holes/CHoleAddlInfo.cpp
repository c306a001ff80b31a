#include "camdata/holes/CHoleAddlInfo.h"

#include "camdata/holes/HolePlace.h"
#include "camdata/tolerance/CMxGeom.h"

#include <array>
#include <cmath>

namespace {

struct ShapeTexts {
    const wchar_t* shortType;
    const wchar_t* word;
};

/// By eHoleShapeType.
constexpr std::array kShapeTexts = {
    ShapeTexts{L"UNK", L"unknown"    },
    ShapeTexts{L"RND", L"round"      },
    ShapeTexts{L"CSK", L"countersunk"},
    ShapeTexts{L"SLT", L"slot"       },
    ShapeTexts{L"SQR", L"square"     },
    ShapeTexts{L"RCT", L"rectangular"},
};
static_assert(kShapeTexts.size() == eHoleShapeRectangular + 1);

const ShapeTexts& TextsOf(eHoleShapeType shape) {
    return kShapeTexts[static_cast<std::size_t>(shape)];
}

double DistanceForCheck(double position, double length, double slotReach) {
    return (length <= 0.0 ? position : length - position) - slotReach;
}

}  // namespace

CHoleAddlInfo::~CHoleAddlInfo() = default;

void CHoleAddlInfo::InitValues() {
    *this = CHoleAddlInfo();
}

void CHoleAddlInfo::SetHoleData(const ZetNCHoleData& holeData) {
    m_holeData = holeData;
    if (GetIsSlot())
        MoveSlotToCentre();
    if (m_holeData.kind == ZetNCHoleData::eKindCountersunk) {
        m_holeStatus = eHoleStatusCSK;
        m_isCSK = true;
        m_isReqdToProcess = false;
    }
}

void CHoleAddlInfo::MoveSlotToCentre() {
    const ZetGeomPoint2d end = {m_holeData.x, m_holeData.y};
    const ZetGeomPoint2d centre = camdata::detail::CentreOf(m_holeData);
    m_holeData.x = centre.x;
    m_holeData.y = centre.y;
    m_slotVector = end - centre;
}

void CHoleAddlInfo::SetSqrHoleData(double size, double x, double y) {
    m_holeData.size = size;
    SetCorrectedX(x);
    SetCorrectedY(y);
    m_isSquare = true;
}

void CHoleAddlInfo::SetRectHoleData(
    double length, double size, double x, double y, CViewData viewData) {
    m_viewData = std::move(viewData);
    m_holeData.size = size;
    m_holeData.slotLength = length;
    SetCorrectedX(x);
    SetCorrectedY(y);
    m_isRectangular = true;
}

void CHoleAddlInfo::CorrectData(CViewData viewData) {
    m_viewData = std::move(viewData);
    SetCorrectedY(camdata::detail::OutputY(GetYPos(), m_viewData));
    // An X that keeps its sign stays raw: later changes of it go to the hole data.
    if (m_viewData.GetDimXNegate() < 0.0)
        SetCorrectedX(-GetXPos());
}

void CHoleAddlInfo::SetXPosFrom(double reference) {
    SetCorrectedX(reference - GetXPos());
}

void CHoleAddlInfo::SetYPosFrom(double reference) {
    SetCorrectedY(reference - GetYPos());
}

void CHoleAddlInfo::AddYOffset(double offset) {
    SetCorrectedY(GetYPos() + offset);
}

void CHoleAddlInfo::SetDataPrecision(int decimals) {
    SetXPos(CMxGeom::Round_CAM(GetXPos(), decimals));
    SetYPos(CMxGeom::Round_CAM(GetYPos(), decimals));
}

bool CHoleAddlInfo::SetWebFaceCorrectly() {
    const bool isOnWeb = m_viewData.GetHoleFace() == eHoleFaceWeb;
    if (!isOnWeb || m_isRectangular || m_isSquare || !m_isCSK)
        return false;
    m_viewData.SetFaceStr(L"WEBBK");
    return true;
}

bool CHoleAddlInfo::CheckHoleCode(double x, const ZetString& code) const {
    CMxGeom::SetTol(eTolX);
    ZetString current = GetHoleCode().trimmedLeft();
    const long blank = current.find(L" ");
    if (blank >= 0)
        current = current.mid(blank).trimmedLeft();
    return CMxGeom::IsEqual_Mx(GetXPos(), x) && current == code;
}

bool CHoleAddlInfo::checkGroupHole() {
    if (GetHoleCode().contains(m_holeOutPutCode.GetGroupCode().GetPairCode())) {
        m_holeStatus = eHoleStatusGroup;
        return true;
    }
    m_holeStatus = eHoleStatusNotInGroup;
    if (m_holeOutPutCode.GetIsGroupMust())
        m_valid = false;
    return false;
}

bool CHoleAddlInfo::AppendMsg(eHoleMsgType type, ZetString text) {
    const std::array lists = {&m_holeCodes, &m_errorMsgs, &m_warningMsgs};
    const auto index = static_cast<std::size_t>(type);
    if (index < lists.size())
        lists[index]->append(std::move(text));
    return false;
}

double CHoleAddlInfo::GetXPosForCheck(double length) const {
    return DistanceForCheck(GetXPos(), length, GetIsSlot() ? std::abs(m_slotVector.x) : 0.0);
}

double CHoleAddlInfo::GetYPosForCheck(double length) const {
    return DistanceForCheck(GetYPos(), length, GetIsSlot() ? std::abs(m_slotVector.y) : 0.0);
}

eHoleShapeType CHoleAddlInfo::GetHoleShapeType() const {
    if (m_isRectangular)
        return eHoleShapeRectangular;
    if (m_isSquare)
        return eHoleShapeSquare;
    if (m_isCSK)
        return eHoleShapeCountersunk;
    if (GetIsSlot())
        return eHoleShapeSlot;
    return m_holeData.kind == ZetNCHoleData::eKindPlain ? eHoleShapeRound : eHoleShapeUnknown;
}

ZetString CHoleAddlInfo::GetHoleType() const {
    return TextsOf(GetHoleShapeType()).shortType;
}

ZetString CHoleAddlInfo::GetHoleTypeForOutPut() const {
    return TextsOf(GetHoleShapeType()).word;
}

ZetString CHoleAddlInfo::GetHoleCode() const {
    return m_holeCodes.isEmpty() ? ZetString() : m_holeCodes.last();
}

void CHoleAddlInfo::SetCorrectedX(double x) {
    m_correctedX = x;
    m_isXRaw = false;
}

void CHoleAddlInfo::SetCorrectedY(double y) {
    m_correctedY = y;
    m_isYRaw = false;
}

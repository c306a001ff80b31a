#include "camdata/notches/CNotchAddInfo.h"

#include "camdata/platform/geometry/ZetGeomTol.h"
#include "camdata/tolerance/CMxGeom.h"

#include <array>
#include <cmath>
#include <utility>

namespace {

using Points = ZetArray<ZetGeomPoint2d>;

constexpr double kContourTolerance = 0.0001;
constexpr double kOutlineTolerance = 0.1;
constexpr double kRectangleTolerance = 0.001;
constexpr double kPieceTolerance = 0.01;
/// How far the outline may stay inside its bounding rectangle and still count as touching it.
constexpr double kTouchOffset = -0.05;

constexpr double kLargeArea = 1000.0;
constexpr double kLargeAreaTolerance = 5.0;
constexpr double kSmallAreaTolerance = 2.0;

/// Points of an outline of four corners, the closing repeat included.
constexpr long kClosedFourCorners = 5;

Points PointsOf(const ZetNCContour& contour) {
    Points points;
    points.reserve(contour.getPointCount());
    for (long i = 0; i < contour.getPointCount(); ++i)
        points.append({contour.xValues[i], contour.yValues[i]});
    return points;
}

Points ClosedOutlineOf(const ZetGeomAugPolygon& polygon) {
    Points outline = polygon.getVertices();
    if (!outline.isEmpty())
        outline.append(ZetGeomPoint2d(outline.first()));
    return outline;
}

/// The parts of its bounding rectangle that an outline leaves free.
ZetArray<ZetGeomAugPolygon> PiecesCutBy(const Points& outline) {
    const ZetGeomAugPolygon part(outline, kOutlineTolerance);
    const ZetGeomAugPolygon rectangle = part.getMinRectangle();
    if (part.isEqualTo(rectangle, kRectangleTolerance))
        return {};
    return rectangle.subtract(part, kTouchOffset);
}

bool IsWeb(eHoleFace face) {
    return face == eHoleFaceWeb || face == eHoleFaceWebBack;
}

}  // namespace

void CNotchAddInfo::InitValues() {
    m_Contour = ZetNCContour();
    m_ViewData = CViewData();
    m_bYFlag = true;
    m_dYPos = 0.0;
    m_bXFlag = true;
    m_dXPos = 0.0;
    m_eStatus = eNotchValid;
    m_bIsRect = false;
    m_bIsSqr = false;
    m_bIsParallelToAxis = false;
    m_OutMsgArr.removeAll();
    m_ErrMsgArr.removeAll();
    m_WarMsgArr.removeAll();
}

void CNotchAddInfo::SetNotchData(ZetNCContour contour,
                                 CViewData view,
                                 ZetArray<CNotchAddInfo>& extra) {
    m_Contour = std::move(contour);
    m_ViewData = std::move(view);
    if (m_ViewData.GetHoleFace() == eHoleFaceWebBack)
        m_ViewData.SetFaceStr(L"WEB");
    Points outline = PointsOf(m_Contour);
    if (m_Contour.type == ZetNCContour::eTypeExternal)
        outline = TakePieces(std::move(outline), extra);
    else
        m_Polygon = ZetGeomAugPolygon(outline, kContourTolerance);

    // Without a point to leave out, the mean divides by 0 or -1 on purpose: NaN or -0.0.
    const long corners = outline.length() - 1;
    SetPosToMeanOf(outline, corners);
    if (corners >= 1)
        m_VertexArr = std::move(outline);
    SetLenWidAndStatus();
}

Points CNotchAddInfo::TakePieces(Points outline, ZetArray<CNotchAddInfo>& extra) {
    const ZetArray<ZetGeomAugPolygon> pieces = PiecesCutBy(outline);
    if (pieces.isEmpty()) {
        m_Polygon = ZetGeomAugPolygon(outline, kContourTolerance);
        m_eStatus = eNotchNone;
        return outline;
    }
    m_Polygon = pieces.first().getNormalised(kPieceTolerance);
    AppendFurtherPieces(pieces, extra);
    return ClosedOutlineOf(m_Polygon);
}

void CNotchAddInfo::AppendFurtherPieces(const ZetArray<ZetGeomAugPolygon>& pieces,
                                        ZetArray<CNotchAddInfo>& extra) const {
    // One record for all pieces: a piece that is no rectangle keeps length and width of the last.
    CNotchAddInfo notch;
    for (long i = 1; i < pieces.length(); ++i) {
        notch.setNotchFromPoly(
            pieces[i].getNormalised(kPieceTolerance), m_ViewData, m_Contour.type);
        notch.m_Contour.hostTag = m_Contour.hostTag;
        notch.CorrectData();
        extra.append(notch);
    }
}

bool CNotchAddInfo::setNotchFromPoly(ZetGeomAugPolygon poly, CViewData view, int contourType) {
    InitValues();
    if (contourType == ZetNCContour::eTypeInternal)
        m_Contour.type = ZetNCContour::eTypeInternal;
    m_bYFlag = false;
    m_bXFlag = false;
    SetPosToMeanOf(poly.getVertices(), poly.getLength());
    m_VertexArr = ClosedOutlineOf(poly);
    m_ViewData = std::move(view);
    m_Polygon = std::move(poly);
    SetLenWidAndStatus();
    return true;
}

void CNotchAddInfo::SetPosToMeanOf(const Points& points, long count) {
    double sumX = 0.0;
    double sumY = 0.0;
    for (long i = 0; i < count; ++i) {
        sumX += points[i].x;
        sumY += points[i].y;
    }
    m_dXPos = sumX / static_cast<double>(count);
    m_dYPos = sumY / static_cast<double>(count);
}

void CNotchAddInfo::SetLenWidAndStatus() {
    if (m_VertexArr.length() != kClosedFourCorners)
        return;
    const ZetGeomVector2d a = m_VertexArr[1] - m_VertexArr[0];
    const ZetGeomVector2d b = m_VertexArr[2] - m_VertexArr[1];
    const ZetGeomVector2d diagonal1 = m_VertexArr[2] - m_VertexArr[0];
    const ZetGeomVector2d diagonal2 = m_VertexArr[1] - m_VertexArr[3];
    CMxGeom::SetTol(eTolEPS);
    m_bIsRect = CMxGeom::IsEqual_Mx(diagonal1.length(), diagonal2.length());
    if (!m_bIsRect) {
        m_bIsSqr = false;
        m_bIsParallelToAxis = false;
        return;
    }
    constexpr ZetGeomVector2d kXAxis{1.0, 0.0};
    const ZetGeomTol tolerance;
    const bool isAAlongX = tolerance.areParallel(kXAxis, a);
    const bool isBAlongX = !isAAlongX && tolerance.areParallel(kXAxis, b);
    m_bIsParallelToAxis = isAAlongX || isBAlongX;
    m_dLength = (isBAlongX ? b : a).length();
    m_dWidth = (isBAlongX ? a : b).length();
    m_bIsSqr = tolerance.arePerpendicular(diagonal1, diagonal2);
}

void CNotchAddInfo::CorrectData() {
    if (m_ViewData.GetDimYNegate() < 0.0)
        m_dYPos = 0.0 - m_dYPos;
    if (m_ViewData.GetDimFromOtherFace() < 0.0)
        m_dYPos = m_ViewData.GetFaceWidth() - m_dYPos;
}

double CNotchAddInfo::GetXPos(int decimals) const {
    return CMxGeom::Round_CAM(GetXPos(), decimals);
}

double CNotchAddInfo::GetYPos(int decimals) const {
    return CMxGeom::Round_CAM(GetYPos(), decimals);
}

double CNotchAddInfo::GetLength(int decimals) const {
    return CMxGeom::Round_CAM(GetLength(), decimals);
}

double CNotchAddInfo::GetWidth(int decimals) const {
    return CMxGeom::Round_CAM(GetWidth(), decimals);
}

bool CNotchAddInfo::AppendMsg(eHoleMsgType type, ZetString text) {
    const std::array lists = {&m_OutMsgArr, &m_ErrMsgArr, &m_WarMsgArr};
    const auto index = static_cast<std::size_t>(type);
    if (index < lists.size())
        lists[index]->append(std::move(text));
    return false;
}

ZetString CNotchAddInfo::GetOutMsg() const {
    return m_OutMsgArr.isEmpty() ? ZetString() : m_OutMsgArr.last();
}

bool CNotchAddInfo::CheckPosAreaVert(double x, double y, double area, long vertices) const {
    if (m_Polygon.getLength() != vertices)
        return false;
    CMxGeom::SetTol(eTolX);
    if (!CMxGeom::IsEqual_Mx(x, m_dXPos) || !CMxGeom::IsEqual_Mx(y, m_dYPos))
        return false;
    CMxGeom::SetTol(eTolValue, area > kLargeArea ? kLargeAreaTolerance : kSmallAreaTolerance);
    return CMxGeom::IsEqual_Mx(std::abs(m_Polygon.getArea()), area);
}

bool CNotchAddInfo::CheckPosAreaVert(double x,
                                     double y,
                                     double area,
                                     long vertices,
                                     eHoleFace face,
                                     bool internal,
                                     eNotchStatus status) const {
    const eHoleFace ownFace = m_ViewData.GetHoleFace();
    // One way only: a search for face 5 does not find a notch on face 0.
    const bool isOnFace = ownFace == face || (face == eHoleFaceWeb && ownFace == eHoleFaceWebBack);
    return CheckPosAreaVert(x, y, area, vertices) && GetIsInternal() == internal && isOnFace &&
           m_eStatus == status;
}

bool CNotchAddInfo::operator==(const CNotchAddInfo& other) const {
    const eHoleFace face = m_ViewData.GetHoleFace();
    const eHoleFace otherFace = other.m_ViewData.GetHoleFace();
    return CMxGeom::IsEqual_Mx(GetXPos(1), other.GetXPos(1)) &&
           CMxGeom::IsEqual_Mx(GetYPos(1), other.GetYPos(1)) &&
           GetNoOfVertices() == other.GetNoOfVertices() && m_eStatus == other.m_eStatus &&
           GetIsInternal() == other.GetIsInternal() &&
           (face == otherFace || (IsWeb(face) && IsWeb(otherFace)));
}

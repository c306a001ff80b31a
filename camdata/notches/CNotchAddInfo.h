#pragma once

#include "camdata/holes/CViewData.h"
#include "camdata/holes/eHoleFace.h"
#include "camdata/holes/eHoleMsgType.h"
#include "camdata/notches/SCheckNotch.h"
#include "camdata/notches/eNotchStatus.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCContour.h"
#include "camdata/platform/text/ZetString.h"

/// One notch of a member: an area cut from its flat part, or an opening, in one view. A value; mm.
///
/// The outline and the polygon stay in the view's coordinates. The position is the mean of the
/// outline's corners, in view coordinates until CorrectData maps Y into the member's.
///
/// Its operations stand in CNotchAddInfo.cpp; how it matches a corner definition, and its report
/// texts, in NotchCornerMatch.cpp.
class CAMDATA_API CNotchAddInfo {
  public:
    /// Puts the record back to a new one, except outline, polygon, length and width: a contour of
    /// fewer than two points that is taken over next is judged by the outline that was there.
    void InitValues();
    /// Builds the notch from a contour; edges are taken as straight, bulges are ignored.
    ///
    /// An external contour gives the pieces that it leaves free of its bounding rectangle, in the
    /// order of ZetGeomAugPolygon::subtract. The first becomes this notch, without CorrectData; the
    /// further ones are appended to `extra`, with CorrectData done. The caller corrects this notch
    /// and appends it after them. A contour that leaves nothing free gives status eNotchNone and
    /// its own outline. A contour of any other type is itself the notch.
    ///
    /// The last point of a contour counts as the repeat of the first and does not enter the
    /// position: one point gives NaN, none -0.0. Status, messages and shape flags are not reset
    /// first: call InitValues before. Arrays shorter than the contour's point count fail the
    /// assertion "isValid( index )". Sets the current tolerance as SetLenWidAndStatus does.
    void SetNotchData(ZetNCContour contour, CViewData view, ZetArray<CNotchAddInfo>& extra);
    /// Builds the notch from a polygon, with status and messages reset. A contour type other than 1
    /// (internal) counts as 0 (external). Always true. Sets the current tolerance as
    /// SetLenWidAndStatus does.
    bool setNotchFromPoly(ZetGeomAugPolygon poly, CViewData view, int contourType);
    /// Judges the shape of an outline of four corners and its closing repeat, and takes length and
    /// width of a rectangle; leaves everything alone for any other outline. The status never
    /// changes.
    ///
    /// A rectangle is what has diagonals of equal length, so a symmetric trapezoid counts too. With
    /// a side along the view's X axis the length is that side; otherwise it is the first side. Sets
    /// the current tolerance to m_EPS when it judges.
    void SetLenWidAndStatus();
    /// Maps Y from view to member coordinates: first the change of sign, then measuring from the
    /// other edge. X is never mirrored here.
    void CorrectData();

    /// The position becomes the given distance less the position: measured from the other end.
    void SetXPosFrom(double reference) { m_dXPos = reference - m_dXPos; }
    void SetYPosFrom(double reference) { m_dYPos = reference - m_dYPos; }
    void AddYOffset(double offset) { m_dYPos += offset; }

    double GetXPos() const { return m_dXPos; }
    double GetYPos() const { return m_dYPos; }
    /// 0.0 unless the notch is a rectangle.
    double GetLength() const { return m_bIsRect ? m_dLength : 0.0; }
    double GetWidth() const { return m_bIsRect ? m_dWidth : 0.0; }
    /// The same, rounded as CMxGeom::Round_CAM does.
    double GetXPos(int decimals) const;
    double GetYPos(int decimals) const;
    double GetLength(int decimals) const;
    double GetWidth(int decimals) const;

    /// The notch is an opening: its contour has type 1.
    bool GetIsInternal() const { return m_Contour.type == ZetNCContour::eTypeInternal; }
    /// Points of the outline, the closing repeat included: 5 for four corners.
    long GetNoOfVertices() const { return m_VertexArr.length(); }
    /// These points, in the view's coordinates.
    const ZetArray<ZetGeomPoint2d>& GetOutline() const { return m_VertexArr; }
    CViewData GetViewData() const { return m_ViewData; }
    /// The contour that the notch was made from; a further piece of one knows only its type and the
    /// host's tag.
    const ZetNCContour& GetContour() const { return m_Contour; }

    void SetIsRect(bool isRectangle) { m_bIsRect = isRectangle; }
    bool GetIsRect() const { return m_bIsRect; }
    /// The diagonals of the rectangle are at right angles.
    void SetIsSqr(bool isSquare) { m_bIsSqr = isSquare; }
    bool GetIsSqr() const { return m_bIsSqr; }
    /// A side of the rectangle runs along the view's X axis.
    void SetIsParallelToAxis(bool isParallel) { m_bIsParallelToAxis = isParallel; }
    bool GetIsParallelToAxis() const { return m_bIsParallelToAxis; }
    void SetNotchStatus(eNotchStatus status) { m_eStatus = status; }
    eNotchStatus GetNotchStatus() const { return m_eStatus; }

    /// Adds a text to the list of `type`; any other type adds nothing. Always false.
    bool AppendMsg(eHoleMsgType type, ZetString text);
    /// The output text added last, "" when there is none.
    ZetString GetOutMsg() const;

    /// True when the polygon has that many vertices (no closing repeat) and about that area, and
    /// the position is (x, y) within m_tol_x. Areas may differ by 5.0 when `area` is above 1000.0,
    /// else by 2.0.
    ///
    /// Leaves the current tolerance alone when the vertex counts differ; otherwise sets it to
    /// m_tol_x, then, when the position fits, to 5.0 or 2.0.
    bool CheckPosAreaVert(double x, double y, double area, long vertices) const;
    /// The same, with kind, face and status to match. `face` 0 accepts a notch on face 5 as well.
    bool CheckPosAreaVert(double x,
                          double y,
                          double area,
                          long vertices,
                          eHoleFace face,
                          bool internal,
                          eNotchStatus status) const;
    /// True for notches of one kind, status and vertex count on one face (0 and 5 are one) whose
    /// positions, rounded to one decimal, agree. Reads the current tolerance as it stands.
    bool operator==(const CNotchAddInfo& other) const;

    /// True when a notch that is still eNotchValid is the one that a definition describes: of its
    /// face (0 and 5 are two here), vertex count (no closing repeat) and shape, and at its corner.
    /// The notch then gets the definition's text, filled with its own values, as an output text,
    /// and becomes eNotchCornerMatched. Reads the current tolerance as it stands.
    ///
    /// A matching definition with fewer than two selectors fails the assertion "isValid( index )".
    bool CheckNotchCorner(const SCheckNotch& definition);

    /// Appends position, face and errors, and a divider. The face is named by this record's own
    /// words: 3 is "web back", 4 and above are "unknown face". False, with nothing appended, unless
    /// there are errors or the status is eNotchNotAllowed.
    bool GetErrMsg(ZetArray<ZetString>& lines) const;
    /// Appends the lines of GetErrMsg whatever the notch holds: its errors, not its warnings.
    void GetWarMsgData(ZetArray<ZetString>& lines) const;
    /// Appends a line with the output text added last, and the warnings as they stand. False, with
    /// nothing appended, when there are no warnings.
    bool GetWarMsg(ZetArray<ZetString>& lines) const;

  private:
    bool HasShapeOf(const SCheckNotch& definition) const;
    ZetArray<ZetGeomPoint2d> TakePieces(ZetArray<ZetGeomPoint2d> outline,
                                        ZetArray<CNotchAddInfo>& extra);
    void AppendFurtherPieces(const ZetArray<ZetGeomAugPolygon>& pieces,
                             ZetArray<CNotchAddInfo>& extra) const;
    void SetPosToMeanOf(const ZetArray<ZetGeomPoint2d>& points, long count);

    ZetNCContour m_Contour;
    CViewData m_ViewData;
    bool m_bYFlag = true;
    double m_dYPos = 0.0;
    double m_dWidth = 0.0;
    bool m_bXFlag = true;
    double m_dXPos = 0.0;
    double m_dLength = 0.0;
    eNotchStatus m_eStatus = eNotchValid;
    bool m_bIsRect = false;
    bool m_bIsSqr = false;
    bool m_bIsParallelToAxis = false;
    ZetArray<ZetString> m_OutMsgArr;
    ZetArray<ZetString> m_ErrMsgArr;
    ZetArray<ZetString> m_WarMsgArr;
    ZetArray<ZetGeomPoint2d> m_VertexArr;
    ZetArray<double> m_ValueArr;
    ZetGeomAugPolygon m_Polygon;
};

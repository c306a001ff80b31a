#pragma once

#include "camdata/holes/CHoleOutPutCode.h"
#include "camdata/holes/CViewData.h"
#include "camdata/holes/eHoleMsgType.h"
#include "camdata/holes/eHoleShapeType.h"
#include "camdata/holes/eHoleStatus.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomVector2d.h"
#include "camdata/platform/host/ZetNCHoleData.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/CMemTypeAndAttrib.h"

#include <iterator>
#include <utility>

/// One hole of a member: the host's NC hole, the view it lies on, its position in the member's
/// output coordinates, its shape, codes, status and messages. A value; mm and degrees.
///
/// Each coordinate is raw (the one of the hole data) until an operation moves the hole into output
/// coordinates; from then on the corrected one counts. Positions below are the current ones, raw or
/// corrected, unless they are called NC positions.
///
/// Its operations stand in CHoleAddlInfo.cpp; those that compare it with another hole in
/// HoleDuplicateRules.cpp, and checks and report texts in HoleChecks.cpp.
class CAMDATA_API CHoleAddlInfo {
  public:
    CHoleAddlInfo() = default;
    virtual ~CHoleAddlInfo();
    CHoleAddlInfo(const CHoleAddlInfo&) = default;
    CHoleAddlInfo& operator=(const CHoleAddlInfo&) = default;
    CHoleAddlInfo(CHoleAddlInfo&&) = default;
    CHoleAddlInfo& operator=(CHoleAddlInfo&&) = default;

    /// Puts every field back to that of a new record.
    void InitValues();
    /// Takes over an NC hole. A slot's NC position moves from the end that the host gives to the
    /// slot's centre. A countersink of the NC data gets status eHoleStatusCSK, is marked as
    /// countersunk and is not required to be processed.
    void SetHoleData(const ZetNCHoleData& holeData);
    /// Makes the record a square hole at (x, y) in output coordinates.
    void SetSqrHoleData(double size, double x, double y);
    /// Makes the record a rectangular hole at (x, y) in output coordinates. The slot length of the
    /// hole data holds its length.
    void SetRectHoleData(double length, double size, double x, double y, CViewData viewData);
    /// Takes over a view and maps Y, and X where the view negates it, from view to output
    /// coordinates: first the offset, then the change of sign, then measuring from the other edge.
    void CorrectData(CViewData viewData);

    /// The position becomes `reference` less the position: measured from the other end.
    void SetXPosFrom(double reference);
    void SetYPosFrom(double reference);
    void AddYOffset(double offset);
    /// Rounds both positions as CMxGeom::Round_CAM does.
    void SetDataPrecision(int decimals);
    /// Changes the face text of a countersunk round hole on the web to "WEBBK". True when it did.
    bool SetWebFaceCorrectly();

    /// True when both positions are exactly equal, or else when the circles around the two NC
    /// positions touch or overlap within tolerance. In that second case, sets the current tolerance
    /// to m_EPS. Faces are not compared. Between "touch" and "overlap" rounding can leave a gap at
    /// exactly one tolerance: such holes are not equal.
    bool operator==(const CHoleAddlInfo& other) const;
    /// True for holes of the same shape and size that pass CheckSlotHole; neither positions nor
    /// faces are compared. Sets the current tolerance to m_EPS, and to m_tol_y when shape and size
    /// agree.
    bool IsEqual(const CHoleAddlInfo& other) const;
    /// True for anything but a slot, and for a slot as long as and parallel to the other.
    /// Sets the current tolerance to m_tol_y.
    bool CheckSlotHole(const CHoleAddlInfo& other) const;
    /// True when the other hole lies within this slot, on the same face: its centre at the slot's
    /// centre, or on the slot's axis and no farther out than the slot's ends, and its size no
    /// larger than the slot's. Within tolerance, but for the direction of the axis (ZetGeomTol).
    /// False unless this is a slot. Sets the current tolerance to m_tol_y.
    bool IsInside(const CHoleAddlInfo& other) const;
    /// True when the hole lies at `x` and its current code, less leading blanks and a prefix that a
    /// blank ends, is exactly `code`. Sets the current tolerance to m_tol_x.
    bool CheckHoleCode(double x, const ZetString& code) const;
    /// True, with status eHoleStatusGroup, when the current code contains the group code of the
    /// output code; an empty group code is contained in every code. Otherwise false, with status
    /// eHoleStatusNotInGroup, and the hole is invalid if it had to be in the group.
    bool checkGroupHole();

    /// Adds a text to the list of `type`; any other type adds nothing. Always false.
    bool AppendMsg(eHoleMsgType type, ZetString text);
    /// Checks the distances to the edges of the face, to the adjoining faces and to both ends of
    /// the member against the limits of CMxGeom, and adds a warning for each that is too small;
    /// status and validity stay. A slot counts from its end. Sets the current tolerance to m_EPS.
    ///
    /// The near side of every face counts as an adjoining face, and the warning names the bottom
    /// flange on flanges too. The far side of a web counts as one as well, any other as an edge.
    ///
    /// The far edge is found from the width of the face, the far end from `memberLength`. One that
    /// is not above 0 is not known: that distance is then measured from 0, so with an unknown
    /// length a hole too near the start is warned of twice.
    void CheckEdgeAndEndDist(const CMemTypeAndAttrib& memType, double memberLength);

    /// The hole in a line of 20 blanks, one more, size (and length of a slot or rectangular hole),
    /// shape, face and position.
    ZetString GetHoleMsg() const;
    /// Appends a line that tells the hole, and its warnings as they stand. False, with nothing
    /// appended, when it has none.
    bool GetWarMsg(ZetArray<ZetString>& lines) const;
    /// Appends size, position and errors between two dividers. False, with nothing appended, when
    /// it has no errors.
    bool GetErrMsg(ZetArray<ZetString>& lines) const;

    double GetXPos() const { return m_isXRaw ? m_holeData.x : m_correctedX; }
    double GetYPos() const { return m_isYRaw ? m_holeData.y : m_correctedY; }
    /// Writes to where the getter reads.
    void SetXPos(double x) { (m_isXRaw ? m_holeData.x : m_correctedX) = x; }
    void SetYPos(double y) { (m_isYRaw ? m_holeData.y : m_correctedY) = y; }
    /// The position, or its distance from the far end for a length above 0; for a slot less the
    /// reach of the slot in that direction.
    double GetXPosForCheck(double length) const;
    double GetYPosForCheck(double length) const;

    /// The NC hole as it was taken over, with its NC position.
    const ZetNCHoleData& GetHoleData() const { return m_holeData; }
    const CViewData& GetViewData() const { return m_viewData; }
    /// Diameter of a round hole, else the width.
    double GetSize() const { return m_holeData.size; }
    bool GetIsSlot() const { return m_holeData.slot != 0; }
    /// 0 for a hole that is no slot.
    double GetSlotAngle() const { return GetIsSlot() ? m_holeData.slotAngle : 0.0; }
    /// From a slot's centre to the end that the NC data gave; (0, 0) for any other hole.
    const ZetGeomVector2d& GetSlotVector() const { return m_slotVector; }
    double GetProfileFaceWidth() const { return m_viewData.GetProfileFaceWidth(); }
    /// The word of the hole's face for reports.
    ZetString GetHoleFaceStr() const { return m_viewData.GetFaceStrForOutPut(); }
    /// The NC data set the hole aside.
    bool IsCommented() const { return m_holeData.commented == 1; }

    /// The shape: the first that applies of rectangular, square, countersunk, slot, round (hole
    /// kind 0); else unknown.
    eHoleShapeType GetHoleShapeType() const;
    /// The shape as three letters: "RCT", "SQR", "CSK", "SLT", "RND" or "UNK".
    ZetString GetHoleType() const;
    /// The shape as a word: "rectangular", "square", "countersunk", "slot", "round" or "unknown".
    ZetString GetHoleTypeForOutPut() const;

    /// Adds a code, which becomes the current one.
    void SetHoleCode(ZetString code) {
        // Nearly all holes have one: room for that, not for several.
        if (m_holeCodes.isEmpty())
            m_holeCodes = {std::make_move_iterator(&code), std::make_move_iterator(&code + 1)};
        else
            m_holeCodes.append(std::move(code));
    }
    /// The current code, "" when there is none.
    ZetString GetHoleCode() const;
    /// Always "", on purpose: no hole knows the code of its pair.
    ZetString GetPairCode() const { return ZetString(); }

    void SetHoleOutPutCode(CHoleOutPutCode code) { m_holeOutPutCode = std::move(code); }
    CHoleOutPutCode GetHoleOutPutCode() const { return m_holeOutPutCode; }
    void SetHoleStatus(eHoleStatus status) { m_holeStatus = status; }
    eHoleStatus GetHoleStatus() const { return m_holeStatus; }
    /// The hole is output.
    void SetValid(bool valid) { m_valid = valid; }
    bool GetValid() const { return m_valid; }
    void SetNonStd(bool nonStd) { m_nonStd = nonStd; }
    bool GetNonStd() const { return m_nonStd; }
    void SetIsCSK(bool isCSK) { m_isCSK = isCSK; }
    bool GetIsCSK() const { return m_isCSK; }
    /// Index of the hole that a countersink belongs to; -1: none.
    void SetCSKPos(long position) { m_cskPos = position; }
    long GetCSKPos() const { return m_cskPos; }
    void SetIsSqrHole(bool isSquare) { m_isSquare = isSquare; }
    bool GetIsSqrHole() const { return m_isSquare; }
    void SetIsRectHole(bool isRectangular) { m_isRectangular = isRectangular; }
    bool GetIsRectHole() const { return m_isRectangular; }
    /// The hole takes part in processing.
    void SetIsReqdToProcess(bool isRequired) { m_isReqdToProcess = isRequired; }
    bool GetIsReqdToProcess() const { return m_isReqdToProcess; }

  private:
    void MoveSlotToCentre();
    void SetCorrectedX(double x);
    void SetCorrectedY(double y);

    ZetNCHoleData m_holeData;
    CViewData m_viewData;
    bool m_isYRaw = true;
    bool m_isXRaw = true;
    long m_cskPos = -1;
    double m_correctedY = 0.0;
    double m_correctedX = 0.0;
    /// From a slot's centre to the end that the NC data gave.
    ZetGeomVector2d m_slotVector;
    ZetArray<ZetString> m_holeCodes;
    ZetArray<ZetString> m_errorMsgs;
    ZetArray<ZetString> m_warningMsgs;
    CHoleOutPutCode m_holeOutPutCode;
    eHoleStatus m_holeStatus = eHoleStatusNone;
    bool m_valid = true;
    bool m_nonStd = false;
    bool m_isCSK = false;
    bool m_isSquare = false;
    bool m_isRectangular = false;
    bool m_isReqdToProcess = true;
};

#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One hole that a member of fixed length must have: what it is, where it is expected and whether
/// it was found. A value; mm.
///
/// An X position between 0 and 1 (each by more than m_EPS) is a fraction of the fixed length, one
/// below 0 is measured back from the far end, any other is a distance from the start.
class CAMDATA_API CMxHoles {
  public:
    CMxHoles() = default;
    virtual ~CMxHoles();
    CMxHoles(const CMxHoles&) = default;
    CMxHoles& operator=(const CMxHoles&) = default;
    CMxHoles(CMxHoles&&) = default;
    CMxHoles& operator=(CMxHoles&&) = default;

    /// Describes a hole with one expected position; the alternative positions stay as they are.
    ///
    /// `msgFormat` is a printf-style text for diameter and X position, both doubles; it may have
    /// fewer conversions. One that fits no double stays in the text as it stands.
    void SetValues(double holeDia,
                   ZetString holeCode,
                   double holeXPos,
                   ZetString msgFormat,
                   bool isMirrApplicable,
                   bool found);
    /// Describes a hole with alternative expected positions, of which the first becomes the X
    /// position. An empty array fails the assertion "isValid( index )".
    void SetValues(double holeDia,
                   ZetString holeCode,
                   ZetArray<double> holeXPosArr,
                   ZetString msgFormat,
                   bool isMirrApplicable,
                   bool found);

    void SetHoleDia(double diameter) { m_holeDia = diameter; }
    double GetHoleDia() const { return m_holeDia; }
    /// The output code that the hole must carry.
    void SetHoleCode(ZetString code) { m_holeCode = std::move(code); }
    ZetString GetHoleCode() const { return m_holeCode; }
    void SetHoleXPos(double x) { m_holeXPos = x; }
    double GetHoleXPos() const { return m_holeXPos; }
    /// The alternative positions; setting them leaves the X position alone.
    void SetHoleXPosArr(ZetArray<double> positions) { m_holeXPosArr = std::move(positions); }
    const ZetArray<double>& GetHoleXPosArr() const { return m_holeXPosArr; }
    void SetFound(bool found) { m_found = found; }
    bool GetFound() const { return m_found; }
    /// The mirrored position is accepted too.
    void SetIsMirrApplicable(bool isApplicable) { m_isMirrApplicable = isApplicable; }
    bool GetIsMirrApplicable() const { return m_isMirrApplicable; }
    /// The hole was found at the mirrored position.
    void SetIsMirror(bool isMirror) { m_isMirror = isMirror; }
    bool GetIsMirror() const { return m_isMirror; }
    /// Index range of acceptable positions; carried for the plug-in.
    void SetXPosRange(long range) { m_xPosRange = range; }
    long GetXPosRange() const { return m_xPosRange; }

    /// Always "" here; a derived class may override it.
    virtual ZetString GetHoleMsg() const;
    /// The error text for a missing hole: the message format with diameter and X position (from the
    /// start, if it was measured from the far end), then the further alternatives as stored.
    /// Sets the current tolerance to m_EPS.
    virtual ZetString GetErrMsg(double memberLength) const;

  private:
    double m_holeDia = 0.0;
    ZetString m_holeCode;
    double m_holeXPos = 0.0;
    ZetArray<double> m_holeXPosArr;
    bool m_found = false;
    bool m_isMirrApplicable = false;
    bool m_isMirror = false;
    ZetString m_msgFormat;
    long m_xPosRange = 0;
};

#pragma once

#include "camdata/holes/CMxHoles.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// The prescription for members of one fixed length: the holes that each must have. A value; mm.
class CAMDATA_API CMxSingleMemValidation {
  public:
    CMxSingleMemValidation() = default;
    virtual ~CMxSingleMemValidation();
    CMxSingleMemValidation(const CMxSingleMemValidation&) = default;
    CMxSingleMemValidation& operator=(const CMxSingleMemValidation&) = default;
    CMxSingleMemValidation(CMxSingleMemValidation&&) = default;
    CMxSingleMemValidation& operator=(CMxSingleMemValidation&&) = default;

    /// Sets length, holes and the mirror flag. With the flag every hole accepts its mirrored
    /// position; without it the holes keep theirs.
    void SetValues(double fixedLength, ZetArray<CMxHoles> mxHoles, bool mirrorApplicable);

    /// The number of expected holes that are marked as found.
    long GetNoOfHolesFound() const;
    /// Gives every expected hole the code.
    void replaceHoleCode(const ZetString& code);
    /// Turns X positions that are fractions of the fixed length, or measured from the far end, into
    /// distances from the start; alternative positions stay. Returns how many it turned, 0 for a
    /// fixed length that is not above m_EPS. Sets the current tolerance to m_EPS.
    long setHolesPosition();

    void SetFixedLength(double length) { m_fixedLength = length; }
    double GetFixedLength() const { return m_fixedLength; }
    /// Mirrored hole patterns are accepted.
    void SetMirrorApplicable(bool isApplicable) { m_mirrorApplicable = isApplicable; }
    bool GetMirrorApplicable() const { return m_mirrorApplicable; }
    void SetMxHoles(ZetArray<CMxHoles> holes) { m_mxHoles = std::move(holes); }
    ZetArray<CMxHoles> GetMxHoles() const { return m_mxHoles; }

  private:
    bool SetPositionOf(CMxHoles& hole) const;

    double m_fixedLength = 0.0;
    bool m_mirrorApplicable = false;
    [[maybe_unused]] bool m_secondFlag = false;  ///< carried with the record, for later use
    ZetArray<CMxHoles> m_mxHoles;
};

#pragma once

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One view (face) of a member, and how its coordinates become the member's output coordinates.
/// A value; lengths in mm. The records that hold it apply the corrections.
class CAMDATA_API CViewData {
  public:
    /// The word of the face for reports: "web", "top flange", "bottom flange", "web back", for
    /// every other face "unknown face".
    ZetString GetFaceStrForOutPut() const;
    /// All fields as a diagnostic text of several lines.
    ZetString GetPrintDef() const;

    /// The host's name of the face, for example "WEB".
    void SetFaceStr(ZetString face) { m_faceStr = std::move(face); }
    ZetString GetFaceStr() const { return m_faceStr; }
    /// Negative: Y is measured from the opposite edge of the face.
    void SetDimFromOtherFace(double factor) { m_dimFromOtherFace = factor; }
    double GetDimFromOtherFace() const { return m_dimFromOtherFace; }
    /// Negative: Y changes its sign.
    void SetDimYNegate(double factor) { m_yNegate = factor; }
    double GetDimYNegate() const { return m_yNegate; }
    /// Negative: X changes its sign.
    void SetDimXNegate(double factor) { m_xNegate = factor; }
    double GetDimXNegate() const { return m_xNegate; }
    /// Width of the face, from which Y is measured back.
    void SetFaceWidth(double width) { m_faceWidth = width; }
    double GetFaceWidth() const { return m_faceWidth; }
    void SetHoleFace(eHoleFace face) { m_holeFace = face; }
    eHoleFace GetHoleFace() const { return m_holeFace; }
    /// Nominal width of the profile at this face.
    void SetProfileFaceWidth(double width) { m_profileFaceWidth = width; }
    double GetProfileFaceWidth() const { return m_profileFaceWidth; }
    /// Added to Y before any change of sign.
    void SetYValOffset(double offset) { m_yValOffset = offset; }
    double GetYValOffset() const { return m_yValOffset; }

  private:
    ZetString m_faceStr{std::wstring_view(L"NON", 3)};
    double m_dimFromOtherFace = 1.0;
    double m_yNegate = 1.0;
    double m_xNegate = 1.0;
    double m_faceWidth = 0.0;
    eHoleFace m_holeFace = eHoleFaceNone;
    double m_profileFaceWidth = 0.0;
    double m_yValOffset = 0.0;
};

#pragma once

#include "camdata/platform/base/Export.h"

/// Explicit section attributes of a member. A value; mm.
class CAMDATA_API CMemAttrib {
  public:
    CMemAttrib() = default;
    virtual ~CMemAttrib();
    CMemAttrib(const CMemAttrib&) = default;
    CMemAttrib& operator=(const CMemAttrib&) = default;

    /// Mind the order: the bottom flange width comes before the top flange width.
    void SetValues(double profileHeight,
                   double bottomFlangeWidth,
                   double topFlangeWidth,
                   double profileThick);

    double GetProfileHeight() const { return m_profileHeight; }
    double GetTopFlangeWidth() const { return m_topFlangeWidth; }
    double GetBottomFlangeWidth() const { return m_bottomFlangeWidth; }
    double GetProfileThick() const { return m_profileThick; }

  private:
    double m_profileHeight = 0.0;
    double m_topFlangeWidth = 0.0;
    double m_bottomFlangeWidth = 0.0;
    double m_profileThick = 0.0;
};

#pragma once

#include "camdata/platform/geometry/ZetGeomPoint3d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"
#include "camdata/platform/host/IHostObject.h"

/// A coordinate system of the host's model, mm.
class ICS3d : public IHostObject {
  public:
    virtual HostResult getOrigin(ZetGeomPoint3d* origin) = 0;
    virtual HostResult getXAxis(ZetGeomVector3d* axis) = 0;
    virtual HostResult getYAxis(ZetGeomVector3d* axis) = 0;
    virtual HostResult getZAxis(ZetGeomVector3d* axis) = 0;

  protected:
    ~ICS3d() = default;
};

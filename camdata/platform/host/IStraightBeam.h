#pragma once

#include "camdata/platform/geometry/ZetGeomPoint3d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"
#include "camdata/platform/host/IHostObject.h"

enum eProfRefAxis : int;  // camdata/member/eProfRefAxis.h

/// A straight beam of the host's model: its model line, and the axes that run parallel to it. Model
/// coordinates, mm.
class IStraightBeam : public IHostObject {
  public:
    static constexpr HostInterfaceId kId = {
        0x3D0B6E42, 0x5C1F, 0x4A97, {0xA6, 0x28, 0x91, 0x0D, 0x7E, 0xC3, 0x54, 0x1B}
    };

    /// The ends of the line along which the beam was modelled.
    virtual HostResult getEndPoints(ZetGeomPoint3d* start, ZetGeomPoint3d* end) = 0;
    /// The way from the model line to a reference axis, the same at both ends.
    virtual HostResult getAxisOffset(eProfRefAxis axis, ZetGeomVector3d* offset) = 0;

  protected:
    ~IStraightBeam() = default;
};

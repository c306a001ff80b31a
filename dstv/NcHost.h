#pragma once

#include "dstv/NcPart.h"

#include "camdata/platform/HostPtr.h"
#include "camdata/platform/IEqualPartObject.h"
#include "camdata/platform/ZetNCEntity.h"

#include <vector>

namespace dstv {

/// Where one BO or Bn line stands in the NC structure.
struct NcHoleTarget {
    long view = 0;   ///< index into getViews()
    long index = 0;  ///< into that view's holes, or by NcHole::form its internal contours or marks
};

/// One NC file as the platform's NC interfaces offer a part. Immutable; copies share nothing but
/// the model object.
///
/// Views come in the order of their positions: 0 (o), 1 (v), 2 (u), 3 (h), then 5, 6, ... for
/// inclined planes in the order in which the file defines them. A face without anything has no
/// view. A plane parallel to a standard face is that face: its coordinates come in the face's (x,
/// q). Across the piece's Y the nearer of o and u is taken, across Z the one that the normal points
/// to.
///
/// On an inclined plane whose x axis is parallel to the piece, x counts along the piece from its
/// start, wherever the file has put the plane's origin and whichever way it runs.
///
/// Planes of views have the axes of x and q, so the normal points out of the piece on v and u, and
/// into it on o and h. They are in the frame of the piece (NcPart.h), for profile codes SO and B in
/// (X, -Z, Y) of it, the frame in which such members are judged. The host's tag of a hole or
/// contour is its line in the file.
class NcFileEntity : public ZetNCEntity {
  public:
    explicit NcFileEntity(NcPart part);

    const NcPart& getPart() const { return m_part; }
    /// One per hole of the part, in the same order.
    const std::vector<NcHoleTarget>& getHoleTargets() const { return m_holeTargets; }

    /// eNCTypePlate for profile code B, else eNCTypeBeam.
    NCTypes getType() const override;
    /// Answers as IEqualPartObject (never a main part) and IStructureObject; lives as long as its
    /// references, also longer than this entity.
    IHostObject* getModelObject() override;
    /// `style` has no meaning here. Plate: height and width are header value 10.
    ZetNCHeaderData getHeader(long style) const override;
    ZetNCStructure getNCStructure(long style) const override;

  private:
    NcPart m_part;
    ZetNCStructure m_structure;
    std::vector<NcHoleTarget> m_holeTargets;
    HostPtr<IEqualPartObject> m_modelObject;
};

}  // namespace dstv

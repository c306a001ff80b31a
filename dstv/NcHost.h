#pragma once

#include "dstv/NcPart.h"

#include "camdata/platform/host/HostPtr.h"
#include "camdata/platform/host/IEqualPartObject.h"
#include "camdata/platform/host/ZetNCEntity.h"

#include <vector>

namespace dstv {

/// Where one BO or Bn line stands in the NC structure.
struct NcHoleTarget {
    long view = 0;   ///< index into getViews()
    long index = 0;  ///< into that view's holes, or by NcHole::form its internal contours or marks
};

/// One NC file as the platform's NC interfaces offer a part. Copies share nothing but the model
/// object.
///
/// No NC file tells what is fixed to its part: a caller that knows says so (NcAssemblies.h).
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
/// (X, -Z, Y) of it, the frame in which such members are judged. The host's tag of a
/// feature is its line in the file.
class NcFileEntity : public ZetNCEntity {
  public:
    explicit NcFileEntity(NcPart part);

    const NcPart& getPart() const { return m_part; }
    /// One per hole of the part, in the same order.
    const std::vector<NcHoleTarget>& getHoleTargets() const { return m_holeTargets; }
    /// Lets go of all but the header: the NC structure is empty then, and so are the lists of the
    /// part.
    void releaseFeatures();
    /// Makes this the main part of an assembly, with the parts that are fixed to it, once per
    /// piece; they must outlive this entity. A model object that was handed out before does not
    /// change.
    void setAssembly(ZetArray<ZetNCEntity*> attachedEntities);

    /// eNCTypePlate for profile code B, else eNCTypeBeam.
    NCTypes getType() const override;
    /// Answers as IEqualPartObject (a main part after setAssembly) and IStructureObject; lives as
    /// long as its references, also longer than this entity.
    IHostObject* getModelObject() override;
    /// `style` has no meaning here. Plate: height and width are header value 10.
    ZetNCHeaderData getHeader(long style) const override;
    ZetNCStructure getNCStructure(long style) const override;
    ZetArray<ZetNCEntity*> getAttachedEntities() const override { return m_attachedEntities; }

  private:
    NcPart m_part;
    ZetNCStructure m_structure;
    std::vector<NcHoleTarget> m_holeTargets;
    HostPtr<IEqualPartObject> m_modelObject;
    ZetArray<ZetNCEntity*> m_attachedEntities;
};

}  // namespace dstv

#pragma once

#include "camdata/holes/CViewData.h"
#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/geometry/ZetGeomPlane.h"
#include "camdata/platform/host/ZetNCView.h"
#include "camdata/rules/CMemTypeAndAttrib.h"

namespace camdata::detail {

/// Tells which face of a member each of its views shows, and how the view's coordinates become the
/// member's. The member type must outlive it.
///
/// A view at position 0 to 4 shows the face of that position. A view at position 5 or above has a
/// plane of its own, by which its face is recognised: docs/glossary.md, "Views in a plane of their
/// own". Reads the current tolerance as it stands.
class ViewFaces {
  public:
    explicit ViewFaces(const CMemTypeAndAttrib& memType);

    /// Takes the views in the order of the member's structure: a web in a plane of its own keeps
    /// the hole face of the view before it.
    CViewData ViewDataOf(const ZetNCView& view);

  private:
    struct PlaneRules;
    struct StandardFace;
    struct Flange;

    static const PlaneRules kPlaneRules[];
    static const StandardFace kStandardFaces[];
    static const Flange kBottom;
    static const Flange kTop;

    static const PlaneRules& RulesOf(const ZetString& profileCode);

    CViewData OfStandardFace(const StandardFace& face);
    CViewData OfPlane(const ZetGeomPlane& plane);
    void TakeFlange(const Flange& flange, const ZetGeomPlane& plane, CViewData& data);
    void TakeWeb(const ZetGeomPlane& plane, CViewData& data) const;
    /// Null when the plane's height is no number, or so close to the limit that rounding decides.
    const Flange* FlangeAt(const ZetGeomPlane& plane) const;

    const CMemTypeAndAttrib& m_memType;
    const PlaneRules& m_rules;
    /// Of the view before.
    eHoleFace m_holeFace = eHoleFaceWeb;
};

}  // namespace camdata::detail

#include "camdata/member/ViewFaces.h"

#include "camdata/platform/geometry/ZetGeomTol.h"
#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <iterator>

namespace camdata::detail {
namespace {

constexpr int kFirstPlanePosition = 5;

/// Directions of the frame in which the planes of a piece are given; each stands for its opposite
/// as well, except `up`.
struct Directions {
    ZetGeomVector3d acrossWeb;     ///< the normal of a web
    ZetGeomVector3d acrossFlange;  ///< the normal of a flange at a right angle to the web
    ZetGeomVector3d up;            ///< from the bottom flange to the top flange
};

/// The frame (X, Y, Z) of the piece: X along it, Y upwards, Z from behind to the front.
constexpr Directions kPieceFrame = {
    {0.0, 0.0, -1.0},
    {0.0, 1.0, 0.0 },
    {0.0, 1.0, 0.0 },
};
/// The frame (X, -Z, Y) of it.
constexpr Directions kTurnedFrame = {
    {0.0, 1.0, 0.0 },
    {0.0, 0.0, -1.0},
    {0.0, 0.0, 1.0 },
};

/// The factor of a coordinate for a value that says whether its sign changes.
double SignFactor(double value) {
    return CMxGeom::IsLess_Mx(value, 0.0) ? -1.0 : 1.0;
}

/// Of a plane across the web, whichever way its normal points: seen from above or from below, the
/// height is the same.
double HeightOf(const ZetGeomPlane& plane, const ZetGeomVector3d& up) {
    return plane.normal().dot(up) < 0.0 ? -plane.distance() : plane.distance();
}

}  // namespace

/// How planes of members of one profile code are judged.
struct ViewFaces::PlaneRules {
    const wchar_t* profileCode;  ///< null: any other
    Directions directions;
    /// The origin's coordinates whose sign decides that of Y.
    double ZetGeomPoint3d::*signOnFlange;
    double ZetGeomPoint3d::*signOnWeb;
    /// Y counts from the frame's origin, not from the plane's.
    bool hasYOffset;
};

constexpr ViewFaces::PlaneRules ViewFaces::kPlaneRules[] = {
    {L"SO",   kTurnedFrame, &ZetGeomPoint3d::y, &ZetGeomPoint3d::z, true },
 // The turned frame, but the coordinates of the piece's own: on purpose.
    {L"B",    kTurnedFrame, &ZetGeomPoint3d::z, &ZetGeomPoint3d::y, false},
    {nullptr, kPieceFrame,  &ZetGeomPoint3d::z, &ZetGeomPoint3d::y, false},
};

struct ViewFaces::StandardFace {
    eHoleFace face;
    const wchar_t* faceStr;
    double (CMemTypeAndAttrib::*width)() const;
};

/// By view position.
const ViewFaces::StandardFace ViewFaces::kStandardFaces[] = {
    {eHoleFaceTopFlange,    L"TOP", &CMemTypeAndAttrib::GetTopFlangeWidth   },
    {eHoleFaceWeb,          L"WEB", &CMemTypeAndAttrib::GetProfileHeight    },
    {eHoleFaceBottomFlange, L"BOT", &CMemTypeAndAttrib::GetBottomFlangeWidth},
 // "WEB" on purpose: only the hole face tells the web's back.
    {eHoleFaceWebBack,      L"WEB", &CMemTypeAndAttrib::GetProfileHeight    },
    {eHoleFaceWeb,          L"WEB", &CMemTypeAndAttrib::GetProfileHeight    },
};

/// A flange seen in a plane of its own.
struct ViewFaces::Flange {
    const wchar_t* faceStr;
    eHoleFace flat;
    eHoleFace sloped;
    double (CMemTypeAndAttrib::*width)() const;
};

const ViewFaces::Flange ViewFaces::kBottom = {
    L"BOT",
    eHoleFaceBottomFlange,
    eHoleFaceSlopedBottomFlange,
    &CMemTypeAndAttrib::GetBottomFlangeWidth,
};
const ViewFaces::Flange ViewFaces::kTop = {
    L"TOP",
    eHoleFaceTopFlange,
    eHoleFaceSlopedTopFlange,
    &CMemTypeAndAttrib::GetTopFlangeWidth,
};

ViewFaces::ViewFaces(const CMemTypeAndAttrib& memType)
    : m_memType(memType), m_rules(RulesOf(memType.GetProfileCode())) {}

const ViewFaces::PlaneRules& ViewFaces::RulesOf(const ZetString& profileCode) {
    const PlaneRules* rules = kPlaneRules;
    while (rules->profileCode != nullptr && profileCode != rules->profileCode)
        ++rules;
    return *rules;
}

CViewData ViewFaces::ViewDataOf(const ZetNCView& view) {
    static_assert(std::size(kStandardFaces) == kFirstPlanePosition);
    const int position = view.getViewPos();
    if (position >= kFirstPlanePosition)
        return OfPlane(view.getPlane());
    return position < 0 ? CViewData() : OfStandardFace(kStandardFaces[position]);
}

CViewData ViewFaces::OfStandardFace(const StandardFace& face) {
    const double width = (m_memType.*face.width)();
    m_holeFace = face.face;
    CViewData data;
    data.SetFaceStr(face.faceStr);
    data.SetHoleFace(face.face);
    data.SetFaceWidth(width);
    data.SetProfileFaceWidth(width);
    return data;
}

CViewData ViewFaces::OfPlane(const ZetGeomPlane& plane) {
    CViewData data;
    data.SetDimXNegate(SignFactor(plane.normal().x));
    if (ZetGeomTol().areParallel(plane.normal(), m_rules.directions.acrossWeb))
        TakeWeb(plane, data);
    else if (const Flange* flange = FlangeAt(plane))
        TakeFlange(*flange, plane, data);
    data.SetHoleFace(m_holeFace);
    return data;
}

const ViewFaces::Flange* ViewFaces::FlangeAt(const ZetGeomPlane& plane) const {
    const double height = HeightOf(plane, m_rules.directions.up);
    const double thickness = m_memType.GetProfileThick();
    if (CMxGeom::IsLessOrEqual_Mx(height, thickness))
        return &kBottom;
    return CMxGeom::IsGreater_Mx(height, thickness) ? &kTop : nullptr;
}

void ViewFaces::TakeFlange(const Flange& flange, const ZetGeomPlane& plane, CViewData& data) {
    const ZetGeomVector3d normal = plane.normal();
    const ZetGeomVector3d& across = m_rules.directions.acrossFlange;
    const bool isFlat = ZetGeomTol().areParallel(normal, across);
    const double width = m_memType.GetProfileWidth();
    // Along a slope, distances across the flange grow.
    const double slope = isFlat ? 1.0 : std::abs(normal.dot(across));
    m_holeFace = isFlat ? flange.flat : flange.sloped;
    data.SetFaceStr(flange.faceStr);
    data.SetDimFromOtherFace(-1.0);
    data.SetProfileFaceWidth((m_memType.*flange.width)());
    data.SetFaceWidth(width / slope);
    data.SetDimYNegate(SignFactor(plane.origin.*m_rules.signOnFlange));
    if (m_rules.hasYOffset)
        data.SetYValOffset(plane.origin.*m_rules.signOnFlange / slope);
}

void ViewFaces::TakeWeb(const ZetGeomPlane& plane, CViewData& data) const {
    const double height = m_memType.GetProfileHeight();
    data.SetFaceStr(L"WEB");
    data.SetFaceWidth(height);
    data.SetProfileFaceWidth(height);
    data.SetDimYNegate(SignFactor(plane.origin.*m_rules.signOnWeb));
    if (m_rules.hasYOffset)
        data.SetYValOffset(plane.distance());
}

}  // namespace camdata::detail

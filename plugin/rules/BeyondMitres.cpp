#include "plugin/rules/JobMember.h"
#include "plugin/rules/MitreShortening.h"
#include "profiles/SectionWalls.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

// What lies in what mitres take away.

namespace plugin {

namespace {

/// What a mitre takes for certain from something that lies between two places across it.
Shortening LeastShorteningBy(const ZetNCCut& cut,
                             const std::array<double, 2>& across,
                             double width) {
    const Shortening a = ShorteningBy(cut, across[0], width);
    const Shortening b = ShorteningBy(cut, across[1], width);
    return a.amount < b.amount ? a : b;
}

}  // namespace

/// A web that stands anywhere between the edges of the flanges: a cut that only these show takes
/// nothing from it for certain.
bool JobMember::IsBeyondMitre(const ZetGeomPoint2d& centre, int viewPosition, double reach) const {
    if (m_judging->mitres.empty())
        return false;
    const bool isPlane = m_judging->planes.count(viewPosition) != 0;
    if (IsRound() || (viewPosition > profiles::kBehind && !isPlane))
        return false;
    const SectionPlace place = SectionPlaceOf(centre, viewPosition);
    const bool isWeb = viewPosition == profiles::kFront || viewPosition == profiles::kBehind;
    for (const ZetNCCut& mitre : m_judging->mitres) {
        // A cut may be told twice, by the header and by itself.
        Shortening web;
        Shortening flange;
        for (const ZetNCCut& cut : m_judging->mitres) {
            const bool isOnWeb = cut.face == ZetNCCut::eFaceWeb;
            const Shortening shortening =
                isOnWeb ? LeastShorteningBy(cut, place.y, m_memType.GetHeaderData().height)
                        : LeastShorteningBy(cut, place.z, DepthOfSection());
            Shortening& most = isOnWeb ? web : flange;
            if (cut.end == mitre.end && shortening.amount > most.amount)
                most = shortening;
        }
        const double slope =
            std::hypot(isWeb || isPlane ? web.tangent : 0.0, isWeb ? 0.0 : flange.tangent);
        const double toEnd =
            mitre.end == ZetNCCut::eEndStart ? place.x - mitre.x : mitre.x - place.x;
        if (toEnd - web.amount - flange.amount <= -reach * std::sqrt(1.0 + slope * slope))
            return true;
    }
    return false;
}

/// True where a mitre takes something from the section, wherever around it.
bool JobMember::IsAtMitre(double minX, double maxX) const {
    const double height = m_memType.GetHeaderData().height;
    std::array<double, 2> slopes = {};  // by ZetNCCut::End; cuts across each other go deeper
    for (const ZetNCCut& cut : m_judging->mitres) {
        double& slope = slopes[static_cast<std::size_t>(cut.end)];
        slope = std::hypot(slope, ShorteningBy(cut, 0.0, height).tangent);
    }
    return std::any_of(
        m_judging->mitres.begin(), m_judging->mitres.end(), [&](const ZetNCCut& cut) {
            const bool isAtStart = cut.end == ZetNCCut::eEndStart;
            const double toEnd = isAtStart ? minX - cut.x : cut.x - maxX;
            return toEnd < height * slopes[static_cast<std::size_t>(cut.end)];
        });
}

}  // namespace plugin

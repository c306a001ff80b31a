#include "dstv/NcCrowding.h"

#include "dstv/NcGeometry.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace dstv {

namespace {

/// Farther than any tolerance reaches, mm.
constexpr double kMargin = 2.0;
/// Rows that are looked at; slots at all angles across everything need more.
constexpr std::size_t kMaxLooks = 10'000'000;

/// A slot as rows see it: its start, and its axis to both sides, for nothing else is asked of a
/// hole in it.
struct Axis {
    double along;
    double across;
    double reachAlong;  ///< not below reachAcross
    double reachAcross;
    double slope;  ///< along by across
};

struct Looks {
    std::size_t rows = 0;
    std::size_t holes = 0;

    bool AreTooMany() const { return rows > kMaxLooks || holes > kMaxHolesInSlots; }
};

/// Centres of one face, by rows of 1 mm along one of its axes.
class Rows {
  public:
    void Add(double along, double across) { m_rows[std::floor(across)].push_back(along); }

    void Sort() {
        for (auto& [across, row] : m_rows)
            std::sort(row.begin(), row.end());
    }

    /// Those near an axis.
    void Count(const Axis& axis, Looks& looks) const {
        const double reach = axis.reachAcross + kMargin;
        const auto end = m_rows.upper_bound(axis.across + reach);
        for (auto row = m_rows.lower_bound(std::floor(axis.across - reach)); row != end; ++row) {
            ++looks.rows;
            looks.holes += CountIn(row->second, axis, row->first + 0.5 - axis.across);
        }
    }

  private:
    static std::size_t CountIn(const std::vector<double>& row, const Axis& axis, double across) {
        const double most = axis.reachAlong + kMargin;
        const double centre = std::clamp(across * axis.slope, -most, most);
        const double half = kMargin * (1.0 + std::abs(axis.slope));
        const double from = axis.along + std::max(centre - half, -most);
        const double to = axis.along + std::min(centre + half, most);
        const auto first = std::lower_bound(row.begin(), row.end(), from);
        return static_cast<std::size_t>(std::upper_bound(first, row.end(), to) - first);
    }

    std::map<double, std::vector<double>> m_rows;
};

struct Face {
    Rows alongX;
    Rows alongY;
};

using Faces = std::map<std::pair<NcFace, long>, Face>;

Faces FacesOf(const NcPart& part) {
    Faces faces;
    for (const NcHole& hole : part.holes) {
        Face& face = faces[{hole.place.face, hole.place.plane}];
        face.alongX.Add(hole.x, hole.q);
        face.alongY.Add(hole.q, hole.x);
    }
    for (auto& [place, face] : faces) {
        face.alongX.Sort();
        face.alongY.Sort();
    }
    return faces;
}

/// By the rows that lie along the slot more than across it.
void CountInSlot(const Face& face, const NcHole& slot, Looks& looks) {
    const bool isAcross = slot.slotHeight > 0.0;
    const ZetGeomVector2d u = DirectionAt(slot.slotAngle + (isAcross ? 90.0 : 0.0));
    const double length = isAcross ? slot.slotHeight : slot.slotWidth;
    const double reachX = std::abs(u.x) * length;
    const double reachY = std::abs(u.y) * length;
    if (reachX > reachY)
        face.alongX.Count({slot.x, slot.q, reachX, reachY, u.y == 0.0 ? reachX : u.x / u.y}, looks);
    else
        face.alongY.Count({slot.q, slot.x, reachY, reachX, u.x == 0.0 ? reachY : u.y / u.x}, looks);
}

}  // namespace

std::optional<long> FindCrowdedSlot(const NcPart& part) {
    const bool hasSlots = std::any_of(part.holes.begin(), part.holes.end(), [](const NcHole& hole) {
        return hole.form == NcHoleForm::kSlot;
    });
    if (!hasSlots || part.holes.size() * part.holes.size() <= kMaxHolesInSlots)
        return std::nullopt;
    const Faces faces = FacesOf(part);
    Looks looks;
    for (const NcHole& hole : part.holes) {
        if (hole.form != NcHoleForm::kSlot)
            continue;
        CountInSlot(faces.at({hole.place.face, hole.place.plane}), hole, looks);
        if (looks.AreTooMany())
            return hole.line;
    }
    return std::nullopt;
}

}  // namespace dstv

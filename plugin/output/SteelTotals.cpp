#include "plugin/output/SteelTotals.h"

#include <cmath>

namespace plugin {

namespace {

constexpr double kMillimetresAMetre = 1000.0;
constexpr double kKilogramsATonne = 1000.0;

}  // namespace

void SteelTotals::Add(long count, double pieceLength, double weightPerMetre) {
    const double lengthOfAll = static_cast<double>(count) * pieceLength;
    pieces += count;
    length += lengthOfAll;
    weight += lengthOfAll / kMillimetresAMetre * weightPerMetre;
    unweighed += weightPerMetre > 0.0 ? 0 : count;
}

SteelTotals& SteelTotals::operator+=(const SteelTotals& other) {
    pieces += other.pieces;
    length += other.length;
    weight += other.weight;
    unweighed += other.unweighed;
    return *this;
}

std::optional<double> SteelTotals::GetWeight() const {
    constexpr double kGramsAKilogram = 1000.0;
    return unweighed > 0 ? std::nullopt
                         : std::optional(std::round(weight * kGramsAKilogram) / kGramsAKilogram);
}

ZetString SteelTotals::ShowMetres() const {
    return ZetString::format(L"%.1f", length / kMillimetresAMetre);
}

ZetString SteelTotals::ShowTonnes() const {
    return unweighed > 0 ? ZetString(L"?") : ZetString::format(L"%.3f", weight / kKilogramsATonne);
}

}  // namespace plugin

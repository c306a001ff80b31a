#pragma once

#include "camdata/platform/text/ZetString.h"

#include <optional>

namespace plugin {

/// How much steel the pieces of some members are.
struct SteelTotals {
    long pieces = 0;
    double length = 0.0;  ///< mm
    double weight = 0.0;  ///< kg; of those whose NC files tell it
    long unweighed = 0;   ///< pieces without a weight

    /// kg per metre; 0: not told.
    void Add(long count, double pieceLength, double weightPerMetre);
    SteelTotals& operator+=(const SteelTotals& other);

    /// kg, to the gram; nothing where pieces are without.
    std::optional<double> GetWeight() const;
    ZetString ShowMetres() const;
    /// "?" where pieces are without a weight.
    ZetString ShowTonnes() const;
};

}  // namespace plugin

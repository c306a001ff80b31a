#pragma once

#include "cutting/Stock.h"

#include <cstddef>
#include <vector>

namespace cutting {

/// Pieces of one mark on a bar.
struct Cut {
    std::size_t part = 0;  ///< position in the demand
    Count count = 0;
    auto operator<=>(const Cut&) const = default;
};

/// Bars that are cut alike.
struct PlannedBars {
    std::size_t stock = 0;  ///< position among the stocks
    std::vector<Cut> cuts;  ///< in cutting order
    Count bars = 0;
    Length offCut = 0;  ///< of each bar; behind the last cut, without the grip; 0: none
};

/// Which piece comes from which bar.
struct Plan {
    std::vector<PlannedBars> bars;
    Cost cost = 0;
    /// No plan for the same pieces costs less. 0 for a plan that lacks bars.
    Cost bound = 0;
    /// By mark: pieces that no bar is left for, or that no bar is long enough for. Empty: none.
    std::vector<Count> uncut;

    bool IsProvedLeast() const { return uncut.empty() && cost == bound; }
};

/// Length of the off-cut of a bar with these pieces.
Length OffCutOf(const Stock& stock, Length pieceLength, Count pieces);

}  // namespace cutting

#pragma once

#include <vector>

namespace plugin {

/// Pieces of one length, mm.
struct StockPieces {
    double length = 0.0;
    long count = 0;
};

/// The bars that a first-fit-decreasing plan uses: the longest piece first, each on the first bar
/// that has room for it. A piece fits when more than `tolerance` stays; a bar's first piece always
/// does. Time grows with pieces times the logarithm of the bars.
long CountFirstFitBars(std::vector<StockPieces> pieces, double stockLength, double tolerance);

}  // namespace plugin

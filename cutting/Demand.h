#pragma once

#include <cstdint>
#include <vector>

namespace cutting {

/// A length in 0.001 mm.
using Length = std::int64_t;
/// A number of pieces or bars.
using Count = std::int64_t;

/// Pieces of one mark that are cut from bars.
struct Part {
    Length length = 0;  ///< > 0
    Count count = 0;    ///< >= 0
};

/// All pieces of one plan, by mark. At most kMaxPieces together.
using Demand = std::vector<Part>;

/// For products of two of them, which may be too large for 64 bits.
__extension__ using Wide = __int128;

/// Rounded up; for numbers from 0 on.
constexpr std::int64_t CeilDivide(std::int64_t value, std::int64_t by) {
    return (value + by - 1) / by;
}

constexpr Count kMaxPieces = 10'000'000;

}  // namespace cutting

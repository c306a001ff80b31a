#pragma once

#include "cutting/Demand.h"

#include <cstdint>

namespace cutting {

/// What a plan costs, in the unit of the stocks' costs.
using Cost = std::int64_t;

constexpr Count kUnlimited = -1;
constexpr Cost kMaxCost = 1'000'000'000;

/// Bars of one length that pieces are cut from.
///
/// A saw cut lies between two pieces and takes `kerf`; n pieces need n - 1 of them. The cut behind
/// the last piece takes its kerf out of what is left. The grips lie at the ends; nothing is cut
/// from them.
struct Stock {
    Length length = 0;
    Length kerf = 0;
    Length gripStart = 0;
    Length gripEnd = 0;
    Cost cost = 1;             ///< of a bar; 1 to kMaxCost
    Count count = kUnlimited;  ///< bars that are there

    /// What pieces and the cuts between them may take.
    Length GetUsable() const { return length - gripStart - gripEnd; }
};

}  // namespace cutting

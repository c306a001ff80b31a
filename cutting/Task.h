#pragma once

#include "cutting/Demand.h"
#include "cutting/Plan.h"
#include "cutting/Stock.h"

#include <cstddef>
#include <vector>

namespace cutting {

/// A cutting problem as the searches see it. Equal lengths of different marks are one size. Every
/// piece carries the kerf of the cut behind it, and every bar is one kerf longer for it; all
/// lengths are divided by what they have in common, which keeps tables over lengths small.
struct Task {
    struct Size {
        Length width = 0;
        Count count = 0;
    };
    struct Kind {
        Length capacity = 0;
        Length extra = 0;  ///< of this saw's kerf over the smallest one, per piece
        Cost cost = 1;
        Count count = kUnlimited;
        std::size_t stock = 0;  ///< position among the stocks; kNoStock: stands for uncut pieces
    };
    static constexpr std::size_t kNoStock = static_cast<std::size_t>(-1);

    std::vector<Size> sizes;  ///< widest first, no two alike
    std::vector<Kind> kinds;
    Cost costUnit = 1;  ///< the costs of the stocks are multiples of it; kinds hold the multiples

    Length WidthOn(std::size_t kind, std::size_t size) const {
        return sizes[size].width + kinds[kind].extra;
    }
};

/// Pieces of one size on a bar.
struct Take {
    std::size_t size = 0;
    Count count = 0;
    auto operator<=>(const Take&) const = default;
};

/// How a bar is cut; takes in the order of the sizes.
struct Pattern {
    std::size_t kind = 0;
    std::vector<Take> takes;
    auto operator<=>(const Pattern&) const = default;
};

struct PatternUse {
    Pattern pattern;
    Count times = 0;
};

/// All bars of a plan, in terms of a task.
using Solution = std::vector<PatternUse>;

/// Pieces by size that are still to be cut, and bars by kind that are still there.
struct Rest {
    std::vector<Count> pieces;
    std::vector<Count> bars;  ///< or kUnlimited

    explicit Rest(const Task& task);
    bool HasBar(std::size_t kind) const { return bars[kind] != 0; }
    bool IsCut() const;
    /// The most often that the pattern can be used.
    Count CountUses(const Pattern& pattern) const;
    void Use(const Pattern& pattern, Count times);
};

/// A demand as a task, and the way back. Every part must have a length and fit a stock.
Task MakeTask(const Demand& demand, const std::vector<Stock>& stocks);
/// The solution with marks; equal sizes are handed out in the order of the demand.
Plan MakePlanOf(const Task& task,
                const Solution& solution,
                const Demand& demand,
                const std::vector<Stock>& stocks);

Count CountPieces(const Task& task);
Count CountPieces(const Pattern& pattern);
/// What of the bar is free; below 0 when the pattern does not fit.
Length SlackOf(const Task& task, const Pattern& pattern);
Cost CostOf(const Task& task, const Solution& solution);
/// The pattern without the pieces that are not left; without any when its kind is used up.
Pattern TrimPattern(const Pattern& pattern, const Rest& rest);
/// Puts equal patterns together.
void MergeEqual(Solution& solution);
/// Less cost, else fewer patterns, else a longer single off-cut. Both merged; an empty one is
/// worse.
bool IsBetter(const Task& task, const Solution& solution, const Solution& than);

}  // namespace cutting

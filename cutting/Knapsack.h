#pragma once

#include "cutting/Effort.h"
#include "cutting/Task.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace cutting {

/// The worth of a piece, by size; whole numbers, so that sums and bounds are exact.
using Worths = std::vector<std::int64_t>;

/// The heaviest pattern that was found for a kind of bar.
struct Heaviest {
    Pattern pattern;
    std::int64_t worth = 0;
    bool isExact = false;  ///< no pattern is worth more
};

/// Finds patterns that are worth most, each size at most as often as it is wanted. First by a
/// bounded search; where that gives neither an exact answer nor one above the threshold, by a table
/// over the lengths, if it is small enough.
class Knapsack {
  public:
    /// `wanted` and `worths` by size; sizes without one of them are left out. All must outlive it.
    Knapsack(const Task& task,
             const std::vector<Count>& wanted,
             const Worths& worths,
             Effort& effort);

    /// A pattern worth more than the threshold is good enough.
    Heaviest Find(std::size_t kind, std::int64_t threshold);
    /// A heavy pattern, by a short search.
    Pattern FindRoughly(std::size_t kind) { return Search(kind, kFewNodes).pattern; }

  private:
    static constexpr std::int64_t kFewNodes = 2'000;

    struct Item {
        std::size_t size = 0;
        Length width = 0;
        std::int64_t worth = 0;
        Count count = 0;
    };
    struct Table {
        struct Bundle {
            std::size_t item = 0;
            Count count = 0;
        };
        std::vector<Item> items;
        std::vector<Bundle> bundles;
        std::vector<std::int64_t> worths;       ///< by capacity
        std::vector<std::vector<bool>> isUsed;  ///< by bundle, by capacity
        bool isTooLarge = false;
    };

    std::vector<Item> MakeItems(std::size_t kind) const;
    Heaviest Search(std::size_t kind, std::int64_t mostNodes);
    std::optional<Heaviest> LookUp(std::size_t kind);
    void FillTable(Table& table, std::size_t kind);

    const Task& m_task;
    const std::vector<Count>& m_wanted;
    const Worths& m_worths;
    Effort& m_effort;
    std::map<Length, Table> m_tables;  ///< by the extra kerf of the kind
};

}  // namespace cutting

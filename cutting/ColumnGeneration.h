#pragma once

#include "cutting/Effort.h"
#include "cutting/Task.h"

#include <set>
#include <utility>
#include <vector>

namespace cutting {

/// The least cost when bars may be used in fractions.
struct Relaxation {
    std::vector<std::pair<Pattern, double>> uses;
    double cost = 0.0;  ///< too high when the effort was spent
    Cost bound = 0;     ///< proved in whole numbers: nothing that cuts the rest costs less
};

/// Solves the relaxation of a task and of what is left of it, finding patterns as it needs them.
class ColumnGeneration {
  public:
    /// The task must outlive it.
    explicit ColumnGeneration(const Task& task) : m_task(task) {}

    /// Patterns to start from.
    void Remember(const Solution& solution);
    /// Patterns so far, without the worst when there are many; each fits the whole task.
    const std::set<Pattern>& GetPool() const { return m_pool; }
    /// Ends early when the bound, rounded up, cannot rise, or when the cost comes down to
    /// `knownBound`.
    Relaxation Relax(const Rest& rest, Cost knownBound, Effort& effort);

  private:
    /// By the prices of the first relaxation.
    void DropWorstPatterns();
    double LossOf(const Pattern& pattern) const;

    const Task& m_task;
    std::set<Pattern> m_pool;
    std::vector<double> m_prices;  ///< of the sizes, then of the kinds; from the first relaxation
};

}  // namespace cutting

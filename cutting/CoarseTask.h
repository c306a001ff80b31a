#pragma once

#include "cutting/Task.h"

#include <cstddef>
#include <vector>

namespace cutting {

/// A task with fewer sizes: all lengths in a larger unit, those of pieces rounded up, those of bars
/// down. Whatever solves it solves the task.
class CoarseTask {
  public:
    /// With at most about that many sizes. The task must outlive it.
    CoarseTask(const Task& task, std::size_t mostSizes);

    const Task& GetTask() const { return m_coarse; }
    /// The solution with the task's own sizes, bar by bar. Merged.
    Solution Translate(const Solution& solution) const;

  private:
    const Task& m_task;
    Task m_coarse;
    std::vector<std::vector<std::size_t>> m_sizes;  ///< of the task, by coarse size
};

}  // namespace cutting

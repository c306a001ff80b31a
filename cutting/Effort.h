#pragma once

#include <algorithm>
#include <cstdint>

namespace cutting {

/// Work that may still be done, in counted steps of about a nanosecond each. Counting instead of
/// looking at a clock gives the same plan on every machine.
class Effort {
  public:
    explicit Effort(std::int64_t steps) : m_left(steps) {}

    void Spend(std::int64_t steps) { m_left -= steps; }
    bool IsSpent() const { return m_left <= 0; }
    std::int64_t GetLeft() const { return m_left; }

    /// Does work with so many of the steps that are left; those that it does not need stay.
    template <typename Work>
    auto Share(std::int64_t steps, const Work& work) {
        const std::int64_t given = std::min(steps, m_left);
        Effort share(given);
        auto result = work(share);
        Spend(given - share.GetLeft());
        return result;
    }

  private:
    std::int64_t m_left;
};

}  // namespace cutting

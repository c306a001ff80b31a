#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>

namespace cutting {

/// Work that may still be done, in counted steps of about a nanosecond each. Counting instead of
/// looking at a clock gives the same plan on every machine.
class Effort {
  public:
    using Question = std::function<bool()>;

    Effort(std::int64_t steps) : m_left(steps) {}
    /// The same, and nothing is left any more when the answer is yes: it is asked about every
    /// millisecond, in the thread that works. Lent.
    Effort Until(const Question& isStopped) const { return {m_left, &isStopped}; }
    /// As many steps, until the same answer.
    Effort Of(std::int64_t steps) const { return {steps, m_isStopped}; }

    void Spend(std::int64_t steps) {
        m_left -= steps;
        m_unasked += steps;
        if (m_unasked >= kStepsPerQuestion)
            Ask();
    }
    bool IsSpent() const { return m_left <= 0; }
    std::int64_t GetLeft() const { return m_left; }

    /// Does work with so many of the steps that are left; those that it does not need stay.
    template <typename Work>
    auto Share(std::int64_t steps, const Work& work) {
        const std::int64_t given = std::min(steps, m_left);
        Effort share = Of(given);
        auto result = work(share);
        Spend(given - share.GetLeft());
        return result;
    }

  private:
    static constexpr std::int64_t kStepsPerQuestion = 1'000'000;

    Effort(std::int64_t steps, const Question* isStopped) : m_left(steps), m_isStopped(isStopped) {}

    void Ask() {
        m_unasked = 0;
        if (m_isStopped != nullptr && (*m_isStopped)())
            m_left = 0;
    }

    std::int64_t m_left;
    std::int64_t m_unasked = 0;  ///< since the question was asked
    const Question* m_isStopped = nullptr;
};

}  // namespace cutting

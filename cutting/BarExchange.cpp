#include "cutting/BarExchange.h"

#include "cutting/ExactSearch.h"
#include "cutting/Random.h"

#include <algorithm>
#include <utility>

namespace cutting {

namespace {

constexpr std::uint64_t kFewestBars = 2;
constexpr std::uint64_t kMaxBars = 5;
constexpr Count kMaxPiecesOfBars = 20;
constexpr std::size_t kMaxOtherKinds = 6;
constexpr std::int64_t kStepsPerExchange = 400'000;
constexpr std::int64_t kStepsOfChoice = 20;
/// Attempts without success before it ends.
constexpr std::int64_t kFewestAttempts = 300;
constexpr std::int64_t kAttemptsPerPattern = 60;

class Exchange {
  public:
    Exchange(const Task& task, Effort& effort, Answer& answer)
        : m_task(task), m_effort(effort), m_answer(answer) {}

    void Run() {
        std::int64_t failures = 0;
        while (!m_effort.IsSpent() && !m_answer.IsLeast(m_task) && failures < MostFailures())
            failures = Try() ? 0 : failures + 1;
    }

  private:
    std::int64_t MostFailures() const {
        return kFewestAttempts +
               kAttemptsPerPattern * static_cast<std::int64_t>(m_answer.solution.size());
    }

    bool Try() {
        m_effort.Spend(kStepsOfChoice *
                       static_cast<std::int64_t>(m_answer.solution.size() + m_task.sizes.size() +
                                                 m_task.kinds.size()));
        Solution solution = m_answer.solution;
        const Solution taken = TakeBars(solution);
        const Rest rest = RestOf(solution, taken);
        const ExactAnswer found = m_effort.Share(kStepsPerExchange, [&](Effort& share) {
            return SearchExactly(m_task, rest, CostOf(m_task, taken), share);
        });
        if (found.solution.empty())
            return false;
        solution.insert(solution.end(), found.solution.begin(), found.solution.end());
        MergeEqual(solution);
        m_answer.solution = std::move(solution);
        return true;
    }

    /// Some bars, off the solution.
    Solution TakeBars(Solution& solution) {
        Solution taken;
        const std::uint64_t most = kFewestBars + m_random.Next() % (kMaxBars - kFewestBars + 1);
        Count pieces = 0;
        while (taken.size() < most && !solution.empty()) {
            const std::size_t chosen = m_random.Next() % solution.size();
            PatternUse& use = solution[chosen];
            pieces += CountPieces(use.pattern);
            if (!taken.empty() && pieces > kMaxPiecesOfBars)
                break;
            taken.push_back({use.pattern, 1});
            if (--use.times == 0)
                solution.erase(solution.begin() + static_cast<std::ptrdiff_t>(chosen));
        }
        return taken;
    }

    /// The pieces of the bars taken, and the bars that the others leave.
    Rest RestOf(const Solution& others, const Solution& taken) {
        Rest rest(m_task);
        std::fill(rest.pieces.begin(), rest.pieces.end(), 0);
        for (const auto& [pattern, times] : others)
            rest.Use({pattern.kind, {}}, times);
        for (const auto& [pattern, times] : taken)
            for (const Take& take : pattern.takes)
                rest.pieces[take.size] += take.count;
        LeaveFewKinds(taken, rest);
        return rest;
    }

    /// Of the limited kinds that were not taken only some, at random.
    void LeaveFewKinds(const Solution& taken, Rest& rest) {
        std::vector<std::size_t> others;
        for (std::size_t kind = 0; kind < rest.bars.size(); ++kind)
            if (rest.bars[kind] > 0 &&
                std::none_of(taken.begin(), taken.end(), [&](const PatternUse& use) {
                    return use.pattern.kind == kind;
                }))
                others.push_back(kind);
        for (; others.size() > kMaxOtherKinds; others.pop_back()) {
            std::swap(others[m_random.Next() % others.size()], others.back());
            rest.bars[others.back()] = 0;
        }
    }

    const Task& m_task;
    Effort& m_effort;
    Answer& m_answer;
    Random m_random{11};
};

}  // namespace

void ExchangeBars(const Task& task, Effort& effort, Answer& answer) {
    if (task.kinds.size() > 1)
        Exchange(task, effort, answer).Run();
}

}  // namespace cutting

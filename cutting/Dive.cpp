#include "cutting/Dive.h"

#include "cutting/ColumnGeneration.h"
#include "cutting/DualFeasible.h"
#include "cutting/FirstFit.h"
#include "cutting/Random.h"
#include "cutting/SlackSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numeric>

namespace cutting {

namespace {

constexpr int kMaxDives = 200;
constexpr std::int64_t kPartOfRoot = 4;  ///< of the effort, the inverse of it
constexpr std::int64_t kPartOfRest = 5;
constexpr std::int64_t kPartOfLastStep = 4;
constexpr double kWhole = 1e-5;
/// From this fraction on a bar is taken as whole; later dives weigh the fractions at random.
constexpr std::array<double, 3> kThresholds = {0.6, 0.99, 0.7};
constexpr std::int64_t kStepsPerFittedPiece = 60;

class Diving {
  public:
    Diving(const Task& task, Effort& effort, Answer& answer)
        : m_task(task),
          m_effort(effort),
          m_answer(answer),
          m_leftForMore(effort.GetLeft() - effort.GetLeft() / kPartOfLastStep),
          m_generation(task) {
        m_generation.Remember(answer.solution);
    }

    void Run() {
        const Relaxation root = Relax(Rest(m_task), m_answer.bound, kPartOfRoot);
        m_answer.bound = std::max(m_answer.bound, root.bound);
        for (int dive = 0; dive < kMaxDives && !IsDone(); ++dive)
            DiveFrom(root, dive);
    }

  private:
    /// With a share of the effort: the last bit of a relaxation may take longer than all dives.
    Relaxation Relax(const Rest& rest, Cost knownBound, std::int64_t part) {
        return m_effort.Share(m_effort.GetLeft() / part, [&](Effort& share) {
            return m_generation.Relax(rest, knownBound, share);
        });
    }

    /// The last step to the bound is worth a part of the effort only.
    bool IsDone() const {
        const Cost above = CostOf(m_task, m_answer.solution) - m_answer.bound;
        return above <= 0 || m_effort.IsSpent() ||
               (above == 1 && m_effort.GetLeft() < m_leftForMore);
    }

    void DiveFrom(Relaxation relaxed, int dive) {
        Rest rest(m_task);
        Solution fixed;
        if (IsRandom(dive) && dive % 2 == 0)
            relaxed = RelaxBehindOnePattern(rest, fixed);
        for (;;) {
            TakeWholeBars(relaxed, rest, fixed);
            Complete(rest, fixed);
            if (rest.IsCut() || IsDone())
                return;
            TakeFractions(relaxed, rest, fixed, dive);
            if (rest.IsCut())
                return Offer(std::move(fixed));
            relaxed = Relax(rest, 0, kPartOfRest);
            const double least = static_cast<double>(CostOf(m_task, fixed)) + relaxed.cost - kWhole;
            if (m_effort.IsSpent() ||
                std::ceil(least) >= static_cast<double>(CostOf(m_task, m_answer.solution)))
                return;
        }
    }

    static bool IsRandom(int dive) { return dive >= static_cast<int>(kThresholds.size()); }

    /// The relaxation may be met by other bars than a plan needs; so some dives begin with another
    /// one.
    Relaxation RelaxBehindOnePattern(Rest& rest, Solution& fixed) {
        const std::set<Pattern>& pool = m_generation.GetPool();
        const auto number = static_cast<std::ptrdiff_t>(m_random.Next() % pool.size());
        Take(*std::next(pool.begin(), number), 1, rest, fixed);
        return Relax(rest, 0, kPartOfRest);
    }

    static void TakeWholeBars(const Relaxation& relaxed, Rest& rest, Solution& fixed) {
        for (const auto& [pattern, uses] : relaxed.uses) {
            const auto whole = static_cast<Count>(std::floor(uses + kWhole));
            Take(pattern, std::min(whole, rest.CountUses(pattern)), rest, fixed);
        }
    }

    static void Take(const Pattern& pattern, Count times, Rest& rest, Solution& fixed) {
        if (times == 0)
            return;
        rest.Use(pattern, times);
        fixed.push_back({pattern, times});
    }

    /// The rest by the quick ways.
    void Complete(const Rest& rest, const Solution& fixed) {
        const Count pieces = std::accumulate(rest.pieces.begin(), rest.pieces.end(), Count(0));
        m_effort.Spend(kStepsPerFittedPiece *
                       (pieces + static_cast<Count>(rest.pieces.size() + fixed.size())));
        Offer(Joined(fixed, FitDecreasing(m_task, rest)));
        if (pieces > 0 && !m_answer.IsLeast(m_task))
            Offer(Joined(fixed, SearchLeastSlack(m_task, rest, m_effort)));
    }

    static Solution Joined(Solution fixed, const Solution& more) {
        fixed.insert(fixed.end(), more.begin(), more.end());
        return fixed;
    }

    void Offer(Solution solution) {
        MergeEqual(solution);
        if (IsBetter(m_task, solution, m_answer.solution))
            m_answer.solution = std::move(solution);
    }

    struct Fraction {
        const Pattern* pattern;
        double weight;
    };

    /// The bars with the largest fractions, at least one.
    void TakeFractions(const Relaxation& relaxed, Rest& rest, Solution& fixed, int dive) {
        const double threshold = kThresholds[static_cast<std::size_t>(dive) % kThresholds.size()];
        std::vector<Fraction> fractions = FindFractions(relaxed, dive);
        bool isAnyTaken = false;
        for (const auto& [pattern, weight] : fractions) {
            if (isAnyTaken && weight < threshold)
                return;
            const Pattern trimmed = TrimPattern(*pattern, rest);
            if (trimmed.takes.empty())
                continue;
            Take(trimmed, 1, rest, fixed);
            isAnyTaken = true;
        }
    }

    std::vector<Fraction> FindFractions(const Relaxation& relaxed, int dive) {
        std::vector<Fraction> fractions;
        for (const auto& [pattern, uses] : relaxed.uses) {
            const double fraction = uses - std::floor(uses + kWhole);
            const double factor = IsRandom(dive) ? 0.5 + 0.8 * m_random.NextUnit() : 1.0;
            fractions.push_back({&pattern, fraction * factor});
        }
        std::stable_sort(fractions.begin(),
                         fractions.end(),
                         [](const Fraction& a, const Fraction& b) { return a.weight > b.weight; });
        return fractions;
    }

    const Task& m_task;
    Effort& m_effort;
    Answer& m_answer;
    std::int64_t m_leftForMore;  ///< effort that only a plan more than a step above the bound gets
    ColumnGeneration m_generation;
    Random m_random{7};
};

}  // namespace

Answer AnswerQuickly(const Task& task, Effort& effort) {
    const Rest rest(task);
    Answer answer = {FitDecreasing(task, rest)};
    answer.bound = FindQuickBound(task, CostOf(task, answer.solution));
    Solution bySlack = SearchLeastSlack(task, rest, effort);
    if (IsBetter(task, bySlack, answer.solution))
        answer.solution = std::move(bySlack);
    return answer;
}

void Dive(const Task& task, Effort& effort, Answer& answer) {
    if (!answer.IsLeast(task) && !effort.IsSpent())
        Diving(task, effort, answer).Run();
}

}  // namespace cutting

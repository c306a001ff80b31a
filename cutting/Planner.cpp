#include "cutting/Planner.h"

#include "cutting/BarExchange.h"
#include "cutting/Chunks.h"
#include "cutting/CoarseTask.h"
#include "cutting/DualFeasible.h"
#include "cutting/ExactSearch.h"
#include "cutting/FirstFit.h"
#include "cutting/Task.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace cutting {

namespace {

/// Longer lists get more steps, in proportion; lists that are solved by chunks a base and as many
/// per piece.
constexpr Count kPiecesOfSteps = 70'000;
constexpr std::int64_t kShareOfBase = 20;
/// From so many sizes on the unit may be larger: the last sizes are worth less than their work.
constexpr std::size_t kMaxSizesOfChunks = 5000;
constexpr std::size_t kSizesOfCoarseTask = 2500;

/// Shorter lists are solved by trying all plans, as far as these steps reach.
constexpr Count kMaxPiecesOfExact = 40;
constexpr std::int64_t kStepsOfExact = 100'000'000;

Length LongestUsable(const std::vector<Stock>& stocks) {
    Length longest = 0;
    for (const Stock& stock : stocks)
        if (stock.count != 0)
            longest = std::max(longest, stock.GetUsable());
    return longest;
}

/// The demand without the pieces that are longer than every bar.
Demand WithoutTooLong(Demand demand, const std::vector<Stock>& stocks) {
    const Length longest = LongestUsable(stocks);
    for (Part& part : demand)
        if (part.length > longest)
            part.count = 0;
    return demand;
}

void AddTooLong(Plan& plan, const Demand& demand, const std::vector<Stock>& stocks) {
    const std::vector<Count> tooLong = FindTooLong(demand, stocks);
    if (tooLong.empty())
        return;
    plan.uncut.resize(demand.size());
    for (std::size_t part = 0; part < demand.size(); ++part)
        plan.uncut[part] += tooLong[part];
}

/// Makes a plan of what `solve` makes of the task.
template <typename Solve>
Plan MakePlan(const Demand& demand, const std::vector<Stock>& stocks, const Solve& solve) {
    const Demand fitting = WithoutTooLong(demand, stocks);
    const Task task = MakeTask(fitting, stocks);
    Plan plan;
    if (!task.sizes.empty()) {
        const Answer answer = solve(task);
        plan = MakePlanOf(task, answer.solution, fitting, stocks);
        plan.bound = plan.uncut.empty() ? answer.bound * task.costUnit : 0;
    }
    AddTooLong(plan, demand, stocks);
    return plan;
}

/// Improves an answer to a task with so many sizes that most bars would have their own: solves it
/// in a larger unit first.
void ImproveCoarsely(const Task& task, Effort& effort, Answer& answer) {
    const CoarseTask coarse(task, kSizesOfCoarseTask);
    Answer ofCoarse = AnswerQuickly(coarse.GetTask(), effort);
    ImproveByChunks(coarse.GetTask(), effort, ofCoarse);
    Solution solution = coarse.Translate(ofCoarse.solution);
    if (IsBetter(task, solution, answer.solution))
        answer.solution = std::move(solution);
}

/// The least plan of a short list.
void SolveExactly(const Task& task, Effort& effort, Answer& answer) {
    const Cost known = CostOf(task, answer.solution);
    ExactAnswer found = effort.Share(kStepsOfExact, [&](Effort& share) {
        return SearchExactly(task, Rest(task), known, share);
    });
    if (!found.solution.empty())
        answer.solution = std::move(found.solution);
    if (found.isComplete)
        answer.bound = CostOf(task, answer.solution);
}

Answer SolveWithin(const Task& task, const Effort& usual) {
    const std::int64_t steps = usual.GetLeft();
    const bool isLong = task.sizes.size() > kMaxSizesOfDive;
    const Count pieces = CountPieces(task);
    const std::int64_t base = isLong ? steps / kShareOfBase : 0;
    Effort effort = usual.Of(base + steps / kPiecesOfSteps *
                                        (isLong ? pieces : std::max(pieces, kPiecesOfSteps)));
    Answer answer = AnswerQuickly(task, effort);
    if (task.sizes.size() > kMaxSizesOfChunks && !answer.IsLeast(task))
        ImproveCoarsely(task, effort, answer);
    if (isLong) {
        ImproveByChunks(task, effort, answer);
        return answer;
    }
    if (!answer.IsLeast(task) && CountPieces(task) <= kMaxPiecesOfExact)
        SolveExactly(task, effort, answer);
    Dive(task, effort, answer);
    ExchangeBars(task, effort, answer);
    return answer;
}

}  // namespace

Plan MakeLeastPlan(const Demand& demand, const std::vector<Stock>& stocks, const Effort& effort) {
    return MakePlan(demand, stocks, [&](const Task& task) { return SolveWithin(task, effort); });
}

Plan MakeFirstFitPlan(const Demand& demand, const std::vector<Stock>& stocks) {
    return MakePlan(demand, stocks, [](const Task& task) {
        return Answer{FitDecreasing(task, Rest(task)), 0};
    });
}

std::optional<Cost> FindFirstFitCost(const Demand& demand, const std::vector<Stock>& stocks) {
    if (!FindTooLong(demand, stocks).empty())
        return std::nullopt;
    const Task task = MakeTask(demand, stocks);
    const Solution solution = FitDecreasing(task, Rest(task));
    const bool isCut = std::none_of(solution.begin(), solution.end(), [&](const PatternUse& use) {
        return task.kinds[use.pattern.kind].stock == Task::kNoStock;
    });
    return isCut ? std::optional(CostOf(task, solution) * task.costUnit) : std::nullopt;
}

std::optional<Cost> CostFromShortest(const Demand& demand, const std::vector<Stock>& stocks) {
    const auto isWorse = [](const Stock& a, const Stock& b) {
        return std::pair(a.count == kUnlimited, a.GetUsable()) <
               std::pair(b.count == kUnlimited, b.GetUsable());
    };
    const Stock& stock = *std::max_element(stocks.begin(), stocks.end(), isWorse);
    Demand ascending = demand;
    std::sort(ascending.begin(), ascending.end(), [](const Part& a, const Part& b) {
        return a.length < b.length;
    });
    Count bars = 0;
    Length room = 0;
    for (const Part& part : ascending) {
        if (part.count > 0 && part.length > stock.GetUsable())
            return std::nullopt;
        for (Count left = part.count; left > 0;) {
            if (room < part.length) {
                ++bars;
                room = stock.GetUsable();
            }
            const Length width = part.length + stock.kerf;
            const Count count = std::min(left, (room + stock.kerf) / width);
            room -= count * width;
            left -= count;
        }
    }
    return stock.count == kUnlimited || bars <= stock.count ? std::optional(bars * stock.cost)
                                                            : std::nullopt;
}

std::vector<Count> FindTooLong(const Demand& demand, const std::vector<Stock>& stocks) {
    const Length longest = LongestUsable(stocks);
    std::vector<Count> tooLong(demand.size());
    for (std::size_t part = 0; part < demand.size(); ++part)
        tooLong[part] = demand[part].length > longest ? demand[part].count : 0;
    const bool isAny = std::any_of(tooLong.begin(), tooLong.end(), [](Count c) { return c > 0; });
    return isAny ? tooLong : std::vector<Count>();
}

Cost FindCostBound(const Demand& demand,
                   const std::vector<Stock>& stocks,
                   std::optional<Cost> known) {
    const Task task = MakeTask(WithoutTooLong(demand, stocks), stocks);
    constexpr Cost kNoneKnown = std::numeric_limits<Cost>::max();
    return FindQuickBound(task, known ? *known / task.costUnit : kNoneKnown) * task.costUnit;
}

}  // namespace cutting

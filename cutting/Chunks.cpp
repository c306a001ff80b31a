#include "cutting/Chunks.h"

#include "cutting/Random.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace cutting {

namespace {

constexpr std::size_t kSizesPerChunk = 300;
constexpr std::size_t kSizesOfWorstBars = 250;
constexpr int kMaxRounds = 60;
constexpr int kMaxFailures = 6;   ///< rounds in turn that do not help
constexpr double kSkipped = 0.5;  ///< share of bars that a round leaves out, so that rounds differ
constexpr std::int64_t kShareOfRound = 4;
/// Below these steps per size, chunks would be no better than what is known.
constexpr std::int64_t kStepsPerSize = 1'000'000;

/// Part of a task: these sizes with these pieces, and the bars that are still there.
struct Chunk {
    Task task;
    std::vector<std::size_t> sizes;  ///< of the whole task

    Chunk(const Task& whole, const Rest& wanted, const std::vector<Count>& bars) {
        task.kinds = whole.kinds;
        for (std::size_t kind = 0; kind < bars.size(); ++kind)
            task.kinds[kind].count = bars[kind];
        for (std::size_t size = 0; size < whole.sizes.size(); ++size) {
            if (wanted.pieces[size] == 0)
                continue;
            sizes.push_back(size);
            task.sizes.push_back({whole.sizes[size].width, wanted.pieces[size]});
        }
    }

    Solution Translate(Solution solution) const {
        for (PatternUse& use : solution)
            for (Take& take : use.pattern.takes)
                take.size = sizes[take.size];
        return solution;
    }
};

/// With a share of the effort; what is not needed stays.
Solution SolveChunk(const Chunk& chunk, Effort& effort, std::int64_t steps) {
    return effort.Share(steps, [&](Effort& share) {
        Answer answer = AnswerQuickly(chunk.task, share);
        Dive(chunk.task, share, answer);
        return chunk.Translate(std::move(answer.solution));
    });
}

void Append(Solution& solution, const Solution& more) {
    solution.insert(solution.end(), more.begin(), more.end());
}

void UseAll(Rest& rest, const Solution& solution) {
    for (const auto& [pattern, times] : solution)
        rest.Use(pattern, times);
}

/// Every n-th size goes into the same chunk.
Solution SolveAllChunks(const Task& task, Effort& effort) {
    const std::size_t chunks = task.sizes.size() / kSizesPerChunk + 1;
    const std::int64_t steps = effort.GetLeft() * 3 / 4 / static_cast<std::int64_t>(chunks);
    Rest left(task);
    Solution solution;
    for (std::size_t number = 0; number < chunks; ++number) {
        Rest wanted = left;
        for (std::size_t size = 0; size < task.sizes.size(); ++size)
            if (size % chunks != number)
                wanted.pieces[size] = 0;
        const Solution ofChunk = SolveChunk(Chunk(task, wanted, left.bars), effort, steps);
        UseAll(left, ofChunk);
        Append(solution, ofChunk);
    }
    MergeEqual(solution);
    return solution;
}

/// Drops the bars with the most slack, until they hold enough sizes; leaves some out at random.
void TakeWorstBars(const Task& task, Solution& solution, Random& random) {
    std::vector<std::pair<Length, std::size_t>> bySlack;
    for (std::size_t i = 0; i < solution.size(); ++i)
        bySlack.push_back({-SlackOf(task, solution[i].pattern), i});
    std::sort(bySlack.begin(), bySlack.end());
    std::vector<bool> isHeld(task.sizes.size());
    std::size_t held = 0;
    for (const auto& [slack, i] : bySlack) {
        if (held >= kSizesOfWorstBars)
            break;
        if (random.NextUnit() < kSkipped)
            continue;
        for (const Take& take : solution[i].pattern.takes) {
            held += isHeld[take.size] ? 0 : 1;
            isHeld[take.size] = true;
        }
        solution[i].times = 0;
    }
    std::erase_if(solution, [](const PatternUse& use) { return use.times == 0; });
}

/// False when that did not help.
bool ImproveWorstBars(const Task& task, Effort& effort, Solution& solution, Random& random) {
    Solution others = solution;
    TakeWorstBars(task, others, random);
    Rest left(task);
    UseAll(left, others);
    Append(others,
           SolveChunk(Chunk(task, left, left.bars), effort, effort.GetLeft() / kShareOfRound));
    MergeEqual(others);
    const bool isBetter = IsBetter(task, others, solution);
    if (isBetter)
        solution = std::move(others);
    return isBetter;
}

}  // namespace

void ImproveByChunks(const Task& task, Effort& effort, Answer& answer) {
    const auto sizes = static_cast<std::int64_t>(task.sizes.size());
    if (answer.IsLeast(task))
        return;
    if (effort.GetLeft() > sizes * kStepsPerSize) {
        Solution solution = SolveAllChunks(task, effort);
        if (IsBetter(task, solution, answer.solution))
            answer.solution = std::move(solution);
    }
    Random random(3);
    int failures = 0;
    for (int round = 0; round < kMaxRounds && failures < kMaxFailures; ++round) {
        if (effort.IsSpent() || answer.IsLeast(task))
            return;
        failures = ImproveWorstBars(task, effort, answer.solution, random) ? 0 : failures + 1;
    }
}

}  // namespace cutting

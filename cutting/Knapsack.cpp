#include "cutting/Knapsack.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace cutting {

namespace {

constexpr std::int64_t kMaxNodes = 20'000;
constexpr std::int64_t kMaxNodesWithoutTable = 300'000;
constexpr std::int64_t kStepsPerNode = 8;
constexpr std::int64_t kMaxCells = 40'000'000;
constexpr std::int64_t kCellsPerStep = 1;

Pattern MakePattern(std::size_t kind, std::vector<Take> takes) {
    std::sort(takes.begin(), takes.end());
    return {kind, std::move(takes)};
}

}  // namespace

Knapsack::Knapsack(const Task& task,
                   const std::vector<Count>& wanted,
                   const Worths& worths,
                   Effort& effort)
    : m_task(task), m_wanted(wanted), m_worths(worths), m_effort(effort) {}

Heaviest Knapsack::Find(std::size_t kind, std::int64_t threshold) {
    Heaviest found = Search(kind, kMaxNodes);
    if (found.isExact || found.worth > threshold)
        return found;
    if (std::optional<Heaviest> exact = LookUp(kind))
        return *exact;
    return Search(kind, kMaxNodesWithoutTable);
}

/// What fits the kind, the most worth per length first.
std::vector<Knapsack::Item> Knapsack::MakeItems(std::size_t kind) const {
    std::vector<Item> items;
    for (std::size_t size = 0; size < m_wanted.size(); ++size) {
        const Length width = m_task.WidthOn(kind, size);
        const Count count = std::min(m_wanted[size], m_task.kinds[kind].capacity / width);
        if (count > 0 && m_worths[size] > 0)
            items.push_back({size, width, m_worths[size], count});
    }
    std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
        return static_cast<double>(a.worth) * static_cast<double>(b.width) >
               static_cast<double>(b.worth) * static_cast<double>(a.width);
    });
    return items;
}

Heaviest Knapsack::Search(std::size_t kind, std::int64_t mostNodes) {
    const std::vector<Item> items = MakeItems(kind);
    std::vector<Length> narrowest(items.size() + 1, std::numeric_limits<Length>::max());
    for (std::size_t i = items.size(); i-- > 0;)
        narrowest[i] = std::min(narrowest[i + 1], items[i].width);

    std::vector<Take> takes;  // of items
    std::vector<Take> best;
    Length room = m_task.kinds[kind].capacity;
    std::int64_t worth = 0;
    std::int64_t most = 0;
    std::int64_t nodes = 0;
    std::size_t next = 0;
    // Whether worth + room * item.worth / item.width > most, in whole numbers; a price that stands
    // for a missing bar makes products too large for one of 64 bits.
    const auto canBeatMost = [&](const Item& item) {
        return Wide{room} * item.worth >= Wide{most - worth + 1} * item.width;
    };
    for (;;) {
        for (; room >= narrowest[next] && canBeatMost(items[next]); ++next) {
            ++nodes;
            const Item& item = items[next];
            const Count count = std::min(item.count, room / item.width);
            if (count == 0)
                continue;
            takes.push_back({next, count});
            room -= count * item.width;
            worth += count * item.worth;
        }
        if (worth > most) {
            most = worth;
            best = takes;
        }
        if (takes.empty() || nodes >= mostNodes)
            break;
        Take& last = takes.back();
        room += items[last.size].width;
        worth -= items[last.size].worth;
        next = last.size + 1;
        ++nodes;
        if (--last.count == 0)
            takes.pop_back();
    }
    m_effort.Spend((nodes + static_cast<std::int64_t>(items.size())) * kStepsPerNode);
    for (Take& take : best)
        take.size = items[take.size].size;
    return {MakePattern(kind, std::move(best)), most, takes.empty()};
}

std::optional<Heaviest> Knapsack::LookUp(std::size_t kind) {
    Table& table = m_tables[m_task.kinds[kind].extra];
    if (table.worths.empty() && !table.isTooLarge)
        FillTable(table, kind);
    if (table.isTooLarge)
        return std::nullopt;
    Length room = m_task.kinds[kind].capacity;
    const std::int64_t worth = table.worths[static_cast<std::size_t>(room)];
    std::map<std::size_t, Count> counts;
    for (std::size_t i = table.bundles.size(); i-- > 0;) {
        if (!table.isUsed[i][static_cast<std::size_t>(room)])
            continue;
        const Table::Bundle& bundle = table.bundles[i];
        counts[table.items[bundle.item].size] += bundle.count;
        room -= bundle.count * table.items[bundle.item].width;
    }
    Pattern pattern = {kind, {}};
    for (const auto& [size, count] : counts)
        pattern.takes.push_back({size, count});
    return Heaviest{std::move(pattern), worth, true};
}

/// For all kinds with the same kerf: up to the longest of them. Quantities as bundles of 1, 2, 4,
/// ...
void Knapsack::FillTable(Table& table, std::size_t kind) {
    std::size_t longest = kind;
    for (std::size_t i = 0; i < m_task.kinds.size(); ++i)
        if (m_task.kinds[i].extra == m_task.kinds[kind].extra &&
            m_task.kinds[i].capacity > m_task.kinds[longest].capacity)
            longest = i;
    table.items = MakeItems(longest);
    for (std::size_t i = 0; i < table.items.size(); ++i)
        for (Count left = table.items[i].count, count = 1; left > 0; left -= count, count *= 2) {
            count = std::min(count, left);
            table.bundles.push_back({i, count});
        }
    const Length capacity = m_task.kinds[longest].capacity;
    const auto bundles = static_cast<Length>(table.bundles.size());
    table.isTooLarge = capacity > kMaxCells || bundles * capacity > kMaxCells;
    if (table.isTooLarge)
        return;
    m_effort.Spend(bundles * capacity / kCellsPerStep);
    table.worths.assign(static_cast<std::size_t>(capacity) + 1, 0);
    for (const Table::Bundle& bundle : table.bundles) {
        const auto width = static_cast<std::size_t>(bundle.count * table.items[bundle.item].width);
        const std::int64_t worth = bundle.count * table.items[bundle.item].worth;
        std::vector<bool> isUsed(table.worths.size());
        for (std::size_t room = table.worths.size(); room-- > width;) {
            if (table.worths[room - width] + worth <= table.worths[room])
                continue;
            table.worths[room] = table.worths[room - width] + worth;
            isUsed[room] = true;
        }
        table.isUsed.push_back(std::move(isUsed));
    }
}

}  // namespace cutting

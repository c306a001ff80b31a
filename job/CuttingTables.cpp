#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

constexpr Key kCuttingKeys[] = {
    Row<CuttingTable, &Cutting::effort>("effort", "How much work a plan \"least\" may be, in millions of counted steps: 1000 are about a second. It ends before, as soon as it is proved that no plan is better, and after a quarter of it where the bound is one bar away. Lists of more than 70,000 pieces get more, those of more than 1,200 lengths by their pieces.", {.range = {1.0, 1000000.0}}),
    Row<CuttingTable, &CuttingTable::remnants>("remnants", "Table of remnants that plans \"least\" take bars from, relative to the job file's folder: CSV with the columns `profile`, `material`, `length`, `quantity` and `name`. What is left of it and the off-cuts worth keeping are written as `<file_name>-remnants.csv`; the table itself stays as it is.", {.defaultNote = "none"}),
};

constexpr Key kStockKeys[] = {
    Row<StockTable, &Stock::profilePattern>("profile", "Pattern of the profile names that the bars are of; `*` stands for any text, `?` for one character.", {.isRequired = true}),
    Row<StockTable, &Stock::length>("length", "Length of a bar.", {.isRequired = true, .range = kSize, .unit = "mm"}),
    Row<StockTable, &Stock::price>("price", "What a bar costs, in any unit, to three decimals. For all stocks or for none.", {.range = {0.0, 1000000.0, true}, .defaultNote = "its length"}),
    Row<StockTable, &Stock::quantity>("quantity", "How many bars there are.", {.range = kCount, .defaultNote = "as many as needed"}),
    Row<StockTable, &Stock::kerf>("kerf", "Width of a saw cut. Between n pieces lie n - 1 cuts; the one behind the last piece takes its kerf out of the off-cut.", {.range = {0.0, 100.0}, .unit = "mm"}),
    Row<StockTable, &Stock::gripStart>("grip_start", "Part of the bar's start that nothing is cut from.", {.range = kDistance, .unit = "mm"}),
    Row<StockTable, &Stock::gripEnd>("grip_end", "The same at its end.", {.range = kDistance, .unit = "mm"}),
    Row<StockTable, &Stock::leastOffcut>("least_offcut", "An off-cut from this length on is kept.", {.range = kSize, .unit = "mm", .defaultNote = "none is kept"}),
};

constexpr KeyTable kCuttingTable{kCuttingKeys};
constexpr KeyTable kStockTable{kStockKeys};

}  // namespace

template <> const KeyTable& KeysOf<CuttingTable>() { return kCuttingTable; }
template <> const KeyTable& KeysOf<StockTable>() { return kStockTable; }

// clang-format on

}  // namespace job

#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

constexpr Key kAssemblyPartKeys[] = {
    Row<AssemblyPartTable, &AssemblyPartTable::mark>("mark", "Mark of the single part.", {.isRequired = true}),
    Row<AssemblyPartTable, &AssemblyPartTable::count>("count", "Pieces on one main part.", {.range = {1.0, 10000.0}}),
};

constexpr Key kAssemblyKeys[] = {
    Row<AssemblyTable, &AssemblyTable::main>("main", "Mark of the main part.", {.isRequired = true}),
    Row<AssemblyTable, &AssemblyTable::parts>("parts", "What is fixed to it.", {.isRequired = true}),
};

constexpr KeyTable kAssemblyPartTable{kAssemblyPartKeys};
constexpr KeyTable kAssemblyTable{kAssemblyKeys};

}  // namespace

template <> const KeyTable& KeysOf<AssemblyPartTable>() { return kAssemblyPartTable; }
template <> const KeyTable& KeysOf<AssemblyTable>() { return kAssemblyTable; }

// clang-format on

}  // namespace job

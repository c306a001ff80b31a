#include "camdata/member/PositionGrid.h"

namespace camdata::detail {

void PositionGrid::Add(long value, double x, double y) {
    m_values.push_back(value);
    m_cells.Add(HashOfCell(CellOf(x), CellOf(y)), value);
}

std::uint64_t PositionGrid::HashOfCell(std::int64_t column, std::int64_t row) {
    return HashOfPair(static_cast<std::uint64_t>(column), static_cast<std::uint64_t>(row));
}

std::int64_t PositionGrid::CellOf(double coordinate) const {
    return static_cast<std::int64_t>(std::floor(coordinate * m_cellsPerMm));
}

PositionGrid::Span PositionGrid::CellsOf(double centre, double reach) const {
    return {CellOf(centre - reach), CellOf(centre + reach)};
}

}  // namespace camdata::detail

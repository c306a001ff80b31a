#pragma once

#include "camdata/member/HashChains.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace camdata::detail {

/// True for a coordinate or length that a grid can hold: a number of reasonable magnitude.
inline bool IsFitForGrid(double value) {
    constexpr double kLargest = 1e15;
    return std::abs(value) <= kLargest;
}

/// Numbers filed by position in the cells of a square grid. Coordinates, reaches and cell size must
/// be fit for it, the cell size at least kSmallestCell.
class PositionGrid {
  public:
    static constexpr double kSmallestCell = 1.0 / 1024.0;

    explicit PositionGrid(double cellSize) : m_cellsPerMm(1.0 / cellSize) {}

    void Add(long value, double x, double y);

    /// Calls `visit` with each number whose position is within the reaches of (x, y), each reach
    /// taken along one axis and inclusive; with others too, and with some more than once.
    template <typename Visit>
    void ForEachNear(double x, double y, double reachX, double reachY, const Visit& visit) const {
        const Span columns = CellsOf(x, reachX);
        const Span rows = CellsOf(y, reachY);
        if (columns.Count() * rows.Count() > static_cast<double>(m_values.size())) {
            for (const long value : m_values)
                visit(value);
            return;
        }
        for (std::int64_t column = columns.first; column <= columns.last; ++column) {
            for (std::int64_t row = rows.first; row <= rows.last; ++row)
                m_cells.ForEach(HashOfCell(column, row), visit);
        }
    }

  private:
    struct Span {
        std::int64_t first;
        std::int64_t last;

        double Count() const { return static_cast<double>(last - first) + 1.0; }
    };

    static std::uint64_t HashOfCell(std::int64_t column, std::int64_t row);
    std::int64_t CellOf(double coordinate) const;
    /// Rounding keeps the order of numbers, so no cell in reach is missed.
    Span CellsOf(double centre, double reach) const;

    double m_cellsPerMm;
    std::vector<long> m_values;
    HashChains m_cells;
};

}  // namespace camdata::detail

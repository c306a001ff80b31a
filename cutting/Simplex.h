#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace cutting {

/// A linear program that gains columns: least cost with "at least" rows, behind them "at most"
/// rows. Revised simplex with a dense inverse; the entering column is chosen by gain and reference
/// weight (Devex), which needs far fewer exchanges than the gain alone. Double precision without
/// contraction, and ties go to the lower index: the same everywhere. Costs should be about 1.
class Simplex {
  public:
    /// A smaller gain is taken for rounding.
    static constexpr double kLeastGain = 1e-9;

    struct Column {
        double cost = 0.0;
        std::vector<std::pair<std::size_t, double>> entries;  ///< row, value
    };

    /// One start column per "at least" row, with its only entry in that row. The right-hand sides
    /// are changed by less than 1e-7 each, differently, against standstill.
    Simplex(const std::vector<double>& rightSides, std::vector<Column> startColumns);

    /// Its index; the start columns come first.
    std::size_t Add(Column column);
    /// One exchange of the basis, among the columns that are known; false when none lowers the
    /// cost.
    bool Improve();
    /// What the column would save, per unit.
    double GainOf(const Column& column) const;

    const std::vector<double>& GetPrices() const { return m_prices; }
    double GetValue() const;
    /// Columns that are used, with how often.
    std::vector<std::pair<std::size_t, double>> GetUses() const;
    /// Steps that one exchange takes.
    std::int64_t GetWork() const { return m_work; }

  private:
    std::size_t RowCount() const { return m_rightSides.size(); }
    double* InverseRow(std::size_t row) { return &m_inverse[row * RowCount()]; }
    std::size_t FindEntering() const;
    Column ColumnAt(std::size_t index) const;
    std::vector<double> Transform(const Column& column) const;
    void Exchange(std::size_t entering);
    void EliminateRow(std::size_t pivotRow, const std::vector<double>& direction);
    void UpdateGains(std::size_t entering, std::size_t left, std::size_t row, double pivot);
    void RecomputePrices();

    /// What a column would save per unit, and its reference weight.
    struct Price {
        double gain = 0.0;
        double weight = 1.0;
    };
    Price& PriceOf(std::size_t index);
    void ResetWeights();

    std::size_t m_atLeast;  ///< rows
    std::vector<double> m_rightSides;
    std::vector<Column> m_columns;
    std::size_t m_entries = 0;  ///< of the columns that were added
    std::vector<Price> m_columnPrices;
    std::vector<Price> m_slackPrices;  ///< by row
    std::vector<std::size_t> m_basis;  ///< by row; slack of row r: kSlack + r
    std::vector<double> m_levels;      ///< of the basis
    std::vector<double> m_inverse;
    std::vector<double> m_prices;
    std::vector<std::size_t> m_filled;  ///< scratch: columns of the pivot row that are not 0
    std::int64_t m_work = 0;
    int m_exchanges = 0;
};

}  // namespace cutting

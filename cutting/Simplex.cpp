#include "cutting/Simplex.h"

#include "cutting/Random.h"

#include <algorithm>

namespace cutting {

namespace {

constexpr double kPivot = 1e-9;
constexpr double kShift = 1e-7;
constexpr int kExchangesPerRecomputing = 200;
constexpr std::size_t kSlack = std::size_t(1) << 40;
constexpr std::size_t kNone = 2 * kSlack;

}  // namespace

Simplex::Simplex(const std::vector<double>& rightSides, std::vector<Column> startColumns)
    : m_atLeast(startColumns.size()),
      m_rightSides(rightSides),
      m_columns(std::move(startColumns)),
      m_columnPrices(m_columns.size()),
      m_slackPrices(rightSides.size()),
      m_inverse(rightSides.size() * rightSides.size()),
      m_prices(rightSides.size()) {
    Random random(1);
    for (std::size_t row = 0; row < RowCount(); ++row) {
        const bool isAtLeast = row < m_atLeast;
        m_rightSides[row] += kShift * random.NextUnit();
        const double scale = isAtLeast ? m_columns[row].entries.front().second : 1.0;
        InverseRow(row)[row] = 1.0 / scale;
        m_levels.push_back(m_rightSides[row] / scale);
        m_basis.push_back(isAtLeast ? row : kSlack + row);
        m_prices[row] = isAtLeast ? m_columns[row].cost / scale : 0.0;
        m_slackPrices[row].gain = isAtLeast ? -m_prices[row] : m_prices[row];
    }
}

std::size_t Simplex::Add(Column column) {
    m_columnPrices.push_back({GainOf(column)});
    m_entries += column.entries.size();
    m_columns.push_back(std::move(column));
    return m_columns.size() - 1;
}

double Simplex::GainOf(const Column& column) const {
    double gain = -column.cost;
    for (const auto& [row, value] : column.entries)
        gain += m_prices[row] * value;
    return gain;
}

Simplex::Column Simplex::ColumnAt(std::size_t index) const {
    if (index < kSlack)
        return m_columns[index];
    const std::size_t row = index - kSlack;
    return {0.0, {{row, row < m_atLeast ? -1.0 : 1.0}}};
}

Simplex::Price& Simplex::PriceOf(std::size_t index) {
    return index < kSlack ? m_columnPrices[index] : m_slackPrices[index - kSlack];
}

/// A surplus, a slack or a column that was added; kNone when none has a gain.
std::size_t Simplex::FindEntering() const {
    std::size_t best = kNone;
    double most = 0.0;
    const auto offer = [&](std::size_t index, const Price& price) {
        if (price.gain <= kLeastGain || price.gain * price.gain <= most * price.weight)
            return;
        most = price.gain * price.gain / price.weight;
        best = index;
    };
    for (std::size_t row = 0; row < RowCount(); ++row)
        offer(kSlack + row, m_slackPrices[row]);
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        offer(column, m_columnPrices[column]);
    return best;
}

bool Simplex::Improve() {
    std::size_t entering = FindEntering();
    if (entering == kNone && m_exchanges % kExchangesPerRecomputing != 0) {
        // Gains that are carried on drift; they must not end the search.
        RecomputePrices();
        entering = FindEntering();
    }
    if (entering == kNone) {
        ResetWeights();
        return false;
    }
    Exchange(entering);
    return true;
}

void Simplex::ResetWeights() {
    for (std::vector<Price>* prices : {&m_columnPrices, &m_slackPrices})
        for (Price& price : *prices)
            price.weight = 1.0;
}

std::vector<double> Simplex::Transform(const Column& column) const {
    std::vector<double> direction(RowCount());
    for (std::size_t row = 0; row < RowCount(); ++row) {
        const double* inverse = &m_inverse[row * RowCount()];
        double sum = 0.0;
        for (const auto& [at, value] : column.entries)
            sum += inverse[at] * value;
        direction[row] = sum;
    }
    return direction;
}

void Simplex::Exchange(std::size_t entering) {
    const std::vector<double> direction = Transform(ColumnAt(entering));
    std::size_t leaving = RowCount();
    double least = 0.0;
    for (std::size_t row = 0; row < RowCount(); ++row) {
        if (direction[row] <= kPivot)
            continue;
        const double ratio = m_levels[row] / direction[row];
        if (leaving == RowCount() || ratio < least) {
            leaving = row;
            least = ratio;
        }
    }
    m_work = static_cast<std::int64_t>(10 * RowCount() + 4 * m_columns.size() + m_entries * 3 / 2);
    if (leaving == RowCount())
        return;  // cannot be while costs are above 0; the caller's effort ends the search
    for (std::size_t row = 0; row < RowCount(); ++row)
        m_levels[row] = std::max(0.0, m_levels[row] - least * direction[row]);
    m_levels[leaving] = least;
    const std::size_t left = std::exchange(m_basis[leaving], entering);
    EliminateRow(leaving, direction);
    const double gain = PriceOf(entering).gain;
    for (const std::size_t at : m_filled)
        m_prices[at] -= gain * InverseRow(leaving)[at];
    UpdateGains(entering, left, leaving, direction[leaving]);
    if (++m_exchanges % kExchangesPerRecomputing == 0)
        RecomputePrices();
}

void Simplex::EliminateRow(std::size_t pivotRow, const std::vector<double>& direction) {
    double* const pivot = InverseRow(pivotRow);
    m_filled.clear();
    for (std::size_t at = 0; at < RowCount(); ++at) {
        if (pivot[at] == 0.0)
            continue;
        pivot[at] /= direction[pivotRow];
        m_filled.push_back(at);
    }
    const bool isDense = 3 * m_filled.size() > RowCount();
    std::int64_t rows = 0;
    for (std::size_t row = 0; row < RowCount(); ++row) {
        const double factor = direction[row];
        if (row == pivotRow || factor == 0.0)
            continue;
        ++rows;
        double* const target = InverseRow(row);
        if (isDense)
            for (std::size_t at = 0; at < RowCount(); ++at)
                target[at] -= factor * pivot[at];
        else
            for (const std::size_t at : m_filled)
                target[at] -= factor * pivot[at];
    }
    m_work += rows * static_cast<std::int64_t>(isDense ? RowCount() / 4 : m_filled.size());
}

/// Of all columns, from the new row of the entering one.
void Simplex::UpdateGains(std::size_t entering, std::size_t left, std::size_t row, double pivot) {
    const double* const inverse = InverseRow(row);
    const Price chosen = PriceOf(entering);
    const auto update = [&](Price& price, double share) {
        price.gain -= chosen.gain * share;
        price.weight = std::max(price.weight, share * share * chosen.weight);
    };
    for (const std::size_t at : m_filled)
        update(m_slackPrices[at], at < m_atLeast ? -inverse[at] : inverse[at]);
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        double share = 0.0;
        for (const auto& [at, value] : m_columns[column].entries)
            share += inverse[at] * value;
        if (share != 0.0)
            update(m_columnPrices[column], share);
    }
    PriceOf(entering).gain = 0.0;
    PriceOf(left).weight = std::max(chosen.weight / (pivot * pivot), 1.0);
}

void Simplex::RecomputePrices() {
    std::fill(m_prices.begin(), m_prices.end(), 0.0);
    for (std::size_t row = 0; row < RowCount(); ++row) {
        if (m_basis[row] >= kSlack)
            continue;
        const double cost = m_columns[m_basis[row]].cost;
        const double* const inverse = InverseRow(row);
        for (std::size_t at = 0; at < RowCount(); ++at)
            m_prices[at] += cost * inverse[at];
    }
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        m_columnPrices[column].gain = GainOf(m_columns[column]);
    for (std::size_t row = 0; row < RowCount(); ++row)
        m_slackPrices[row].gain = row < m_atLeast ? -m_prices[row] : m_prices[row];
}

double Simplex::GetValue() const {
    double value = 0.0;
    for (std::size_t row = 0; row < RowCount(); ++row)
        if (m_basis[row] < kSlack)
            value += m_levels[row] * m_columns[m_basis[row]].cost;
    return value;
}

std::vector<std::pair<std::size_t, double>> Simplex::GetUses() const {
    std::vector<std::pair<std::size_t, double>> uses;
    for (std::size_t row = 0; row < RowCount(); ++row)
        if (m_basis[row] < kSlack)
            uses.push_back({m_basis[row], m_levels[row]});
    return uses;
}

}  // namespace cutting

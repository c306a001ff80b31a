#include "job/JobMaker.h"
#include "job/TextPattern.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace job {

namespace {

/// Whether one of the patterns covers the other.
bool AreForOneProfile(const StockTable& a, const StockTable& b) {
    const auto covers = [](const StockTable& wide, const StockTable& narrow) {
        return MatchesPattern(narrow.profilePattern.view(), wide.profilePattern.view());
    };
    return covers(a, b) || covers(b, a);
}

/// Bars without end of one length, which would be cut, or their off-cuts kept, in two ways.
bool DoContradict(const StockTable& earlier, const StockTable& later) {
    const auto cutOf = [](const StockTable& table) {
        return std::tuple(table.kerf, table.gripStart, table.gripEnd, table.leastOffcut);
    };
    return earlier.isSound && !earlier.quantity && !later.quantity &&
           earlier.length == later.length && cutOf(earlier) != cutOf(later) &&
           AreForOneProfile(earlier, later);
}

}  // namespace

void JobMaker::CheckPlan(const GroupTable& table) {
    RequireOf(table, table.isNested || !table.plan, "\"plan\" needs \"nesting = true\"");
    RequireOf(table,
              table.plan != BarPlan::kLeast || table.reserveLength == 0.0,
              "\"reserve\" goes only with plan = \"given\"");
}

void JobMaker::TakeStocks() {
    const PlacedText& remnants = m_document.cutting.remnants;
    m_job.cutting = m_document.cutting;
    m_job.cutting.remnants = remnants.text.toUtf8();
    CheckPath("remnants", m_job.cutting.remnants, remnants.at);
    for (const StockTable& table : m_document.stocks) {
        CheckStock(table, m_document.stocks.front().price.has_value());
        m_job.stocks.push_back(table);
    }
    CheckKerfsAndGrips();
}

void JobMaker::CheckKerfsAndGrips() {
    const auto& tables = m_document.stocks;
    for (auto later = tables.begin(); later != tables.end(); ++later) {
        const auto earlier = std::find_if(
            tables.begin(), later, [&](const auto& table) { return DoContradict(table, *later); });
        if (earlier != later)
            RequireOf(*later,
                      false,
                      "the [[stock]] in line " + std::to_string(earlier->at.line) +
                          " is of the same length for the same profile, with other \"kerf\", "
                          "grips or \"least_offcut\", and neither has a \"quantity\"; take one "
                          "out, or give one a \"quantity\"");
    }
}

void JobMaker::CheckStock(const StockTable& table, bool hasPrice) {
    RequireOf(table,
              table.gripStart + table.gripEnd < table.length,
              "the grips leave nothing of the bar");
    RequireOf(
        table,
        table.price.has_value() == hasPrice,
        "\"price\" must stand in all [[stock]] or in none: prices and lengths cannot be added");
}

}  // namespace job

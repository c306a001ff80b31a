#include "job/JobMaker.h"

namespace job {

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

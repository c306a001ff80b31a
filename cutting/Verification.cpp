#include "cutting/Verification.h"

#include <utility>

namespace cutting {

namespace {

class Verifier {
  public:
    Verifier(const Demand& demand, const std::vector<Stock>& stocks, const Plan& plan)
        : m_demand(demand), m_stocks(stocks), m_pieces(demand.size()), m_bars(stocks.size()) {
        for (std::size_t entry = 0; entry < plan.bars.size(); ++entry)
            CheckBars(plan.bars[entry], "Entry " + std::to_string(entry + 1) + ": ");
        for (std::size_t part = 0; part < plan.uncut.size() && part < m_pieces.size(); ++part)
            m_pieces[part] += plan.uncut[part];
        CheckPieces();
        CheckStocks(plan.cost);
    }

    std::vector<std::string> TakeFaults() { return std::move(m_faults); }

  private:
    void CheckBars(const PlannedBars& bars, const std::string& where) {
        if (bars.stock >= m_stocks.size() || bars.bars < 1 || bars.cuts.empty())
            return Report(where + "no such stock, no bars or no pieces");
        const Stock& stock = m_stocks[bars.stock];
        Length end = stock.gripStart;  // of the last piece
        Length behindCut = end;        // where the next piece may start
        for (const Cut& cut : bars.cuts) {
            if (cut.part >= m_demand.size() || cut.count < 1)
                return Report(where + "no such mark or no pieces of it");
            for (Count piece = 0; piece < cut.count; ++piece) {
                end = behindCut + m_demand[cut.part].length;
                behindCut = end + stock.kerf;
            }
            m_pieces[cut.part] += cut.count * bars.bars;
        }
        const Length limit = stock.length - stock.gripEnd;
        if (end > limit)
            Report(where + "the pieces are longer than the bar");
        if (bars.offCut != (behindCut < limit ? limit - behindCut : 0))
            Report(where + "the off-cut is wrong");
        m_bars[bars.stock] += bars.bars;
    }

    void CheckPieces() {
        for (std::size_t part = 0; part < m_pieces.size(); ++part)
            if (m_pieces[part] != m_demand[part].count)
                Report("Mark " + std::to_string(part + 1) + ": " + std::to_string(m_pieces[part]) +
                       " pieces instead of " + std::to_string(m_demand[part].count));
    }

    void CheckStocks(Cost expected) {
        Cost cost = 0;
        for (std::size_t stock = 0; stock < m_stocks.size(); ++stock) {
            cost += m_bars[stock] * m_stocks[stock].cost;
            if (m_stocks[stock].count != kUnlimited && m_bars[stock] > m_stocks[stock].count)
                Report("Stock " + std::to_string(stock + 1) + ": " + std::to_string(m_bars[stock]) +
                       " bars where there are " + std::to_string(m_stocks[stock].count));
        }
        if (cost != expected)
            Report("The cost is " + std::to_string(cost) + ", not " + std::to_string(expected));
    }

    void Report(std::string fault) { m_faults.push_back(std::move(fault)); }

    const Demand& m_demand;
    const std::vector<Stock>& m_stocks;
    std::vector<Count> m_pieces;  ///< cut, by mark
    std::vector<Count> m_bars;    ///< used, by stock
    std::vector<std::string> m_faults;
};

}  // namespace

std::vector<std::string> FindFaults(const Demand& demand,
                                    const std::vector<Stock>& stocks,
                                    const Plan& plan) {
    return Verifier(demand, stocks, plan).TakeFaults();
}

}  // namespace cutting

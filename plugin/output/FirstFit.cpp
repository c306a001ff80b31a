#include "plugin/output/FirstFit.h"

#include <algorithm>
#include <cstddef>

namespace plugin {

namespace {

/// What is left of each bar, and the first bar that has enough left: a tree whose leaves are the
/// bars and whose nodes hold the most that a bar below them has left.
class Bars {
  public:
    std::size_t Count() const { return m_count; }
    double OffCut(std::size_t bar) const { return m_most[m_leaves + bar]; }

    /// The first bar of which more than `length` is left; Count() when there is none.
    std::size_t FindRoom(double length) const {
        if (!(m_most[1] > length))
            return m_count;
        std::size_t node = 1;
        while (node < m_leaves)
            node = m_most[2 * node] > length ? 2 * node : 2 * node + 1;
        return node - m_leaves;
    }

    std::size_t Add(double offCut) {
        if (m_count == m_leaves)
            Grow();
        Set(m_count, offCut);
        return m_count++;
    }

    void Set(std::size_t bar, double offCut) {
        std::size_t node = m_leaves + bar;
        m_most[node] = offCut;
        while ((node /= 2) > 0)
            m_most[node] = std::max(m_most[2 * node], m_most[2 * node + 1]);
    }

  private:
    static constexpr double kNoBar = -1.0;

    void Grow() {
        const std::vector<double> old = m_most;
        const std::size_t oldLeaves = m_leaves;
        m_leaves *= 2;
        m_most.assign(2 * m_leaves, kNoBar);
        for (std::size_t bar = 0; bar < oldLeaves; ++bar)
            Set(bar, old[oldLeaves + bar]);
    }

    std::size_t m_leaves = 1;
    std::size_t m_count = 0;
    std::vector<double> m_most = {kNoBar, kNoBar};
};

/// Puts pieces of one length on a bar as long as there is room; returns what is left of them.
long Fill(Bars& bars, std::size_t bar, double length, long count, double tolerance) {
    double offCut = bars.OffCut(bar);
    while (count > 0 && offCut - (length + tolerance) > 0.0) {
        offCut -= length;
        --count;
    }
    bars.Set(bar, offCut);
    return count;
}

}  // namespace

long CountFirstFitBars(std::vector<StockPieces> pieces, double stockLength, double tolerance) {
    std::sort(pieces.begin(), pieces.end(), [](const StockPieces& a, const StockPieces& b) {
        return a.length > b.length;
    });
    Bars bars;
    for (const StockPieces& piece : pieces) {
        long left = piece.count;
        while (left > 0) {
            std::size_t bar = bars.FindRoom(piece.length + tolerance);
            if (bar == bars.Count()) {
                bar = bars.Add(stockLength - piece.length);
                --left;
            }
            left = Fill(bars, bar, piece.length, left, tolerance);
        }
    }
    return static_cast<long>(bars.Count());
}

}  // namespace plugin

#include "plugin/output/CuttingList.h"

#include "plugin/output/FirstFit.h"
#include "plugin/output/MachineRecordText.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace plugin {

namespace {

double StockLength() {
    return CMxNestParts().GetNestLength();
}

}  // namespace

CuttingList::CuttingList(const ZetArray<CMxParts>& parts, const ZetArray<CMxNestParts>& nests) {
    AddBars(nests);
    AddFigures(parts);
}

/// A nest is one bar or two; a large quantity gives many nests that are cut in the same way.
void CuttingList::AddBars(const ZetArray<CMxNestParts>& nests) {
    std::map<std::pair<ZetString, double>, std::size_t> known;
    for (const CMxNestParts& nest : nests) {
        Pattern pattern = {nest.GenerateCombinations(), nest.GenerateOffCutLength(), 0};
        const auto [at, isNew] = known.insert({
            {pattern.combination, pattern.offCut},
            m_patterns.size()
        });
        if (isNew)
            m_patterns.push_back(std::move(pattern));
        m_patterns[at->second].bars += nest.GetQty();
        m_figures.bars += nest.GetQty();
    }
}

void CuttingList::AddFigures(const ZetArray<CMxParts>& parts) {
    const double stockLength = StockLength();
    std::vector<StockPieces> pieces;
    double filled = 0.0;
    for (const CMxParts& part : parts) {
        const auto quantity = static_cast<double>(part.GetQty());
        pieces.push_back({part.GetLength(), part.GetQty()});
        m_figures.pieceLength += quantity * part.GetLength();
        // A longer piece has a bar of its own and can do no more than fill it.
        filled += quantity * std::min(part.GetLength(), stockLength);
    }
    const double barLength = static_cast<double>(m_figures.bars) * stockLength;
    m_figures.utilisation = barLength > 0.0 ? filled / barLength : 0.0;
    // A sum that is off by rounding must not fill one bar more.
    m_figures.lowerBound = static_cast<long>(std::ceil(RoundAsRecorded(filled) / stockLength));
    m_figures.firstFit = CountFirstFitBars(std::move(pieces), stockLength, CMxGeom::GetEPS());
}

ZetArray<ZetString> CuttingList::MakeLines(const ZetString& heading) const {
    ZetArray<ZetString> lines = {heading};
    for (const Pattern& pattern : m_patterns) {
        lines.append(L"");
        lines.append(
            ZetString::format(L"%d %s", pattern.bars, pattern.bars == 1 ? L"bar" : L"bars"));
        lines.append(pattern.combination);
        lines.append(ZetString::format(L"\tOff-cut of each bar: %.1f", pattern.offCut));
    }
    lines.append(L"");
    lines.appendAll(FigureLines());
    return lines;
}

ZetArray<ZetString> CuttingList::FigureLines() const {
    return {
        ZetString::format(L"Bars used               : %d", m_figures.bars),
        ZetString::format(L"Stock length            : %.0f", StockLength()),
        ZetString::format(L"Length of all pieces    : %.1f", m_figures.pieceLength),
        ZetString::format(L"Utilisation             : %.1f %%", m_figures.utilisation * 100.0),
        ZetString::format(L"No plan needs less than : %d", m_figures.lowerBound),
        ZetString::format(L"First-fit-decreasing    : %d", m_figures.firstFit),
    };
}

}  // namespace plugin

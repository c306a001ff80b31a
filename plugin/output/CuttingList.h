#pragma once

#include "camdata/nesting/CMxNestParts.h"
#include "camdata/nesting/CMxParts.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <vector>

namespace plugin {

/// What the bars of one nested group come to; mm.
struct NestFigures {
    double pieceLength = 0.0;  ///< of all pieces together
    long bars = 0;
    double utilisation = 0.0;  ///< of the bars' length, 0 to 1; a piece longer than a bar fills it
    long lowerBound = 0;       ///< bars that the pieces fill, put end to end
    long firstFit = 0;         ///< bars of a first-fit-decreasing plan
};

/// The bars of one nested group, equal ones together: what is cut from each and how often.
class CuttingList {
  public:
    /// The parts as they were before nesting, and the nests made of them. Reads the current
    /// tolerance as it stands; it must be the one of the nesting.
    CuttingList(const ZetArray<CMxParts>& parts, const ZetArray<CMxNestParts>& nests);

    const NestFigures& GetFigures() const { return m_figures; }
    /// All lines, with this heading first.
    ZetArray<ZetString> MakeLines(const ZetString& heading) const;

  private:
    /// Bars that are cut in the same way.
    struct Pattern {
        ZetString combination;  ///< lines of the library
        double offCut = 0.0;
        long bars = 0;
    };

    void AddBars(const ZetArray<CMxNestParts>& nests);
    void AddFigures(const ZetArray<CMxParts>& parts);
    ZetArray<ZetString> FigureLines() const;

    std::vector<Pattern> m_patterns;  ///< in the order of their first bars
    NestFigures m_figures;
};

}  // namespace plugin

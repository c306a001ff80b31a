#pragma once

#include "camdata/nesting/CMxParts.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

namespace camdata::detail {
class NestMaker;
struct NestPieces;
}  // namespace camdata::detail

/// One nest: a stock bar, the pieces cut from it, and how many bars are cut the same way. A value;
/// mm.
///
/// A piece fits when the off-cut is longer than the piece by more than the current tolerance, so a
/// bar is never used up exactly.
class CAMDATA_API CMxNestParts {
  public:
    CMxNestParts() = default;
    virtual ~CMxNestParts();
    CMxNestParts(const CMxNestParts&) = default;
    CMxNestParts& operator=(const CMxNestParts&) = default;
    CMxNestParts(CMxNestParts&&) = default;
    CMxNestParts& operator=(CMxNestParts&&) = default;

    /// Begins the nest anew, for one bar, with a piece taken from `part`, however long it is.
    /// False, changing nothing, when there is no piece.
    bool SetNestMainPart(CMxParts& part);
    /// Adds a mark to the bar with a piece taken from `part`, however long it is and whether the
    /// mark is on the bar or not. False, changing nothing, when there is no piece.
    bool AppendNestPart(CMxParts& part);
    /// Takes pieces from `part` as long as there are any and the next one fits. A mark that is on
    /// the bar already stays one mark, and keeps the length that it has there. False when nothing
    /// fits or the quantity is 0; a part with a quantity below 0 that fits gives true, and no
    /// piece.
    bool InsertNest(CMxParts& part);
    /// Cuts one bar more, of the same pieces, when `parts` has enough of them: of each mark the
    /// first part counts. Always false: GetQty tells.
    bool CheckCombinationsAndAdd(ZetArray<CMxParts>& parts);

    /// The stock length without the pieces; below 0 when the main part is longer than the bar.
    double GenerateOffCutLength() const;
    /// The line for an off-cut longer than the current tolerance. False, with "", for any other.
    bool GenerateOffCutWastage(ZetString& text) const;
    /// A line for the main part, and one for each mark with its pieces on one bar. "" without
    /// marks.
    ZetString GenerateCombinations() const;
    /// The mark of the main part; "" without marks.
    ZetString GetOutputPartNo() const;

    /// How many bars are cut with this combination; 0 until the nest has a main part.
    long GetQty() const { return m_qty; }
    /// Stock length.
    void SetNestLength(double length) { m_nestLength = length; }
    double GetNestLength() const { return m_nestLength; }

  private:
    friend class camdata::detail::NestMaker;
    friend struct camdata::detail::NestPieces;

    bool Fits(double pieceLength, double offCut) const;
    bool HasRoomFor(double pieceLength) const;
    double SumOn(double taken, long first, long end) const;
    double TakenBefore(long position) const;
    double Taken() const { return TakenBefore(m_marks.length()); }
    int CountThatFit(const CMxParts& part, long position) const;
    void AddPieces(CMxParts& part, long position);
    bool InsertAt(long position, CMxParts& part);
    void CutOneBarMore(const ZetArray<CMxParts*>& parts);

    /// Marks on the bar, the main part first.
    ZetArray<ZetString> m_marks;
    /// Pieces of each mark on one bar, parallel to the marks.
    ZetArray<int> m_quantities;
    /// Length of a piece of each mark, parallel to the marks.
    ZetArray<double> m_lengths;
    long m_qty = 0;
    double m_nestLength = 4000.0;
    /// Added to the length of a piece when testing whether it fits.
    double m_pieceAllowance = 0.0;
    /// What the marks before the last one take of the bar; follows from the lists above.
    double m_takenBeforeLast = 0.0;
};

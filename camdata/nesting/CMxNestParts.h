#pragma once

#include "camdata/platform/Export.h"
#include "camdata/platform/ZetArray.h"
#include "camdata/platform/ZetString.h"

/// One nest: a stock bar, the pieces cut from it, and how many bars are cut the same way. A value;
/// mm.
class CAMDATA_API CMxNestParts {
  public:
    CMxNestParts() = default;
    virtual ~CMxNestParts();
    CMxNestParts(const CMxNestParts&) = default;
    CMxNestParts& operator=(const CMxNestParts&) = default;
    CMxNestParts(CMxNestParts&&) = default;
    CMxNestParts& operator=(CMxNestParts&&) = default;

    /// How many bars are cut with this combination; 0 until the nest has a main part.
    long GetQty() const { return m_qty; }
    /// Stock length.
    void SetNestLength(double length) { m_nestLength = length; }
    double GetNestLength() const { return m_nestLength; }

  private:
    /// Marks on the bar, the main part first.
    ZetArray<ZetString> m_marks;
    /// Pieces of each mark on one bar, parallel to the marks.
    ZetArray<int> m_quantities;
    /// Length of a piece of each mark, parallel to the marks.
    ZetArray<double> m_lengths;
    long m_qty = 0;
    double m_nestLength = 4000.0;
    /// Added to the length of a piece when testing whether it fits.
    [[maybe_unused]] double m_pieceAllowance = 0.0;
};

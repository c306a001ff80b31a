#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One kind of part to be cut from stock bars. A value; mm.
class CAMDATA_API CMxParts {
  public:
    CMxParts() = default;
    virtual ~CMxParts();
    CMxParts(const CMxParts&) = default;
    CMxParts& operator=(const CMxParts&) = default;
    CMxParts(CMxParts&&) = default;
    CMxParts& operator=(CMxParts&&) = default;

    /// The member's mark.
    void SetPartNo(ZetString mark) { m_partNo = std::move(mark); }
    const ZetString& GetPartNo() const { return m_partNo; }
    /// Pieces still to be nested.
    void SetQty(long qty) { m_qty = qty; }
    long GetQty() const { return m_qty; }
    /// Length of one piece.
    void SetLength(double length) { m_length = length; }
    double GetLength() const { return m_length; }

    /// Takes `n` pieces. False, changing nothing, when there are less.
    bool SubtractQty(long n);

    /// Orders two parts, given as pointers to CMxParts, by ascending length: -1, 0 for lengths
    /// equal within m_EPS, or 1. Sets the current tolerance to m_EPS.
    ///
    /// Not transitive, and 1 both ways for lengths so close to m_EPS apart that rounding decides:
    /// no algorithm that needs a strict order may sort by it.
    static int compare(const void* a, const void* b);

  private:
    ZetString m_partNo;
    long m_qty = 0;
    double m_length = 0.0;
};

#pragma once

#include "camdata/nesting/CMxNestParts.h"
#include "camdata/nesting/CMxParts.h"
#include "camdata/nesting/LengthIndex.h"
#include "camdata/platform/base/ZetArray.h"

#include <vector>

namespace camdata::detail {

/// Cuts a list of parts from stock bars, nest by nest, in the order of the list.
///
/// Each nest gets a piece of the first part that is left, and then, from the first part on, all the
/// pieces that fit, while the off-cut is above the reserve length; then a second bar is cut like it
/// when there are pieces enough. A part without pieces is gone when its nest is done.
///
/// Costs a logarithm of the number of parts for each mark on a bar.
class NestMaker {
  public:
    /// Every quantity must be above 0.
    NestMaker(ZetArray<CMxParts> parts, double reserveLength);

    bool HasParts() const { return m_parts.isValid(m_first); }
    /// The next nest; only while there are parts.
    CMxNestParts Next();

  private:
    static constexpr long kNone = -1;

    /// Parts of the same mark are one mark on a bar.
    struct Mark {
        long firstPart = kNone;  ///< the first of its parts that was left before this nest
        long position = kNone;   ///< its place on the bar
    };

    Mark& MarkOf(long part) { return m_marks[m_markOfPart[static_cast<std::size_t>(part)]]; }
    void Fill(CMxNestParts& nest);
    void Insert(long part, CMxNestParts& nest);
    void NoteOnBar(long part);
    void CutOneBarMore(CMxNestParts& nest);
    void ForgetUsedUp(long part);
    void ClearBar();

    ZetArray<CMxParts> m_parts;
    double m_reserveLength;
    LengthIndex m_lengths;
    /// The first part that is left.
    long m_first = 0;
    std::vector<Mark> m_marks;
    std::vector<std::size_t> m_markOfPart;
    /// The next part of the same mark, kNone for the last.
    std::vector<long> m_nextOfMark;
    /// The marks on the bar, in its order.
    ZetArray<Mark*> m_onBar;
    /// The first parts of these marks; kept for its memory.
    ZetArray<CMxParts*> m_firstParts;
};

}  // namespace camdata::detail

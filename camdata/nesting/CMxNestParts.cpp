#include "camdata/nesting/CMxNestParts.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// The first part of a mark, null when there is none.
CMxParts* FirstOf(ZetArray<CMxParts>& parts, const ZetString& mark) {
    const auto at = std::find_if(
        parts.begin(), parts.end(), [&](const CMxParts& part) { return part.GetPartNo() == mark; });
    return at == parts.end() ? nullptr : &*at;
}

}  // namespace

CMxNestParts::~CMxNestParts() = default;

bool CMxNestParts::SetNestMainPart(CMxParts& part) {
    if (part.GetQty() < 1)
        return false;
    m_marks.removeAll();
    m_quantities.removeAll();
    m_lengths.removeAll();
    m_qty = 1;
    return AppendNestPart(part);
}

bool CMxNestParts::AppendNestPart(CMxParts& part) {
    if (!part.SubtractQty(1))
        return false;
    m_takenBeforeLast = Taken();
    m_marks.append(part.GetPartNo());
    m_quantities.append(1);
    m_lengths.append(part.GetLength());
    return true;
}

bool CMxNestParts::InsertNest(CMxParts& part) {
    const long found = m_marks.find(part.GetPartNo());
    return InsertAt(found < 0 ? m_marks.length() : found, part);
}

bool CMxNestParts::CheckCombinationsAndAdd(ZetArray<CMxParts>& parts) {
    ZetArray<CMxParts*> partsOfMarks;
    for (const ZetString& mark : m_marks)
        partsOfMarks.append(FirstOf(parts, mark));
    CutOneBarMore(partsOfMarks);
    return false;
}

double CMxNestParts::GenerateOffCutLength() const {
    return m_nestLength - Taken();
}

bool CMxNestParts::GenerateOffCutWastage(ZetString& text) const {
    text = ZetString();
    const double offCut = GenerateOffCutLength();
    if (!CMxGeom::IsGreater_Mx(offCut, 0.0))
        return false;
    text = ZetString::format(
        L"%d No @ %5.0f long   Cut from Mark %s", m_qty, offCut, GetOutputPartNo());
    return true;
}

ZetString CMxNestParts::GenerateCombinations() const {
    if (m_marks.isEmpty())
        return {};
    ZetString text =
        ZetString::format(L"Part mark (%s) combinations are as below", GetOutputPartNo());
    for (long i = 0; i < m_marks.length(); ++i)
        text += ZetString::format(
            L"\n\tMark:%s, Qty:%d, Length:%5.0f", m_marks[i], m_quantities[i], m_lengths[i]);
    return text;
}

ZetString CMxNestParts::GetOutputPartNo() const {
    return m_marks.isEmpty() ? ZetString() : m_marks.first();
}

bool CMxNestParts::Fits(double pieceLength, double offCut) const {
    return CMxGeom::IsGreater_Mx(offCut, pieceLength + m_pieceAllowance);
}

bool CMxNestParts::HasRoomFor(double pieceLength) const {
    return Fits(pieceLength, GenerateOffCutLength());
}

/// Goes on with the sum of what marks take of the bar: with those from `first` on, before `end`.
double CMxNestParts::SumOn(double taken, long first, long end) const {
    for (long i = first; i < end; ++i)
        taken += m_quantities[i] * m_lengths[i];
    return taken;
}

/// What the marks before `position` take of the bar. The sum runs in the order of the marks,
/// however they came onto the bar: its last bits decide whether a piece fits.
double CMxNestParts::TakenBefore(long position) const {
    const long last = m_marks.length() - 1;
    if (last < 0 || position < last)
        return SumOn(0.0, 0, position);
    return SumOn(m_takenBeforeLast, last, position);
}

/// How many more pieces fit, one after the other, onto a mark that is on the bar.
///
/// The off-cut goes one way with the number of pieces, so the number at which no further one fits
/// can be searched for: a piece without length, or a very short one, costs no more steps than
/// others. Pieces of a length below 0 make room, and all fit after the first.
int CMxNestParts::CountThatFit(const CMxParts& part, long position) const {
    const int quantity = m_quantities[position];
    const double before = TakenBefore(position);
    const auto fitsAfter = [&](int count) {
        const double taken = SumOn(
            before + (quantity + count) * m_lengths[position], position + 1, m_marks.length());
        return Fits(part.GetLength(), m_nestLength - taken);
    };
    int low = 0;
    const int room = std::numeric_limits<int>::max() - quantity;
    int high = static_cast<int>(std::clamp<long>(part.GetQty(), 0, room));
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (fitsAfter(middle))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

/// Takes the pieces of `part` that fit onto a mark that is on the bar.
void CMxNestParts::AddPieces(CMxParts& part, long position) {
    const int count = CountThatFit(part, position);
    const long last = m_marks.length() - 1;
    part.SubtractQty(count);
    m_quantities[position] += count;
    if (position < last)
        m_takenBeforeLast = SumOn(0.0, 0, last);
}

/// InsertNest for a part whose mark is at `position`, or comes there as the last.
bool CMxNestParts::InsertAt(long position, CMxParts& part) {
    if (part.GetQty() == 0 || !HasRoomFor(part.GetLength()))
        return false;
    if (position < m_marks.length() || AppendNestPart(part))
        AddPieces(part, position);
    return true;
}

/// Takes the pieces of one more bar from `parts`, one for each mark, null when there is none. Does
/// nothing when one has too few. A mark that was appended twice is asked for each time by itself,
/// on purpose: a part that has enough for each but not for both gives the first pieces only.
void CMxNestParts::CutOneBarMore(const ZetArray<CMxParts*>& parts) {
    const auto isEnough = [](const CMxParts* part, int quantity) {
        return part != nullptr && part->GetQty() >= quantity;
    };
    if (!std::equal(parts.begin(), parts.end(), m_quantities.begin(), m_quantities.end(), isEnough))
        return;
    ++m_qty;
    for (long i = 0; i < parts.length(); ++i)
        parts[i]->SubtractQty(m_quantities[i]);
}

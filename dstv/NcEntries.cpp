#include "dstv/NcEntries.h"

#include <algorithm>

namespace dstv {
namespace {

const wchar_t* KindOf(const NcHole& hole) {
    if (hole.form == NcHoleForm::kMark)
        return L"mark";
    if (hole.form == NcHoleForm::kRectangle)
        return L"rectangle";
    if (hole.kind == NcHoleKind::kCountersunk)
        return L"countersink";
    return hole.form == NcHoleForm::kSlot ? L"slot" : L"hole";
}

/// What its notch lines ask for is made with it where it has arcs for that.
void AddContour(const NcContour& contour, std::vector<NcEntry>& entries) {
    entries.push_back({contour.isInternal ? L"opening" : L"outline", contour.line, false});
    for (const NcNotchLine& notch : contour.notchLines)
        if (notch.isNoted)
            entries.push_back({notch.kind == 'w' ? L"relief hole" : L"fillet", notch.line, true});
}

/// A saw cut that is slanted both ways is one entry, in the NC data when either cut is.
void AddCut(const NcCut& cut, std::vector<NcEntry>& entries) {
    if (!entries.empty() && entries.back().line == cut.line)
        entries.back().isNoted = entries.back().isNoted && cut.isNoted;
    else
        entries.push_back({cut.isFromHeader ? L"cut angle" : L"saw cut", cut.line, cut.isNoted});
}

}  // namespace

std::vector<NcEntry> EntriesOf(const NcPart& part) {
    std::vector<NcEntry> entries;
    entries.reserve(part.holes.size() + part.contours.size() + part.skippedBlocks.size());
    for (const NcHole& hole : part.holes)
        entries.push_back({KindOf(hole), hole.line, false});
    for (const NcContour& contour : part.contours)
        AddContour(contour, entries);
    for (const NcMark& mark : part.marks)
        entries.push_back({L"mark", mark.line, false});
    for (const NcNumeration& text : part.numerations)
        entries.push_back({L"text", text.line, text.IsEmpty()});
    for (const NcCut& cut : part.cuts)
        AddCut(cut, entries);
    for (const NcSkippedBlock& block : part.skippedBlocks)
        entries.push_back({L"block", block.line, true});
    const auto isBefore = [](const NcEntry& a, const NcEntry& b) { return a.line < b.line; };
    if (!std::is_sorted(entries.begin(), entries.end(), isBefore))
        std::stable_sort(entries.begin(), entries.end(), isBefore);
    return entries;
}

}  // namespace dstv

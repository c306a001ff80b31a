#include "camdata/nesting/NestMaker.h"

#include "camdata/tolerance/CMxGeom.h"

#include <string_view>
#include <unordered_map>
#include <utility>

namespace camdata::detail {

NestMaker::NestMaker(ZetArray<CMxParts> parts, double reserveLength)
    : m_parts(std::move(parts)),
      m_reserveLength(reserveLength),
      m_lengths(m_parts),
      m_markOfPart(static_cast<std::size_t>(m_parts.length())),
      m_nextOfMark(m_markOfPart.size()) {
    std::unordered_map<std::wstring_view, std::size_t> marks;
    marks.reserve(m_markOfPart.size());
    m_marks.reserve(m_markOfPart.size());
    // From the end, so that what is filed last is the first part of its mark.
    for (long part = m_parts.length() - 1; part >= 0; --part) {
        const auto at = static_cast<std::size_t>(part);
        m_markOfPart[at] = marks.try_emplace(m_parts[part].GetPartNo(), marks.size()).first->second;
        m_marks.resize(marks.size());
        m_nextOfMark[at] = std::exchange(MarkOf(part).firstPart, part);
    }
}

CMxNestParts NestMaker::Next() {
    CMxNestParts nest;
    nest.SetNestMainPart(m_parts[m_first]);
    NoteOnBar(m_first);
    Fill(nest);
    CutOneBarMore(nest);
    ClearBar();
    return nest;
}

void NestMaker::Fill(CMxNestParts& nest) {
    const auto fits = [&](double length) { return nest.HasRoomFor(length); };
    for (long part = m_first; CMxGeom::IsGreater_Mx(nest.GenerateOffCutLength(), m_reserveLength);
         ++part) {
        part = m_lengths.FindFrom(part, fits);
        if (part == kNone)
            return;
        Insert(part, nest);
    }
}

void NestMaker::Insert(long part, CMxNestParts& nest) {
    const long position = MarkOf(part).position;
    const bool isOnBar = position != kNone;
    nest.InsertAt(isOnBar ? position : m_onBar.length(), m_parts[part]);
    NoteOnBar(part);
}

/// Notes that pieces of a part were put on the bar.
void NestMaker::NoteOnBar(long part) {
    Mark& mark = MarkOf(part);
    if (mark.position == kNone) {
        mark.position = m_onBar.length();
        m_onBar.append(&mark);
    }
    ForgetUsedUp(part);
}

void NestMaker::CutOneBarMore(CMxNestParts& nest) {
    m_firstParts.removeAll();
    for (const Mark* mark : m_onBar)
        m_firstParts.append(&m_parts[mark->firstPart]);
    nest.CutOneBarMore(m_firstParts);
}

void NestMaker::ForgetUsedUp(long part) {
    if (m_parts[part].GetQty() == 0)
        m_lengths.Remove(part);
}

/// Makes ready for the next bar: the used up parts are gone.
void NestMaker::ClearBar() {
    for (Mark* mark : m_onBar) {
        ForgetUsedUp(mark->firstPart);
        mark->position = kNone;
        while (mark->firstPart != kNone && m_parts[mark->firstPart].GetQty() == 0)
            mark->firstPart = m_nextOfMark[static_cast<std::size_t>(mark->firstPart)];
    }
    m_onBar.removeAll();
    while (HasParts() && m_parts[m_first].GetQty() == 0)
        ++m_first;
}

}  // namespace camdata::detail

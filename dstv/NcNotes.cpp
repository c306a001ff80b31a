#include "dstv/NcNotes.h"

#include <algorithm>

namespace dstv {

void NcNotes::Account(NcNote::Severity severity, long line, ZetString text) {
    m_notes.push_back({severity, line, std::move(text)});
}

void NcNotes::Add(NcNote::Severity severity, long line, ZetString text) {
    if (m_others == kMaxNotes)
        return;
    if (++m_others < kMaxNotes)
        m_notes.push_back({severity, line, std::move(text)});
    else
        m_notes.push_back({NcNote::Severity::kWarning, line, L"further notes are left out"});
}

std::vector<NcNote> NcNotes::Take() {
    std::stable_sort(m_notes.begin(), m_notes.end(), [](const NcNote& a, const NcNote& b) {
        return a.line < b.line;
    });
    return std::move(m_notes);
}

}  // namespace dstv

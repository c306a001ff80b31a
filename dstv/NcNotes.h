#pragma once

#include "dstv/NcNote.h"
#include "dstv/NcReader.h"

#include <vector>

namespace dstv {

/// Collects the notes of one file: those of entries that the NC data do not have, and up to
/// kMaxNotes others.
class NcNotes {
  public:
    /// Tells an entry.
    void Account(NcNote::Severity severity, long line, ZetString text);
    void Note(long line, ZetString text) { Add(NcNote::Severity::kNote, line, std::move(text)); }
    void Warn(long line, ZetString text) { Add(NcNote::Severity::kWarning, line, std::move(text)); }
    /// All notes, ascending by line, those of one line as they came.
    std::vector<NcNote> Take();

  private:
    void Add(NcNote::Severity severity, long line, ZetString text);

    std::vector<NcNote> m_notes;
    std::size_t m_others = 0;  ///< than those of entries
};

}  // namespace dstv

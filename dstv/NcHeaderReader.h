#pragma once

#include "dstv/NcNotes.h"
#include "dstv/NcPart.h"
#include "dstv/NcTokens.h"

#include <array>
#include <cstddef>

namespace dstv {

/// A code of the standard, in capitals.
bool IsProfileCode(std::string_view text);

/// Reads the header values, one line each, that follow ST.
class NcHeaderReader {
  public:
    /// Values before which no block can begin: every line is a value, whatever it holds.
    static constexpr std::size_t kRequired = 20;
    static constexpr std::size_t kAll = 24;

    NcHeaderReader(NcHeader& header, NcNotes& notes) : m_header(header), m_notes(notes) {}

    bool IsComplete() const { return m_count == kAll; }
    bool CanEnd() const { return m_count >= kRequired; }
    std::size_t GetCount() const { return m_count; }
    /// The line of a header value, counted from 0.
    const NcLine& LineOf(std::size_t value) const { return m_lines[value]; }
    /// Reads the next value from a line that is no comment; fails when it is none.
    void Read(const NcLine& line);

  private:
    struct Field;
    static const std::array<Field, kRequired> kFields;

    void ReadText(const NcLine& line, const Field& field);
    void ReadQuantity(const NcLine& line, const Field& field);
    void ReadCode(const NcLine& line, const Field& field);
    void ReadLength(const NcLine& line, const Field& field);
    void ReadNumber(const NcLine& line, const Field& field);
    void ReadSize(const NcLine& line, const Field& field);
    void WarnOfNumber(const NcLine& line);
    ZetString TextOf(const NcLine& line);

    NcHeader& m_header;
    NcNotes& m_notes;
    std::array<NcLine, kRequired> m_lines{};
    std::size_t m_count = 0;
};

}  // namespace dstv

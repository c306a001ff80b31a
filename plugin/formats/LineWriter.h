#pragma once

#include "plugin/formats/FormatValues.h"
#include "plugin/formats/ValueText.h"

#include <string>
#include <utility>
#include <vector>

namespace plugin {

/// The fault of an outline or mark.
inline constexpr const wchar_t* kNoPointLine =
    L"no line of the format for its points fits its face, code and group";

/// Appends lines of a format to a text, and counts them. The first fault is kept; the text is of no
/// use from there on.
class LineWriter {
  public:
    /// All must outlive it.
    LineWriter(const job::MachineFormat& format, const FormatValues& values)
        : m_format(format), m_values(values) {}

    void Append(const job::FormatLine& line, const FormatSubject& subject);
    /// Text that stands already.
    void AppendText(const std::string& text, long lines);

    const std::string& GetText() const { return m_text; }
    std::string TakeText() { return std::move(m_text); }
    long GetLines() const { return m_lines; }
    bool HasFault() const { return !m_fault.IsEmpty(); }
    void SetFault(ValueFault fault) { m_fault = std::move(fault); }
    ValueFault TakeFault() { return std::exchange(m_fault, {}); }

    /// What {header} stands for.
    void SetHeader(const std::vector<ZetString>& lines) { m_header = &lines; }

  private:
    void AppendLine(const job::LineTemplate& line, const FormatSubject& subject);
    void AppendPieces(const job::LineTemplate& line, const FormatSubject& subject);
    void AppendValue(const job::TemplatePiece& piece, const FormatSubject& subject);
    void AppendPoints(const FormatSubject& subject);

    const job::MachineFormat& m_format;
    const FormatValues& m_values;
    const std::vector<ZetString>* m_header = nullptr;
    std::string m_text;
    long m_lines = 0;
    bool m_isInPoints = false;  ///< of {points}
    ValueFault m_fault;
};

/// The first line for `part` that fits what the subject is; null: none.
const job::FormatLine* FindLine(const job::MachineFormat& format,
                                job::FormatPart part,
                                const FormatSubject& subject);
/// Whether faces, codes and groups of a line fit what the subject is.
bool Fits(const job::FormatLine& line, const FormatSubject& subject);

}  // namespace plugin

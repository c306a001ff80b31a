#include "plugin/formats/LineWriter.h"

#include "job/TextPattern.h"
#include "plugin/formats/CapitalLetters.h"

#include <algorithm>
#include <utility>

namespace plugin {

namespace {

bool FitsAny(const std::vector<ZetString>& patterns, const ZetString& text) {
    return patterns.empty() ||
           std::any_of(patterns.begin(), patterns.end(), [&](const ZetString& pattern) {
               return job::MatchesPattern(text.view(), pattern.view());
           });
}

/// Writes a value by its type.
struct ValueAppender {
    std::string& out;
    const job::TemplatePiece& piece;
    const job::MachineFormat& format;
    bool isInList;

    ValueFault operator()(double value) const {
        return AppendNumber(out, value, piece.field->type, piece.spec, format, isInList);
    }
    ValueFault operator()(long value) const { return AppendWhole(out, value, piece.spec, format); }
    ValueFault operator()(std::wstring_view text) const {
        ValueFault fault = AppendText(out, text, piece.spec, format);
        if (!fault.IsEmpty())
            fault.text = L"\"" + ZetString(text) + L"\": " + fault.text;
        return fault;
    }
    ValueFault operator()(const FormatWord& word) const {
        const bool isChanged = word.isOfProgram && format.texts.isUpperCase;
        return AppendWord(
            out, isChanged ? InPlainCapitals(word.word) : word.word, piece.spec, format);
    }
    ValueFault operator()(const NoValue& none) const { return {none.reason, {}, none.found}; }
};

}  // namespace

void LineWriter::Append(const job::FormatLine& line, const FormatSubject& subject) {
    for (const job::LineTemplate& each : line.lines)
        AppendLine(each, subject);
}

void LineWriter::AppendText(const std::string& text, long lines) {
    m_text += text;
    m_lines += lines;
}

void LineWriter::AppendLine(const job::LineTemplate& line, const FormatSubject& subject) {
    const bool isHeader = !line.empty() && line[0].field != nullptr &&
                          line[0].field->field == job::FormatField::kHeader;
    FormatSubject each = subject;
    for (std::size_t i = 0; i < (isHeader ? m_header->size() : 1); ++i) {
        each.header = isHeader ? &(*m_header)[i] : nullptr;
        AppendPieces(line, each);
        m_text += m_format.lineEnd;
        ++m_lines;
    }
}

void LineWriter::AppendPieces(const job::LineTemplate& line, const FormatSubject& subject) {
    for (const job::TemplatePiece& piece : line) {
        m_text += piece.text;
        if (piece.field != nullptr && !HasFault())
            AppendValue(piece, subject);
    }
}

void LineWriter::AppendValue(const job::TemplatePiece& piece, const FormatSubject& subject) {
    if (piece.field->field == job::FormatField::kPoints) {
        AppendPoints(subject);
        return;
    }
    const FormatValue value = m_values.ValueOf(piece.field->field, subject);
    ValueFault fault = std::visit(ValueAppender{m_text, piece, m_format, m_isInPoints}, value);
    if (fault.IsEmpty())
        return;
    fault.text = ZetString::fromUtf8("{" + std::string(piece.field->name) + "}: ") + fault.text;
    m_fault = std::move(fault);
}

/// In one line, so what the line for a point says comes without its end.
void LineWriter::AppendPoints(const FormatSubject& subject) {
    FormatSubject each = subject;
    each.index = 0;
    const std::string* between = nullptr;
    for (const ZetGeomPoint2d& point : subject.operation->points) {
        each.point = &point;
        ++each.index;
        const job::FormatLine* line = FindLine(m_format, job::FormatPart::kPoint, each);
        if (between != nullptr)
            m_text += *between;
        if (line == nullptr)
            return SetFault({kNoPointLine});
        m_isInPoints = true;
        AppendPieces(line->lines.front(), each);
        m_isInPoints = false;
        between = &line->between;
    }
}

bool Fits(const job::FormatLine& line, const FormatSubject& subject) {
    const auto isFace = [&](eHoleFace face) { return face == subject.operation->face; };
    return (line.faces.empty() || std::any_of(line.faces.begin(), line.faces.end(), isFace)) &&
           (line.codes.empty() || FitsAny(line.codes, subject.operation->code)) &&
           (line.groups.empty() || FitsAny(line.groups, *subject.group));
}

const job::FormatLine* FindLine(const job::MachineFormat& format,
                                job::FormatPart part,
                                const FormatSubject& subject) {
    const std::vector<job::FormatLine>& lines = format.LinesFor(part);
    const auto at = std::find_if(lines.begin(), lines.end(), [&](const job::FormatLine& line) {
        return Fits(line, subject);
    });
    return at == lines.end() ? nullptr : &*at;
}

}  // namespace plugin

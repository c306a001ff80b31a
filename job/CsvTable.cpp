#include "job/CsvTable.h"

#include "job/TextFile.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cstddef>

namespace job {

namespace {

constexpr const char* kLooseQuote =
    "a field with a quote stands in quotes, and its own quotes are written twice";
constexpr const char* kOpenQuote = "the quotes that a field here begins with have no end";
constexpr const char* kControl = "a field cannot have line breaks or control characters";

/// What formulas begin with; East Asian spreadsheets take the wide forms, too.
constexpr std::wstring_view kFormulaStarts = L"=+-@\uFF1D\uFF0B\uFF0D\uFF20";

/// Tabs and what steers the direction of a text may stand in the names of NC files.
bool HasControl(const std::string& text) {
    const ZetString wide = ZetString::fromUtf8(text);
    return std::any_of(wide.view().begin(), wide.view().end(), [](wchar_t c) {
        return c != L'\t' && camdata::detail::IsControl(c);
    });
}

/// "-5", "-0.5"
bool IsNegativeNumber(std::wstring_view text) {
    return text.size() > 1 && text[0] == L'-' && text[1] != L'.' &&
           text.find_first_not_of(L"0123456789.", 1) == std::wstring_view::npos &&
           std::count(text.begin(), text.end(), L'.') <= 1;
}

std::string WithoutBlanksAround(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? ""
                                      : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

class CsvReader {
  public:
    explicit CsvReader(std::string_view bytes) : m_bytes(bytes) {}

    std::vector<CsvRecord> Read() {
        std::vector<CsvRecord> records;
        while (m_at < m_bytes.size()) {
            CsvRecord record = ReadRecord();
            const bool isEmptyLine = record.fields.size() == 1 && record.fields[0].empty();
            if (!isEmptyLine || !record.fault.empty())
                records.push_back(std::move(record));
        }
        return records;
    }

  private:
    CsvRecord ReadRecord() {
        CsvRecord record;
        record.line = m_line;
        const std::size_t begin = m_at;
        do {
            record.fields.push_back(WithoutBlanksAround(ReadField(record.fault)));
        } while (Skip(','));
        if (!record.fault.empty())
            SkipLine();
        const std::string_view bytes = m_bytes.substr(begin, m_at - begin);
        if (!EndLine() && record.fault.empty())
            record.fault = kLooseQuote;
        if (ZetString::fromUtf8(bytes).toUtf8() != bytes)
            record.fault = kNotUtf8;
        else if (std::any_of(record.fields.begin(), record.fields.end(), HasControl))
            record.fault = record.fault.empty() ? kControl : record.fault;
        return record;
    }

    std::string ReadField(std::string& fault) {
        const std::size_t begin = m_at;
        while (Skip(' ')) {
        }
        if (Skip('"'))
            return ReadQuoted(fault);
        m_at = begin;
        m_at = std::min(m_bytes.find_first_of(",\n", m_at), m_bytes.size());
        std::string field(m_bytes.substr(begin, m_at - begin));
        if (field.ends_with('\r') && m_at < m_bytes.size() && m_bytes[m_at] == '\n')
            field.pop_back();
        if (field.find('"') != std::string::npos)
            fault = kLooseQuote;
        return field;
    }

    /// Behind the first quote.
    std::string ReadQuoted(std::string& fault) {
        std::string field;
        for (; m_at < m_bytes.size(); ++m_at) {
            m_line += m_bytes[m_at] == '\n' ? 1 : 0;
            if (m_bytes[m_at] == '"' && !m_bytes.substr(m_at).starts_with("\"\""))
                break;
            m_at += m_bytes[m_at] == '"' ? 1 : 0;
            field += m_bytes[m_at];
        }
        if (!Skip('"'))
            fault = kOpenQuote;
        while (Skip(' ')) {
        }
        return field;
    }

    bool Skip(char c) {
        const bool isThere = m_at < m_bytes.size() && m_bytes[m_at] == c;
        m_at += isThere ? 1 : 0;
        return isThere;
    }

    void SkipLine() { m_at = std::min(m_bytes.find('\n', m_at), m_bytes.size()); }

    /// False when the line goes on; it is left then.
    bool EndLine() {
        Skip('\r');
        const bool isEnd = m_at == m_bytes.size() || m_bytes[m_at] == '\n';
        SkipLine();
        m_line += Skip('\n') ? 1 : 0;
        return isEnd;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    long m_line = 1;
};

}  // namespace

std::vector<CsvRecord> ReadCsv(std::string_view bytes) {
    return CsvReader(bytes).Read();
}

bool IsFormula(std::wstring_view text) {
    const std::size_t start = text.find_first_not_of(L" \t'");
    return start != std::wstring_view::npos &&
           kFormulaStarts.find(text[start]) != std::wstring_view::npos && !IsNegativeNumber(text);
}

std::string CsvField(const ZetString& text) {
    std::string field = text.toUtf8();
    if (IsFormula(text.view()))
        field.insert(field.begin(), kFormulaGuard);
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    std::string quoted = "\"";
    for (const char c : field)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

ZetString TextOfField(const std::string& field) {
    const ZetString text = ZetString::fromUtf8(field);
    const bool isGuarded = text.view().starts_with(kFormulaGuard) && IsFormula(text.view());
    return isGuarded ? ZetString(text.view().substr(1)) : text;
}

}  // namespace job

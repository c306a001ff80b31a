#include "job/JobLines.h"

#include "job/Ascii.h"
#include "job/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace job {

namespace {

/// Dots in one key: more than any job needs. Each may be one table in another, and the parser and
/// its tables call themselves for each.
constexpr int kMaxDots = 20;

constexpr std::string_view kBeforeText = " \t=,{[";

constexpr const char* kLongText = "a text stands in single quotes or double quotes, on one line";
constexpr const char* kGluedText =
    "a text cannot begin here: a blank, a comma or a bracket is missing";
constexpr const char* kForeign =
    "this character can only stand in a text: texts stand in plain quotes, \" or '";
constexpr const char* kTooManyDots = "too many dots: no table of a job lies so deep";

bool EndsKey(char c) {
    return c == '=' || c == ',' || c == '{' || c == '}' || c == '[' || c == ']';
}

/// Not one of the further bytes of a character.
bool BeginsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/// Goes through one line and follows its texts as the parser does: none reaches beyond its line.
class LineScan {
  public:
    explicit LineScan(std::string_view line) : m_line(line) {}

    /// What is wrong at GetColumn(); null when nothing is.
    const char* FindFault() {
        const char* fault = nullptr;
        while (fault == nullptr && m_at < m_line.size() && !m_isComment) {
            m_column += BeginsCharacter(m_line[m_at]) ? 1 : 0;
            fault = m_quote != 0 ? TakeInText(m_line[m_at]) : TakePlain(m_line[m_at]);
            ++m_at;
        }
        return fault;
    }
    long GetColumn() const { return m_column; }

  private:
    const char* TakeInText(char c) {
        const bool isEscape = m_quote == '"' && c == '\\';
        m_at += isEscape ? 1 : 0;
        m_column += isEscape ? 1 : 0;
        m_quote = c == m_quote ? '\0' : m_quote;
        return nullptr;
    }
    const char* TakePlain(char c) {
        m_isComment = c == '#';
        m_dots = EndsKey(c) ? 0 : m_dots + (c == '.' ? 1 : 0);
        if (c == '"' || c == '\'')
            return BeginText(c);
        if (!IsAscii(c))
            return kForeign;
        return m_dots > kMaxDots ? kTooManyDots : nullptr;
    }
    /// Where a text is glued to a value the parser would still look at its characters.
    const char* BeginText(char quote) {
        m_quote = quote;
        if (m_line.substr(m_at).starts_with(std::string(3, quote)))
            return kLongText;
        const bool isGlued =
            m_at > 0 && kBeforeText.find(m_line[m_at - 1]) == std::string_view::npos;
        return isGlued ? kGluedText : nullptr;
    }

    const std::string_view m_line;
    std::size_t m_at = 0;
    long m_column = 0;
    int m_dots = 0;    ///< of the key that is being read
    char m_quote = 0;  ///< that the text began with; 0: no text
    bool m_isComment = false;
};

void CheckLine(std::string_view line, long number, JobFaults& faults) {
    LineScan scan(line);
    const bool isPlain = IsAscii(line);
    if (!isPlain && ZetString::fromUtf8(line).toUtf8() != line)
        faults.Add({number, 0}, kNotUtf8);
    else if (const char* fault = scan.FindFault())
        faults.Add({number, scan.GetColumn()}, fault);
}

}  // namespace

void CheckLines(std::string_view bytes, JobFaults& faults) {
    for (long number = 1; !bytes.empty() && faults.IsEmpty(); ++number) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        CheckLine(bytes.substr(0, end), number, faults);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
}

}  // namespace job

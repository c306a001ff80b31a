#include "job/LineTemplates.h"

#include "job/FormatFile.h"
#include "job/MessageTexts.h"
#include "job/formats/TextEncoding.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace job {

namespace {

/// Width and precision of one field.
constexpr int kMaxCharacters = 1000;
constexpr int kMaxDecimals = 15;

constexpr std::wstring_view kAlignments = L"<>^";
constexpr std::wstring_view kSigns = L"+- ";
constexpr std::string_view kNumberTypes = "feEgGF";

struct TypeRow {
    FieldType type;
    std::string_view letters;  ///< that can stand at the end
    const char* what;
};

constexpr TypeRow kTypes[] = {
    {FieldType::kText,   "s",          "a text: only s can stand at its end"        },
    {FieldType::kWhole,  "d",          "a whole number: only d can stand at its end"},
    {FieldType::kLength, kNumberTypes, "a number: f, e or g can stand at its end"   },
    {FieldType::kAngle,  kNumberTypes, "a number: f, e or g can stand at its end"   },
    {FieldType::kNumber, kNumberTypes, "a number: f, e or g can stand at its end"   },
};

const TypeRow* FindType(FieldType type) {
    const auto* const row = std::find_if(std::begin(kTypes),
                                         std::end(kTypes),
                                         [&](const TypeRow& each) { return each.type == type; });
    return row == std::end(kTypes) ? nullptr : row;
}

std::string Utf8(std::wstring_view text) {
    return ZetString(text).toUtf8();
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Reads what stands behind the colon of a field, as fmt does.
class SpecReader {
  public:
    explicit SpecReader(std::wstring_view text) : m_text(text) {}

    /// False when it is no such thing.
    bool Read(FieldSpec& spec) {
        TakeAlignment(spec);
        if (IsNext(kSigns))
            spec.sign = static_cast<char>(Take());
        if (!m_text.empty() && m_text[0] == L'0') {
            spec.isZeroFilled = true;
            Take();
        }
        spec.width = TakeNumber().value_or(0);
        if (!m_text.empty() && m_text[0] == L'.') {
            Take();
            const std::optional<int> precision = TakeNumber();
            if (!precision)
                return false;
            spec.precision = *precision;
        }
        if (!m_text.empty() && m_text[0] < 0x80)
            spec.type = static_cast<char>(Take());
        return m_text.empty();
    }

  private:
    bool IsNext(std::wstring_view characters) const {
        return !m_text.empty() && characters.find(m_text[0]) != std::wstring_view::npos;
    }
    wchar_t Take() {
        const wchar_t c = m_text[0];
        m_text.remove_prefix(1);
        return c;
    }
    void TakeAlignment(FieldSpec& spec) {
        const std::size_t length = m_text.size() > 1 && IsSecondHalf(m_text[1]) ? 2 : 1;
        if (m_text.size() > length && kAlignments.find(m_text[length]) != std::wstring_view::npos) {
            spec.fill = m_text.substr(0, length);
            m_text.remove_prefix(length);
        }
        if (IsNext(kAlignments))
            spec.alignment = static_cast<char>(Take());
    }
    std::optional<int> TakeNumber() {
        if (m_text.empty() || !IsDigit(m_text[0]))
            return std::nullopt;
        int number = 0;
        while (!m_text.empty() && IsDigit(m_text[0]))
            number = std::min(kMaxCharacters + 1, number * 10 + (Take() - L'0'));
        return number;
    }

    std::wstring_view m_text;
};

std::string FaultOfSpec(std::string_view name, FieldType type, const FieldSpec& spec) {
    const std::string field = "{" + std::string(name) + "}";
    const TypeRow* const row = FindType(type);
    if (row != nullptr && spec.type != 0 && row->letters.find(spec.type) == std::string_view::npos)
        return field + " is " + row->what + ", not " + std::string(1, spec.type);
    if (spec.width > kMaxCharacters)
        return field + ": the width is at most 1000";
    const bool isNumber = type != FieldType::kText;
    if (isNumber && spec.precision > kMaxDecimals)
        return field + ": a number has at most 15 decimals";
    if (type == FieldType::kWhole && spec.precision >= 0)
        return field + " is a whole number and has no decimals";
    if (!isNumber && (spec.isZeroFilled || spec.sign != '-'))
        return field + " is a text: it has no sign and is not filled with zeros";
    return "";
}

/// Where else the value stands; "" when nowhere.
std::string OtherLinesOf(std::string_view name) {
    std::string lines;
    for (std::size_t i = 0; i < kFormatParts; ++i)
        if (const auto part = static_cast<FormatPart>(i); FindField(name, part) != nullptr)
            lines += (lines.empty() ? ", only in lines for " : ", ") + Quoted(NameOf(part));
    return lines;
}

std::string FaultOfName(const std::string& name, FormatPart part) {
    std::string elsewhere = OtherLinesOf(name);
    if (elsewhere.empty() && !name.empty())
        elsewhere = Suggest(name, FieldNamesOf(part));
    return "there is no value {" + name + "} in this line" + elsewhere +
           "; a { that is meant as it stands is written {{";
}

/// Reads a line piece by piece.
class TemplateReader {
  public:
    TemplateReader(std::wstring_view text, FormatPart part, const codepages::CodePage* page)
        : m_text(text), m_part(part), m_page(page) {}

    std::variant<LineTemplate, std::string> Read() {
        while (m_at < m_text.size() && m_fault.empty())
            TakeNext();
        EndPiece(nullptr, {});
        if (!m_fault.empty())
            return std::move(m_fault);
        return std::move(m_pieces);
    }

  private:
    void TakeNext() {
        const wchar_t c = m_text[m_at];
        const bool isBrace = c == L'{' || c == L'}';
        const bool isDoubled = isBrace && m_at + 1 < m_text.size() && m_text[m_at + 1] == c;
        if (!isBrace || isDoubled) {
            m_plain += c;
            m_at += isDoubled ? 2 : 1;
            return;
        }
        const std::size_t end = m_text.find_first_of(L"{}", m_at + 1);
        if (c == L'}' || end == std::wstring_view::npos || m_text[end] == L'{')
            m_fault =
                "{ and } enclose a value, such as {x:.1f}; one that is meant as it stands "
                "is written twice";
        else
            TakeField(m_text.substr(m_at + 1, end - m_at - 1));
        m_at = end + 1;
    }

    void TakeField(std::wstring_view field) {
        const std::size_t colon = std::min(field.find(L':'), field.size());
        const std::string name = Utf8(field.substr(0, colon));
        const FieldRow* const row = FindField(name, m_part);
        FieldSpec spec;
        if (row == nullptr) {
            m_fault = FaultOfName(name, m_part);
        } else if (row->type == FieldType::kPoints && colon < field.size()) {
            m_fault = "{" + name + "} is a list of points: nothing stands behind its name";
        } else if (!SpecReader(field.substr(std::min(colon + 1, field.size()))).Read(spec)) {
            m_fault = "{" + Utf8(field) +
                      "}: behind the colon stand fill, alignment, sign, width and precision, such "
                      "as {" +
                      name + ":>8.1f}";
        } else {
            m_fault = FaultOfSpec(name, row->type, spec);
            if (m_fault.empty() && !InEncoding(spec.fill, m_page))
                m_fault = "{" + name + "}: the encoding of the format has not the fill character";
        }
        if (m_fault.empty())
            EndPiece(row, spec);
    }

    void EndPiece(const FieldRow* field, const FieldSpec& spec) {
        const std::optional<std::string> bytes = InEncoding(m_plain, m_page);
        if (!bytes && m_fault.empty())
            m_fault =
                "the encoding of the format has not all characters of " + Quoted(Utf8(m_plain));
        if (field != nullptr || !m_plain.empty())
            m_pieces.push_back({bytes.value_or(""), field, spec});
        m_plain.clear();
    }

    const std::wstring_view m_text;
    const FormatPart m_part;
    const codepages::CodePage* const m_page;
    std::size_t m_at = 0;
    std::wstring m_plain;
    LineTemplate m_pieces;
    std::string m_fault;
};

}  // namespace

std::variant<LineTemplate, std::string> ReadLineTemplate(const ZetString& text,
                                                         FormatPart part,
                                                         const codepages::CodePage* page) {
    return TemplateReader(text.view(), part, page).Read();
}

}  // namespace job

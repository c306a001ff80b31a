#include "dstv/NcHeaderReader.h"

#include "dstv/NcBlocks.h"
#include "dstv/NcText.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace dstv {

/// How one header line is read; `text` or `number` is where its value goes.
struct NcHeaderReader::Field {
    const wchar_t* what;
    void (NcHeaderReader::*read)(const NcLine& line, const Field& field);
    ZetString NcHeader::*text = nullptr;
    double NcHeader::*number = nullptr;
};

namespace {

constexpr std::string_view kProfileCodes[] = {"I", "L", "U", "B", "RU", "RO", "M", "C", "T", "SO"};
constexpr std::size_t kUsualTextLength = 80;

/// What stands in place of a number, with a hint when the header seems to end too early.
ZetString Expected(const NcLine& line, const wchar_t* expected) {
    return IsKnownBlock(line.text)
               ? ZetString::format(L"%s (20 header lines before the first block)", expected)
               : ZetString(expected);
}

[[noreturn]] void Refuse(const NcLine& line, const wchar_t* what, const wchar_t* expected) {
    FailAt(line, what, Trimmed(line.text), Expected(line, expected));
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return upper;
}

}  // namespace

bool IsProfileCode(std::string_view text) {
    return std::find(std::begin(kProfileCodes), std::end(kProfileCodes), text) !=
           std::end(kProfileCodes);
}

const std::array<NcHeaderReader::Field, NcHeaderReader::kRequired> NcHeaderReader::kFields = {
    {
     {L"order", &NcHeaderReader::ReadText, &NcHeader::order},
     {L"drawing", &NcHeaderReader::ReadText, &NcHeader::drawing},
     {L"phase", &NcHeaderReader::ReadText, &NcHeader::phase},
     {L"mark", &NcHeaderReader::ReadText, &NcHeader::mark},
     {L"steel quality", &NcHeaderReader::ReadText, &NcHeader::steelQuality},
     {L"quantity", &NcHeaderReader::ReadQuantity},
     {L"profile name", &NcHeaderReader::ReadText, &NcHeader::profileName},
     {L"profile code", &NcHeaderReader::ReadCode, &NcHeader::profileCode},
     {L"length", &NcHeaderReader::ReadLength},
     {L"profile height", &NcHeaderReader::ReadSize, nullptr, &NcHeader::profileHeight},
     {L"flange width", &NcHeaderReader::ReadSize, nullptr, &NcHeader::flangeWidth},
     {L"flange thickness", &NcHeaderReader::ReadSize, nullptr, &NcHeader::flangeThickness},
     {L"web thickness", &NcHeaderReader::ReadSize, nullptr, &NcHeader::webThickness},
     {L"radius", &NcHeaderReader::ReadSize, nullptr, &NcHeader::radius},
     {L"weight", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::weight},
     {L"painting surface", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::paintingSurface},
     {L"web start cut", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::webStartCut},
     {L"web end cut", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::webEndCut},
     {L"flange start cut", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::flangeStartCut},
     {L"flange end cut", &NcHeaderReader::ReadNumber, nullptr, &NcHeader::flangeEndCut},
     }
};

void NcHeaderReader::Read(const NcLine& line) {
    if (m_count < kRequired) {
        m_lines[m_count] = line;
        m_header.lines[m_count] = line.number;
        const Field& field = kFields[m_count];
        (this->*field.read)(line, field);
    } else {
        WarnOfNumber(line);
        m_header.infoTexts[m_count - kRequired] = TextOf(line);
    }
    ++m_count;
}

/// Behind a number too many all others count as their neighbours, and the last one as a text.
void NcHeaderReader::WarnOfNumber(const NcLine& line) {
    const std::string_view text = Trimmed(line.text);
    if (m_count == kRequired && ParseNumber(text, true))
        m_notes.Warn(line.number,
                     ZetString::format(L"the first text is the number \"%s\": there seems to be a "
                                       L"header line too many before it",
                                       Quotable(text)));
}

ZetString NcHeaderReader::TextOf(const NcLine& line) {
    const ZetString text = TextAt(line, Trimmed(line.text));
    if (line.text.size() > 2 && IsBlank(line.text[1]) && !IsBlank(line.text[0]))
        m_notes.Note(line.number, L"text begins in column 1, where two blanks belong");
    if (text.view().size() > kUsualTextLength)
        m_notes.Warn(line.number, L"text of more than 80 characters");
    return text;
}

void NcHeaderReader::ReadText(const NcLine& line, const Field& field) {
    m_header.*field.text = TextOf(line);
}

void NcHeaderReader::ReadQuantity(const NcLine& line, const Field& field) {
    const std::optional<double> value = ParseNumber(Trimmed(line.text), false);
    if (!value || *value < 0.0 || *value != std::floor(*value))
        Refuse(line, field.what, L"a whole number from 0 to 1000000000");
    m_header.quantity = static_cast<long>(*value);
}

void NcHeaderReader::ReadCode(const NcLine& line, const Field& field) {
    const std::string code = UpperCase(Trimmed(line.text));
    if (code != Trimmed(line.text))
        m_notes.Warn(
            line.number,
            ZetString::format(
                L"%s \"%s\" is not in capitals", field.what, Quotable(Trimmed(line.text))));
    const bool isKnown = IsProfileCode(code);
    if (!isKnown)
        m_notes.Warn(
            line.number,
            ZetString::format(
                L"%s \"%s\" is not known: read as SO", field.what, Quotable(Trimmed(line.text))));
    m_header.*field.text = isKnown ? DecodeText(code) : ZetString(L"SO");
}

void NcHeaderReader::ReadLength(const NcLine& line, const Field& field) {
    constexpr const wchar_t* kExpected = L"a number in mm, or two separated by a comma";
    std::string_view rest = line.text;
    std::array<double, 2> lengths{};
    for (double& length : lengths) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        const std::optional<double> value = ParseNumber(Trimmed(rest.substr(0, comma)), false);
        if (!value || *value < 0.0)
            Refuse(line, field.what, kExpected);
        length = *value;
        rest.remove_prefix(comma);
        if (rest.empty())
            break;
        rest.remove_prefix(1);
    }
    if (!rest.empty())
        m_notes.Warn(line.number, L"more than two lengths: the first two count");
    // Skew cuts shorten it by less than that on anything but a scrap.
    if (lengths[1] != 0.0 && (lengths[1] < lengths[0] / 2.0 || lengths[1] > lengths[0]))
        m_notes.Warn(line.number, L"saw length that does not fit the length");
    if (lengths[0] == 0.0)
        m_notes.Warn(line.number, L"length is 0");
    m_header.length = lengths[0];
    m_header.sawLength = lengths[1];
}

void NcHeaderReader::ReadNumber(const NcLine& line, const Field& field) {
    const std::string_view text = Trimmed(line.text);
    const std::optional<double> value = ParseNumber(text, true);
    if (!value)
        Refuse(line, field.what, L"a number");
    if (text.find(',') != std::string_view::npos)
        m_notes.Note(line.number, ZetString::format(L"%s with a decimal comma", field.what));
    m_header.*field.number = *value;
}

void NcHeaderReader::ReadSize(const NcLine& line, const Field& field) {
    ReadNumber(line, field);
    if (m_header.*field.number < 0.0)
        Refuse(line, field.what, L"a number that is not negative");
}

}  // namespace dstv

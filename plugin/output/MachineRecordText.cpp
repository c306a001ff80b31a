#include "plugin/output/MachineRecordText.h"

#include "job/ControlCharacters.h"
#include "job/MemberLine.h"
#include "numbers/TextBuffer.h"
#include "plugin/formats/BackslashEscapes.h"
#include "plugin/formats/MachineWords.h"

#include "camdata/platform/text/Unicode.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace plugin {

namespace {

constexpr int kDecimals = 3;
constexpr std::wstring_view kEndWord = L"end";
constexpr std::size_t kUsualLine = 96;

// ---- fields -------------------------------------------------------------------------------------

using numbers::TextBuffer;
using numbers::Word;

/// Words of our own, which have ASCII characters only.
template <std::size_t count>
constexpr std::array<Word, count> Ascii(const std::array<std::wstring_view, count>& words) {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        return std::array{Word(words[i])...};
    }
    (std::make_index_sequence<count>());
}

constexpr auto kOperations = Ascii(kOperationWords);
constexpr auto kFaces = Ascii(kFaceWords);
constexpr auto kCuts = Ascii(kCutWords);
constexpr auto kThreads = Ascii(kThreadWords);
constexpr auto kSides = Ascii(kSideWords);
constexpr auto kEnds = Ascii(kEndWords);
constexpr auto kCutFaces = Ascii(kCutFaceWords);
constexpr auto kMarks = Ascii(kMarkWords);

/// A field that holds one of some words, as the position of its word.
template <typename Record>
struct WordField {
    int Record::*value;
    std::span<const Word> words;
};

template <typename Record>
struct Field {
    Word begin;  ///< a blank, its name, "="
    std::variant<double Record::*,
                 long Record::*,
                 ZetString Record::*,
                 ZetArray<ZetGeomPoint2d> Record::*,
                 WordField<Record>>
        value;
};

constexpr Field<MachineMember> kMemberFields[] = {
    {" mark=",     &MachineMember::mark    },
    {" quantity=", &MachineMember::quantity},
    {" profile=",  &MachineMember::profile },
    {" length=",   &MachineMember::length  },
    {" material=", &MachineMember::material},
    {" weight=",   &MachineMember::weight  },
};

using Operation = MachineOperation;
using OperationField = Field<Operation>;

constexpr OperationField kFace = {
    " face=", WordField<Operation>{&Operation::face, kFaces}
};
constexpr OperationField kCut = {
    " cut=", WordField<Operation>{&Operation::cut, kCuts}
};
constexpr OperationField kX = {" x=", &Operation::x};
constexpr OperationField kY = {" y=", &Operation::y};
constexpr OperationField kDiameter = {" diameter=", &Operation::diameter};
constexpr OperationField kLength = {" length=", &Operation::length};
constexpr OperationField kWidth = {" width=", &Operation::width};
constexpr OperationField kAngle = {" angle=", &Operation::angle};
constexpr OperationField kDepth = {" depth=", &Operation::depth};
constexpr OperationField kSinkDiameter = {" sink_diameter=", &Operation::sinkDiameter};
constexpr OperationField kSinkDepth = {" sink_depth=", &Operation::sinkDepth};
constexpr OperationField kSinkAngle = {" sink_angle=", &Operation::sinkAngle};
constexpr OperationField kThread = {
    " thread=", WordField<Operation>{&Operation::thread, kThreads}
};
constexpr OperationField kPoints = {" points=", &Operation::points};
constexpr OperationField kCode = {" code=", &Operation::code};

constexpr OperationField kSide = {
    " side=", WordField<Operation>{&Operation::side, kSides}
};
constexpr OperationField kAt = {" at=", &Operation::at};
constexpr OperationField kEnd = {
    " end=", WordField<Operation>{&Operation::end, kEnds}
};
constexpr OperationField kCutFace = {
    " face=", WordField<Operation>{&Operation::cutFace, kCutFaces}
};
constexpr OperationField kMarkKind = {
    " kind=", WordField<Operation>{&Operation::mark, kMarks}
};
constexpr OperationField kHeight = {" height=", &Operation::height};
constexpr OperationField kText = {" text=", &Operation::text};

constexpr OperationField kHole[] = {kFace, kX, kY, kDiameter, kDepth, kThread, kCode};
constexpr OperationField kCountersunk[] = {
    kFace, kX, kY, kDiameter, kDepth, kSinkDiameter, kSinkDepth, kSinkAngle, kCode};
constexpr OperationField kSlot[] = {kFace, kX, kY, kWidth, kLength, kAngle, kDepth, kCode};
constexpr OperationField kRectangle[] = {kFace, kX, kY, kLength, kWidth, kCode};
constexpr OperationField kNotch[] = {kFace, kCut, kX, kY, kLength, kWidth, kCode};
constexpr OperationField kOutline[] = {kFace, kCut, kX, kY, kPoints, kCode};
constexpr OperationField kTrim[] = {kFace, kSide, kAt, kCode};
constexpr OperationField kMitre[] = {kEnd, kCutFace, kAngle};
constexpr OperationField kMark[] = {kFace, kMarkKind, kX, kY, kAngle, kHeight, kPoints, kText};

/// By MachineOperationKind.
constexpr std::array<std::span<const OperationField>, kOperationWords.size()> kFieldsOf = {
    kHole, kCountersunk, kSlot, kRectangle, kNotch, kOutline, kTrim, kMitre, kMark};
static_assert(kFieldsOf.size() == static_cast<std::size_t>(MachineOperationKind::kMark) + 1);

// ---- values -------------------------------------------------------------------------------------

bool StandsAsItIs(wchar_t c) {
    return c >= L' ' && c <= L'~' && c != L'"' && c != L'\\';
}

void AddQuoted(TextBuffer& line, std::wstring_view text) {
    line.Add('"');
    if (!line.AddAscii(text, StandsAsItIs)) {
        std::wstring escaped;
        for (const wchar_t c : text)
            AppendBackslashed(escaped, c);
        line.Add(ZetString(std::move(escaped)).toUtf8());
    }
    line.Add('"');
}

/// The prefix is ASCII.
bool TakePrefix(std::wstring_view& text, std::string_view prefix) {
    const bool isThere =
        text.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), text.begin());
    text.remove_prefix(isThere ? prefix.size() : 0);
    return isThere;
}

/// Takes one character, or the escape of one, from the beginning of `text`; nothing when there is
/// none.
std::optional<wchar_t> TakeCharacter(std::wstring_view& text) {
    const std::size_t isEscape = text.substr(0, 1) == L"\\" ? 1 : 0;
    if (text.size() <= isEscape)
        return std::nullopt;
    const wchar_t c = text[isEscape];
    text.remove_prefix(isEscape + 1);
    if (isEscape == 0)
        return c;
    if (c == job::kEscapeLetter)
        return job::TakeEscaped(text);
    return CharacterOfEscape(c);
}

/// What stands in quotes at the beginning of `text`, which is then what follows; nothing when there
/// is no such text.
std::optional<ZetString> TakeQuoted(std::wstring_view& text) {
    if (!TakePrefix(text, "\""))
        return std::nullopt;
    std::wstring value;
    while (!TakePrefix(text, "\"")) {
        const std::optional<wchar_t> c = TakeCharacter(text);
        if (!c)
            return std::nullopt;
        value += *c;
    }
    return ZetString(std::move(value));
}

/// What stands before the first of `separators`, or all; `text` is then what follows that.
std::wstring_view TakeUntil(std::wstring_view& text, std::wstring_view separators) {
    const std::wstring_view taken = text.substr(0, text.find_first_of(separators));
    text.remove_prefix(taken.size());
    return taken;
}

/// No sign before a zero.
void AddNumber(TextBuffer& line, double value) {
    line.AddFixed(value, kDecimals);
}

std::optional<double> ParseNumber(std::wstring_view text) {
    const bool isNumber =
        !text.empty() && text.find_first_not_of(L"-0123456789.") == std::wstring_view::npos;
    return isNumber ? std::optional(ZetString(text).toDouble(true)) : std::nullopt;
}

std::optional<long> ParseCount(std::wstring_view text) {
    constexpr auto kTooMany = static_cast<double>(std::numeric_limits<long>::max());
    const std::optional<double> number = ParseNumber(text);
    const bool isCount = number && std::abs(*number) < kTooMany && std::trunc(*number) == *number;
    return isCount ? std::optional(static_cast<long>(*number)) : std::nullopt;
}

void AddPoints(TextBuffer& line, const ZetArray<ZetGeomPoint2d>& points) {
    line.Add('"');
    for (const ZetGeomPoint2d& point : points) {
        if (&point != &points.first())
            line.Add(' ');
        AddNumber(line, point.x);
        line.Add(',');
        AddNumber(line, point.y);
    }
    line.Add('"');
}

std::optional<ZetArray<ZetGeomPoint2d>> ParsePoints(std::wstring_view text) {
    ZetArray<ZetGeomPoint2d> points;
    while (!text.empty()) {
        std::wstring_view pair = TakeUntil(text, L" ");
        text.remove_prefix(text.empty() ? 0 : 1);
        const std::optional<double> x = ParseNumber(TakeUntil(pair, L","));
        const std::optional<double> y = ParseNumber(pair.substr(pair.empty() ? 0 : 1));
        if (!x || !y)
            return std::nullopt;
        points.append({*x, *y});
    }
    return points;
}

// ---- lines --------------------------------------------------------------------------------------

/// Writes one field of a record.
template <typename Record>
struct FieldFormatter {
    const Record& record;
    TextBuffer& line;

    void operator()(double Record::*value) const { AddNumber(line, record.*value); }
    void operator()(long Record::*value) const { line.AddWhole(record.*value); }
    void operator()(ZetString Record::*value) const { AddQuoted(line, (record.*value).view()); }
    void operator()(ZetArray<ZetGeomPoint2d> Record::*value) const {
        AddPoints(line, record.*value);
    }
    void operator()(const WordField<Record>& field) const {
        line.AddWord(field.words[static_cast<std::size_t>(record.*field.value)]);
    }
};

/// Takes one field of a record from the beginning of `text`. False when it does not stand there.
template <typename Record>
struct FieldParser {
    Record& record;
    std::wstring_view& text;

    bool operator()(double Record::*value) const {
        return Set(value, ParseNumber(TakeUntil(text, L" ")));
    }
    bool operator()(long Record::*value) const {
        return Set(value, ParseCount(TakeUntil(text, L" ")));
    }
    bool operator()(ZetString Record::*value) const { return Set(value, TakeQuoted(text)); }
    bool operator()(ZetArray<ZetGeomPoint2d> Record::*value) const {
        const std::optional<ZetString> points = TakeQuoted(text);
        return points && Set(value, ParsePoints(points->view()));
    }
    bool operator()(const WordField<Record>& field) const {
        const std::wstring_view word = TakeUntil(text, L" ");
        const auto at = std::find_if(field.words.begin(), field.words.end(), [&](const Word& each) {
            return std::ranges::equal(each.View(), word);
        });
        record.*field.value = static_cast<int>(at - field.words.begin());
        return at != field.words.end();
    }

  private:
    template <typename T>
    bool Set(T Record::*value, std::optional<T> read) const {
        if (read)
            record.*value = std::move(*read);
        return read.has_value();
    }
};

/// Without its end.
template <typename Record>
void AddLine(TextBuffer& text,
             const Word& word,
             std::span<const Field<Record>> fields,
             const Record& record) {
    text.AddWord(word);
    for (const Field<Record>& field : fields) {
        text.AddWord(field.begin);
        std::visit(FieldFormatter<Record>{record, text}, field.value);
    }
}

void AddOperation(TextBuffer& text, const MachineOperation& operation) {
    const auto kind = static_cast<std::size_t>(operation.kind);
    AddLine(text, kOperations[kind], kFieldsOf[kind], operation);
}

template <typename Record>
ZetString NameOf(const Field<Record>& field) {
    const std::string_view begin = field.begin.View();
    return ZetString::fromUtf8(begin.substr(1, begin.size() - 2));
}

/// Reads what follows the word of a line. The fault, "" when there is none.
template <typename Record>
ZetString ParseFields(std::wstring_view text,
                      std::span<const Field<Record>> fields,
                      Record& record) {
    for (const Field<Record>& field : fields) {
        if (!TakePrefix(text, field.begin.View()))
            return ZetString::format(L"the field %s is missing", NameOf(field));
        if (!std::visit(FieldParser<Record>{record, text}, field.value))
            return ZetString::format(L"the field %s has no valid value", NameOf(field));
    }
    return text.empty() ? L"" : L"there is more in the line than its fields";
}

/// Puts a text together to members, line by line.
class RecordReader {
  public:
    /// The fault of the line, "" when there is none.
    ZetString Add(std::wstring_view line) {
        if (m_isInBlock)
            return AddToBlock(line);
        return job::BeginsMember(line) ? Begin(line) : ZetString();
    }
    ZetString End() const { return m_isInBlock ? L"the member has no end" : L""; }
    std::vector<MachineMember> TakeMembers() { return std::move(m_members); }

  private:
    ZetString Begin(std::wstring_view line) {
        m_isInBlock = true;
        line.remove_prefix(job::kMemberWord.size());
        return ParseFields<MachineMember>(line, kMemberFields, m_members.emplace_back());
    }

    ZetString AddToBlock(std::wstring_view line) {
        if (line == kEndWord) {
            m_isInBlock = false;
            return {};
        }
        const std::wstring_view word = TakeUntil(line, L" ");
        const auto* const known = std::find(kOperationWords.begin(), kOperationWords.end(), word);
        if (known == kOperationWords.end())
            return L"no operation of that name is known";
        const auto kind = static_cast<std::size_t>(known - kOperationWords.begin());
        MachineOperation& operation = m_members.back().operations.emplace_back();
        operation.kind = static_cast<MachineOperationKind>(kind);
        return ParseFields(line, kFieldsOf[kind], operation);
    }

    bool m_isInBlock = false;
    std::vector<MachineMember> m_members;
};

}  // namespace

double RoundAsRecorded(double value) {
    return CMxGeom::Round_CAM(value, kDecimals);
}

std::string FormatMember(const MachineMember& member) {
    TextBuffer text((member.operations.size() + 2) * kUsualLine);
    AddLine<MachineMember>(text, Word(job::kMemberWord), kMemberFields, member);
    for (const MachineOperation& operation : member.operations) {
        text.Add('\n');
        AddOperation(text, operation);
    }
    text.Add('\n');
    text.AddWord(Word(kEndWord));
    text.Add('\n');
    return std::string(text.View());
}

std::string FormatOperation(const MachineOperation& operation) {
    TextBuffer line(kUsualLine);
    AddOperation(line, operation);
    return std::string(line.View());
}

std::variant<std::vector<MachineMember>, MachineFault> ReadMachineRecords(const ZetString& text) {
    RecordReader reader;
    std::wstring_view rest = text.view();
    for (long line = 1; !rest.empty(); ++line) {
        ZetString fault = reader.Add(TakeUntil(rest, L"\n"));
        rest.remove_prefix(rest.empty() ? 0 : 1);
        if (fault.isEmpty() && rest.empty())
            fault = reader.End();
        if (!fault.isEmpty())
            return MachineFault{line, std::move(fault)};
    }
    return reader.TakeMembers();
}

}  // namespace plugin

#include "job/FormatTables.h"

#include "job/FormatFile.h"
#include "job/JobKeys.h"
#include "job/JobWords.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

// The one list of the format file's keys: each row reads its key, and docs/format-file.md lists it.

namespace job {

namespace {

constexpr Range kDecimals{0.0, 9.0};
constexpr Range kLongest{0.0, 1000.0};
constexpr Range kOffset{-100000.0, 100000.0};
constexpr Range kToolSize{0.0, 100000.0, true};
constexpr Range kLeast{2.0, 10000.0};

// clang-format off

constexpr Choice<FormatPart> kParts[] = {
    {FormatPart::kFileStart, "file_start"},
    {FormatPart::kGroupStart, "group_start"},
    {FormatPart::kMember, "member"},
    {FormatPart::kHole, "hole"},
    {FormatPart::kCountersunk, "countersunk"},
    {FormatPart::kSlot, "slot"},
    {FormatPart::kRectangle, "rectangle"},
    {FormatPart::kNotch, "notch"},
    {FormatPart::kOutline, "outline"},
    {FormatPart::kTrim, "trim"},
    {FormatPart::kMitre, "mitre"},
    {FormatPart::kMark, "mark"},
    {FormatPart::kText, "text"},
    {FormatPart::kPoint, "point"},
    {FormatPart::kMemberEnd, "member_end"},
    {FormatPart::kGroupEnd, "group_end"},
    {FormatPart::kFileEnd, "file_end"},
};
static_assert(std::size(kParts) == kFormatParts);

constexpr auto kFirstOperation = static_cast<std::size_t>(FormatPart::kHole);
constexpr auto kOperations = static_cast<std::size_t>(FormatPart::kText) + 1 - kFirstOperation;

constexpr std::array<Choice<ToolPart>, kOperations> kToolParts = [] {
    std::array<Choice<ToolPart>, kOperations> choices{};
    for (std::size_t i = 0; i < kOperations; ++i) {
        const Choice<FormatPart>& part = kParts[kFirstOperation + i];
        choices[i] = {static_cast<ToolPart>(part.value), part.word};
    }
    return choices;
}();

constexpr Choice<OperationOrder> kOrders[] = {
    {OperationOrder::kGathered, "gathered"},
    {OperationOrder::kByX, "x"},
    {OperationOrder::kByTool, "tool"},
    {OperationOrder::kByFace, "face"},
};

constexpr Choice<NumberUnit> kUnits[] = {
    {NumberUnit::kMillimetre, "mm"},
    {NumberUnit::kTenth, "0.1 mm"},
    {NumberUnit::kInch, "inch"},
};

constexpr Choice<Zeros> kZeros[] = {
    {Zeros::kKeep, "keep"},
    {Zeros::kTrailing, "no_trailing"},
    {Zeros::kLeading, "no_leading"},
    {Zeros::kBoth, "neither"},
};

constexpr Choice<AngleDirection> kDirections[] = {
    {AngleDirection::kCounterClockwise, "counter_clockwise"},
    {AngleDirection::kClockwise, "clockwise"},
};

constexpr Choice<Quotes> kQuotes[] = {
    {Quotes::kNone, "none"},
    {Quotes::kNeeded, "needed"},
    {Quotes::kAlways, "always"},
};

constexpr Choice<Escapes> kEscapes[] = {
    {Escapes::kNone, "none"},
    {Escapes::kDoubled, "doubled"},
    {Escapes::kBackslash, "backslash"},
};

constexpr Choice<TooLong> kTooLong[] = {
    {TooLong::kRefuse, "refuse"},
    {TooLong::kCut, "cut"},
};

constexpr Choice<RepeatAxis> kAxes[] = {
    {RepeatAxis::kX, "x"},
    {RepeatAxis::kY, "y"},
};

}  // namespace

template <> std::span<const Choice<FormatPart>> ChoicesOf() { return kParts; }
template <> std::span<const Choice<OperationOrder>> ChoicesOf() { return kOrders; }
template <> std::span<const Choice<NumberUnit>> ChoicesOf() { return kUnits; }
template <> std::span<const Choice<Zeros>> ChoicesOf() { return kZeros; }
template <> std::span<const Choice<AngleDirection>> ChoicesOf() { return kDirections; }
template <> std::span<const Choice<Quotes>> ChoicesOf() { return kQuotes; }
template <> std::span<const Choice<Escapes>> ChoicesOf() { return kEscapes; }
template <> std::span<const Choice<TooLong>> ChoicesOf() { return kTooLong; }
template <> std::span<const Choice<RepeatAxis>> ChoicesOf() { return kAxes; }
template <> std::span<const Choice<ToolPart>> ChoicesOf() { return kToolParts; }
// Words that the job file has, too.
template <> std::span<const Choice<eHoleFace>> ChoicesOf();
template <> std::span<const Choice<NcEncoding>> ChoicesOf();
template <> std::span<const Choice<WrittenEncoding>> ChoicesOf() {
    static const std::vector<Choice<WrittenEncoding>> choices = [] {
        std::vector<Choice<WrittenEncoding>> written;
        for (const Choice<NcEncoding>& choice : ChoicesOf<NcEncoding>())
            if (choice.value != NcEncoding::kAuto)
                written.push_back({static_cast<WrittenEncoding>(choice.value), choice.word});
        return written;
    }();
    return choices;
}
template <> std::span<const Choice<LineEnds>> ChoicesOf();

namespace {

constexpr Key kFormatKeys[] = {
    Row<FormatTable, &FormatTable::name>("name", "What the format is called.", {.defaultNote = "the file's name without its ending"}),
    Row<FormatTable, &FormatTable::order>("order", "Order of a member's operations. gathered: face by face as the NC data has them. x: along the member, then across, as the machine counts them. tool: by their rows in `[[tool]]`, then like x. face: by their rows in `[[face]]`, then like x."),
    Row<FormatTable, &FormatTable::areColumnsFixed>("fixed_columns", "Whether a value that is wider than its field is refused. Else it is written, as fmt does."),
    Row<FormatTable, &FormatTable::otherFaces>("other_faces", "What a face without a `[[face]]` is called.", {.defaultNote = "refused; as the job file names it where there is no `[[face]]`"}),
    Row<FormatTable, &FormatTable::otherTools>("other_tools", "`{tool}` of an operation that no `[[tool]]` fits.", {.defaultNote = "refused"}),
    Row<FormatTable, &FormatTable::otherProfiles>("other_profiles", "What a profile without a `[[profile]]` is called.", {.defaultNote = "refused; its own name where there is no `[[profile]]`"}),
};

constexpr Key kNumberKeys[] = {
    Row<NumberSettings, &NumberSettings::decimals>("decimals", "Decimals of lengths and other numbers, where a field has none of its own.", {.range = kDecimals}),
    Row<NumberSettings, &NumberSettings::angleDecimals>("angle_decimals", "The same of angles.", {.range = kDecimals, .defaultNote = "as `decimals`"}),
    Row<NumberSettings, &NumberSettings::unit>("unit", "Unit of lengths."),
    Row<NumberSettings, &NumberSettings::hasComma>("decimal_comma", "Whether a comma stands before the decimals."),
    Row<NumberSettings, &NumberSettings::zeros>("zeros", "Which zeros are left away. no_trailing: those behind the decimals, with a point that is left alone. no_leading: the one before the point. neither: both."),
    Row<NumberSettings, &NumberSettings::hasPlus>("plus", "Whether lengths, angles and weights from 0 on have a plus sign."),
    Row<NumberSettings, &NumberSettings::angles>("angles", "The way that angles run."),
};

constexpr Key kTextKeys[] = {
    Row<TextsTable, &TextsTable::encoding>("encoding", "How texts are written as bytes; a character that it has not is refused."),
    Row<TextsTable, &TextsTable::lineEnds>("line_ends", "What ends each line: LF, or CR and LF. `line_ends` of the job's `[[file]]` goes before."),
    Row<TextsTable, &TextSettings::quotes>("quotes", "Which texts stand in quotes; unless none, numbers with a comma do, too, but for those in `{points}`. needed: those with a comma, a semicolon, a quote, a tab, a line end, or a blank at either end."),
    Row<TextsTable, &TextSettings::escapes>("escapes", "What becomes of quotes and line ends in a text. none: refused. doubled: a quote stands twice, line ends in quotes stay. backslash: \\\", \\\\, \\n, \\r."),
    Row<TextsTable, &TextSettings::forbidden>("forbidden", "Characters that no text may have; refused.", {.defaultNote = "none"}),
    Row<TextsTable, &TextSettings::isUpperCase>("upper_case", "Whether texts, and the words of values such as `{kind}` and `{side}`, are written in capitals without accents. Names that this file gives, and what stands outside of braces, stay as they are."),
    Row<TextsTable, &TextSettings::guardsFormulas>("guard_formulas", "Whether a text that a spreadsheet would run as a formula gets an apostrophe before it: one that begins with =, +, - or @ and is no negative number."),
    Row<TextsTable, &TextSettings::longest>("longest", "Most characters of a text; 0: any.", {.range = kLongest}),
    Row<TextsTable, &TextSettings::tooLong>("too_long", "What happens to a longer one: it is refused, or what is beyond is cut off."),
};

constexpr Key kFaceKeys[] = {
    Row<FaceTable, &FaceName::face>("face", "The face.", {.isRequired = true}),
    Row<FaceTable, &FaceName::name>("name", "What the machine calls it.", {.defaultNote = "as the job file names it"}),
    Row<FaceTable, &FaceName::isXMirrored>("mirror_x", "Whether X counts from the member's end."),
    Row<FaceTable, &FaceName::isYMirrored>("mirror_y", "Whether Y counts from the opposite edge, where the face ends by the member type's zero line or `attributes`; of a round tube round its surface. Refused where the width of the face is not known."),
    Row<FaceTable, &FaceName::xOffset>("x_offset", "Is added to X.", {.range = kOffset, .unit = "mm"}),
    Row<FaceTable, &FaceName::yOffset>("y_offset", "Is added to Y.", {.range = kOffset, .unit = "mm"}),
};

constexpr Key kToolKeys[] = {
    Row<ToolTable, &ToolTable::part>("kind", "What it makes.", {.isRequired = true}),
    Row<ToolTable, &ToolNumber::diameter>("diameter", "Diameter of hole or countersunk, width of slot, rectangle or notch; within 0.05.", {.range = kToolSize, .unit = "mm", .defaultNote = "any"}),
    Row<ToolTable, &ToolNumber::length>("length", "Length of slot, rectangle or notch; within 0.05.", {.range = kToolSize, .unit = "mm", .defaultNote = "any"}),
    Row<ToolTable, &ToolNumber::code>("code", "Pattern of the code; `*` stands for any text, `?` for one character.", {.defaultNote = "any"}),
    Row<ToolTable, &ToolNumber::number>("number", "What `{tool}` shows.", {.isRequired = true}),
};

constexpr Key kProfileKeys[] = {
    Row<ProfileTable, &ProfileName::pattern>("profile", "Pattern of the profile name; `*` stands for any text, `?` for one character.", {.isRequired = true}),
    Row<ProfileTable, &ProfileName::name>("name", "What the machine calls it.", {.isRequired = true}),
};

constexpr Key kLineKeys[] = {
    Row<LineTable, &LineTable::parts>("for", "What the lines are written for.", {.isRequired = true}),
    Row<LineTable, &LineTable::texts>("text", "The lines, with values in braces; [] for none.", {.defaultNote = "required"}),
    Row<LineTable, &LineTable::faces>("faces", "Faces of the operations.", {.defaultNote = "any"}),
    Row<LineTable, &LineTable::codes>("codes", "Patterns of their codes.", {.defaultNote = "any"}),
    Row<LineTable, &LineTable::groups>("groups", "Patterns of the groups' ids.", {.defaultNote = "any"}),
    Row<LineTable, &LineTable::repeat>("repeat", "One line for operations that are alike and lie evenly along X, or across along Y: `{count}` and `{pitch}` tell how many and how far apart.", {.defaultNote = "none"}),
    Row<LineTable, &LineTable::least>("least", "How many such operations it takes at least.", {.range = kLeast, .defaultNote = "2"}),
    Row<LineTable, &LineTable::between>("between", "Of a line for `point`: what stands between two in `{points}`.", {.defaultNote = "a blank"}),
};

constexpr KeyTable kFormatTable{kFormatKeys};
constexpr KeyTable kNumberTable{kNumberKeys};
constexpr KeyTable kTextTable{kTextKeys};
constexpr KeyTable kFaceTable{kFaceKeys};
constexpr KeyTable kToolTable{kToolKeys};
constexpr KeyTable kProfileTable{kProfileKeys};
constexpr KeyTable kLineTable{kLineKeys};

}  // namespace

template <> constexpr const KeyTable& KeysOf<FormatTable>() { return kFormatTable; }
template <> constexpr const KeyTable& KeysOf<NumberSettings>() { return kNumberTable; }
template <> constexpr const KeyTable& KeysOf<TextsTable>() { return kTextTable; }
template <> constexpr const KeyTable& KeysOf<FaceTable>() { return kFaceTable; }
template <> constexpr const KeyTable& KeysOf<ToolTable>() { return kToolTable; }
template <> constexpr const KeyTable& KeysOf<ProfileTable>() { return kProfileTable; }
template <> constexpr const KeyTable& KeysOf<LineTable>() { return kLineTable; }

namespace {

constexpr Key kDocumentKeys[] = {
    Row<FormatDocument, &FormatDocument::format>("format", "The format as a whole.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::numbers>("numbers", "How numbers are written.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::texts>("texts", "How texts are written: names, codes, marks. What stands outside of braces stays as it is.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::faces>("face", "What the machine calls a face, and where its coordinates begin.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::tools>("tool", "The number of a tool. The first that fits is an operation's.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::profiles>("profile", "What the machine calls a profile. The first that fits counts.", {.isTop = true}),
    Row<FormatDocument, &FormatDocument::lines>("line", "Lines of the file. Of those for one thing the first that fits is written; an operation that none fits is refused.", {.isRequired = true, .isTop = true}),
};
constexpr KeyTable kDocumentTable{kDocumentKeys};

// clang-format on

}  // namespace

const char* NameOf(FormatPart part) {
    return kParts[static_cast<std::size_t>(part)].word;
}

FormatDocument ReadFormatTables(const toml::table& file, JobFaults& faults) {
    FormatDocument document;
    ReadTable(kDocumentTable, "", file, &document, faults);
    return document;
}

std::vector<JobKeyTable> ListFormatKeys() {
    return ListKeys(kDocumentTable);
}

}  // namespace job

#include "dstv/NcParser.h"

#include "dstv/NcHeaderShift.h"
#include "dstv/NcReader.h"
#include "dstv/NcText.h"
#include "profiles/SectionWalls.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <string>
#include <utility>

namespace dstv {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// The end-of-file character of old systems.
constexpr char kOldEndOfFile = 0x1A;

constexpr wchar_t kAside[] = L"kept beside the NC data, which have no place for it";
/// The centre of a hole, a mark or a text may lie beyond its face by this, mm.
constexpr double kHoleSlack = 0.5;

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\t'; });
}

bool IsComment(const NcLine& line) {
    return line.text.substr(0, 2) == "**";
}

std::string_view WithoutMarks(std::string_view bytes) {
    if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        bytes.remove_prefix(kByteOrderMark.size());
    if (!bytes.empty() && bytes.back() == kOldEndOfFile)
        bytes.remove_suffix(1);
    return bytes;
}

ZetString Quoted(const NcBlockCode& code) {
    return DecodeText(code.text);
}

}  // namespace

/// How the lines of one kind of block are read.
struct NcParser::BlockReader {
    NcBlockType type;
    void (NcParser::*read)(NcTokens& tokens);
    const wchar_t* remark;  ///< what the user is told about the block; null: nothing
};

const std::array<NcParser::BlockReader, 13> NcParser::kReaders = {
    {
     {NcBlockType::kHoles, &NcParser::ReadHole, nullptr},
     {NcBlockType::kNumerations, &NcParser::ReadNumeration, nullptr},
     {NcBlockType::kOuter, &NcParser::ReadContourLine, nullptr},
     {NcBlockType::kInner, &NcParser::ReadContourLine, nullptr},
     {NcBlockType::kPowder, &NcParser::ReadMarkLine, nullptr},
     {NcBlockType::kPunch, &NcParser::ReadMarkLine, nullptr},
     {NcBlockType::kPlane, &NcParser::ReadPlaneLine, nullptr},
     {NcBlockType::kBends, &NcParser::ReadBend, kAside},
     {NcBlockType::kSawCuts, &NcParser::ReadSawCut, nullptr},
     {NcBlockType::kSection, &NcParser::ReadSectionLine, kAside},
     {NcBlockType::kTolerance, &NcParser::ReadTolerance, kAside},
     {NcBlockType::kCamber, &NcParser::ReadCamber, kAside},
     {NcBlockType::kInformation, &NcParser::ReadInformation, kAside},
     }
};

NcPart NcParser::Parse(std::string_view bytes) {
    NcLines lines(WithoutMarks(bytes));
    FindStart(lines);
    ReadHeader(lines);
    SetLimits();
    NcLine line;
    while (m_errors.size() < kMaxErrors && !m_isBeyondLimit && lines.Next(line))
        ReadLine(line);
    if (!m_isBeyondLimit)
        Try([this] { EndBlock(); });
    FailWithAll();
    return Finish();
}

void NcParser::FailAtLimit(const NcLine& line, const wchar_t* what, const wchar_t* limit) {
    m_isBeyondLimit = true;
    FailAt(line, what, Trimmed(line.text), limit);
}

void NcParser::FailWithAll() {
    if (m_errors.empty())
        return;
    // A contour is judged at its end, with the line of its beginning.
    std::stable_sort(m_errors.begin(), m_errors.end(), [](const NcError& a, const NcError& b) {
        return a.line < b.line;
    });
    NcFailure failure{std::move(m_errors.front())};
    failure.error.further.assign(std::make_move_iterator(m_errors.begin() + 1),
                                 std::make_move_iterator(m_errors.end()));
    throw failure;
}

bool NcParser::KeepComment(const NcLine& line) {
    if (!IsComment(line))
        return false;
    m_part.comments.push_back(
        {line.number, {}, DecodeWithoutControls(Trimmed(line.text.substr(2)))});
    return true;
}

void NcParser::FindStart(NcLines& lines) {
    NcLine line = {1, {}};
    while (lines.Next(line)) {
        if (Trimmed(line.text).empty())
            continue;
        if (!KeepComment(line))
            break;
        if (m_part.comments.size() == 1)
            m_notes.Note(line.number, L"comment before ST");
    }
    const NcBlockCode code = BlockCodeOf(Trimmed(line.text));
    if (code.type != NcBlockType::kStart)
        FailAt(line, L"first line", Trimmed(line.text), L"ST");
    if (!code.isInCapitals)
        m_notes.Warn(line.number, L"block code \"st\" is not in capitals");
    m_part.header.line = line.number;
}

void NcParser::ReadHeader(NcLines& lines) {
    std::vector<NcLine> values;
    values.reserve(NcHeaderReader::kRequired);
    try {
        ReadHeaderLines(lines, values);
    } catch (NcFailure& failure) {
        TellShift(lines, values, failure.error);
        throw;
    }
}

/// A line that is missing or too many is found some lines later: the values behind show it.
void NcParser::TellShift(NcLines& lines, std::vector<NcLine>& values, NcError& error) const {
    const std::size_t wrong = values.size() - 1;
    NcLine line;
    while (values.size() < NcHeaderReader::kRequired && lines.Next(line))
        if (!IsComment(line))
            values.push_back(line);
    if (wrong < values.size())
        error.expected += HintOfShiftedHeader(values, wrong);
}

void NcParser::ReadHeaderLines(NcLines& lines, std::vector<NcLine>& values) {
    long last = m_part.header.line;
    NcLine line;
    while (!m_header.IsComplete() && lines.Next(line)) {
        last = line.number;
        if (KeepComment(line))
            continue;
        if (m_header.CanEnd() && !BlockCodeOf(line.text).text.empty())
            return ReadLine(line);
        values.push_back(line);
        m_header.Read(line);
    }
    if (!m_header.CanEnd())
        FailAt({last, {}},
               L"header",
               std::to_string(m_header.GetCount()) + " lines, then the end of the file",
               L"20 lines");
}

void NcParser::ReadLine(const NcLine& line) {
    if (m_isAfterSecondStart || IsBlank(line.text))
        return;
    // Nearly all lines are data behind blanks.
    const bool isBehindBlanks = line.text.front() == ' ' || line.text.front() == '\t';
    if (!isBehindBlanks && (KeepComment(line) || TakeBlockCode(line)))
        return;
    const bool isRead = Try([&] { ReadDataLine(line); });
    m_block.isBroken = m_block.isBroken || !isRead;
}

/// False for a line that begins no block.
bool NcParser::TakeBlockCode(const NcLine& line) {
    NcBlockCode code = BlockCodeOf(line.text);
    if (code.text.empty())
        return false;
    Try([this] { EndBlock(); });
    StartBlock(std::move(code), line);
    return true;
}

void NcParser::StartBlock(NcBlockCode code, const NcLine& line) {
    m_block = {};
    m_block.line = line;
    m_block.code = std::move(code);
    const NcBlockType type = m_block.code.type;
    const auto* reader = std::find_if(
        kReaders.begin(), kReaders.end(), [&](const BlockReader& r) { return r.type == type; });
    m_block.reader = reader == kReaders.end() ? nullptr : reader;
    m_isAfterSecondStart = type == NcBlockType::kStart;
    NoteBlock();
    m_isAfterEnd = m_isAfterEnd || type == NcBlockType::kEnd;
    if (m_block.reader != nullptr && m_block.code.plane >= 0 && type != NcBlockType::kPlane) {
        m_block.place = PlaceOfPlane(m_block.code.plane);
        m_block.hasPlace = true;
    }
}

void NcParser::NoteBlock() {
    const NcBlockCode& code = m_block.code;
    const long line = m_block.line.number;
    if (!code.isInCapitals)
        m_notes.Warn(line,
                     ZetString::format(L"block code \"%s\" is not in capitals",
                                       Quotable(Trimmed(m_block.line.text))));
    if (code.type == NcBlockType::kStart || code.type == NcBlockType::kUnknown)
        m_part.skippedBlocks.push_back({line});
    if (code.type == NcBlockType::kStart)
        m_notes.Account(NcNote::Severity::kWarning,
                        line,
                        L"a second part begins here: only the first one is read");
    if (code.type == NcBlockType::kUnknown)
        m_notes.Account(NcNote::Severity::kWarning,
                        line,
                        ZetString::format(L"block %s is not known: skipped", Quoted(code)));
    if (m_block.reader == nullptr)
        return;
    if (m_isAfterEnd)
        m_notes.Warn(line, ZetString::format(L"block %s after EN: read", Quoted(code)));
    NotePurpose();
}

void NcParser::NotePurpose() {
    const BlockReader* reader = m_block.reader;
    if (reader->remark == nullptr)
        return;
    m_part.skippedBlocks.push_back({m_block.line.number});
    m_notes.Account(NcNote::Severity::kNote,
                    m_block.line.number,
                    ZetString::format(L"block %s: %s", Quoted(m_block.code), reader->remark));
}

/// A plane without lines is refused; other blocks with a remark are told by that.
void NcParser::NoteEmptyBlock() {
    const BlockReader* const reader = m_block.reader;
    if (reader == nullptr || reader->remark != nullptr || m_block.hasLines ||
        reader->type == NcBlockType::kPlane)
        return;
    const long line = m_block.line.number;
    m_part.skippedBlocks.push_back({line});
    m_notes.Account(NcNote::Severity::kNote,
                    line,
                    ZetString::format(L"block %s has no lines", Quoted(m_block.code)));
}

void NcParser::EndBlock() {
    NoteEmptyBlock();
    FinishOutline();
    FinishSection();
    FinishPlane();
}

void NcParser::ReadDataLine(const NcLine& line) {
    if (m_block.reader == nullptr) {
        // The lines of an unknown block are covered by its warning.
        if (m_block.code.type != NcBlockType::kUnknown || m_block.code.text.empty())
            m_notes.Warn(line.number,
                         ZetString::format(L"line outside of any block: skipped \"%s\"",
                                           Quotable(Trimmed(line.text))));
        return;
    }
    m_block.hasLines = true;
    NcTokens tokens(line);
    // Of texts only control characters can be wrong, and those no file may have.
    if (m_block.reader->remark != nullptr && m_block.code.type != NcBlockType::kInformation)
        ReadAside(tokens);
    else
        (this->*m_block.reader->read)(tokens);
}

void NcParser::ReadAside(NcTokens& tokens) {
    // Nothing in the NC data depends on these lines: a bad one is no reason to refuse the part.
    try {
        (this->*m_block.reader->read)(tokens);
    } catch (const NcFailure& failure) {
        const NcError& error = failure.error;
        m_notes.Warn(error.line,
                     ZetString::format(L"block %s: %s \"%s\": expected %s: line skipped",
                                       Quoted(m_block.code),
                                       error.what,
                                       error.found,
                                       error.expected));
    }
}

NcPlace NcParser::PlaceOfPlane(int number) {
    const long known = m_planeOfNumber[static_cast<std::size_t>(number)];
    if (known >= 0)
        return {NcFace::kPlane, known};
    // Perhaps its En follows: marked by -2 and below until then.
    m_early.emplace_back(number, m_block.line);
    return {NcFace::kPlane, -2 - number};
}

NcPlace NcParser::TakePlace(NcTokens& tokens) {
    struct FaceLetter {
        char letter;
        NcFace face;
    };
    static constexpr FaceLetter kFaces[] = {
        {'v', NcFace::kFront },
        {'o', NcFace::kTop   },
        {'u', NcFace::kBottom},
        {'h', NcFace::kBehind}
    };
    const char letter = tokens.TakeLetterOf("vouh", L"face", L"v, o, u or h");
    if (m_block.place.face == NcFace::kPlane && letter != 0)
        m_notes.Warn(tokens.GetLine().number,
                     L"face letter in a block on a plane: it does not count");
    else if (letter != 0)
        m_block.place = {std::find_if(std::begin(kFaces),
                                      std::end(kFaces),
                                      [&](const FaceLetter& row) { return row.letter == letter; })
                             ->face,
                         -1};
    m_block.hasPlace = m_block.hasPlace || letter != 0;
    if (!m_block.hasPlace)
        tokens.Fail(L"face", L"v, o, u or h");
    return m_block.place;
}

char NcParser::TakeReference(NcTokens& tokens) {
    if (const char letter = tokens.TakeLetterOf("osu", L"reference", L"o, s, u or none"))
        m_block.reference = letter;
    return m_block.reference;
}

void NcParser::SetLimits() {
    const NcHeader& header = m_part.header;
    const std::wstring_view code = header.profileCode.view();
    const double height = header.profileHeight;
    const double depth = code == L"B" ? header.webThickness : header.flangeWidth;
    for (const NcFace face : {NcFace::kTop, NcFace::kFront, NcFace::kBottom, NcFace::kBehind}) {
        const bool isFlange = face == NcFace::kTop || face == NcFace::kBottom;
        double width = isFlange && !profiles::IsRound(code) ? depth : height;
        if (profiles::IsUnrolled(code, static_cast<int>(face)))
            width *= std::numbers::pi;
        m_limits[static_cast<std::size_t>(face)] = {header.length, width};
    }
}

/// Of a hole the centre. False when it is told.
bool NcParser::CheckPlace(const wchar_t* what,
                          long line,
                          const NcPlace& place,
                          const ZetGeomPoint2d& at) {
    if (place.face == NcFace::kPlane)
        return true;
    const ZetGeomPoint2d& limits = LimitsOf(place.face);
    const bool isAlong = at.x <= limits.x + kHoleSlack;
    const bool isAcross = limits.y == 0.0 || (at.y >= -kHoleSlack && at.y <= limits.y + kHoleSlack);
    if (at.x < 0.0)
        m_notes.Warn(line, ZetString::format(L"%s with a negative X", ZetString(what)));
    else if (!isAlong || !isAcross)
        m_notes.Warn(line, ZetString::format(L"%s outside of its face", ZetString(what)));
    return at.x >= 0.0 && isAlong && isAcross;
}

void NcParser::Spend(std::size_t points, const NcLine& line) {
    m_outlinePoints += points;
    if (m_outlinePoints > kMaxOutlinePoints)
        FailAtLimit(line, L"outline", L"at most 200000 points in one file");
}

}  // namespace dstv

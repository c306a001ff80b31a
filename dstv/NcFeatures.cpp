#include "dstv/NcGeometry.h"
#include "dstv/NcParser.h"
#include "dstv/NcReader.h"
#include "dstv/NcText.h"

#include <algorithm>
#include <utility>

// Blocks whose lines stand for themselves: holes, texts, bends, cuts, tolerances, camber, orders.

namespace dstv {
namespace {

constexpr wchar_t kMm[] = L"a number in mm";
constexpr wchar_t kSize[] = L"a number in mm that is not negative";
constexpr wchar_t kDegrees[] = L"a number in degrees";
/// A list of so many is made at once.
constexpr std::size_t kUsualHoles = 24;

NcHoleKind KindOf(char letter) {
    switch (letter) {
        case 'g':
            return NcHoleKind::kThreadRight;
        case 'l':
            return NcHoleKind::kThreadLeft;
        case 's':
            return NcHoleKind::kCountersunk;
        case 'm':
            return NcHoleKind::kMark;
        default:
            return NcHoleKind::kPlain;
    }
}

NcHoleForm FormOf(const NcHole& hole) {
    const bool isWide = hole.slotWidth > 0.0;
    const bool isHigh = hole.slotHeight > 0.0;
    if (hole.kind == NcHoleKind::kMark || (hole.diameter == 0.0 && !(isWide && isHigh)))
        return NcHoleForm::kMark;
    if (isWide && isHigh)
        return NcHoleForm::kRectangle;
    return isWide || isHigh ? NcHoleForm::kSlot : NcHoleForm::kRound;
}

ZetGeomPoint2d CentreOf(const NcHole& hole) {
    if (hole.slotWidth == 0.0 && hole.slotHeight == 0.0)
        return {hole.x, hole.q};
    const ZetGeomVector2d u = DirectionAt(hole.slotAngle);
    return {hole.x + (hole.slotWidth * u.x - hole.slotHeight * u.y) / 2.0,
            hole.q + (hole.slotWidth * u.y + hole.slotHeight * u.x) / 2.0};
}

}  // namespace

void NcParser::ReadHole(NcTokens& tokens) {
    NcHole hole;
    hole.line = tokens.GetLine().number;
    hole.place = TakePlace(tokens);
    hole.x = tokens.TakeNumber(L"hole X", kMm);
    hole.reference = TakeReference(tokens);
    hole.q = tokens.TakeNumber(L"hole Y", kMm);
    hole.kind = KindOf(tokens.TakeLetterOf("glms", L"hole code", L"g, l, m, s or none"));
    if (hole.kind != NcHoleKind::kMark || !tokens.IsAtEnd())
        hole.diameter = tokens.TakeSize(L"hole diameter", kSize);
    if (tokens.IsAtNumber())
        hole.depth = tokens.TakeSize(L"hole depth", kSize);
    ReadSlot(tokens, hole);
    tokens.ExpectEnd();
    FinishHole(hole, tokens.GetLine());
}

void NcParser::FinishHole(NcHole& hole, const NcLine& line) {
    hole.form = FormOf(hole);
    if (hole.form == NcHoleForm::kMark)
        NoteMark(hole);
    if (hole.form == NcHoleForm::kRectangle)
        hole.outline = RectangleOutline(
            {hole.x, hole.q}, hole.slotWidth, hole.slotHeight, hole.diameter, hole.slotAngle);
    WarnOfLostKind(hole);
    Spend(hole.outline.size(), line);
    if (m_part.holes.size() == kMaxHoles)
        FailAtLimit(line, L"hole", L"at most 100000 holes in one file");
    CheckPlace(hole.form == NcHoleForm::kMark ? L"mark" : L"hole",
               line.number,
               hole.place,
               CentreOf(hole));
    if (m_part.holes.empty())
        m_part.holes.reserve(kUsualHoles);
    m_part.holes.push_back(std::move(hole));
}

/// NC data has marks of no size.
void NcParser::NoteMark(NcHole& hole) {
    const NcHoleKind kind = std::exchange(hole.kind, NcHoleKind::kMark);
    const bool isAskedFor = kind == NcHoleKind::kMark;
    if (!isAskedFor && kind != NcHoleKind::kPlain)
        m_notes.Note(
            hole.line,
            ZetString::format(L"%s without a diameter: read as a punch mark",
                              kind == NcHoleKind::kCountersunk ? L"countersink" : L"thread"));
    if (hole.slotWidth + hole.slotHeight > 0.0)
        m_notes.Note(hole.line,
                     ZetString::format(L"slot %s: read as a line to be marked",
                                       isAskedFor ? L"of a punch mark" : L"without a diameter"));
    if (hole.diameter + hole.depth > 0.0)
        m_notes.Note(hole.line, L"diameter or depth of a punch mark: it does not count");
}

/// NC data has threads of round holes only, and neither countersinks nor depths of openings.
void NcParser::WarnOfLostKind(const NcHole& hole) {
    const bool isRectangle = hole.form == NcHoleForm::kRectangle;
    const bool isThread =
        hole.kind == NcHoleKind::kThreadRight || hole.kind == NcHoleKind::kThreadLeft;
    const bool isLost = isThread || (isRectangle && hole.kind == NcHoleKind::kCountersunk);
    if (isLost && (isRectangle || hole.form == NcHoleForm::kSlot))
        m_notes.Warn(hole.line,
                     ZetString::format(L"%s of a %s: it does not count",
                                       isThread ? L"thread" : L"countersink",
                                       isRectangle ? L"rectangle" : L"slot"));
    if (isRectangle && hole.depth > 0.0)
        m_notes.Warn(hole.line, L"depth of a rectangle: it does not count, it goes through");
}

void NcParser::ReadSlot(NcTokens& tokens, NcHole& hole) {
    const bool hasLetter = tokens.TakeLetterOf("l", L"slot letter", L"l or none") != 0;
    if (!hasLetter && tokens.IsAtEnd())
        return;
    hole.slotWidth = tokens.TakeSize(L"slot width", kSize);
    if (!hasLetter && tokens.TakeLetterOf("l", L"slot height", kSize) != 0)
        tokens.Fail(L"slot", L"diameter, depth, then the letter l, width, height and angle");
    if (hasLetter || !tokens.IsAtEnd())
        hole.slotHeight = tokens.TakeSize(L"slot height", kSize);
    if (hasLetter || !tokens.IsAtEnd())
        hole.slotAngle = tokens.TakeNumber(L"slot angle", kDegrees);
    if (hasLetter)
        return;
    // Without the letter the numbers are zeros that fill the line; a sink may have its angle there.
    if (hole.slotWidth != 0.0 || hole.slotHeight != 0.0)
        m_notes.Warn(tokens.GetLine().number, L"slot without the letter l: read as a slot");
    else if (hole.kind == NcHoleKind::kCountersunk)
        hole.sinkAngle = std::exchange(hole.slotAngle, 0.0);
}

void NcParser::ReadNumeration(NcTokens& tokens) {
    NcNumeration text;
    text.line = tokens.GetLine().number;
    text.place = TakePlace(tokens);
    text.x = tokens.TakeNumber(L"text X", kMm);
    text.reference = TakeReference(tokens);
    text.q = tokens.TakeNumber(L"text Y", kMm);
    text.angle = tokens.TakeNumber(L"text angle", kDegrees);
    if (tokens.IsAtNumber())
        text.textHeight = tokens.TakeSize(L"text height", kSize);
    else
        m_notes.Note(text.line, L"text without a height");
    text.rule = tokens.TakeGlued("rz");
    text.text = TextAt(tokens.GetLine(), tokens.GetRest());
    if (text.IsEmpty())
        m_notes.Account(
            NcNote::Severity::kWarning, text.line, L"text without characters: not made");
    CheckPlace(L"text", text.line, text.place, {text.x, text.q});
    m_part.numerations.push_back(std::move(text));
}

void NcParser::ReadBend(NcTokens& tokens) {
    NcBend bend;
    bend.line = tokens.GetLine().number;
    for (double* value : {&bend.start.x, &bend.start.y, &bend.end.x, &bend.end.y})
        *value = tokens.TakeNumber(L"bend", L"X and Y of two points");
    bend.angle = tokens.TakeNumber(L"bend angle", kDegrees);
    if (!tokens.IsAtEnd())
        bend.radius = tokens.TakeNumber(L"bend radius", kMm);
    tokens.ExpectEnd();
    m_part.bends.push_back(bend);
}

void NcParser::ReadSawCut(NcTokens& tokens) {
    NcSawCut cut;
    cut.line = tokens.GetLine().number;
    for (double* value : {&cut.point.x, &cut.point.y, &cut.point.z})
        *value = tokens.TakeNumber(L"saw cut", L"X, Y and Z of a point");
    for (double* value : {&cut.normal.x, &cut.normal.y, &cut.normal.z})
        *value = tokens.TakeNumber(L"saw cut", L"X, Y and Z of a normal");
    tokens.ExpectEnd();
    m_part.sawCuts.push_back(cut);
}

void NcParser::ReadTolerance(NcTokens& tokens) {
    NcTolerance tolerance;
    tolerance.line = tokens.GetLine().number;
    tolerance.minimum = tokens.TakeNumber(L"tolerance", kMm);
    tolerance.maximum = tokens.TakeNumber(L"tolerance", kMm);
    tokens.ExpectEnd();
    m_part.tolerances.push_back(tolerance);
}

void NcParser::ReadCamber(NcTokens& tokens) {
    NcCamber camber;
    camber.line = tokens.GetLine().number;
    camber.face = TakePlace(tokens).face;
    camber.x = tokens.TakeNumber(L"camber X", kMm);
    TakeReference(tokens);
    camber.q = tokens.TakeNumber(L"camber Y", kMm);
    tokens.ExpectEnd();
    m_part.cambers.push_back(camber);
}

void NcParser::ReadInformation(NcTokens& tokens) {
    const std::string_view text = tokens.GetRest();
    const std::size_t colon = std::min(text.find(':'), text.size());
    const std::string_view value = text.substr(std::min(colon + 1, text.size()));
    m_part.information.push_back({tokens.GetLine().number,
                                  TextAt(tokens.GetLine(), Trimmed(text.substr(0, colon))),
                                  TextAt(tokens.GetLine(), Trimmed(value))});
}

}  // namespace dstv

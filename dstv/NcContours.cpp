#include "dstv/NcGeometry.h"
#include "dstv/NcParser.h"
#include "dstv/NcPlanes.h"
#include "dstv/NcText.h"

#include "camdata/platform/geometry/SelfCrossing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

// Blocks whose lines belong together: contours, marks, sections, planes.

namespace dstv {
namespace {

constexpr wchar_t kMm[] = L"a number in mm";
constexpr wchar_t kContour[] = L"contour";
/// Points nearer than this are the same point, mm.
constexpr double kSamePoint = 0.01;
/// A plane's axes may miss the right angle by this without a note, degrees.
constexpr double kSkewSlack = 0.1;
/// A plane may lie off the piece by this without a word, mm.
constexpr double kBeside = 1.0;
/// Lists of so many are made at once.
constexpr std::size_t kUsualPoints = 16;

ZetGeomPoint2d PointOf(const NcContourPoint& point) {
    return {point.x, point.q};
}

bool AreSame(const NcContourPoint& a, const NcContourPoint& b) {
    return std::abs(a.x - b.x) <= kSamePoint && std::abs(a.q - b.q) <= kSamePoint;
}

/// True when all that follows a contour is its closing point once more.
bool RepeatsClosingPoint(const NcOpenOutline& outline, const std::vector<NcContour>& contours) {
    return !contours.empty() && outline.points.size() == 1 && outline.notchLines.empty() &&
           contours.back().place == outline.place &&
           AreSame(contours.back().points.back(), outline.points.front());
}

/// True when a closed outline is nowhere wider than the rounding of points.
bool HasNoArea(const Outline& outline) {
    double twiceArea = 0.0;
    double perimeter = 0.0;
    for (std::size_t i = 1; i < outline.size(); ++i) {
        const ZetGeomVector2d edge = outline[i] - outline[i - 1];
        twiceArea += (outline[i - 1] - outline.front()).cross(edge);
        perimeter += edge.length();
    }
    return std::abs(twiceArea) <= kSamePoint * perimeter;
}

/// The radius of an arc may miss that of its notch line by this, and its place that of the line's
/// corner by twice this, mm.
constexpr double kNotchSlack = 0.5;

bool HasRadiusOf(const NcNotchLine& notch, const NcContourPoint& arc) {
    return arc.radius != 0.0 &&
           std::abs(std::abs(arc.radius) - std::abs(notch.radius)) <= kNotchSlack;
}

/// True when an arc lies where a notch line asks for one: a fillet ends as far from the corner as
/// its tangents are long, a relief hole lies at the corner.
bool IsAt(const NcNotchLine& notch, const NcContourPoint& from, const NcContourPoint& to) {
    const double radius = std::abs(from.radius);
    const double sine = std::min((PointOf(to) - PointOf(from)).length() / (2.0 * radius), 1.0);
    const double tangents = radius * sine / std::sqrt(std::max(1.0 - sine * sine, 1e-12));
    const double reach = (notch.kind == 'w' ? 2.0 * radius : tangents) + 2.0 * kNotchSlack;
    const ZetGeomPoint2d corner = {notch.x, notch.q};
    return std::min((PointOf(from) - corner).length(), (PointOf(to) - corner).length()) <= reach;
}

/// The arc that a notch line asks for, of the three edges around it, by its first point; nothing
/// when there is none left. A corner far outside of the piece tells no place.
std::optional<std::size_t> ArcOf(const NcNotchLine& notch,
                                 bool isAnywhere,
                                 const std::vector<NcContourPoint>& points,
                                 const std::vector<char>& isTaken) {
    const auto edges = static_cast<long>(points.size()) - 1;
    for (const long before : {1L, 0L, 2L}) {
        const auto edge = static_cast<std::size_t>((notch.afterPoint - before + edges) % edges);
        const NcContourPoint& from = points[edge];
        if (isTaken[edge] == 0 && HasRadiusOf(notch, from) &&
            (isAnywhere || IsAt(notch, from, points[edge + 1])))
            return edge;
    }
    return std::nullopt;
}

bool IsBevelled(const NcContourPoint& point) {
    return point.bevels[0].angle != 0.0 || point.bevels[1].angle != 0.0;
}

NcOpenOutline OutlineAt(const NcPlace& place) {
    NcOpenOutline outline;
    outline.place = place;
    outline.points.reserve(kUsualPoints);
    outline.lines.reserve(kUsualPoints);
    return outline;
}

}  // namespace

NcParser::OutlineLine NcParser::TakeOutlineLine(NcTokens& tokens) {
    OutlineLine read;
    read.place = TakePlace(tokens);
    read.point.x = tokens.TakeNumber(L"point X", kMm);
    read.reference = TakeReference(tokens);
    read.point.q = tokens.TakeNumber(L"point Y", kMm);
    read.notch = tokens.TakeLetterOf("tw", L"notch letter", L"t, w or none");
    read.point.radius = tokens.TakeNumberOr(0.0);
    for (NcBevel& bevel : read.point.bevels) {
        bevel.angle = tokens.TakeNumberOr(0.0);
        bevel.depth = tokens.TakeNumberOr(0.0);
    }
    tokens.ExpectEnd();
    return read;
}

void NcParser::ReadContourLine(NcTokens& tokens) {
    const OutlineLine read = TakeOutlineLine(tokens);
    const bool isNotch = read.notch != 0;
    // A notch line after the last point still belongs to the contour that it closes.
    if (m_outline && (m_outline->place != read.place || (m_outline->isClosed && !isNotch)))
        Try([this] { FinishOutline(); });
    if (!m_outline)
        m_outline = OutlineAt(read.place);
    if (!isNotch)
        return AddPoint(read, tokens.GetLine());
    m_outline->notchLines.push_back({tokens.GetLine().number,
                                     read.point.x,
                                     read.point.q,
                                     read.notch,
                                     read.point.radius,
                                     static_cast<long>(m_outline->points.size())});
}

void NcParser::AddPoint(const OutlineLine& read, const NcLine& line) {
    NcOpenOutline& outline = *m_outline;
    if (outline.points.empty())
        outline.reference = read.reference;
    outline.points.push_back(read.point);
    outline.lines.push_back(line);
    outline.isClosed =
        outline.points.size() > 2 && AreSame(outline.points.front(), outline.points.back());
    if (!IsBevelled(read.point) || outline.hasBevels)
        return;
    outline.hasBevels = true;
    m_notes.Note(line.number, L"weld preparation: kept beside the NC data");
}

/// For the round end of a slot the theoretical corner does not exist, and exporters write anything.
bool NcParser::IsFarOutside(const NcNotchLine& notch) const {
    const double limit =
        2.0 * std::max({m_part.header.length, m_part.header.profileHeight, 1000.0});
    return std::abs(notch.x) > limit || std::abs(notch.q) > limit;
}

/// What a notch line asks for is made by an arc beside it; each makes one.
void NcParser::CheckNotchLines(NcContour& contour) {
    std::vector<char> isTaken(contour.points.size());
    for (NcNotchLine& notch : contour.notchLines) {
        const bool isFar = IsFarOutside(notch);
        const auto arc = ArcOf(notch, isFar, contour.points, isTaken);
        if (arc)
            isTaken[*arc] = 1;
        notch.isNoted = notch.radius != 0.0 && !arc;
        if (notch.isNoted)
            m_notes.Account(
                NcNote::Severity::kWarning,
                notch.line,
                ZetString::format(L"%s of radius %.2f without its arc in the contour: "
                                  L"not made",
                                  ZetString(notch.kind == 'w' ? L"relief hole" : L"fillet"),
                                  std::abs(notch.radius)));
        else if (isFar)
            m_notes.Warn(notch.line, L"notch line far outside of the piece: it does not count");
    }
}

void NcParser::ReadMarkLine(NcTokens& tokens) {
    const OutlineLine read = TakeOutlineLine(tokens);
    if (m_outline && m_outline->place != read.place)
        Try([this] { FinishOutline(); });
    if (!m_outline)
        m_outline = OutlineAt(read.place);
    AddPoint(read, tokens.GetLine());
}

void NcParser::FinishOutline() {
    if (!m_outline)
        return;
    NcOpenOutline outline = std::move(*m_outline);
    m_outline.reset();
    if (m_block.isBroken)
        return;
    const NcBlockType type = m_block.code.type;
    if (type == NcBlockType::kPowder || type == NcBlockType::kPunch)
        FinishMark(std::move(outline));
    else
        FinishContour(std::move(outline));
}

std::vector<ZetGeomPoint2d> NcParser::Chords(const NcOpenOutline& outline,
                                             std::vector<std::size_t>& sources) {
    Outline chords;
    chords.reserve(outline.points.size());
    chords.push_back(PointOf(outline.points.front()));
    sources.reserve(outline.points.size());
    for (std::size_t i = 0; i + 1 < outline.points.size(); ++i) {
        const ZetGeomPoint2d to = PointOf(outline.points[i + 1]);
        const double radius = outline.points[i].radius;
        const std::size_t before = chords.size();
        if (!AppendEdge(to, radius, chords))
            FailAt(outline.lines[i],
                   L"radius",
                   Trimmed(outline.lines[i].text),
                   ZetString::format(L"at least %.2f, half the distance to the next point",
                                     (to - chords.back()).length() / 2.0));
        Spend(chords.size() - before, outline.lines[i]);
        sources.resize(chords.size() - 1, i);
    }
    return chords;
}

void NcParser::CloseContour(NcOpenOutline& outline) {
    const NcContourPoint& first = outline.points.front();
    if (outline.isClosed) {
        outline.points.back().x = first.x;
        outline.points.back().q = first.q;
        return;
    }
    m_notes.Warn(outline.lines.back().number, L"contour is not closed: closed by a straight edge");
    outline.points.push_back({first.x, first.q, 0.0, {}});
}

std::vector<ZetGeomPoint2d> NcParser::CheckedOutline(const NcOpenOutline& outline) {
    const NcLine& first = outline.lines.front();
    std::vector<std::size_t> sources;
    Outline chords = Chords(outline, sources);
    if (chords.size() < 4)
        FailAt(first, kContour, Trimmed(first.text), L"at least 3 points that are not the same");
    if (const auto crossing = FindSelfCrossing(chords)) {
        const NcLine& line = outline.lines[sources[std::min(*crossing, sources.size() - 1)]];
        FailAt(line, kContour, Trimmed(line.text), L"an outline that does not cross itself");
    }
    if (std::any_of(chords.begin(), chords.end(), [](const auto& point) { return point.x < 0.0; }))
        m_notes.Warn(first.number, L"contour with a negative X");
    if (HasNoArea(chords))
        m_notes.Warn(first.number, L"contour without area");
    return chords;
}

/// A negative X is told by itself; an outline that is drawn about X = 0 is judged by its size.
/// Plates are drawn about Y = 0 too.
void NcParser::CheckReach(const NcContour& contour) {
    const NcFace face = contour.place.face;
    if (face == NcFace::kPlane)
        return;
    ZetGeomPoint2d low;
    ZetGeomPoint2d high = contour.outline.front();
    for (const ZetGeomPoint2d& point : contour.outline) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    const ZetGeomPoint2d limits = LimitsOf(face);
    // Flanges of a mitred piece may be longer than its web.
    const bool isFlange = face == NcFace::kTop || face == NcFace::kBottom;
    const double mitres = isFlange ? 2.0 * m_part.header.profileHeight : 0.0;
    const double start = contour.isInternal ? 0.0 : low.x;
    const double along = limits.x == 0.0 ? 0.0 : high.x - start - limits.x - mitres;
    const bool isPlate = m_part.header.profileCode == L"B";
    const double reachY = contour.isInternal ? std::max(-low.y, high.y) : high.y - low.y;
    const double beyondY = isPlate ? reachY - limits.y : std::max(-low.y, high.y - limits.y);
    const double across = limits.y == 0.0 ? 0.0 : beyondY;
    if (std::max(along, across) > kHeaderRounding)
        m_notes.Warn(contour.line,
                     ZetString::format(L"%s reaches beyond its face",
                                       contour.isInternal ? L"opening" : L"outline"));
}

void NcParser::FinishContour(NcOpenOutline outline) {
    const NcLine first = outline.lines.empty() ? m_block.line : outline.lines.front();
    if (RepeatsClosingPoint(outline, m_part.contours))
        return m_notes.Note(first.number,
                            L"closing point of a contour repeated: it does not count");
    if (outline.points.size() < 3)
        FailAt(first, kContour, Trimmed(first.text), L"at least 3 points");
    CloseContour(outline);
    NcContour contour;
    contour.line = first.number;
    contour.place = outline.place;
    contour.isInternal = m_block.code.type == NcBlockType::kInner;
    contour.reference = outline.reference;
    contour.outline = CheckedOutline(outline);
    contour.points = std::move(outline.points);
    contour.notchLines = std::move(outline.notchLines);
    CheckNotchLines(contour);
    CheckReach(contour);
    m_part.contours.push_back(std::move(contour));
}

void NcParser::FinishMark(NcOpenOutline outline) {
    std::vector<std::size_t> sources;
    NcMark mark;
    mark.line = outline.lines.front().number;
    mark.place = outline.place;
    mark.kind =
        m_block.code.type == NcBlockType::kPowder ? NcMarkKind::kPowder : NcMarkKind::kPunch;
    mark.outline = Chords(outline, sources);
    mark.points = std::move(outline.points);
    for (const ZetGeomPoint2d& point : mark.outline)
        if (!CheckPlace(L"mark", mark.line, mark.place, point))
            break;
    m_part.marks.push_back(std::move(mark));
}

void NcParser::ReadSectionLine(NcTokens& tokens) {
    const char sign = tokens.TakeSign();
    const bool isInner = sign == 0 ? m_section && m_section->isInner : sign == '-';
    NcSectionPoint point;
    point.y = tokens.TakeNumber(L"section y", kMm);
    point.z = tokens.TakeNumber(L"section z", kMm);
    point.radius = tokens.TakeNumberOr(0.0);
    tokens.ExpectEnd();
    if (m_section && m_section->isInner != isInner)
        FinishSection();
    if (!m_section)
        m_section = NcSection{tokens.GetLine().number, isInner, {}};
    m_section->points.push_back(point);
    const NcSectionPoint& first = m_section->points.front();
    if (m_section->points.size() > 2 && first.y == point.y && first.z == point.z)
        FinishSection();
}

void NcParser::FinishSection() {
    if (m_section)
        m_part.sections.push_back(std::move(*m_section));
    m_section.reset();
}

void NcParser::ReadPlaneLine(NcTokens& tokens) {
    do
        m_planeNumbers.push_back(tokens.TakeNumber(L"plane", L"nine numbers in mm"));
    while (!tokens.IsAtEnd() && m_planeNumbers.size() < 9);
    if (!tokens.IsAtEnd())
        tokens.Fail(L"plane", L"no more than nine numbers");
}

void NcParser::FinishPlane() {
    if (m_block.code.type != NcBlockType::kPlane)
        return;
    const std::vector<double> n = std::exchange(m_planeNumbers, {});
    if (m_block.isBroken)
        return;
    const auto refuse = [this](const wchar_t* expected) {
        FailAt(m_block.line, L"plane", Trimmed(m_block.line.text), expected);
    };
    if (n.size() != 9)
        refuse(L"nine numbers: origin, point on x, point on y");
    if (m_part.planes.size() == kMaxPlanes)
        FailAtLimit(m_block.line, L"plane", L"at most 1000 planes in one file");
    const auto plane = PlaneThrough({
        {{n[0], n[1], n[2]}, {n[3], n[4], n[5]}, {n[6], n[7], n[8]}}
    });
    if (!plane)
        refuse(L"three points that are not on one line");
    AddPlane(*plane);
}

void NcParser::AddPlane(const PlaneOfPoints& made) {
    const int number = m_block.code.plane;
    if (made.skew > kSkewSlack)
        m_notes.Warn(m_block.line.number,
                     ZetString::format(L"axes of the plane are %.2f degrees off a right angle: "
                                       L"the y axis is turned",
                                       made.skew));
    const NcFace face = StandardFaceOf(made.plane, m_part.header);
    if (IsBeside(made.plane.origin, face))
        m_notes.Warn(m_block.line.number,
                     L"plane beside the piece: it counts as the face that it is parallel to");
    m_planeOfNumber[static_cast<std::size_t>(number)] = static_cast<long>(m_part.planes.size());
    m_part.planes.push_back({m_block.line.number, number, made.plane, face});
}

/// Of a plane that is parallel to a face. Sections of their own may have their zero anywhere.
bool NcParser::IsBeside(const ZetGeomPoint3d& origin, NcFace face) const {
    if (face == NcFace::kPlane || m_part.header.profileCode == L"SO")
        return false;
    const bool isFlange = face == NcFace::kTop || face == NcFace::kBottom;
    const double at = isFlange ? origin.y : origin.z;
    const double depth = LimitsOf(isFlange ? NcFace::kBehind : NcFace::kTop).y;
    return depth > 0.0 && (at < -kBeside || at > depth + kBeside);
}

}  // namespace dstv

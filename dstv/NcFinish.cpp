#include "dstv/NcGeometry.h"
#include "dstv/NcParser.h"
#include "dstv/NcText.h"

#include <algorithm>
#include <cmath>
#include <set>

// What can only be decided when all lines of a file have been read.

namespace dstv {
namespace {

/// Which header values trim a face.
struct FaceCuts {
    NcFace face;
    const wchar_t* name;
    double NcHeader::*height;
    double NcHeader::*start;
    double NcHeader::*end;
    std::size_t startValue;  ///< header value of `start`, counted from 0; `end` is the next
};

constexpr std::array<FaceCuts, 3> kFaceCuts = {
    {
     {NcFace::kFront,
         L"v",
         &NcHeader::profileHeight,
         &NcHeader::webStartCut,
         &NcHeader::webEndCut,
         16},
     {NcFace::kTop,
         L"o",
         &NcHeader::flangeWidth,
         &NcHeader::flangeStartCut,
         &NcHeader::flangeEndCut,
         18},
     {NcFace::kBottom,
         L"u",
         &NcHeader::flangeWidth,
         &NcHeader::flangeStartCut,
         &NcHeader::flangeEndCut,
         18},
     }
};

constexpr double kSteepestCut = 89.0;
constexpr wchar_t kCut[] = L"skew cut";

/// True when a face of such a profile is no flat plate that a straight cut trims.
bool HasNoPlate(const NcHeader& header, NcFace face) {
    const bool isRound = header.profileCode == L"RO" || header.profileCode == L"RU";
    return isRound || (header.profileCode == L"B" && face != NcFace::kFront);
}

/// The standard face that a contour lies on, or its plane.
NcPlace StandardPlace(const NcPart& part, const NcPlace& place) {
    if (place.plane < 0)
        return place;
    const NcFace face = part.planes[static_cast<std::size_t>(place.plane)].face;
    return face == NcFace::kPlane ? place : NcPlace{face, -1};
}

}  // namespace

NcPart NcParser::Finish() {
    ResolvePlanes();
    NoteRepeatedOutlines();
    TrimFaces();
    m_part.notes = m_notes.Take();
    return std::move(m_part);
}

void NcParser::ResolvePlanes() {
    std::array<long, 10> firstOfNumber;
    firstOfNumber.fill(-1);
    for (long i = static_cast<long>(m_part.planes.size()); i-- > 0;)
        firstOfNumber[static_cast<std::size_t>(m_part.planes[static_cast<std::size_t>(i)].number)] =
            i;
    for (const auto& [number, line] : m_early)
        if (firstOfNumber[static_cast<std::size_t>(number)] < 0)
            FailAt(line,
                   L"block",
                   Trimmed(line.text),
                   ZetString::format(L"a block E%d that defines its plane", number));
    const auto resolve = [&](auto& features) {
        for (auto& feature : features)
            if (feature.place.plane <= -2)
                feature.place.plane =
                    firstOfNumber[static_cast<std::size_t>(-2 - feature.place.plane)];
    };
    resolve(m_part.holes);
    resolve(m_part.contours);
    resolve(m_part.marks);
    resolve(m_part.numerations);
}

void NcParser::NoteRepeatedOutlines() {
    std::set<std::pair<NcFace, long>> seen;
    for (const NcContour& contour : m_part.contours) {
        const NcPlace place = StandardPlace(m_part, contour.place);
        if (!contour.isInternal && !seen.emplace(place.face, place.plane).second)
            m_notes.Note(contour.line, L"another outline of the same face: kept apart");
    }
}

bool NcParser::HasOutline(NcFace face) const {
    return std::any_of(
        m_part.contours.begin(), m_part.contours.end(), [&](const NcContour& contour) {
            return !contour.isInternal && StandardPlace(m_part, contour.place).face == face;
        });
}

void NcParser::TrimFaces() {
    const NcHeader& header = m_part.header;
    for (const FaceCuts& cuts : kFaceCuts) {
        const double start = header.*cuts.start;
        const double end = header.*cuts.end;
        if ((start == 0.0 && end == 0.0) || HasOutline(cuts.face))
            continue;
        const NcLine& line = m_header.LineOf(start != 0.0 ? cuts.startValue : cuts.startValue + 1);
        const bool isTrimmed = !HasNoPlate(header, cuts.face) && header.*cuts.height > 0.0;
        if (isTrimmed)
            TrimFace(cuts.face, header.*cuts.height, {start, end}, line);
        const wchar_t* outcome =
            isTrimmed ? L"made from the skew cuts" : L"no plate that a skew cut could trim";
        m_notes.Note(line.number,
                     ZetString::format(L"face %s without an outline: %s", cuts.name, outcome));
    }
}

void NcParser::TrimFace(NcFace face,
                        double height,
                        const std::array<double, 2>& angles,
                        const NcLine& line) {
    if (std::max(std::abs(angles[0]), std::abs(angles[1])) > kSteepestCut)
        FailAt(line, kCut, Trimmed(line.text), L"angles from -89 to 89 degrees");
    NcContour contour;
    contour.outline = TrimmedOutline(m_part.header.length, height, angles[0], angles[1]);
    const Outline& corners = contour.outline;
    if (corners[0].x > corners[1].x || corners[3].x > corners[2].x)
        FailAt(line, kCut, Trimmed(line.text), L"an outline that does not cross itself");
    contour.line = line.number;
    contour.place = {face, -1};
    contour.fromHeader = true;
    for (const ZetGeomPoint2d& corner : corners)
        contour.points.push_back({corner.x, corner.y, 0.0, {}});
    m_part.contours.push_back(std::move(contour));
}

}  // namespace dstv

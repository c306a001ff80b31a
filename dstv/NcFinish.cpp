#include "dstv/NcCrowding.h"
#include "dstv/NcCuts.h"
#include "dstv/NcParser.h"
#include "dstv/NcText.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

// What can only be decided when all lines of a file have been read.

namespace dstv {
namespace {

/// An angle of the header.
struct HeaderCut {
    double NcHeader::*angle;
    std::size_t headerValue;  ///< counted from 0
    bool isAtEnd;
    bool isOnFlange;
};

constexpr HeaderCut kHeaderCuts[] = {
    {&NcHeader::webStartCut,    16, false, false},
    {&NcHeader::webEndCut,      17, true,  false},
    {&NcHeader::flangeStartCut, 18, false, true },
    {&NcHeader::flangeEndCut,   19, true,  true },
};

constexpr double kSteepestCut = 89.0;

constexpr wchar_t kAlongText[] = L"saw cut along the piece: not made";
constexpr wchar_t kNoNormalText[] = L"saw cut without a direction, its normal is 0: not made";

}  // namespace

NcPart NcParser::Finish() {
    ResolvePlanes();
    CheckCrowding();
    NoteRepeatedOutlines();
    CheckPlateSize();
    MakeCuts();
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

void NcParser::CheckCrowding() {
    if (const std::optional<long> line = FindCrowdedSlot(m_part))
        FailAt({*line, {}},
               L"holes in slots",
               "with this slot more than 1000000",
               L"at most 1000000 in one file, a hole counted once for each slot that it lies in");
}

void NcParser::NoteRepeatedOutlines() {
    std::set<std::pair<NcFace, long>> seen;
    for (const NcContour& contour : m_part.contours) {
        const NcPlace place = StandardPlace(m_part, contour.place);
        if (!contour.isInternal && !seen.emplace(place.face, place.plane).second)
            m_notes.Note(contour.line, L"another outline of the same face: kept apart");
    }
}

/// The outlines are the plate, whatever the header says.
void NcParser::CheckPlateSize() {
    const NcHeader& header = m_part.header;
    if (header.profileCode != L"B")
        return;
    std::vector<ZetGeomPoint2d> corners;
    long first = 0;
    for (const NcContour& contour : m_part.contours) {
        const NcFace face = StandardPlace(m_part, contour.place).face;
        if (contour.isInternal || (face != NcFace::kFront && face != NcFace::kBehind))
            continue;
        first = corners.empty() ? contour.line : first;
        corners.insert(corners.end(), contour.outline.begin(), contour.outline.end());
    }
    if (corners.empty())
        return;
    const auto [left, right] = std::minmax_element(
        corners.begin(), corners.end(), [](auto& a, auto& b) { return a.x < b.x; });
    const auto [low, high] = std::minmax_element(
        corners.begin(), corners.end(), [](auto& a, auto& b) { return a.y < b.y; });
    const ZetGeomVector2d size = {right->x - left->x, high->y - low->y};
    if (std::max(header.length - size.x, header.profileHeight - size.y) > kHeaderRounding)
        m_notes.Warn(first,
                     ZetString::format(L"outline of %.2f x %.2f is smaller than the plate of the "
                                       L"header, %.2f x %.2f",
                                       size.x,
                                       size.y,
                                       header.length,
                                       header.profileHeight));
}

/// The angles of the header, then the saw cuts.
void NcParser::MakeCuts() {
    for (const HeaderCut& value : kHeaderCuts) {
        const double angle = m_part.header.*value.angle;
        if (angle == 0.0)
            continue;
        NcCut cut;
        cut.line = m_header.LineOf(value.headerValue).number;
        cut.isFromHeader = true;
        cut.isAtEnd = value.isAtEnd;
        cut.isOnFlange = value.isOnFlange;
        cut.angle = angle;
        cut.x = value.isAtEnd ? m_part.header.length : 0.0;
        AddCut(cut, nullptr);
        if (!m_part.cuts.back().isNoted && std::abs(angle) > kSteepestCut)
            FailAt(m_header.LineOf(value.headerValue),
                   L"skew cut",
                   Trimmed(m_header.LineOf(value.headerValue).text),
                   L"angles from -89 to 89 degrees");
    }
    for (const NcSawCut& sawCut : m_part.sawCuts) {
        for (const NcCut& cut : CutsOf(sawCut, m_part.header))
            AddCut(cut, sawCut.normal.length() == 0.0 ? kNoNormalText : kAlongText);
    }
}

/// `fault`: what is told of one that is too steep; null: nothing.
void NcParser::AddCut(NcCut cut, const wchar_t* fault) {
    if (fault != nullptr && std::abs(cut.angle) > kSteepestCut) {
        m_notes.Account(NcNote::Severity::kWarning, cut.line, fault);
        cut.isNoted = true;
    } else if (IsCutByOutlines(m_part, cut)) {
        m_notes.Account(NcNote::Severity::kNote,
                        cut.line,
                        cut.angle == 0.0
                            ? L"straight cut: the outlines of the faces have it already"
                            : L"cut at an angle: the outlines of the faces have it already");
        cut.isNoted = true;
    }
    m_part.cuts.push_back(cut);
}

}  // namespace dstv

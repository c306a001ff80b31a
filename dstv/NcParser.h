#pragma once

#include "dstv/NcBlocks.h"
#include "dstv/NcHeaderReader.h"
#include "dstv/NcNotes.h"
#include "dstv/NcPart.h"
#include "dstv/NcPlanes.h"
#include "dstv/NcTokens.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace dstv {

/// The lines that make one contour or mark, until it is complete.
struct NcOpenOutline {
    NcPlace place;
    std::vector<NcContourPoint> points;
    std::vector<NcLine> lines;  ///< of the points
    std::vector<NcNotchLine> notchLines;
    char reference = 0;
    bool isClosed = false;
    bool hasBevels = false;
};

/// Reads one file, line by line. Raises NcFailure; serves for one file only.
///
/// NcParser.cpp holds the walk over the lines, NcFeatures.cpp the blocks whose lines stand for
/// themselves, NcContours.cpp those whose lines belong together, NcFinish.cpp what needs all lines.
class NcParser {
  public:
    NcParser() { m_planeOfNumber.fill(-1); }
    NcPart Parse(std::string_view bytes);

  private:
    struct BlockReader;
    static const std::array<BlockReader, 13> kReaders;

    /// The block that is being read.
    struct Block {
        NcBlockCode code;
        NcLine line;
        const BlockReader* reader = nullptr;  ///< null: its lines are skipped
        NcPlace place;
        bool hasPlace = false;
        bool isBroken =
            false;  ///< a line of it is wrong: what it would make together is not judged
        bool hasLines = false;
        char reference = 0;
    };

    /// One line of a contour or mark.
    struct OutlineLine {
        NcPlace place;
        NcContourPoint point;
        char reference = 0;
        char notch = 0;  ///< t or w; 0: a point of the contour
    };

    // The walk over the lines.
    void FindStart(NcLines& lines);
    void ReadHeader(NcLines& lines);
    void ReadHeaderLines(NcLines& lines, std::vector<NcLine>& values);
    void TellShift(NcLines& lines, std::vector<NcLine>& values, NcError& error) const;
    void ReadLine(const NcLine& line);
    bool TakeBlockCode(const NcLine& line);
    template <typename Step>
    bool Try(const Step& step);
    /// Ends the reading, for what follows would only be too many as well.
    [[noreturn]] void FailAtLimit(const NcLine& line, const wchar_t* what, const wchar_t* limit);
    void FailWithAll();
    void StartBlock(NcBlockCode code, const NcLine& line);
    void NoteBlock();
    void NotePurpose();
    void EndBlock();
    void NoteEmptyBlock();
    void ReadDataLine(const NcLine& line);
    void ReadAside(NcTokens& tokens);
    bool KeepComment(const NcLine& line);

    // What the lines of several blocks share.
    NcPlace PlaceOfPlane(int number);
    NcPlace TakePlace(NcTokens& tokens);
    char TakeReference(NcTokens& tokens);
    void SetLimits();
    /// Length and width of a face; 0: not told by the header.
    const ZetGeomPoint2d& LimitsOf(NcFace face) const {
        return m_limits[static_cast<std::size_t>(face)];
    }
    bool CheckPlace(const wchar_t* what, long line, const NcPlace& place, const ZetGeomPoint2d& at);
    void Spend(std::size_t points, const NcLine& line);

    // Lines that stand for themselves.
    void ReadHole(NcTokens& tokens);
    void ReadSlot(NcTokens& tokens, NcHole& hole);
    void FinishHole(NcHole& hole, const NcLine& line);
    void NoteMark(NcHole& hole);
    void WarnOfLostKind(const NcHole& hole);
    void ReadNumeration(NcTokens& tokens);
    void ReadBend(NcTokens& tokens);
    void ReadSawCut(NcTokens& tokens);
    void ReadTolerance(NcTokens& tokens);
    void ReadCamber(NcTokens& tokens);
    void ReadInformation(NcTokens& tokens);

    // Lines that belong together.
    OutlineLine TakeOutlineLine(NcTokens& tokens);
    void ReadContourLine(NcTokens& tokens);
    void ReadMarkLine(NcTokens& tokens);
    void ReadSectionLine(NcTokens& tokens);
    void ReadPlaneLine(NcTokens& tokens);
    void AddPoint(const OutlineLine& read, const NcLine& line);
    bool IsFarOutside(const NcNotchLine& notch) const;
    void CheckNotchLines(NcContour& contour);
    void FinishOutline();
    void CloseContour(NcOpenOutline& outline);
    std::vector<ZetGeomPoint2d> CheckedOutline(const NcOpenOutline& outline);
    void CheckReach(const NcContour& contour);
    void FinishContour(NcOpenOutline outline);
    void FinishMark(NcOpenOutline outline);
    void FinishSection();
    void FinishPlane();
    bool IsBeside(const ZetGeomPoint3d& origin, NcFace face) const;
    void AddPlane(const PlaneOfPoints& made);
    std::vector<ZetGeomPoint2d> Chords(const NcOpenOutline& outline,
                                       std::vector<std::size_t>& sources);

    // What needs all lines.
    /// Contours may reach beyond their face, or end short of a plate's, by this, mm: some headers
    /// give sizes in whole mm.
    static constexpr double kHeaderRounding = 1.0;

    NcPart Finish();
    void ResolvePlanes();
    void MakeCuts();
    void AddCut(NcCut cut, const wchar_t* fault);
    void CheckCrowding();
    void NoteRepeatedOutlines();
    void CheckPlateSize();

    NcPart m_part;
    NcNotes m_notes;
    std::vector<NcError> m_errors;  ///< of the blocks
    NcHeaderReader m_header{m_part.header, m_notes};
    std::array<ZetGeomPoint2d, 4> m_limits;  ///< by standard face
    Block m_block;
    bool m_isAfterEnd = false;
    bool m_isAfterSecondStart = false;
    bool m_isBeyondLimit = false;
    std::size_t m_outlinePoints = 0;

    std::array<long, 10> m_planeOfNumber{};       ///< index of the latest En; below 0: none yet
    std::vector<std::pair<int, NcLine>> m_early;  ///< blocks on a plane that comes after them
    std::optional<NcOpenOutline> m_outline;
    std::optional<NcSection> m_section;
    std::vector<double> m_planeNumbers;
};

/// One step of reading the blocks: false, and kept, when something is wrong; reading goes on.
template <typename Step>
bool NcParser::Try(const Step& step) {
    try {
        step();
        return true;
    } catch (NcFailure& failure) {
        m_errors.push_back(std::move(failure.error));
        return false;
    }
}

}  // namespace dstv

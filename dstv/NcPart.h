#pragma once

#include "dstv/NcNote.h"

#include "camdata/platform/geometry/ZetGeomPlane.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/text/ZetString.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

/// @file
/// One DSTV NC file (standard description for steel structure pieces for the numerical controls,
/// 7th edition, 1998) as plain data. Lengths in mm, angles in degrees.
///
/// Frame of the piece: right-handed, X along the piece from its start, Y across from the bottom
/// face (u, Y = 0) to the top face (o, Y = profile height), Z from the face behind (h, Z = 0) to
/// the front face (v). A line's (x, q) are X and Y on faces v and h, X and Z on faces o and u, and
/// the plane's own coordinates on a plane that an En block defines.

namespace dstv {

/// The face that a line belongs to. The values of the standard faces are their view positions.
enum class NcFace {
    kTop = 0,     ///< o
    kFront = 1,   ///< v
    kBottom = 2,  ///< u
    kBehind = 3,  ///< h
    kPlane = 5,   ///< a plane of its own
};

/// Where a line lies.
struct NcPlace {
    NcFace face = NcFace::kFront;
    long plane = -1;  ///< index into NcPart::planes; -1 on a standard face

    friend bool operator==(const NcPlace&, const NcPlace&) = default;
};

/// Header values by their place behind ST.
enum class NcHeaderValue : std::size_t {
    kDrawing = 1,
    kPhase = 2,
    kMark = 3,
    kQuantity = 5,
    kProfileName = 6,
    kLength = 8,
};

/// The 24 header values.
struct NcHeader {
    long line = 0;                 ///< of ST
    std::array<long, 20> lines{};  ///< of the values before the texts
    ZetString order;
    ZetString drawing;
    ZetString phase;
    ZetString mark;
    ZetString steelQuality;
    long quantity = 0;
    ZetString profileName;
    ZetString profileCode;  ///< I L U B RU RO M C T SO; an unknown code reads as SO, with a warning
    double length = 0.0;
    double sawLength = 0.0;  ///< 0: not given
    double profileHeight = 0.0;
    double flangeWidth = 0.0;
    double flangeThickness = 0.0;
    double webThickness = 0.0;
    double radius = 0.0;
    double weight = 0.0;           ///< kg/m, plates kg/m2
    double paintingSurface = 0.0;  ///< m2/m, plates m2/m2
    double webStartCut = 0.0;
    double webEndCut = 0.0;
    double flangeStartCut = 0.0;
    double flangeEndCut = 0.0;
    std::array<ZetString, 4> infoTexts;

    long lineOf(NcHeaderValue value) const { return lines[static_cast<std::size_t>(value)]; }
};

/// What a hole's line says that the tool does.
enum class NcHoleKind {
    kPlain,        ///< no letter
    kThreadRight,  ///< g
    kThreadLeft,   ///< l
    kMark,         ///< m, or a diameter of 0 without a slot
    kCountersunk,  ///< s: the sink of a hole that has a line of its own
};

/// What a hole's line becomes in the NC data.
enum class NcHoleForm {
    kRound,      ///< a hole
    kSlot,       ///< a hole with a slot
    kRectangle,  ///< an internal contour: NcHole::outline
    kMark,       ///< a mark: a point, or a line when a slot has no diameter
};

/// One line of a BO or Bn block.
struct NcHole {
    long line = 0;
    NcPlace place;
    double x = 0.0;
    double q = 0.0;
    char reference = 0;  ///< o, s or u; 0: none
    NcHoleKind kind = NcHoleKind::kPlain;
    NcHoleForm form = NcHoleForm::kRound;
    double diameter = 0.0;
    double depth = 0.0;       ///< 0: through
    double sinkAngle = 0.0;   ///< of a countersink; 0: flat, or not given
    double slotWidth = 0.0;   ///< b: between the end circles' centres, along slotAngle
    double slotHeight = 0.0;  ///< h: the same across
    double slotAngle =
        0.0;  ///< w: from x, counter-clockwise in (x, q), about the first circle's centre
    std::vector<ZetGeomPoint2d> outline;  ///< of a rectangle: closed, arcs as chords
};

/// One of the two weld preparations of an edge.
struct NcBevel {
    double angle = 0.0;  ///< of the flame to the vertical
    double depth = 0.0;
};

/// One point of a contour with the edge that starts there.
struct NcContourPoint {
    double x = 0.0;
    double q = 0.0;
    double radius = 0.0;  ///< 0: straight; > 0: counter-clockwise arc in (x, q); < 0: clockwise
    std::array<NcBevel, 2> bevels;
};

/// A contour line that is no point: the theoretical corner of a notch and how it is made.
struct NcNotchLine {
    long line = 0;
    double x = 0.0;
    double q = 0.0;
    char kind = 'w';  ///< w: round relief hole; t: tangential fillet
    double radius = 0.0;
    long afterPoint = 0;   ///< count of contour points before it
    bool isNoted = false;  ///< no arc of the contour makes it: a warning tells it
};

/// One contour of an AK, IK, An or In block, in its file's direction.
struct NcContour {
    long line = 0;  ///< of its first point
    NcPlace place;
    bool isInternal = false;
    char reference = 0;                  ///< of its first point
    std::vector<NcContourPoint> points;  ///< as in the file
    std::vector<NcNotchLine> notchLines;
    std::vector<ZetGeomPoint2d>
        outline;  ///< closed, arcs as chords that are true within kChordTolerance
};

/// What a marking block marks with.
enum class NcMarkKind {
    kPowder,  ///< PU, Pn
    kPunch,   ///< KO, Kn
};

/// The points of a PU or KO block on one face: a single point or an open polyline.
struct NcMark {
    long line = 0;
    NcPlace place;
    NcMarkKind kind = NcMarkKind::kPunch;
    std::vector<NcContourPoint> points;   ///< as in the file
    std::vector<ZetGeomPoint2d> outline;  ///< arcs as chords
};

/// One line of an SI or Sn block.
struct NcNumeration {
    long line = 0;
    NcPlace place;
    double x = 0.0;
    double q = 0.0;
    char reference = 0;
    double angle = 0.0;
    double textHeight = 0.0;
    char rule = 0;  ///< r: the text turns with the piece; z: all values forced; 0: none
    ZetString text;

    /// Nothing is to be made.
    bool IsEmpty() const { return text.isEmpty(); }
};

/// An En block.
struct NcPlane {
    long line = 0;
    int number = 0;                ///< the digit of the block code; may be re-used by a later En
    ZetGeomPlane plane;            ///< in the frame of the piece
    NcFace face = NcFace::kPlane;  ///< the standard face that it is parallel to, else kPlane
};

/// One line of a KA block: a bend of the flat piece.
struct NcBend {
    long line = 0;
    ZetGeomPoint2d start;
    ZetGeomPoint2d end;
    double angle = 0.0;  ///< > 0: towards +Z
    std::optional<double> radius;
};

/// One line of an SC block: a plane that cuts the piece.
struct NcSawCut {
    long line = 0;
    ZetGeomPoint3d point;
    ZetGeomVector3d normal;  ///< outward, as in the file
};

/// A straight cut through the piece at one of its ends, as the web or a flange shows it: an angle
/// of the header, or what an SC line comes to.
struct NcCut {
    long line = 0;
    bool isFromHeader = false;
    bool isAtEnd = false;
    bool isOnFlange = false;
    /// From the perpendicular that points down to the lower part of the cut, counter-clockwise in
    /// view v for the web, in view u for flanges.
    double angle = 0.0;
    double slant =
        0.0;  ///< of the whole cut to a straight one, degrees; 0: its angle is all that is known
    double x = 0.0;        ///< where the cut leaves the piece longest
    bool isNoted = false;  ///< a note or warning says why it is not in the NC data
};

/// A block that is not read, or kept beside the NC data.
struct NcSkippedBlock {
    long line = 0;  ///< of its note or warning
};

/// One point of a PR block.
struct NcSectionPoint {
    double y = 0.0;
    double z = 0.0;
    double radius = 0.0;
};

/// One contour of the section that PR blocks draw.
struct NcSection {
    long line = 0;
    bool isInner = false;
    std::vector<NcSectionPoint> points;
};

/// One line of a TO block: the limits of the length's deviation.
struct NcTolerance {
    long line = 0;
    double minimum = 0.0;
    double maximum = 0.0;
};

/// One line of a UE block: a point of the cambered axis.
struct NcCamber {
    long line = 0;
    NcFace face = NcFace::kFront;
    double x = 0.0;
    double q = 0.0;
};

/// One line of text: an IN line ("KEY : value" parted at the colon) or a comment (no key).
struct NcText {
    long line = 0;
    ZetString key;
    ZetString value;
};

/// All that one file says. A plain value; lists in the file's order.
struct NcPart {
    ZetString file;  ///< as the caller named it
    NcHeader header;
    std::vector<NcHole> holes;
    std::vector<NcContour> contours;
    std::vector<NcMark> marks;
    std::vector<NcNumeration> numerations;
    std::vector<NcPlane> planes;
    std::vector<NcBend> bends;
    std::vector<NcSawCut> sawCuts;
    std::vector<NcCut> cuts;  ///< of header and SC lines
    std::vector<NcSkippedBlock> skippedBlocks;
    std::vector<NcSection> sections;
    std::vector<NcTolerance> tolerances;
    std::vector<NcCamber> cambers;
    std::vector<NcText> information;
    std::vector<NcText> comments;
    std::vector<NcNote> notes;  ///< ascending by line
};

}  // namespace dstv

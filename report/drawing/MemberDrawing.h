#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// @file
/// A member as its drawings show it: plain data, texts in UTF-8, lengths in mm, angles in degrees
/// counter-clockwise. Coordinates are those of each face: X along the member from its start, Y
/// across the face from its lower edge.

namespace report {

struct Point {
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// Arcs as chords; ArcEdges finds them. A closed one repeats its first point.
using Polyline = std::vector<Point>;

enum class FeatureKind {
    kHole,       ///< round, also a round opening
    kSlot,       ///< long hole with round ends
    kRectangle,  ///< rectangular or square hole, also an opening that is one
    kSink,       ///< countersink around a hole
    kOpening,    ///< cut-out inside a face
    kNotch,      ///< area cut from the edge of a face
    kMark,       ///< point or line, marked only
    kText,       ///< marked text
    kTrim,       ///< cut along a whole side of a face
    kMitre,      ///< slanted cut through the member at one of its ends
    kOutline,    ///< the outline of a face, which it shows
};
inline constexpr std::size_t kFeatureKindCount = 11;

/// How a feature was judged. In rising order of weight.
enum class FeatureState {
    kSetAside,  ///< not made: repeats another feature, or lies in one
    kInOrder,
    kWarning,
    kError,
};

/// One feature of a face.
struct DrawnFeature {
    FeatureKind kind = FeatureKind::kHole;
    FeatureState state = FeatureState::kInOrder;
    std::size_t face = 0;  ///< position in MemberDrawing::faces
    long line = 0;         ///< of the NC file; 0: none
    Point at;              ///< centre; of a text its start
    double size = 0.0;     ///< diameter, or width across; of a text its height
    double length = 0.0;   ///< overall, of slot and rectangle
    double angle = 0.0;    ///< of the length, or of a text
    Polyline outline;      ///< of all but holes, slots, sinks and texts
    Point told;            ///< the position that messages and machine files give
    std::string shape;     ///< in a word or two, for example "countersunk"
    std::string code;      ///< the machine's; "": none
    std::string remark;    ///< what else there is to say, the reason for setting aside included
    std::string text;      ///< of kText
};

/// One unfolded face.
struct DrawnFace {
    std::string name;         ///< for example "top flange"
    int viewPosition = 0;     ///< by which faces are told apart
    double width = 0.0;       ///< across
    bool isUnrolled = false;  ///< the whole surface of a tube: the width is its circumference
    std::vector<Polyline> outlines;
};

/// Something that was found about the member.
struct DrawnFinding {
    FeatureState state = FeatureState::kError;  ///< of its feature: kInOrder when it is made
    std::string text;
    long line = 0;               ///< of the feature in the NC file; 0: the member as a whole
    bool isNonStandard = false;  ///< else a warning or an error, by the state
    std::string rule;            ///< which rule judged, what it required and what was found
    std::string remedy;
};

/// All that is drawn of one member. A plain value.
struct MemberDrawing {
    std::string mark;
    std::string profile;
    std::string material;  ///< "": not told
    double length = 0.0;
    std::vector<DrawnFace> faces;  ///< from the lowest up, as the drawing stacks them
    std::vector<DrawnFeature> features;
    std::vector<DrawnFinding> findings;
};

/// True for what a tool goes through the face for: holes, slots, rectangles, openings.
bool IsCut(FeatureKind kind);

/// False for an outline without a finding: its face shows it.
bool IsShown(const DrawnFeature& feature);

/// The ends of a slot's straight sides, counter-clockwise: a half circle joins the second to the
/// third and the fourth to the first.
std::array<Point, 4> SlotCorners(const DrawnFeature& slot);

/// "error", "warning" or "non-standard".
const char* WordOf(const DrawnFinding& finding);

/// "34 features: 6 bottom flange, 16 web, 12 top flange; 3 findings". Set-aside ones count.
std::string DescribeDrawing(const MemberDrawing& drawing);

}  // namespace report

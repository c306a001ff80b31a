#pragma once

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCHoleData.h"
#include "camdata/platform/text/ZetString.h"

#include <array>
#include <optional>
#include <vector>

/// @file
/// A member as machines see it: plain data that all files for machines are written from.

namespace plugin {

/// What is done to a member in one place.
enum class MachineOperationKind {
    kHole,         ///< round, or threaded
    kCountersunk,  ///< round, with a countersink
    kSlot,         ///< with round ends
    kRectangle,    ///< a rectangular or square hole
    kNotch,        ///< a rectangle along the member, cut from the outline or out of the face
    kOutline,      ///< any other shape, cut from the outline or out of the face
    kTrim,         ///< a whole side of a face is cut off
    kMitre,        ///< an end of the member is cut at an angle
    kMark,         ///< points, a line or a text that the machine marks
};

/// Where a notch is cut.
enum MachineCut : int {
    kExternalCut = 0,  ///< from the outline of the face
    kInternalCut = 1,  ///< out of the face
};

/// What a mark is made with, or that it is a text.
enum MachineMark : int {
    kPowderMark = 0,
    kPunchMark = 1,
    kTextMark = 2,
};

/// One operation on a member, mm and degrees, in the frame of its face: X along the member from its
/// start, Y across the face. Fields that the kind does not have stay as they are here.
struct MachineOperation {
    MachineOperationKind kind = MachineOperationKind::kHole;
    int face = eHoleFaceNone;  ///< eHoleFace
    int cut = kExternalCut;
    double x = 0.0;  ///< of the centre
    double y = 0.0;
    double diameter = 0.0;
    double length = 0.0;  ///< overall
    double width = 0.0;
    double angle = 0.0;  ///< of a slot, from X; from 0 to below 180
    double depth = 0.0;  ///< 0: through
    double sinkDiameter = 0.0;
    double sinkDepth = 0.0;
    double sinkAngle = 0.0;                  ///< 0: not told
    int thread = ZetNCHoleData::eKindPlain;  ///< ZetNCHoleData::Kind without countersunk
    ZetArray<ZetGeomPoint2d> points;         ///< corners of an outline, each once; of a mark
    int side = 0;                            ///< of a trim: job::TrimSide
    double at = 0.0;                         ///< of a trim: X or Y of the new edge
    int end = 0;                             ///< of a mitre: ZetNCCut::End
    int cutFace = 0;                         ///< of a mitre: ZetNCCut::Face
    int mark = kPunchMark;
    double height = 0.0;  ///< of a text
    ZetString text;
    ZetString code;
};

/// One member with its operations.
struct MachineMember {
    ZetString mark;
    long quantity = 0;
    ZetString profile;
    double length = 0.0;
    ZetString group = {};  ///< id
    ZetString material = {};
    double height = 0.0;  ///< of the profile
    double width = 0.0;
    double thickness = 0.0;
    double weight = 0.0;          ///< kg, of one piece; 0: not known
    double weightPerMetre = 0.0;  ///< kg; 0: not known
    /// Y where each face ends, by eHoleFace; nothing: not known.
    std::array<std::optional<double>, eHoleFaceNone + 1> upperEdges{};
    std::vector<MachineOperation> operations;
};

}  // namespace plugin

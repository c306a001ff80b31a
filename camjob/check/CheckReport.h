#pragma once

#include "camjob/check/FindingPlace.h"
#include "dstv/NcHost.h"
#include "dstv/NcNote.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/JudgingRules.h"

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCHeaderData.h"
#include "camdata/platform/text/ZetString.h"

#include <optional>
#include <variant>
#include <vector>

namespace camjob {

using plugin::SetAside;

/// A rectangular hole as its file gives it, mm.
struct RectangleReport {
    double b = 0.0;  ///< between the corner circles' centres, along the angle
    double h = 0.0;  ///< the same across
    double cornerRadius = 0.0;
};

/// One hole as its record tells it, mm and degrees.
struct HoleReport {
    long line = 0;  ///< of the file
    ZetString face;
    int viewPosition = 0;
    double x = 0.0;  ///< of the centre, in output coordinates
    double y = 0.0;
    ZetString shape;
    double size = 0.0;             ///< diameter, or overall width
    std::optional<double> length;  ///< overall; of a slot or rectangle
    std::optional<double> angle;   ///< of the length; of a slot or rectangle
    std::optional<double> depth;   ///< nothing: through
    std::optional<double> sinkAngle;
    std::optional<RectangleReport> rectangle;
    bool isCountersunk = false;
    SetAside setAside = SetAside::kNot;
    /// Made neither for itself nor with another one.
    bool IsSetAside() const {
        return setAside != SetAside::kNot && setAside != SetAside::kCountersink;
    }
    bool isNotProcessed = false;
    bool hasRightThread = false;
    bool hasLeftThread = false;
    bool isInvalid = false;
    bool isNonStandard = false;
    bool hasWarnings = false;
    ZetString code;                  ///< of the job's rules; "": none
    std::vector<ZetString> remarks;  ///< short words; none for a plain through hole
};

/// One notch or opening as its record tells it, mm.
struct NotchReport {
    ZetString face;
    eHoleFace holeFace = eHoleFaceNone;
    bool isInternal = false;
    double x = 0.0;  ///< mean of the corners, in output coordinates
    double y = 0.0;
    ZetString shape;               ///< "rectangle", "square" or "outline"
    std::optional<double> length;  ///< of a rectangle, along X unless it is turned
    std::optional<double> width;
    long corners = 0;  ///< of the outline, arcs as chords
    ZetString status;
    ZetString code;                       ///< of the job's rules; "": none
    bool isDuplicate = false;             ///< set aside: equals an earlier one
    bool isTurned = false;                ///< a rectangle at an angle to X
    std::optional<long> holeLine;         ///< of the rectangular hole that it is
    long line = 0;                        ///< of its contour; 0: a further piece of one
    std::vector<ZetGeomPoint2d> outline;  ///< in the coordinates of its face in the file
};

/// A cut through a whole face or the whole member.
struct CutReport {
    const wchar_t* kind;  ///< "trim" or "mitre"
    long line = 0;
    ZetString face;                 ///< of a mitre "web" or "flange": which shows the angle
    const wchar_t* side;            ///< "start", "end", "lower" or "upper"
    double at = 0.0;                ///< X or Y of a trim's new edge; X of a mitre
    std::optional<double> angle{};  ///< of a mitre, degrees
    ZetString code{};               ///< of a trim
};

/// What a job makes of the member.
struct JudgementReport {
    ZetString memberType;    ///< its id in the job
    bool isSkipped = false;  ///< the job leaves members of its type out
    bool isValid = true;
    std::vector<ZetString> errorBlock;  ///< lines as the library writes them; empty: no errors
    std::vector<ZetString> warningBlock;
};

/// What else lies on one face.
struct FaceReport {
    ZetString face;
    int viewPosition = 0;
    std::vector<long> externalPoints;  ///< per external contour: its corners, arcs as chords
    long internalContours = 0;         ///< without those of rectangular holes
    long marks = 0;
    long numerations = 0;
};

/// All that `camjob check` says of one file. A plain value.
struct CheckReport {
    ZetString file;
    ZetNCHeaderData header;
    HeaderPlaces headerPlaces;
    std::vector<dstv::NcNote> notes;
    std::vector<HoleReport> holes;             ///< in the order of the file's lines
    std::vector<NotchReport> notches;          ///< in the order in which they were gathered
    std::vector<CutReport> cuts;               ///< trims, then mitres
    std::vector<plugin::Finding> findings;     ///< in the order in which they were found
    std::optional<JudgementReport> judgement;  ///< nothing: checked without a job
    std::vector<FaceReport> faces;  ///< in the order of the views; only faces with something

    /// Some finding makes the member invalid.
    bool HasErrors() const;
};

/// A report, or why there is none.
using CheckResult = std::variant<CheckReport, dstv::NcError>;

/// By which rules members are judged.
struct CheckRules {
    const plugin::JudgingRules& rules;
    bool isJob;  ///< of the user's job; else those that every member passes
};

/// Reports a member that was judged already.
CheckReport ReportOf(const dstv::NcFileEntity& entity,
                     const ZetNCCreator& creator,
                     const plugin::JobMember& member,
                     const job::MemberType& type);

/// Gathers and checks the member that an entity is, and reports it. A part that no member type of
/// the rules takes is an error.
CheckResult MakeCheckReport(dstv::NcFileEntity& entity, const CheckRules& rules);

}  // namespace camjob

#pragma once

#include "job/ValidationTypes.h"

#include "camdata/rules/eReportingTypes.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace job {

/// What a finding is that the job does not want to have told: no line, and no effect on the member.
inline constexpr eReportingTypes kReportingOff = static_cast<eReportingTypes>(8);

/// One kind of finding, for people and programs.
struct FindingType {
    const char* name;  ///< in [member_type.report] and in --json
    /// What is said, each way in a line of its own; what differs stands in <>.
    const char* text;
    const char* meaning;
    const char* remedy;
    eReportingTypes report;  ///< what it does unless the job says otherwise
};

// clang-format off

/// All findings of members, by eValidationTypes and ValidationType.
inline constexpr FindingType kFindingTypes[] = {
    {"holes", "<number> No of holes exceeded the maximum limit of <limit>",
     "More holes than `max_holes`; the text tells how many too many.",
     "Raise `max_holes`, or take the part off this machine.", eReportingWarning},
    {"internal_contours", "<number> No of Internal contours exceeded the maximum limit of <limit>",
     "More openings than `max_internal_contours`.",
     "Raise `max_internal_contours`, or take the part off this machine.", eReportingError},
    {"external_contours", "<number> No of external contours exceeded the maximum limit of <limit>",
     "More notches than `max_external_contours`.",
     "Raise `max_external_contours`, or take the part off this machine.", eReportingError},
    {"min_length", "Member length (<length>) is less than <limit>",
     "Shorter than `min_length`.",
     "Lower `min_length`, or take the part off this machine.", eReportingWarning},
    {"max_length", "Member length (<length>) should not be greater than <limit>",
     "Longer than `max_length`.",
     "Raise `max_length`, or take the part off this machine.", eReportingError},
    {"fixed_length", "Member length (<length>) should be <length>",
     "Not of the fixed pattern's length.",
     "Give parts of this length a member type without `fixed_pattern`, or correct the pattern's `length`.", eReportingError},
    {"uncovered_hole", "No hole rule is for its shape: <hole>\nNo hole rule covers it; the nearest, <rule>, is for another <what>: <hole>\nNo hole rule covers it: <hole>\nIts hole is not made: <hole>",
     "No hole rule fits the hole; by `[uncovered_holes]` it is not made, or made under a code of its own.",
     "Add a `[[hole_rule]]` of its shape, or this diameter, overall length, face or row to one.", eReportingError},
    {"hole_distance", "Edge distance (<distance>) are incorrect\nDistance (<distance>) from bottom flange is insufficient\nDistance (<distance>) from top flange is insufficient\nEnd distance (<distance>) is less than <what is required>\nDistance (<distance>) from the edge of the plate is less than <distance>",
     "A hole is nearer to an edge, an end or a face than `[tolerances]` allows. It is made.",
     "Move the hole in the model, or lower `edge_distance`, `distance_from_face` or `end_distance`.", eReportingNonStd},
    {"hole_inside_slot", "Left out, it lies inside a slot: <hole>; the slot: <hole>",
     "A hole lies inside a slot and is not made for itself.",
     "Nothing where the slot is right; else correct the model.", eReportingNonStd},
    {"excluded_hole", "Its hole rule excludes this member: <hole>\nIts hole is not made: <hole>",
     "The hole's rule excludes the member and names no other rule; the hole is not made.",
     "Give the rule an `otherwise_suffix` and a rule of that id, or take the profile out of `excluded_members`.", eReportingError},
    {"missing_pair", "It has no second hole: <hole>\nIts hole is not made: <hole>",
     "The rule wants a second hole (`pair_must`) and finds none at its `spacing`; the hole is not made.",
     "Add the spacing to `pairs`, or take `pair_must` away.", eReportingError},
    {"missing_group", "It belongs to no group of holes: <hole>\nIts hole is not made: <hole>",
     "The rule wants groups (`must`), and the hole's column has another number of holes; the hole is not made.",
     "Set `holes` of the rule's `group` to the number in the column, or take `must` away.", eReportingError},
    {"duplicate_hole", "Left out, it repeats or touches another hole: <hole>; the other: <hole>",
     "A hole stands at the place of another one or touches it, and is not made for itself.",
     "Nothing where the other is right; else correct the model.", eReportingWarning},
    {"duplicate_notch", "Left out, it repeats another notch on <face> at <place>: <notch>",
     "A notch equals another one and is not made for itself.",
     "Nothing: one of them is made.", eReportingWarning},
    {"uncovered_notch", "No corner notch describes it: <notch>\nNo corner notch describes it; the nearest, <corner notch>, is for another <what>: <notch>\nMembers of this type may have no such notch: <notch>",
     "No corner notch describes the notch, or the limits allow none; by `[uncovered_notches]` it is not made, or made under a code of its own.",
     "Add a `[[corner_notch]]`, set `[uncovered_notches]`, or raise the limit of contours.", eReportingError},
    {"fixed_pattern", "<message of the pattern's hole>",
     "A hole of the fixed pattern is missing, or has another code or diameter.",
     "Correct the pattern's `positions`, `code` and `diameter`, or the model.", eReportingError},
    {"quantity", "Quantity (<number>) is above <limit>\nQuantity (<number>): there is nothing to make\nLength (<length>): there is nothing to make",
     "More pieces than `max_quantity`, or none at all, or pieces without length: without anything to make the member is not made, whatever the finding does.",
     "Raise `max_quantity`, or correct quantity or length in the NC file's header.", eReportingError},
    {"longer_than_stock", "Member length (<length>) is greater than the stock length <length><of which how much can be used>",
     "A member of a group with `nesting` is longer than what its longest bar leaves without the grips.",
     "Add a longer `[[stock]]`, or send the part to a group without `nesting`.", eReportingError},
    {"uncovered_trim", "No trim covers it: the <face> is cut off at its <side>, to <place>",
     "An outline leaves a whole side of its face away, and no trim is for it; it is not made.",
     "Add a `[[trim]]` for this face and side.", eReportingError},
    {"unclear_cut", "The outline reaches beyond its face: <contour>\nThe outline has no area: <contour>\nThe opening has no area: <contour>\nThe opening takes the plate apart: <contour>\nNobody can tell what the outline cuts: the extents of its face are not known: <contour>\nThe face has several outlines, which no operations tell together: <contour>\nThe outline is not what its notches leave: it cuts <area> mm2 off its box, they cut <area>: <contour>\nA notch of the outline lies outside of the outline's box: <contour>\nThe cut lies at X <place>, not at an end of the member: it is not made\nThe normal of the cut at X <place> points into the member, of which it would leave nothing: it is not made\nThe mitres take <length> off an edge of the <web or flange>, more than the member is long: none is made",
     "No operations tell an outline, an opening or a saw cut as it is, or mitres leave nothing of an edge; it is not made.",
     "Compare the outline with the header's length, height and width, and correct the model.", eReportingError},
    {"hole_outside", "It lies outside of its face or of the member: <hole>\nIt reaches beyond its face or the member: <hole>\nThe opening reaches beyond its face: <contour>\nThe opening lies in what an outline (of either side) or a mitre takes away: <contour>\nIt lies in what an outline (of either side) or a mitre takes away: <hole>\nIt lies in an opening of its face: <hole>\nThe opening lies in another one: <contour>\nIt lies on a plane that faces the end of the member, where no operation is made: <feature>\nIt lies on a plane that shows neither the web nor, within the tolerance, a flange, where no operation is made: <feature>\nIt lies on a plane that is not the unrolled surface of a round section, where no operation is made: <feature>\nIts hole is not made: <hole>",
     "A hole lies outside of its face or of the member, reaches beyond it (a hole may reach beyond an outline within it, to relieve a corner), or lies wholly in what an outline, an opening or a mitre takes away, as an opening may; or an opening reaches beyond its face; or a feature of any kind lies on a plane that faces the end, or on any plane of a round section. It is not made.",
     "Correct the model, or `zero` and `reversed` of the flange.", eReportingError},
    {"lone_countersink", "The countersink has no plain round hole at its place: <hole>\nThe hole of the countersink is set aside: <hole>\nThe hole has another countersink already: <hole>\nThe countersink is narrower than its hole: <hole>\nThe countersink is a slot, and no operation tells one: <hole>",
     "A countersink has no hole at its place, or one that is wider or has a countersink already, or is a slot itself, and is not made.",
     "Correct the model: a hole and one countersink at the same place.", eReportingError},
    {"unclear_plane", "The plane shows neither the web nor, within the tolerance, a flange: it counts as <face>, like the view before it\nThe X axis of the plane does not run along the member: X and Y of what lies on it count in the plane",
     "A plane of its own shows neither the web nor a flange; its features count on the face of the view before it. Or places on it are not places along the member.",
     "Raise the tolerance `angle` where the plane is meant to be a flange, turn its axes in the model, or make its features elsewhere.", eReportingWarning},
    {"missing_parts", "*Error: <number> of the single parts (Part no : <mark>) are not selected / valid for this assembly\n<number> no of parts are not selected in selection",
     "A main part needs more pieces of a single part than there are, or the part is invalid; and the single part itself, with the pieces that all assemblies together lack.",
     "Raise the quantity in the single part's NC file, correct `count` in `[[assembly]]`, or mend the single part.", eReportingError},
    {"unused_parts", "<number> no of parts are not used in any assemblies",
     "Pieces of a single part that no assembly takes.",
     "Nothing where spare pieces are wanted; else correct the quantity or `count` in `[[assembly]]`.", eReportingWarning},
    {"unwritable", "Format <name and file>: <value>: <reason><, of which operation>",
     "A value that the format of a file cannot express: a face without a name, a tool without a number, a text that is too long, an operation without a line. The operation is not made; what is said of the member itself is always an error.",
     "Add the face, tool, profile or line to the format file, or send the part to a group without this file.", eReportingError},
    {"no_bar", "<number> of <quantity> pieces <have> no bar to be cut from: none is long enough or left",
     "A cutting plan has no bar for pieces of the member, which is made all the same. It is found behind the members' blocks: they do not tell it.",
     "Raise `quantity` of a `[[stock]]`, or add one.", eReportingWarning},
};

// clang-format on

static_assert(std::size(kFindingTypes) == kValidationTypes);

/// What findings do, by eValidationTypes and ValidationType.
using ReportTypes = std::array<eReportingTypes, kValidationTypes>;

inline constexpr ReportTypes kDefaultReports = [] {
    ReportTypes reports{};
    for (std::size_t type = 0; type < reports.size(); ++type)
        reports[type] = kFindingTypes[type].report;
    return reports;
}();

}  // namespace job

#include "job/formats/FormatFields.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace job {

namespace {

using enum FormatPart;

constexpr unsigned Bits(std::initializer_list<FormatPart> parts) {
    unsigned bits = 0;
    for (const FormatPart part : parts)
        bits |= 1u << static_cast<unsigned>(part);
    return bits;
}

constexpr unsigned kAnywhere = (1u << kFormatParts) - 1;
constexpr unsigned kOfFile = Bits({kFileStart, kFileEnd});
constexpr unsigned kOfGroup = Bits({kGroupStart, kGroupEnd});
constexpr unsigned kOfMember = Bits({kMember, kMemberEnd});
constexpr unsigned kHoles = Bits({kHole, kCountersunk, kSlot, kRectangle});
constexpr unsigned kCutOuts = Bits({kNotch, kOutline});
constexpr unsigned kMarks = Bits({kMark, kText});
constexpr unsigned kOperations = kHoles | kCutOuts | Bits({kTrim, kMitre}) | kMarks;
constexpr unsigned kInMember = kOfMember | kOperations | Bits({kPoint});
constexpr unsigned kInGroup = kOfGroup | kInMember;
constexpr unsigned kWithPlace = kHoles | kCutOuts | kMarks;
constexpr unsigned kWithPoints = Bits({kOutline, kMark});
constexpr unsigned kOblong = Bits({kSlot, kRectangle, kNotch});

// clang-format off
constexpr FieldRow kRows[] = {
    {"tab", FormatField::kTab, FieldType::kText, kAnywhere, "A tab."},
    {"header", FormatField::kHeader, FieldType::kText, Bits({kFileStart, kGroupStart}), "The `header` of the file with the project's lines, or that of the group: a line each, where `{header}` is all that the line has."},
    {"file_name", FormatField::kFileName, FieldType::kText, kAnywhere, "`file_name` of the project."},
    {"job", FormatField::kJob, FieldType::kText, kAnywhere, "`name` of the job."},
    {"project", FormatField::kProject, FieldType::kText, kAnywhere, "`name` of the project."},
    {"number", FormatField::kNumber, FieldType::kText, kAnywhere, "`number` of the project."},
    {"client", FormatField::kClient, FieldType::kText, kAnywhere, "`client` of the project."},
    {"revision", FormatField::kRevision, FieldType::kText, kAnywhere, "`revision` of the project."},
    {"date", FormatField::kDate, FieldType::kText, kAnywhere, "The day of the run, such as 2026-03-31."},
    {"group", FormatField::kGroup, FieldType::kText, kInGroup, "Id of the group."},
    {"section", FormatField::kSection, FieldType::kText, kOfGroup, "What its members have in common where the group has `split_by`, such as `Profile Z200x2.0`."},
    {"members", FormatField::kMembers, FieldType::kWhole, kOfFile | kOfGroup, "Members of the file or the group."},
    {"pieces", FormatField::kPieces, FieldType::kWhole, kOfFile | kOfGroup, "Their pieces."},
    {"lines", FormatField::kLines, FieldType::kWhole, kOfFile | kOfGroup | kOfMember, "Lines between start and end of the file, the group or the member."},
    {"mark", FormatField::kMark, FieldType::kText, kInMember, "Mark of the member."},
    {"quantity", FormatField::kQuantity, FieldType::kWhole, kInMember, "Pieces ordered."},
    {"profile", FormatField::kProfile, FieldType::kText, kInMember, "Profile, by the table of profiles."},
    {"material", FormatField::kMaterial, FieldType::kText, kInMember, "Material of the NC file's header."},
    {"length", FormatField::kMemberLength, FieldType::kLength, kOfMember, "Length of the member."},
    {"member_length", FormatField::kMemberLength, FieldType::kLength, kInMember, "The same, also in lines of operations."},
    {"member_height", FormatField::kMemberHeight, FieldType::kLength, kInMember, "Height of the profile."},
    {"member_width", FormatField::kMemberWidth, FieldType::kLength, kInMember, "Width of the profile."},
    {"thickness", FormatField::kThickness, FieldType::kLength, kInMember, "Thickness of the profile."},
    {"weight", FormatField::kWeight, FieldType::kNumber, kInMember, "Weight of one piece in kg, by the weight per metre of the NC file's header; 0: not told."},
    {"weight_per_metre", FormatField::kWeightPerMetre, FieldType::kNumber, kInMember, "kg, by the NC file's header; 0: not told."},
    {"operations", FormatField::kOperations, FieldType::kWhole, kOfMember, "Operations of the member."},
    {"index", FormatField::kIndex, FieldType::kWhole, kOperations | Bits({kPoint}), "Number of the line among those of the member's operations, or of the point; from 1."},
    {"kind", FormatField::kKind, FieldType::kText, kOperations, "What the operation is: `hole`, `countersunk`, `slot`, `rectangle`, `notch`, `outline`, `trim`, `mitre`, `mark`."},
    {"face", FormatField::kFace, FieldType::kText, (kOperations & ~Bits({kMitre})) | Bits({kPoint}), "Face, by the table of faces."},
    {"face", FormatField::kCutFace, FieldType::kText, Bits({kMitre}), "Where the angle of a mitre is seen: `web`, `flange`."},
    {"cut", FormatField::kCut, FieldType::kText, kCutOuts, "`external`: off the edge of the face; `internal`: an opening."},
    {"x", FormatField::kX, FieldType::kLength, kWithPlace | Bits({kPoint}), "Along the member, to the centre; of notch and outline to the mean of the corners."},
    {"y", FormatField::kY, FieldType::kLength, kWithPlace | Bits({kPoint}), "Across the face."},
    {"diameter", FormatField::kDiameter, FieldType::kLength, Bits({kHole, kCountersunk}), "Diameter."},
    {"length", FormatField::kLength, FieldType::kLength, kOblong, "Overall length of a slot; of rectangle and notch along the member."},
    {"width", FormatField::kWidth, FieldType::kLength, kOblong, "Overall width."},
    {"angle", FormatField::kAngle, FieldType::kAngle, Bits({kSlot, kMitre, kMark, kText}), "Of a slot from X; of a mitre from the perpendicular; of a text."},
    {"depth", FormatField::kDepth, FieldType::kLength, Bits({kHole, kCountersunk, kSlot}), "Depth; 0: through."},
    {"sink_diameter", FormatField::kSinkDiameter, FieldType::kLength, Bits({kCountersunk}), "Diameter of the countersink."},
    {"sink_depth", FormatField::kSinkDepth, FieldType::kLength, Bits({kCountersunk}), "Depth of the countersink."},
    {"sink_angle", FormatField::kSinkAngle, FieldType::kAngle, Bits({kCountersunk}), "Angle of its cone; 0: not told by the NC file."},
    {"thread", FormatField::kThread, FieldType::kText, Bits({kHole}), "`none`, `right`, `left`."},
    {"tool", FormatField::kTool, FieldType::kText, kOperations, "Number of the tool, by the table of tools."},
    {"side", FormatField::kSide, FieldType::kText, Bits({kTrim}), "Side of the face that is cut off: `start`, `end`, `lower`, `upper`; the opposite one where the face is mirrored."},
    {"at", FormatField::kAt, FieldType::kLength, Bits({kTrim}), "X of the new edge; of `lower` and `upper` its Y."},
    {"end", FormatField::kEnd, FieldType::kText, Bits({kMitre}), "End of the member: `start`, `end`."},
    {"mark_kind", FormatField::kMarkKind, FieldType::kText, kMarks, "`powder`, `punch`, `text`."},
    {"text_height", FormatField::kTextHeight, FieldType::kLength, kMarks, "Height of the text; 0 of marks."},
    {"text", FormatField::kText, FieldType::kText, kMarks, "The text that is marked."},
    {"points", FormatField::kPoints, FieldType::kPoints, kWithPoints | Bits({kText}), "The points in this line, each as the line for `point` says."},
    {"count", FormatField::kCount, FieldType::kWhole, kWithPoints | kHoles, "Points of the outline or mark; of a line with `repeat` the operations."},
    {"pitch", FormatField::kPitch, FieldType::kLength, kHoles, "Of a line with `repeat`: the distance from one to the next."},
    {"code", FormatField::kCode, FieldType::kText, kOperations & ~(Bits({kMitre}) | kMarks), "Code that the job's rules give."},
};
// clang-format on

bool StandsIn(const FieldRow& row, FormatPart part) {
    return (row.parts >> static_cast<unsigned>(part) & 1u) != 0;
}

}  // namespace

std::span<const FieldRow> GetFieldRows() {
    return kRows;
}

const FieldRow* FindField(std::string_view name, FormatPart part) {
    const auto* const row =
        std::find_if(std::begin(kRows), std::end(kRows), [&](const FieldRow& each) {
            return each.name == name && StandsIn(each, part);
        });
    return row == std::end(kRows) ? nullptr : row;
}

std::vector<std::string> FieldNamesOf(FormatPart part) {
    std::vector<std::string> names;
    for (const FieldRow& row : kRows)
        if (StandsIn(row, part))
            names.emplace_back(row.name);
    return names;
}

}  // namespace job

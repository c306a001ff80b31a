#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What the lines of a machine's format stand for, and the values that can stand in them.

namespace job {

/// What a line is written for.
enum class FormatPart {
    kFileStart,
    kGroupStart,
    kMember,
    kHole,
    kCountersunk,
    kSlot,
    kRectangle,
    kNotch,
    kOutline,
    kTrim,
    kMitre,
    kMark,  ///< points or a line
    kText,
    kPoint,  ///< of an outline or a mark
    kMemberEnd,
    kGroupEnd,
    kFileEnd,
};
inline constexpr std::size_t kFormatParts = static_cast<std::size_t>(FormatPart::kFileEnd) + 1;

constexpr bool IsOperation(FormatPart part) {
    return part >= FormatPart::kHole && part <= FormatPart::kText;
}

/// A value that a line can show.
enum class FormatField {
    kTab,
    kHeader,  ///< of the file or the group, a line each
    kFileName,
    kJob,
    kProject,
    kNumber,
    kClient,
    kRevision,
    kDate,
    kGroup,
    kSection,
    kMembers,
    kPieces,
    kLines,
    kMark,
    kQuantity,
    kProfile,
    kMaterial,
    kMemberLength,
    kMemberHeight,
    kMemberWidth,
    kThickness,
    kWeight,
    kWeightPerMetre,
    kOperations,
    kIndex,
    kKind,
    kFace,
    kCutFace,
    kCut,
    kX,
    kY,
    kDiameter,
    kLength,
    kWidth,
    kAngle,
    kDepth,
    kSinkDiameter,
    kSinkDepth,
    kSinkAngle,
    kThread,
    kTool,
    kSide,
    kAt,
    kEnd,
    kMarkKind,
    kTextHeight,
    kText,
    kPoints,
    kCount,
    kPitch,
    kCode,
};

/// How a value is written.
enum class FieldType {
    kText,
    kWhole,
    kLength,  ///< in the unit of the format
    kAngle,
    kNumber,  ///< any other
    kPoints,
};

/// One name of a value, and where it can stand.
struct FieldRow {
    const char* name;
    FormatField field;
    FieldType type;
    unsigned parts;  ///< bit by FormatPart
    const char* meaning;
};

/// Every name, in the order of the documents.
std::span<const FieldRow> GetFieldRows();
/// The row of a name in a line for `part`; null: it cannot stand there.
const FieldRow* FindField(std::string_view name, FormatPart part);
/// The names that can stand in a line for `part`.
std::vector<std::string> FieldNamesOf(FormatPart part);

}  // namespace job

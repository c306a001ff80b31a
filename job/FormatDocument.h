#pragma once

#include "job/JobDocument.h"
#include "job/formats/MachineFormat.h"

#include <optional>
#include <vector>

/// @file
/// A format file as it stands: one structure per table, and the places that a later fault is told
/// at.

namespace job {

/// The operations among the parts: what a tool can be for.
enum class ToolPart : int {};

/// The encodings that can be written: NcEncoding without the one for reading.
enum class WrittenEncoding : int { kUtf8 = static_cast<int>(NcEncoding::kUtf8) };

struct FormatTable : PlacedTable {
    ZetString name;
    OperationOrder order = OperationOrder::kGathered;
    bool areColumnsFixed = false;
    std::optional<ZetString> otherFaces;
    std::optional<ZetString> otherTools;
    std::optional<ZetString> otherProfiles;
};

struct TextsTable : TextSettings, PlacedTable {
    WrittenEncoding encoding = WrittenEncoding::kUtf8;
    LineEnds lineEnds = LineEnds::kLf;
};

struct FaceTable : FaceName, PlacedTable {};

struct ToolTable : ToolNumber, PlacedTable {
    ToolPart part{};
};

struct ProfileTable : ProfileName, PlacedTable {};

struct LineTable : PlacedTable {
    std::vector<FormatPart> parts;
    std::optional<std::vector<PlacedText>> texts;
    std::vector<eHoleFace> faces;
    std::vector<ZetString> codes;
    std::vector<ZetString> groups;
    std::optional<RepeatAxis> repeat;
    std::optional<long> least;
    std::optional<ZetString> between;
};

/// A whole format file.
struct FormatDocument {
    FormatTable format;
    NumberSettings numbers;
    TextsTable texts;
    std::vector<FaceTable> faces;
    std::vector<ToolTable> tools;
    std::vector<ProfileTable> profiles;
    std::vector<LineTable> lines;
};

}  // namespace job

#pragma once

#include "job/JobDocument.h"
#include "job/formats/MachineFormat.h"

#include <optional>
#include <vector>

/// @file
/// A format file as it stands: one structure per table, and the places that a later fault is told
/// at.

namespace job {

struct FormatTable : PlacedTable {
    ZetString name;
    OperationOrder order = OperationOrder::kGathered;
    bool areColumnsFixed = false;
    std::optional<ZetString> otherFaces;
    std::optional<ZetString> otherTools;
    std::optional<ZetString> otherProfiles;
};

struct TextsTable : TextSettings, PlacedTable {
    NcEncoding encoding = NcEncoding::kUtf8;
    LineEnds lineEnds = LineEnds::kLf;
};

struct FaceTable : FaceName, PlacedTable {};

struct ToolTable : ToolNumber, PlacedTable {};

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
    std::vector<ProfileName> profiles;
    std::vector<LineTable> lines;
};

}  // namespace job

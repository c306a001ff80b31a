#pragma once

#include "job/formats/FormatFields.h"

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/text/ZetString.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace codepages {
struct CodePage;
}

/// @file
/// What a machine reads: how numbers and texts are written, what faces, tools and profiles are
/// called, and a line for each part of a file. Plain values; lengths in mm. docs/format-file.md
/// tells what each key means.

namespace job {

enum class NumberUnit { kMillimetre, kTenth, kInch };
/// Zeros that a number goes without.
enum class Zeros { kKeep, kTrailing, kLeading, kBoth };
enum class AngleDirection { kCounterClockwise, kClockwise };

struct NumberSettings {
    long decimals = 3;
    std::optional<long> angleDecimals;
    NumberUnit unit = NumberUnit::kMillimetre;
    bool hasComma = false;
    Zeros zeros = Zeros::kKeep;
    bool hasPlus = false;
    AngleDirection angles = AngleDirection::kCounterClockwise;
};

enum class Quotes { kNone, kNeeded, kAlways };
/// What stands for a quote and a line end in a text.
enum class Escapes { kNone, kDoubled, kBackslash };
/// What happens to a text that is too long.
enum class TooLong { kRefuse, kCut };

struct TextSettings {
    /// Null: UTF-8.
    const codepages::CodePage* page = nullptr;
    Quotes quotes = Quotes::kNone;
    Escapes escapes = Escapes::kNone;
    ZetString forbidden;  ///< characters that no text may have
    bool isUpperCase = false;
    bool guardsFormulas = false;
    long longest = 0;  ///< characters; 0: any
    TooLong tooLong = TooLong::kRefuse;
};

/// What the machine calls a face, and where its coordinates begin.
struct FaceName {
    eHoleFace face = eHoleFaceWeb;
    std::optional<ZetString> name;  ///< without: as the job file names it
    bool isXMirrored = false;       ///< X from the member's end
    bool isYMirrored = false;       ///< Y from the opposite edge
    double xOffset = 0.0;           ///< is added
    double yOffset = 0.0;
};

/// The tool for operations of one kind and size. Without a size: any.
struct ToolNumber {
    FormatPart kind = FormatPart::kHole;
    std::optional<double> diameter;  ///< of a slot, rectangle or notch the width
    std::optional<double> length;
    ZetString code;  ///< pattern; "": any
    ZetString number;
};

struct ProfileName {
    ZetString pattern;
    ZetString name;
};

/// A table of names: what is called how, and what all else is called. Without rows the names are
/// the job's own; with rows and without `otherwise` what fits none cannot be written.
template <typename Row>
struct NameTable {
    std::vector<Row> rows;
    std::optional<ZetString> otherwise;
};

enum class OperationOrder {
    kGathered,
    kByX,
    kByTool,  ///< by its row in the table of tools, then X
    kByFace,  ///< by its row in the table of faces, then X
};

/// How a value is written: fill, alignment, sign, width and precision as fmt has them.
struct FieldSpec {
    std::wstring fill = L" ";  ///< one character
    char alignment = 0;        ///< < > ^; 0: texts < and numbers >
    char sign = '-';           ///< - + or blank
    bool isZeroFilled = false;
    int width = 0;
    int precision = -1;  ///< below 0: none
    char type = 0;       ///< 0: as the value is
};

/// A text and the value behind it.
struct TemplatePiece {
    std::string text;  ///< in the encoding of the format
    const FieldRow* field = nullptr;
    FieldSpec spec;
};

/// One line of a file, its braces read.
using LineTemplate = std::vector<TemplatePiece>;

enum class RepeatAxis { kX, kY };

/// The lines for one thing of a file, and when they are for it. Empty lists fit any.
struct FormatLine {
    std::vector<LineTemplate> lines;
    std::vector<eHoleFace> faces;
    std::vector<ZetString> codes;   ///< patterns
    std::vector<ZetString> groups;  ///< patterns
    std::optional<RepeatAxis> repeat;
    long least = 2;  ///< operations that a line with `repeat` needs
    /// Decimals, in the unit of the format, in which repeated operations lie evenly: the most that
    /// their place or the pitch is written with. The pitch has no more than `pitchDecimals`.
    int repeatDecimals = 0;
    int pitchDecimals = 0;
    std::string between = " ";  ///< points in one line, in the encoding of the format
};

struct MachineFormat {
    ZetString name;
    ZetString file;                ///< as the job names it; "": a built-in format
    bool areColumnsFixed = false;  ///< what is wider than its field cannot be written
    std::string lineEnd = "\n";
    OperationOrder order = OperationOrder::kGathered;
    NumberSettings numbers;
    TextSettings texts;
    NameTable<FaceName> faces;
    NameTable<ToolNumber> tools;
    NameTable<ProfileName> profiles;
    /// By FormatPart; the first that fits counts.
    std::array<std::vector<FormatLine>, kFormatParts> lines;

    const std::vector<FormatLine>& LinesFor(FormatPart part) const {
        return lines[static_cast<std::size_t>(part)];
    }
};

}  // namespace job

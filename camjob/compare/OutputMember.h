#pragma once

#include <optional>
#include <string>
#include <tuple>
#include <vector>

/// @file
/// An output as a comparison sees it: plain data, texts in UTF-8, mm and degrees.

namespace camjob {

/// One feature of a member, in output coordinates. Ordered by face, kind and place.
struct OutputFeature {
    std::string face;
    std::string kind;  ///< as in docs/run-json.md
    double x = 0.0;
    double y = 0.0;
    double size = 0.0;
    double length = 0.0;
    double angle = 0.0;
    std::string code;      ///< of a text: what it says
    double xInFile = 0.0;  ///< in the coordinates of its face in the NC file; tells no difference
    double yInFile = 0.0;

    bool IsOutline() const { return kind == "outline"; }
    auto Key() const { return std::tie(face, kind, x, y, size, length, angle, code); }
    friend bool operator<(const OutputFeature& a, const OutputFeature& b) {
        return a.Key() < b.Key();
    }
};

struct OutputMember {
    std::string mark;
    std::string profile;
    std::optional<std::string> material;  ///< nothing: the output does not tell it
    long quantity = 0;
    double length = 0.0;
    std::string status;  ///< in words
    std::vector<OutputFeature> features;
};

/// The status of a member in words.
std::string StatusInWords(bool isValid, bool hasWarnings, bool isNonStandard);

/// A piece on a bar.
struct OutputPiece {
    std::string mark;
    double position = 0.0;
    double length = 0.0;

    bool operator==(const OutputPiece&) const = default;
};

/// Bars that are cut alike.
struct OutputCut {
    long count = 0;
    double stock = 0.0;
    double kerf = 0.0;
    std::optional<std::string> remnant;  ///< its name; nothing: a bar of the stock
    double offCut = 0.0;
    bool isKept = false;
    std::vector<OutputPiece> pieces;

    bool operator==(const OutputCut&) const = default;
};

/// The bars of one cutting plan.
struct OutputBars {
    std::string group;
    std::string profile;
    std::string material;
    long bars = 0;
    double utilisation = 0.0;  ///< 0 to 1
    long uncut = 0;            ///< pieces without a bar
    std::vector<OutputCut> cuts;

    bool operator==(const OutputBars&) const = default;
};

}  // namespace camjob

#pragma once

#include <string>
#include <string_view>

namespace dstv {

/// What a block holds.
enum class NcBlockType {
    kUnknown,      ///< a code that the standard does not name
    kStart,        ///< ST
    kEnd,          ///< EN
    kHoles,        ///< BO, Bn
    kNumerations,  ///< SI, Sn
    kOuter,        ///< AK, An
    kInner,        ///< IK, In
    kPowder,       ///< PU, Pn
    kPunch,        ///< KO, Kn
    kPlane,        ///< En
    kBends,        ///< KA
    kSawCuts,      ///< SC
    kSection,      ///< PR
    kTolerance,    ///< TO
    kCamber,       ///< UE
    kInformation,  ///< IN
};

/// A line that begins a block.
struct NcBlockCode {
    NcBlockType type = NcBlockType::kUnknown;
    int plane = -1;    ///< the digit of a block on a plane, or of the plane itself; -1: none
    std::string text;  ///< in capitals; empty: the line begins no block
    bool isInCapitals = true;
};

/// The block that a line begins: exactly two characters from column 1, a letter and a letter or
/// digit. Codes that are not in capitals count only when they are known.
NcBlockCode BlockCodeOf(std::string_view line);

/// True for a line that begins a block which the standard names.
bool IsKnownBlock(std::string_view line);

}  // namespace dstv

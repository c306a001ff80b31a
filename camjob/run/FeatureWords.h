#pragma once

#include "report/drawing/MemberDrawing.h"

#include <array>
#include <string_view>

namespace camjob {

/// By report::FeatureKind.
inline constexpr std::array<const char*, report::kFeatureKindCount> kFeatureKindWords = {
    "hole",
    "slot",
    "rectangle",
    "countersink",
    "opening",
    "notch",
    "mark",
    "text",
    "trim",
    "mitre",
    "outline"};

/// What a feature is, as programs read it.
constexpr const char* WordOf(report::FeatureKind kind) {
    return kFeatureKindWords[static_cast<std::size_t>(kind)];
}

/// The reverse; an unknown word is that of a hole.
constexpr report::FeatureKind KindOfWord(std::string_view word) {
    for (std::size_t i = 0; i < kFeatureKindWords.size(); ++i)
        if (kFeatureKindWords[i] == word)
            return static_cast<report::FeatureKind>(i);
    return report::FeatureKind::kHole;
}

}  // namespace camjob

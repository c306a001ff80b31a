#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

/// @file
/// What the profile code of an NC file says of its section: which walls there are, where they
/// stand, and which views show them.

namespace profiles {

/// The standard views, by their positions in NC data.
enum View : int {
    kTop = 0,
    kFront = 1,
    kBottom = 2,
    kBehind = 3,
};

struct Wall {
    std::array<std::wstring_view, 5> codes;  ///< of sections that have it
    std::array<View, 2> views;               ///< that show it; one twice when no other does
    /// Across the section, from behind or from the bottom, 0 to 1; nothing: anywhere.
    std::optional<double> at;

    bool IsOf(std::wstring_view code) const {
        return !code.empty() && std::find(codes.begin(), codes.end(), code) != codes.end();
    }
    bool IsShownBy(int view) const { return views[0] == view || views[1] == view; }
    bool IsFlange() const { return views[0] == kTop || views[0] == kBottom; }
};

/// The narrow sides of plates are none.
inline constexpr Wall kWalls[] = {
    {{L"I"},                          {kFront, kBehind},  0.5         },
    {{L"U", L"C", L"L", L"T", L"B"},  {kFront, kBehind},  0.0         },
    {{L"SO"},                         {kFront, kBehind},  std::nullopt},
    {{L"RO", L"RU"},                  {kFront, kFront},   std::nullopt},
    {{L"M"},                          {kFront, kFront},   1.0         },
    {{L"M"},                          {kBehind, kBehind}, 0.0         },
    {{L"I", L"U", L"C", L"M", L"SO"}, {kTop, kTop},       1.0         },
    {{L"I", L"U", L"C", L"M", L"SO"}, {kBottom, kBottom}, 0.0         },
    {{L"L"},                          {kBottom, kTop},    0.0         },
    {{L"T"},                          {kBottom, kTop},    0.5         },
};

/// The wall that a view shows; null when it shows none.
inline const Wall* FindWall(std::wstring_view code, int view) {
    const auto* const wall =
        std::find_if(std::begin(kWalls), std::end(kWalls), [&](const Wall& each) {
            return each.IsShownBy(view) && each.IsOf(code);
        });
    return wall == std::end(kWalls) ? nullptr : wall;
}

inline bool IsRound(std::wstring_view code) {
    return code == L"RO" || code == L"RU";
}

/// The front view of a round section is its surface, unrolled; the others see it as they see all
/// sections, as wide as its diameter.
inline bool IsUnrolled(std::wstring_view code, int view) {
    return IsRound(code) && view == kFront;
}

}  // namespace profiles

#pragma once

#include <cstddef>
#include <string_view>

namespace job {

/// True when the whole text fits the pattern: * stands for any text, ? for one character; case
/// counts. Time at most text length times pattern length.
template <typename Char>
bool MatchesPattern(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern) {
    constexpr std::size_t kNone = std::basic_string_view<Char>::npos;
    std::size_t inText = 0;
    std::size_t inPattern = 0;
    std::size_t afterStar = kNone;  ///< in the pattern, behind its last * so far
    std::size_t starEnd = 0;        ///< in the text, behind what that * stands for
    while (inText < text.size()) {
        const Char wanted = inPattern < pattern.size() ? pattern[inPattern] : Char{};
        if (inPattern < pattern.size() && wanted == Char{'*'}) {
            afterStar = ++inPattern;
            starEnd = inText;
        } else if (inPattern < pattern.size() && (wanted == Char{'?'} || wanted == text[inText])) {
            ++inText;
            ++inPattern;
        } else if (afterStar != kNone) {
            inPattern = afterStar;
            inText = ++starEnd;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(Char{'*'}, inPattern) == kNone;
}

}  // namespace job

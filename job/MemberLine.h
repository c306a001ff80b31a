#pragma once

#include <string_view>

namespace job {

/// The word that begins a member's block in the machine records.
inline constexpr std::wstring_view kMemberWord = L"member";

/// The line begins a member's block, or seems to: no heading may.
inline bool BeginsMember(std::wstring_view line) {
    return line.starts_with(kMemberWord) && line.substr(kMemberWord.size()).starts_with(L' ');
}

}  // namespace job

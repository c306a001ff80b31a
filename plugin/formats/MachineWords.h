#pragma once

#include "camdata/holes/eHoleFace.h"

#include <array>
#include <span>
#include <string_view>

/// @file
/// What the values of operations are called in files for machines.

namespace plugin {

using Words = std::span<const std::wstring_view>;

/// By MachineOperationKind.
inline constexpr std::array<std::wstring_view, 9> kOperationWords = {L"hole",
                                                                     L"countersunk",
                                                                     L"slot",
                                                                     L"rectangle",
                                                                     L"notch",
                                                                     L"outline",
                                                                     L"trim",
                                                                     L"mitre",
                                                                     L"mark"};
/// By eHoleFace.
inline constexpr std::array<std::wstring_view, 7> kFaceWords = {L"web",
                                                                L"top_flange",
                                                                L"bottom_flange",
                                                                L"sloped_top_flange",
                                                                L"sloped_bottom_flange",
                                                                L"web_back",
                                                                L"none"};
static_assert(kFaceWords.size() == eHoleFaceNone + 1);
/// By MachineCut.
inline constexpr std::array<std::wstring_view, 2> kCutWords = {L"external", L"internal"};
/// By ZetNCHoleData::Kind.
inline constexpr std::array<std::wstring_view, 3> kThreadWords = {L"none", L"right", L"left"};

/// By job::TrimSide.
inline constexpr std::array<std::wstring_view, 4> kSideWords = {
    L"start", L"end", L"lower", L"upper"};
/// By ZetNCCut::End.
inline constexpr std::array<std::wstring_view, 2> kEndWords = {L"start", L"end"};
/// By ZetNCCut::Face.
inline constexpr std::array<std::wstring_view, 2> kCutFaceWords = {L"web", L"flange"};
/// By MachineMark.
inline constexpr std::array<std::wstring_view, 3> kMarkWords = {L"powder", L"punch", L"text"};

}  // namespace plugin

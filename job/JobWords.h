#pragma once

#include "job/JobValue.h"

#include <span>

/// @file
/// The choices of a job file, told in words.

namespace job {

// clang-format off
template <> std::span<const Choice<eHoleShapeType>> ChoicesOf();
template <> std::span<const Choice<eHoleFace>> ChoicesOf();
template <> std::span<const Choice<eSortOrder>> ChoicesOf();
template <> std::span<const Choice<eProfPropType>> ChoicesOf();
template <> std::span<const Choice<SlopeSource>> ChoicesOf();
template <> std::span<const Choice<eReportingTypes>> ChoicesOf();
template <> std::span<const Choice<MarkSource>> ChoicesOf();
template <> std::span<const Choice<NcEncoding>> ChoicesOf();
template <> std::span<const Choice<WhenNot>> ChoicesOf();
template <> std::span<const Choice<NcWarnings>> ChoicesOf();
template <> std::span<const Choice<GroupSplit>> ChoicesOf();
template <> std::span<const Choice<BarPlan>> ChoicesOf();
template <> std::span<const Choice<SettingsUse>> ChoicesOf();
template <> std::span<const Choice<LineEnds>> ChoicesOf();
template <> std::span<const Choice<Uncovered>> ChoicesOf();
template <> std::span<const Choice<NotchValue>> ChoicesOf();
template <> std::span<const Choice<InfoBlock>> ChoicesOf();
template <> std::span<const Choice<NotchCorner>> ChoicesOf();
template <> std::span<const Choice<NotchAcross>> ChoicesOf();
template <> std::span<const Choice<TrimSide>> ChoicesOf();
// clang-format on

}  // namespace job

#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <cstddef>
#include <optional>
#include <span>

/// How deep an outline may cut into itself before that counts, mm: the rounding of NC data.
inline constexpr double kSelfTouchDepth = 0.01;
/// An outline that touches itself is judged up to this number of edges, and beyond it taken for one
/// that crosses.
inline constexpr std::size_t kMaxTouchingEdges = 1'000;

/// The edge (the index of its first point) at which a closed outline crosses itself; nothing when
/// it does not. The last point leads back to the first, repeated or not.
///
/// Touching is no crossing: a cut-out that is joined to the outer edge by two edges on the same
/// line passes. An outline with a coordinate that is not finite counts as crossing. Time O(n log
/// n).
CAMDATA_API std::optional<std::size_t> FindSelfCrossing(std::span<const ZetGeomPoint2d> outline);

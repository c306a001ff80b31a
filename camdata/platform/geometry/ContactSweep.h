#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <cstddef>
#include <optional>
#include <span>

namespace camdata::detail {

/// An edge of a closed outline (the index of its first point) at which two edges that are no
/// neighbours meet, or neighbours lie on each other; nothing when none do.
///
/// Decided exactly on a grid of 0.001 mm (coarser for outlines larger than a million mm), so edges
/// that are nearer than that may count as meeting. The last point leads back to the first, repeated
/// or not. All coordinates must be finite. Time O(n log n).
std::optional<std::size_t> FindContact(std::span<const ZetGeomPoint2d> outline);

}  // namespace camdata::detail

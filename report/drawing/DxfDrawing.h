#pragma once

#include "report/drawing/MemberDrawing.h"

#include <string>

namespace report {

/// A drawing as DXF (ASCII, R12, mm, line ends LF), one layer per face and kind: WEB_OUTLINE,
/// WEB_HOLES, WEB_SLOTS, WEB_RECTANGLES, WEB_OPENINGS, WEB_COUNTERSINKS, WEB_MARKS, WEB_TEXTS,
/// WEB_NOTCHES, WEB_TRIMS, WEB_MITRES and WEB_SET_ASIDE. Nothing is to be cut by the layers of
/// notches and trims, which the outline shows, and of what is set aside. The faces stand one above
/// the other at true scale, 50 mm apart; the web, or a member's only face, keeps its coordinates.
///
/// Holes are circles; all else that is cut is one closed polyline, with its arcs.
std::string DxfOf(const MemberDrawing& drawing);

}  // namespace report

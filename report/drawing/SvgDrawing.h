#pragma once

#include "report/drawing/MemberDrawing.h"

#include <string>

namespace report {

/// A drawing as one SVG document that carries its own styles: light and dark, told apart in grey
/// print by the shape of a symbol (open circle in order, triangle warning, square error). States
/// its scales, and has the findings below as text.
std::string SvgOf(const MemberDrawing& drawing);

}  // namespace report

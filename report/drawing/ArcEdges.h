#pragma once

#include "report/drawing/MemberDrawing.h"

#include <vector>

/// @file
/// Outlines with their arcs, which polylines have as chords.

namespace report {

/// A corner of an outline with the edge that starts there.
struct Vertex {
    Point at;
    double bulge =
        0.0;  ///< tangent of a quarter of the arc's angle, > 0 counter-clockwise; 0: straight
};

/// Chords that lie on one circle, equal in length and within 0.05 mm of it, become arcs of at most
/// half a circle. The last vertex is the end of the line; of a closed one the first point again.
std::vector<Vertex> WithArcs(const Polyline& line);

/// Upright, around something.
struct Box {
    Point low;
    Point high;

    Point Middle() const { return {(low.x + high.x) / 2.0, (low.y + high.y) / 2.0}; }
};

/// Around a line and the arcs of its chords; of no points at 0.
Box BoxOf(const Polyline& line);

}  // namespace report

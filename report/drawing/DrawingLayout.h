#pragma once

#include "report/drawing/MemberDrawing.h"

#include <vector>

namespace report {

/// One picture of a member's faces, or of a stretch of them. Pixels of the drawing, Y downwards;
/// a face's own Y runs upwards.
struct Panel {
    double left = 0.0;
    double width = 0.0;
    double top = 0.0;
    double from = 0.0;  ///< the stretch shown, mm along the member
    double to = 0.0;
    double scaleX = 1.0;  ///< pixels per mm
    double scaleY = 1.0;
    std::vector<double> zeros;  ///< by face: where its Y is 0
    double bottom = 0.0;        ///< below the lowest face
    double end = 0.0;           ///< of the member, mm

    double X(double x) const { return left + (x - from) * scaleX; }
    double Y(std::size_t face, double y) const { return zeros[face] - y * scaleY; }
    /// Lengths and widths have one scale.
    bool IsTrue() const { return scaleX == scaleY; }
    /// The middle of a feature's symbol: what lies beyond the member shows at its edge.
    Point SymbolPlace(const DrawnFeature& feature) const;
};

/// Where everything of a drawing goes.
struct DrawingLayout {
    double width = 0.0;
    double height = 0.0;         ///< of the panels, with their labels
    Panel overview;              ///< the whole member
    std::vector<Panel> windows;  ///< stretches at true scale, when the overview is compressed
};

/// Half the width of a symbol, pixels.
inline constexpr double kSymbolSize = 3.5;
/// How far a panel shows what lies above and below its faces, pixels.
inline constexpr double kPanelMargin = 10.0;
/// Height of a text that is marked on the member, as it is drawn.
double MarkedTextHeight(const DrawnFeature& text, const Panel& panel);

/// Room for the labels below a panel, pixels.
inline constexpr double kLabelHeight = 34.0;

/// A short member is drawn at true scale. That of a long one would be a line: its length is
/// compressed, and two windows show its ends, or the first and the last feature with a finding.
DrawingLayout LayOut(const MemberDrawing& drawing);

/// A label below a panel.
struct Label {
    double x = 0.0;   ///< its middle, pixels
    double at = 0.0;  ///< what it stands for, pixels
    int row = 0;      ///< 0 or 1
    std::string text;
};

/// The positions along the member that have room for a label, in two rows, from the left.
std::vector<Label> PlaceLabels(const MemberDrawing& drawing, const Panel& panel);

}  // namespace report

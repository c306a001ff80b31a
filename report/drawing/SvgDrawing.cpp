#include "report/drawing/SvgDrawing.h"

#include "report/drawing/DrawingLayout.h"
#include "report/drawing/DrawingStyle.h"
#include "report/drawing/DrawingText.h"
#include "report/drawing/FeatureLabels.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace report {

namespace {

/// A shape smaller than that is shown by its symbol, pixels.
constexpr double kSmallestShape = 5.0;
constexpr double kFindingHeight = 18.0;

/// By FeatureState.
constexpr std::array kStateClasses = {"set-aside", "in-order", "warning", "error"};
constexpr std::array kStateWords = {"set aside", "in order", "warning", "error"};
/// By FeatureKind.
constexpr std::array<const char*, kFeatureKindCount> kKindClasses = {"hole",
                                                                     "slot",
                                                                     "rectangle",
                                                                     "sink",
                                                                     "opening",
                                                                     "notch",
                                                                     "mark",
                                                                     "text",
                                                                     "cut",
                                                                     "cut",
                                                                     "outline"};

std::string Pixels(double value) {
    return Number(value, 2);
}

std::string StateClass(FeatureState state) {
    return kStateClasses[static_cast<std::size_t>(state)];
}

std::string Line(const char* style, double x1, double y1, double x2, double y2) {
    return "<path class=\"" + std::string(style) + "\" d=\"M" + Pixels(x1) + " " + Pixels(y1) +
           "L" + Pixels(x2) + " " + Pixels(y2) + "\"/>";
}

std::string TextAt(double x, double y, const char* style, const std::string& text) {
    return "<text x=\"" + Pixels(x) + "\" y=\"" + Pixels(y) + "\" class=\"" + style + "\">" +
           Escaped(text) + "</text>";
}

std::string PathThrough(const Polyline& points, const Panel& panel, std::size_t face) {
    std::string path;
    for (const Point& point : points)
        Append(path,
               path.empty() ? "M" : "L",
               Pixels(panel.X(point.x)),
               " ",
               Pixels(panel.Y(face, point.y)));
    return path;
}

std::string PathElement(const std::string& style, const std::string& path) {
    return "<path class=\"" + style + "\" d=\"" + path + "\"/>";
}

std::string Circle(const std::string& style, double x, double y, double radius) {
    return "<circle class=\"" + style + "\" cx=\"" + Pixels(x) + "\" cy=\"" + Pixels(y) +
           "\" r=\"" + Pixels(radius) + "\"/>";
}

/// Open or dashed circle, triangle, square: told apart without colours.
std::string Symbol(FeatureState state, double x, double y) {
    const std::string style = StateClass(state);
    if (state == FeatureState::kWarning)
        return PathElement(style,
                           "M" + Pixels(x) + " " + Pixels(y - kSymbolSize - 1.0) + "l4.5 8h-9z");
    if (state == FeatureState::kError)
        return PathElement(
            style, "M" + Pixels(x - kSymbolSize) + " " + Pixels(y - kSymbolSize) + "h7v7h-7z");
    return Circle(style, x, y, kSymbolSize);
}

/// The rounded shape of a slot at true scale.
std::string SlotPath(const DrawnFeature& slot, const Panel& panel) {
    const std::array<Point, 4> corners = SlotCorners(slot);
    const auto corner = [&](std::size_t i) {
        return Pixels(panel.X(corners[i].x)) + " " + Pixels(panel.Y(slot.face, corners[i].y));
    };
    const std::string radius = Pixels(slot.size / 2.0 * panel.scaleX);
    const std::string arc = "A" + radius + " " + radius + " 0 0 0 ";
    return "M" + corner(0) + "L" + corner(1) + arc + corner(2) + "L" + corner(3) + arc + corner(0) +
           "Z";
}

std::string MarkShape(const DrawnFeature& mark, const std::string& style, const Panel& panel) {
    const double x = panel.X(mark.at.x);
    const double y = panel.Y(mark.face, mark.at.y);
    if (mark.outline.size() > 1)
        return PathElement(style, PathThrough(mark.outline, panel, mark.face));
    return PathElement(
        style,
        "M" + Pixels(x - 3) + " " + Pixels(y) + "h6M" + Pixels(x) + " " + Pixels(y - 3) + "v6");
}

std::string TextShape(const DrawnFeature& text, const Panel& panel) {
    const double height = MarkedTextHeight(text, panel);
    const std::string x = Pixels(panel.X(text.at.x));
    const std::string y = Pixels(panel.Y(text.face, text.at.y));
    return "<text class=\"small\" style=\"font-size:" + Pixels(height) + "px\" x=\"" + x +
           "\" y=\"" + y + "\" transform=\"rotate(" + Pixels(-text.angle) + " " + x + " " + y +
           ")\">" + Escaped(text.text) + "</text>";
}

bool IsRound(FeatureKind kind) {
    return kind == FeatureKind::kHole || kind == FeatureKind::kSlot || kind == FeatureKind::kSink;
}

/// The shape of a hole, slot or sink; "" when it is too small or compressed.
std::string RoundShape(const DrawnFeature& feature, const std::string& style, const Panel& panel) {
    if (!panel.IsTrue() || feature.size * panel.scaleX < kSmallestShape)
        return {};
    if (feature.kind == FeatureKind::kSlot)
        return PathElement(style, SlotPath(feature, panel));
    return Circle(style,
                  panel.X(feature.at.x),
                  panel.Y(feature.face, feature.at.y),
                  feature.size / 2.0 * panel.scaleX);
}

std::string ShapeOf(const DrawnFeature& feature, const Panel& panel) {
    std::string style =
        StateClass(feature.state) + " " + kKindClasses[static_cast<std::size_t>(feature.kind)];
    if (feature.kind == FeatureKind::kText)
        return TextShape(feature, panel);
    if (feature.kind == FeatureKind::kMark)
        return MarkShape(feature, style, panel);
    if (IsRound(feature.kind))
        return RoundShape(feature, style, panel);
    if (feature.kind == FeatureKind::kTrim || feature.kind == FeatureKind::kMitre)
        return PathElement(style, PathThrough(feature.outline, panel, feature.face));
    return PathElement(style + " area", PathThrough(feature.outline, panel, feature.face));
}

/// Of holes that have no shape, and of all that has a finding.
bool NeedsSymbol(const DrawnFeature& feature, bool hasShape) {
    return feature.state >= FeatureState::kWarning ||
           (!hasShape && feature.kind != FeatureKind::kSink);
}

std::string SizeText(const DrawnFeature& feature) {
    if (feature.size == 0.0)
        return {};
    const std::string size = Number(feature.size, 2);
    return feature.length > 0.0 ? " " + Number(feature.length, 2) + " x " + size : " " + size;
}

std::string Tooltip(const MemberDrawing& drawing, const DrawnFeature& feature) {
    std::string text = feature.shape + SizeText(feature) + ", " + drawing.faces[feature.face].name +
                       ", x " + Number(feature.told.x, 2) + ", y " + Number(feature.told.y, 2);
    if (!feature.code.empty())
        text += ", code " + feature.code;
    if (feature.line != 0)
        text += ", line " + std::to_string(feature.line);
    text += ": " + std::string(kStateWords[static_cast<std::size_t>(feature.state)]);
    return feature.remark.empty() ? text : text + " (" + feature.remark + ")";
}

bool IsWithin(const DrawnFeature& feature, const Panel& panel) {
    const double reach = std::max(feature.size, feature.length) / 2.0;
    const double x = std::clamp(feature.at.x, 0.0, panel.end);
    return x + reach >= panel.from && x - reach <= panel.to;
}

std::string LabelText(const FeatureLabel& label) {
    std::string text;
    if (!label.numbers.empty())
        text += TextAt(label.x, label.y, "number", label.numbers);
    if (!label.code.empty())
        text += TextAt(label.codeX, label.y, "code", label.code);
    return text;
}

std::string FeatureOf(const MemberDrawing& drawing,
                      const DrawnFeature& feature,
                      const Panel& panel,
                      const std::optional<FeatureLabel>& label) {
    const auto [x, y] = panel.SymbolPlace(feature);
    const std::string shape = ShapeOf(feature, panel);
    std::string text = "<g><title>" + Escaped(Tooltip(drawing, feature)) + "</title>" + shape;
    if (NeedsSymbol(feature, !shape.empty()))
        text += Symbol(feature.state, x, y);
    return text + (label ? LabelText(*label) : "") + "</g>\n";
}

/// A face without an outline in the file is a rectangle.
std::string FaceOf(const MemberDrawing& drawing, std::size_t face, const Panel& panel) {
    const DrawnFace& drawn = drawing.faces[face];
    const Polyline box = {
        {0.0,            0.0        },
        {drawing.length, 0.0        },
        {drawing.length, drawn.width},
        {0.0,            drawn.width},
        {0.0,            0.0        }
    };
    if (drawn.outlines.empty())
        return PathElement("face", PathThrough(box, panel, face)) + "\n";
    std::string text = PathElement("missing", PathThrough(box, panel, face)) + "\n";
    for (const Polyline& outline : drawn.outlines)
        text += PathElement("face", PathThrough(outline, panel, face)) + "\n";
    return text;
}

std::string FaceName(const DrawnFace& face, double x, double y) {
    std::string name = TextAt(x, y, "end", face.name);
    const std::string width = Number(face.width, 1) + (face.isUnrolled ? " unrolled" : "");
    return name + TextAt(x, y + 13.0, "small end", width) + "\n";
}

std::string LabelsOf(const MemberDrawing& drawing, const Panel& panel) {
    std::string text;
    for (const Label& label : PlaceLabels(drawing, panel)) {
        const double y = panel.bottom + 15.0 + 14.0 * label.row;
        text += Line("tick", label.at, panel.bottom + 2.0, label.at, y - 10.0) +
                TextAt(label.x, y, "small middle", label.text) + "\n";
    }
    return text;
}

std::string PanelOf(const MemberDrawing& drawing, const Panel& panel, const std::string& id) {
    // What reaches beyond the stretch is cut off.
    std::string text = "<clipPath id=\"" + id + "\"><rect x=\"" + Pixels(panel.left - 6.0) +
                       "\" y=\"" + Pixels(panel.top - kPanelMargin) + "\" width=\"" +
                       Pixels(panel.width + 12.0) + "\" height=\"" +
                       Pixels(panel.bottom - panel.top + 2.0 * kPanelMargin) + "\"/></clipPath>\n" +
                       "<g clip-path=\"url(#" + id + ")\">\n";
    for (std::size_t face = 0; face < drawing.faces.size(); ++face)
        text += FaceOf(drawing, face, panel);
    std::vector<const DrawnFeature*> shown;
    for (const DrawnFeature& feature : drawing.features)
        if (IsShown(feature) && IsWithin(feature, panel))
            shown.push_back(&feature);
    const auto labels = PlaceFeatureLabels(drawing, panel, shown);
    for (std::size_t i = 0; i < shown.size(); ++i)
        text += FeatureOf(drawing, *shown[i], panel, labels[i]);
    return text + "</g>\n" + LabelsOf(drawing, panel);
}

std::string ScaleText(const Panel& panel) {
    // Pixels are 1/96 inch.
    constexpr double kPixelsPerMm = 96.0 / 25.4;
    const std::string across = "1:" + Number(kPixelsPerMm / panel.scaleY, 1);
    if (panel.IsTrue())
        return across;
    return "length compressed 1:" + Number(kPixelsPerMm / panel.scaleX, 1) + ", width " + across;
}

std::string FaceNames(const MemberDrawing& drawing, const Panel& panel) {
    std::string text;
    for (std::size_t face = 0; face < drawing.faces.size(); ++face) {
        const DrawnFace& drawn = drawing.faces[face];
        text += FaceName(drawn, panel.left - 12.0, panel.Y(face, drawn.width / 2.0));
    }
    return text;
}

std::string WindowsOf(const MemberDrawing& drawing, const DrawingLayout& layout) {
    const Panel& overview = layout.overview;
    std::string text;
    for (std::size_t i = 0; i < layout.windows.size(); ++i) {
        const Panel& window = layout.windows[i];
        const std::string name(1, static_cast<char>('A' + i));
        const double left = overview.X(window.from);
        const double right = overview.X(window.to);
        text += "<rect class=\"frame\" x=\"" + Pixels(left) + "\" y=\"" +
                Pixels(overview.top - 6.0) + "\" width=\"" + Pixels(right - left) + "\" height=\"" +
                Pixels(overview.bottom - overview.top + 12.0) + "\"/>" +
                (i == 0 ? TextAt(left + 3.0, overview.top - 9.0, "small", name)
                        : TextAt(right - 3.0, overview.top - 9.0, "small end", name)) +
                "\n" +
                TextAt(window.left,
                       window.top - 14.0,
                       "small",
                       name + ": " + Number(window.from, 0) + " to " + Number(window.to, 0) +
                           " mm, " + ScaleText(window)) +
                "\n" + PanelOf(drawing, window, "window" + name) +
                (i == 0 ? FaceNames(drawing, window) : "");
    }
    return text;
}

std::string FindingsOf(const MemberDrawing& drawing, double top) {
    std::string text;
    for (std::size_t i = 0; i < drawing.findings.size(); ++i) {
        const DrawnFinding& finding = drawing.findings[i];
        const double y = top + kFindingHeight * static_cast<double>(i + 1);
        text +=
            Symbol(finding.state, 24.0, y - 4.0) +
            TextAt(
                36.0, y, "", std::to_string(i + 1) + ". " + WordOf(finding) + ": " + finding.text) +
            "\n";
    }
    return text;
}

std::string Heading(const MemberDrawing& drawing, const DrawingLayout& layout) {
    return TextAt(
               12.0,
               22.0,
               "title",
               drawing.mark + "   " + drawing.profile + "   " + Number(drawing.length, 2) + " mm") +
           TextAt(layout.width - 12.0, 16.0, "small end", ScaleText(layout.overview)) + "\n";
}

}  // namespace

std::string SvgOf(const MemberDrawing& drawing) {
    const DrawingLayout layout = LayOut(drawing);
    const double height =
        layout.height + kFindingHeight * (static_cast<double>(drawing.findings.size()) + 1.0);
    std::string text =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"drawing\" role=\"img\" "
        "viewBox=\"0 0 " +
        Pixels(layout.width) + " " + Pixels(height) + "\" width=\"" + Pixels(layout.width) +
        "\" height=\"" + Pixels(height) + "\">\n";
    Append(text,
           "<title>",
           Escaped(drawing.mark),
           "</title>\n<desc>",
           Escaped(DescribeDrawing(drawing)),
           "</desc>\n<style>\n",
           kDrawingStyle,
           "</style>\n<rect width=\"100%\" height=\"100%\" fill=\"var(--paper)\"/>\n",
           Heading(drawing, layout),
           FaceNames(drawing, layout.overview),
           PanelOf(drawing, layout.overview, "overview"),
           WindowsOf(drawing, layout),
           FindingsOf(drawing, layout.height),
           "</svg>\n");
    return text;
}

}  // namespace report

#include "report/drawing/DrawingLayout.h"

#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace report {

namespace {

constexpr double kWidth = 1000.0;
constexpr double kLeftMargin = 112.0;  ///< the names of the faces
constexpr double kRightMargin = 24.0;
constexpr double kTopMargin = 40.0;  ///< the title
constexpr double kFaceGap = 16.0;
constexpr double kWindowGap = 44.0;
/// All faces together, without the gaps.
constexpr double kFacesHeight = 240.0;
constexpr double kTrueFacesHeight = 420.0;
constexpr double kWindowFacesHeight = 330.0;
/// A member longer than that many of its widest face is compressed.
constexpr double kLongestTrue = 10.0;

constexpr double kFontSize = 11.0;
constexpr double kDigitWidth = 0.56 * kFontSize;
constexpr double kLabelGap = 6.0;

double WidestFace(const MemberDrawing& drawing) {
    double widest = 1.0;
    for (const DrawnFace& face : drawing.faces)
        widest = std::max(widest, face.width);
    return widest;
}

double WidthOfFaces(const MemberDrawing& drawing) {
    double sum = 0.0;
    for (const DrawnFace& face : drawing.faces)
        sum += face.width;
    return std::max(sum, 1.0);
}

/// Stacks the faces of a panel whose scale and stretch are known, the first one lowest.
Panel Stacked(Panel panel, const MemberDrawing& drawing) {
    double y = panel.top;
    panel.zeros.resize(drawing.faces.size());
    for (std::size_t face = drawing.faces.size(); face-- > 0;) {
        y += drawing.faces[face].width * panel.scaleY;
        panel.zeros[face] = y;
        y += kFaceGap;
    }
    panel.bottom = y - kFaceGap;
    panel.end = std::max(drawing.length, 0.0);
    return panel;
}

Panel Overview(const MemberDrawing& drawing) {
    Panel panel;
    panel.left = kLeftMargin;
    panel.width = kWidth - kLeftMargin - kRightMargin;
    panel.top = kTopMargin;
    panel.to = std::max(drawing.length, 1.0);
    panel.scaleX = panel.width / panel.to;
    panel.scaleY = kFacesHeight / WidthOfFaces(drawing);
    if (panel.to <= kLongestTrue * WidestFace(drawing)) {
        panel.scaleX = std::min(panel.scaleX, kTrueFacesHeight / WidthOfFaces(drawing));
        panel.scaleY = panel.scaleX;
    }
    return Stacked(std::move(panel), drawing);
}

/// The places that the windows show, along the member.
std::array<double, 2> PlacesOfInterest(const MemberDrawing& drawing) {
    std::array<double, 2> places = {drawing.length, 0.0};
    bool isAny = false;
    for (const DrawnFeature& feature : drawing.features) {
        if (feature.state < FeatureState::kWarning)
            continue;
        isAny = true;
        places = {std::min(places[0], feature.at.x), std::max(places[1], feature.at.x)};
    }
    return isAny ? places : std::array{0.0, drawing.length};
}

/// One window where it shows both places, else two.
std::vector<Panel> Windows(const MemberDrawing& drawing, const Panel& overview) {
    constexpr double kSeen = 0.8;
    const double scale = kWindowFacesHeight / WidthOfFaces(drawing);
    const auto [first, last] = PlacesOfInterest(drawing);
    const bool isOne = last - first <= kSeen * overview.width / scale;
    const std::vector<double> places =
        isOne ? std::vector{(first + last) / 2.0} : std::vector{first, last};
    std::vector<Panel> windows;
    for (const double place : places) {
        Panel panel;
        panel.width = isOne ? overview.width : (overview.width - kWindowGap) / 2.0;
        panel.left = windows.empty() ? overview.left : overview.left + panel.width + kWindowGap;
        panel.top = overview.bottom + kLabelHeight + 30.0;
        panel.scaleX = panel.scaleY = scale;
        const double shown = panel.width / panel.scaleX;
        panel.from =
            std::floor(std::clamp(place - shown / 2.0, 0.0, std::max(drawing.length - shown, 0.0)));
        panel.to = panel.from + shown;
        windows.push_back(Stacked(std::move(panel), drawing));
    }
    return windows;
}

/// Where features lie along the member within a panel, ascending, none twice.
std::vector<double> PlacesAlong(const MemberDrawing& drawing, const Panel& panel) {
    std::vector<double> places = {0.0, drawing.length};
    for (const DrawnFeature& feature : drawing.features)
        if (feature.state != FeatureState::kSetAside && IsShown(feature))
            places.push_back(feature.at.x);
    std::erase_if(places, [&](double x) { return x < panel.from || x > panel.to; });
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

}  // namespace

Point Panel::SymbolPlace(const DrawnFeature& feature) const {
    constexpr double kSeen = kPanelMargin - kSymbolSize - 1.0;
    return {X(std::clamp(feature.at.x, 0.0, end)),
            std::clamp(Y(feature.face, feature.at.y), top - kSeen, bottom + kSeen)};
}

double MarkedTextHeight(const DrawnFeature& text, const Panel& panel) {
    return std::clamp(text.size * panel.scaleY, 7.0, 14.0);
}

DrawingLayout LayOut(const MemberDrawing& drawing) {
    DrawingLayout layout;
    layout.width = kWidth;
    layout.overview = Overview(drawing);
    if (!layout.overview.IsTrue())
        layout.windows = Windows(drawing, layout.overview);
    const Panel& lowest = layout.windows.empty() ? layout.overview : layout.windows.back();
    layout.height = lowest.bottom + kLabelHeight;
    return layout;
}

std::vector<Label> PlaceLabels(const MemberDrawing& drawing, const Panel& panel) {
    std::vector<Label> labels;
    std::array<double, 2> ends = {panel.left - 100.0, panel.left - 100.0};
    for (const double place : PlacesAlong(drawing, panel)) {
        Label label = {panel.X(place), panel.X(place), 0, Number(place, 1)};
        const double half = static_cast<double>(label.text.size()) * kDigitWidth / 2.0;
        if (label.x - half < ends[0])
            label.row = 1;
        double& end = ends[static_cast<std::size_t>(label.row)];
        // A tick to the second row must not cross a label of the first.
        const bool hasRoom =
            label.x - half >= end && (label.row == 0 || label.at >= ends[0] - kLabelGap / 2.0);
        if (!hasRoom)
            continue;
        end = label.x + half + kLabelGap;
        labels.push_back(std::move(label));
    }
    return labels;
}

}  // namespace report

#include "report/drawing/FeatureLabels.h"

#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <array>

namespace report {

namespace {

constexpr double kFontSize = 10.0;
constexpr double kLetterWidth = 0.66 * kFontSize;
/// Between a symbol, or a shape, and what stands beside it.
constexpr double kGap = 3.0;
/// A panel with more features has no labels: nobody could read them.
constexpr std::size_t kMaxLabelled = 2000;
/// Boxes that only touch do not cover each other.
constexpr double kOverlap = 0.5;

struct Box {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    bool Covers(const Box& other) const {
        return left < other.right - kOverlap && other.left < right - kOverlap &&
               top < other.bottom - kOverlap && other.top < bottom - kOverlap;
    }
};

double WidthOf(const std::string& text) {
    const auto letters = std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0u) != 0x80;
    });
    return static_cast<double>(letters) * kLetterWidth;
}

/// Numbers of the findings that name a feature, "1, 3".
std::string FindingNumbers(const MemberDrawing& drawing, const DrawnFeature& feature) {
    std::string numbers;
    for (std::size_t i = 0; i < drawing.findings.size(); ++i)
        if (feature.line != 0 && drawing.findings[i].line == feature.line)
            Append(numbers, numbers.empty() ? "" : ", ", std::to_string(i + 1));
    return numbers;
}

class LabelPlacer {
  public:
    LabelPlacer(const MemberDrawing& drawing, const Panel& panel)
        : m_drawing(drawing), m_panel(panel) {}

    std::vector<std::optional<FeatureLabel>> Place(const std::vector<const DrawnFeature*>& shown);

  private:
    Box SymbolAt(const DrawnFeature& feature) const;
    Box TextOf(const DrawnFeature& text) const;
    Point ReachOf(const DrawnFeature& feature) const;
    std::array<Point, 6> PlacesBeside(const DrawnFeature& feature, double width) const;
    bool IsFree(const Box& box) const;
    std::optional<FeatureLabel> LabelOf(const DrawnFeature& feature, bool hasNumbers);

    const MemberDrawing& m_drawing;
    const Panel& m_panel;
    std::vector<Box> m_taken;
};

Box LabelPlacer::SymbolAt(const DrawnFeature& feature) const {
    const auto [x, y] = m_panel.SymbolPlace(feature);
    return {x - kSymbolSize, y - kSymbolSize, x + kSymbolSize, y + kSymbolSize};
}

/// What is marked on the member, as if it ran along it.
Box LabelPlacer::TextOf(const DrawnFeature& text) const {
    const double x = m_panel.X(text.at.x);
    const double y = m_panel.Y(text.face, text.at.y);
    const double height = MarkedTextHeight(text, m_panel);
    return {x, y - height, x + WidthOf(text.text) * height / kFontSize, y};
}

/// How far the shape of a feature reaches from its middle, along and across.
Point LabelPlacer::ReachOf(const DrawnFeature& feature) const {
    const bool hasMiddle =
        feature.kind == FeatureKind::kHole || feature.kind == FeatureKind::kSlot ||
        feature.kind == FeatureKind::kRectangle || feature.kind == FeatureKind::kSink;
    if (!hasMiddle || !m_panel.IsTrue())
        return {kSymbolSize, kSymbolSize};
    const double half = m_panel.scaleX / 2.0;
    return {std::max(kSymbolSize, std::max(feature.size, feature.length) * half),
            std::max(kSymbolSize, feature.size * half)};
}

/// Where a text of this width can start: right and left of the shape, above and below it.
std::array<Point, 6> LabelPlacer::PlacesBeside(const DrawnFeature& feature, double width) const {
    const auto [x, y] = m_panel.SymbolPlace(feature);
    const Point reach = ReachOf(feature);
    const double right = x + reach.x + kGap;
    const double left = x - reach.x - kGap - width;
    const double middle = x - width / 2.0;
    return {
        {{right, y - kSymbolSize},
         {right, y + kSymbolSize + kFontSize},
         {left, y - kSymbolSize},
         {left, y + kSymbolSize + kFontSize},
         {middle, y - reach.y - kGap},
         {middle, y + reach.y + kGap + kFontSize}}
    };
}

bool LabelPlacer::IsFree(const Box& box) const {
    return box.left >= m_panel.left - kGap && box.right <= m_panel.left + m_panel.width + kGap &&
           box.top >= m_panel.top - kPanelMargin && box.bottom <= m_panel.bottom + kPanelMargin &&
           std::none_of(
               m_taken.begin(), m_taken.end(), [&](const Box& taken) { return taken.Covers(box); });
}

std::optional<FeatureLabel> LabelPlacer::LabelOf(const DrawnFeature& feature, bool hasNumbers) {
    FeatureLabel label;
    label.numbers = FindingNumbers(m_drawing, feature);
    label.code = CodeLabel(feature);
    if (label.numbers.empty() == hasNumbers || (label.numbers + label.code).empty())
        return std::nullopt;
    const double numbersWidth =
        WidthOf(label.numbers) + (hasNumbers && !label.code.empty() ? kGap : 0.0);
    const double width = numbersWidth + WidthOf(label.code);
    const std::array<Point, 6> places = PlacesBeside(feature, width);
    const auto boxAt = [&](const Point& at) -> Box {
        return {at.x, at.y - kFontSize, at.x + width, at.y};
    };
    const auto* place = std::find_if(
        places.begin(), places.end(), [&](const Point& at) { return IsFree(boxAt(at)); });
    if (place == places.end() && !(hasNumbers && m_panel.IsTrue()))
        return std::nullopt;
    const Point at = place == places.end() ? places.front() : *place;
    label.x = at.x;
    label.y = at.y;
    label.codeX = at.x + numbersWidth;
    m_taken.push_back(boxAt(at));
    return label;
}

/// What has findings comes first to its place.
std::vector<std::optional<FeatureLabel>> LabelPlacer::Place(
    const std::vector<const DrawnFeature*>& shown) {
    std::vector<std::optional<FeatureLabel>> labels(shown.size());
    if (shown.size() > kMaxLabelled)
        return labels;
    for (const DrawnFeature* feature : shown)
        m_taken.push_back(feature->kind == FeatureKind::kText ? TextOf(*feature)
                                                              : SymbolAt(*feature));
    for (const bool hasNumbers : {true, false})
        for (std::size_t i = 0; i < shown.size(); ++i)
            if (!labels[i])
                labels[i] = LabelOf(*shown[i], hasNumbers);
    return labels;
}

}  // namespace

std::string CodeLabel(const DrawnFeature& feature) {
    if (feature.state == FeatureState::kSetAside)
        return {};
    if (feature.code.empty() && feature.kind == FeatureKind::kMitre)
        return Number(feature.angle, 1) + "\xC2\xB0";
    return feature.code;
}

std::vector<std::optional<FeatureLabel>> PlaceFeatureLabels(
    const MemberDrawing& drawing,
    const Panel& panel,
    const std::vector<const DrawnFeature*>& shown) {
    return LabelPlacer(drawing, panel).Place(shown);
}

}  // namespace report

#include "report/drawing/MemberDrawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace report {

namespace {

std::string Counted(std::size_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

bool IsCut(FeatureKind kind) {
    return kind == FeatureKind::kHole || kind == FeatureKind::kSlot ||
           kind == FeatureKind::kRectangle || kind == FeatureKind::kOpening;
}

bool IsShown(const DrawnFeature& feature) {
    return feature.kind != FeatureKind::kOutline || feature.state >= FeatureState::kWarning;
}

std::array<Point, 4> SlotCorners(const DrawnFeature& slot) {
    const double angle = slot.angle * std::numbers::pi / 180.0;
    const Point along = {std::cos(angle), std::sin(angle)};
    const double half = (slot.length - slot.size) / 2.0;
    const double radius = slot.size / 2.0;
    const auto corner = [&](double lengthwise, double across) -> Point {
        return {slot.at.x + along.x * lengthwise - along.y * across,
                slot.at.y + along.y * lengthwise + along.x * across};
    };
    return {
        corner(-half, -radius), corner(half, -radius), corner(half, radius), corner(-half, radius)};
}

const char* WordOf(const DrawnFinding& finding) {
    if (finding.isNonStandard)
        return "non-standard";
    return finding.state == FeatureState::kError ? "error" : "warning";
}

std::string DescribeDrawing(const MemberDrawing& drawing) {
    std::string text = Counted(drawing.features.size(), "feature");
    const char* separator = ": ";
    for (std::size_t face = 0; face < drawing.faces.size(); ++face) {
        const auto count = std::count_if(drawing.features.begin(),
                                         drawing.features.end(),
                                         [&](const DrawnFeature& f) { return f.face == face; });
        if (count == 0)
            continue;
        text += separator + std::to_string(count) + " " + drawing.faces[face].name;
        separator = ", ";
    }
    return text + "; " + Counted(drawing.findings.size(), "finding");
}

}  // namespace report

#pragma once

#include "report/drawing/DrawingLayout.h"
#include "report/drawing/MemberDrawing.h"

#include <optional>
#include <string>
#include <vector>

namespace report {

/// What stands beside a feature: the numbers of its findings, then its code. Pixels.
struct FeatureLabel {
    double x = 0.0;  ///< where the text starts
    double y = 0.0;  ///< its base line
    std::string numbers;
    double codeX = 0.0;
    std::string code;
};

/// The machine's code of a feature; the angle of a mitre, which has none.
std::string CodeLabel(const DrawnFeature& feature);

/// The labels of a panel's features, by their position in `shown`: beside the feature, in the first
/// place where they cover no symbol and no other label. Nothing for one that has no room; numbers
/// stand in a panel of true scale in any case. Nothing at all in a panel with more than 2,000
/// features.
std::vector<std::optional<FeatureLabel>> PlaceFeatureLabels(
    const MemberDrawing& drawing,
    const Panel& panel,
    const std::vector<const DrawnFeature*>& shown);

}  // namespace report

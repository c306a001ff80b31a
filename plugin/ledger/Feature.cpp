#include "plugin/ledger/Feature.h"

#include <array>
#include <cstddef>

namespace plugin {

namespace {

/// By FeatureKind.
constexpr std::array kWords = {
    L"hole", L"countersink", L"slot", L"outline", L"opening", L"mark", L"text", L"cut"};
static_assert(kWords.size() == static_cast<std::size_t>(FeatureKind::kCut) + 1);

}  // namespace

const wchar_t* WordOf(FeatureKind kind) {
    return kWords[static_cast<std::size_t>(kind)];
}

FeatureKind KindOf(const ZetNCHoleData& hole) {
    if (hole.kind == ZetNCHoleData::eKindCountersunk)
        return FeatureKind::kCountersink;
    return hole.slot != 0 ? FeatureKind::kSlot : FeatureKind::kHole;
}

std::vector<Feature> FeaturesOf(const ZetNCStructure& structure) {
    constexpr std::size_t kUsualCount = 32;
    std::vector<Feature> features;
    features.reserve(kUsualCount);
    for (const ZetNCView& view : structure.getViews()) {
        const auto add = [&](FeatureKind kind, const auto& list) {
            for (const auto& each : list)
                features.push_back({kind, each.hostTag, view.getViewPos()});
        };
        for (const ZetNCHoleData& hole : view.getHoles())
            features.push_back({KindOf(hole), hole.hostTag, view.getViewPos()});
        add(FeatureKind::kOutline, view.getExternalContours());
        add(FeatureKind::kOpening, view.getInternalContours());
        add(FeatureKind::kMark, view.getMarks());
        add(FeatureKind::kText, view.getNumerations());
    }
    for (const ZetNCCut& cut : structure.getCuts())
        features.push_back({FeatureKind::kCut, cut.hostTag, -1});
    return features;
}

}  // namespace plugin

#pragma once

#include "camdata/platform/host/ZetNCHoleData.h"
#include "camdata/platform/host/ZetNCStructure.h"

#include <vector>

namespace plugin {

/// Views at this position and above lie in a plane of their own.
inline constexpr int kFirstPlanePosition = 5;

/// What a feature of the NC data is.
enum class FeatureKind {
    kHole,         ///< round or threaded
    kCountersink,  ///< of a hole that is a feature of its own
    kSlot,
    kOutline,  ///< of one face
    kOpening,  ///< in one face; also a rectangular hole, which NC data hold as one
    kMark,
    kText,
    kCut,  ///< through the member at one of its ends
};

/// A feature of the NC data as the host offers it.
struct Feature {
    FeatureKind kind = FeatureKind::kHole;
    long tag = 0;           ///< the host's, for example a line of its file; 0: it gave none
    int viewPosition = -1;  ///< of a cut -1
};

/// "hole", "countersink" and so on.
const wchar_t* WordOf(FeatureKind kind);

/// The kind that a hole of the NC data is.
FeatureKind KindOf(const ZetNCHoleData& hole);

/// All features, view by view. Of a cut that is slanted both ways each way is one.
std::vector<Feature> FeaturesOf(const ZetNCStructure& structure);

}  // namespace plugin

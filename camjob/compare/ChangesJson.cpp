#include "camjob/compare/ChangesJson.h"

#include <array>

namespace camjob {

namespace {

/// By FeatureChangeKind.
constexpr std::array kFeatureWords = {"added", "removed", "moved", "recoded", "changed"};
/// By MemberChangeKind.
constexpr std::array kMemberWords = {"added", "removed", "changed"};

Json ToJson(const std::optional<OutputFeature>& feature) {
    if (!feature)
        return {};
    return {
        {"face",   feature->face  },
        {"kind",   feature->kind  },
        {"x",      feature->x     },
        {"y",      feature->y     },
        {"size",   feature->size  },
        {"length", feature->length},
        {"angle",  feature->angle },
        {"code",   feature->code  },
    };
}

Json ToJson(const FeatureChange& change) {
    return {
        {"change", kFeatureWords[static_cast<std::size_t>(change.kind)]},
        {"before", ToJson(change.before)                               },
        {"after",  ToJson(change.after)                                },
    };
}

Json ToJson(const ValueChange& change) {
    return {
        {"what",   change.what  },
        {"before", change.before},
        {"after",  change.after },
    };
}

Json ToJson(const std::optional<OutputBars>& bars) {
    if (!bars)
        return {};
    return {
        {"bars",        bars->bars       },
        {"utilisation", bars->utilisation},
    };
}

Json ToJson(const BarChange& change) {
    const OutputBars& known = change.after ? *change.after : *change.before;
    return {
        {"name",     known.group          },
        {"profile",  known.profile        },
        {"material", known.material       },
        {"before",   ToJson(change.before)},
        {"after",    ToJson(change.after) },
    };
}

Json ToJson(const MemberChange& change) {
    constexpr ListMaker ListOf = {[](const auto& item) { return ToJson(item); }};
    return {
        {"mark",     change.mark                                        },
        {"change",   kMemberWords[static_cast<std::size_t>(change.kind)]},
        {"values",   ListOf(change.values)                              },
        {"features", ListOf(change.features)                            },
    };
}

}  // namespace

Json ChangesJson(const OutputChanges& changes, const std::string& against) {
    constexpr ListMaker ListOf = {[](const auto& item) { return ToJson(item); }};
    return {
        {"against",   against                },
        {"added",     changes.added          },
        {"removed",   changes.removed        },
        {"changed",   changes.changed        },
        {"unchanged", changes.unchanged      },
        {"members",   ListOf(changes.members)},
        {"bars",      ListOf(changes.bars)   },
    };
}

}  // namespace camjob

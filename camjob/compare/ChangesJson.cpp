#include "camjob/compare/ChangesJson.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace camjob {

namespace {

/// By FeatureChangeKind.
constexpr std::array kFeatureWords = {"added", "removed", "moved", "recoded", "changed"};
/// By MemberChangeKind.
constexpr std::array kMemberWords = {"added", "removed", "changed"};

Json ToJson(const std::optional<OutputFeature>& feature) {
    if (!feature)
        return {};
    Json json = {
        {"face",   feature->face  },
        {"kind",   feature->kind  },
        {"x",      feature->x     },
        {"y",      feature->y     },
        {"size",   feature->size  },
        {"length", feature->length},
        {"angle",  feature->angle },
        {"code",   feature->code  },
    };
    if (feature->x != feature->xInFile || feature->y != feature->yInFile) {
        json["xInFile"] = feature->xInFile;
        json["yInFile"] = feature->yInFile;
    }
    return json;
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
        {"uncut",       bars->uncut      },
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

/// The position of a word in a table.
template <typename Enum, std::size_t count>
Enum FindWord(const std::array<const char*, count>& words, const Json& json) {
    const auto at = std::find(words.begin(), words.end(), json.get<std::string>());
    if (at == words.end())
        throw Json::other_error::create(501, "an unknown change", nullptr);
    return static_cast<Enum>(at - words.begin());
}

template <typename T>
std::vector<T> ListFrom(const Json& json, T (*itemFrom)(const Json& item)) {
    std::vector<T> items;
    for (const Json& item : json)
        items.push_back(itemFrom(item));
    return items;
}

std::optional<OutputBars> BarsFrom(const Json& change, const char* side) {
    const Json& json = change.at(side);
    if (json.is_null())
        return std::nullopt;
    return OutputBars{change.at("name").get<std::string>(),
                      change.at("profile").get<std::string>(),
                      change.at("material").get<std::string>(),
                      json.at("bars").get<long>(),
                      json.at("utilisation").get<double>(),
                      json.value("uncut", 0L),
                      {}};
}

BarChange BarChangeFrom(const Json& json) {
    return {BarsFrom(json, "before"), BarsFrom(json, "after")};
}

ValueChange ValueChangeFrom(const Json& json) {
    return {json.at("what").get<std::string>(),
            json.at("before").get<std::string>(),
            json.at("after").get<std::string>()};
}

FeatureChange FeatureChangeFrom(const Json& json) {
    const auto sideOf = [&](const char* side) {
        const Json& feature = json.at(side);
        return feature.is_null() ? std::nullopt : std::optional(FeatureFrom(feature));
    };
    return {FindWord<FeatureChangeKind>(kFeatureWords, json.at("change")),
            sideOf("before"),
            sideOf("after")};
}

MemberChange MemberChangeFrom(const Json& json) {
    return {json.at("mark").get<std::string>(),
            FindWord<MemberChangeKind>(kMemberWords, json.at("change")),
            ListFrom(json.at("values"), &ValueChangeFrom),
            ListFrom(json.at("features"), &FeatureChangeFrom)};
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

OutputFeature FeatureFrom(const Json& json) {
    const double x = json.at("x").get<double>();
    const double y = json.at("y").get<double>();
    return {json.at("face").get<std::string>(),
            json.at("kind").get<std::string>(),
            x,
            y,
            json.value("size", 0.0),
            json.value("length", 0.0),
            json.value("angle", 0.0),
            json.value("code", json.value("text", "")),
            json.value("xInFile", x),
            json.value("yInFile", y)};
}

OutputChanges ChangesFrom(const Json& json) {
    OutputChanges changes;
    changes.against = json.at("against").get<std::string>();
    changes.added = json.at("added").get<long>();
    changes.removed = json.at("removed").get<long>();
    changes.changed = json.at("changed").get<long>();
    changes.unchanged = json.at("unchanged").get<long>();
    changes.members = ListFrom(json.at("members"), &MemberChangeFrom);
    changes.bars = ListFrom(json.at("bars"), &BarChangeFrom);
    return changes;
}

}  // namespace camjob

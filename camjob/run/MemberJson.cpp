#include "camjob/run/MemberJson.h"

#include "camjob/check/FindingJson.h"
#include "camjob/run/FeatureWords.h"

#include <array>
#include <iterator>
#include <sstream>
#include <unordered_map>

namespace camjob {

namespace {

using plugin::Account;

/// By Account.
constexpr std::array kAccountNames = {
    "made", "refused", "not_made", "set_aside", "noted", "not_for_machine"};
static_assert(kAccountNames.size() == plugin::kAccountCount);

/// By SetAside.
constexpr std::array kReasonNames = {"", "marked", "inside_slot", "duplicate", "countersink"};

Json ToJson(const plugin::SetAsideFeature& setAside, const std::string& file) {
    const bool hasOther = setAside.other.tag != 0;
    return {
        {"feature", FeatureJson(setAside.feature)                          },
        {"reason",  kReasonNames[static_cast<std::size_t>(setAside.reason)]},
        {"other",   hasOther ? FeatureJson(setAside.other) : Json()        },
        {"file",    file                                                   },
        {"line",    setAside.feature.tag                                   },
    };
}

template <typename T>
Json ListIn(const std::string& file, const std::vector<T>& items) {
    Json array = Json::array();
    for (const T& item : items)
        array.push_back(ToJson(item, file));
    return array;
}

/// By report::FeatureState.
constexpr std::array kStateWords = {"set aside", "in order", "warning", "error"};

/// A notch or trim is a part of the outline in its line, a mitre of the cut: these have the
/// account.
bool HasAccount(const report::DrawnFeature& feature) {
    return feature.kind != report::FeatureKind::kNotch &&
           feature.kind != report::FeatureKind::kTrim &&
           feature.kind != report::FeatureKind::kMitre;
}

/// Features of a member's drawing by their line.
using DrawnByLine = std::unordered_multimap<long, const report::DrawnFeature*>;

DrawnByLine ByLine(const report::MemberDrawing& drawing) {
    DrawnByLine drawn;
    for (const report::DrawnFeature& feature : drawing.features)
        drawn.insert({feature.line, &feature});
    return drawn;
}

void AddIf(Json& object, const char* key, double value) {
    if (value != 0.0)
        object[key] = value;
}

void AddIf(Json& object, const char* key, const std::string& value) {
    if (!value.empty())
        object[key] = value;
}

/// Where a feature lies and what it is like; what does not apply is left out.
void AddDrawn(Json& object,
              const report::MemberDrawing& drawing,
              const report::DrawnFeature& drawn) {
    object["face"] = drawing.faces[drawn.face].name;
    object["x"] = drawn.told.x;
    object["y"] = drawn.told.y;
    if (drawn.told != drawn.at) {
        object["xInFile"] = drawn.at.x;
        object["yInFile"] = drawn.at.y;
    }
    AddIf(object, "size", drawn.size);
    AddIf(object, "length", drawn.length);
    AddIf(object, "angle", drawn.angle);
    AddIf(object, "shape", drawn.shape);
    AddIf(object, "code", drawn.code);
    object["status"] = kStateWords[static_cast<std::size_t>(drawn.state)];
    AddIf(object, "remark", drawn.remark);
    AddIf(object, "text", drawn.text);
}

Json FeaturesJson(const RunReport& report, std::size_t index) {
    const RunMember& member = report.members[index];
    const report::MemberDrawing drawing = report.drawings.Get(index);
    const DrawnByLine drawn = ByLine(drawing);
    Json features = Json::array();
    for (const AccountedFeature& feature : member.features) {
        const Account account = feature.Get(member.result.IsMade());
        Json object = {
            {"kind",    ZetString(feature.kind).toUtf8()                },
            {"line",    feature.line                                    },
            {"account", kAccountNames[static_cast<std::size_t>(account)]},
        };
        std::vector<Json> parts;
        const auto [begin, end] = drawn.equal_range(feature.line);
        for (auto at = begin; at != end; ++at) {
            const report::DrawnFeature& part = *at->second;
            if (HasAccount(part)) {
                // A round opening is a hole.
                object["kind"] = WordOf(part.kind);
                AddDrawn(object, drawing, part);
                continue;
            }
            parts.push_back({
                {"kind", WordOf(part.kind)},
                {"line", part.line        }
            });
            AddDrawn(parts.back(), drawing, part);
        }
        features.push_back(std::move(object));
        for (Json& part : parts)
            features.push_back(std::move(part));
    }
    return features;
}

/// The lines between that of the member and its end.
Json OperationsJson(const RunMember& member) {
    Json operations = Json::array();
    if (!member.result.IsMade())
        return operations;
    std::istringstream records(member.result.records.text);
    std::string line;
    std::getline(records, line);
    for (const long tag : member.result.records.operations) {
        std::getline(records, line);
        operations.push_back({
            {"record", line},
            {"line",   tag }
        });
    }
    return operations;
}

}  // namespace

Json AccountsJson(const plugin::AccountNumbers& accounts) {
    Json object = Json::object();
    for (std::size_t i = 0; i < kAccountNames.size(); ++i)
        object[kAccountNames[i]] = accounts.features[i];
    return object;
}

Json MemberJson(const RunReport& report, std::size_t index, const std::string& file) {
    const RunMember& member = report.members[index];
    const plugin::MemberResult& result = member.result;
    Json findings = FindingsJson(result.findings, file, member.file.lines);
    Json setAside = ListIn(file, result.setAside);
    return {
        {"file",        file                                },
        {"mark",        result.mark.toUtf8()                },
        {"profileName", result.profileName.toUtf8()         },
        {"material",    report.drawings.GetMaterial(index)  },
        {"length",      report.drawings.GetLength(index)    },
        {"group",       result.group                        },
        {"quantity",    result.quantity                     },
        {"valid",       result.outcome.isValid              },
        {"warnings",    result.outcome.hasWarnings          },
        {"nonStandard", result.outcome.isNonStandard        },
        {"left",        result.left                         },
        {"accounts",    AccountsJson(member.CountAccounts())},
        {"features",    FeaturesJson(report,                  index)},
        {"operations",             OperationsJson(member)                                     },
        {"findings",             std::move(findings)  },
        {"setAside",             std::move(setAside)                                     },
    };
}

}  // namespace camjob

#include "camjob/check/FindingJson.h"

#include "job/ReportWords.h"

#include <utility>

namespace camjob {

namespace {

Json OrNull(const std::optional<double>& value) {
    return value ? Json(*value) : Json();
}

/// Calls `set` with each key and value of a finding.
template <typename Set>
void TellFinding(const plugin::Finding& finding,
                 const std::string& file,
                 const HeaderPlaces& lines,
                 const Set& set) {
    set("type", job::kFindingTypes[finding.type].name);
    set("report", job::NameOfReport(finding.report));
    set("text", finding.text.toUtf8());
    set("rule", finding.rule.toUtf8());
    set("ruleLine", finding.ruleLine);
    set("required", OrNull(finding.required));
    set("found", OrNull(finding.found));
    set("feature", finding.feature ? FeatureJson(*finding.feature) : Json());
    set("file", file);
    set("line", LineOf(finding, lines));
}

}  // namespace

Json FeatureJson(const plugin::Feature& feature) {
    return {
        {"kind", ZetString(plugin::WordOf(feature.kind)).toUtf8()},
        {"line", feature.tag                                     },
    };
}

Json FindingsJson(const std::vector<plugin::Finding>& findings,
                  const std::string& file,
                  const HeaderPlaces& lines) {
    Json array = Json::array();
    for (const plugin::Finding& finding : findings) {
        Json object;
        TellFinding(
            finding, file, lines, [&](const char* key, const auto& value) { object[key] = value; });
        array.push_back(std::move(object));
    }
    return array;
}

JsonText FindingsText(const std::vector<plugin::Finding>& findings,
                      const std::string& file,
                      const HeaderPlaces& lines) {
    JsonArray array;
    for (const plugin::Finding& finding : findings) {
        JsonObject object;
        TellFinding(finding, file, lines, [&](const char* key, const auto& value) {
            object.Set(key, value);
        });
        array.Add(object.ToText());
    }
    return array.ToText();
}

}  // namespace camjob

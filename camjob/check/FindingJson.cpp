#include "camjob/check/FindingJson.h"

#include "job/ReportWords.h"

namespace camjob {

namespace {

Json OrNull(const std::optional<double>& value) {
    return value ? Json(*value) : Json();
}

Json FindingJson(const plugin::Finding& finding,
                 const std::string& file,
                 const HeaderPlaces& lines) {
    const long line = LineOf(finding, lines);
    return {
        {"type",     job::kFindingTypes[finding.type].name                   },
        {"report",   job::NameOfReport(finding.report)                       },
        {"text",     finding.text.toUtf8()                                   },
        {"rule",     finding.rule.toUtf8()                                   },
        {"ruleLine", finding.ruleLine                                        },
        {"required", OrNull(finding.required)                                },
        {"found",    OrNull(finding.found)                                   },
        {"feature",  finding.feature ? FeatureJson(*finding.feature) : Json()},
        {"file",     file                                                    },
        {"line",     line                                                    },
    };
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
    for (const plugin::Finding& finding : findings)
        array.push_back(FindingJson(finding, file, lines));
    return array;
}

}  // namespace camjob

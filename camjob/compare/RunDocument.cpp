#include "camjob/compare/RunDocument.h"

#include <fstream>
#include <nlohmann/json.hpp>

namespace camjob {

namespace {

using nlohmann::json;

OutputFeature FeatureOf(const json& feature) {
    const double x = feature.at("x").get<double>();
    const double y = feature.at("y").get<double>();
    return {feature.at("face").get<std::string>(),
            feature.at("kind").get<std::string>(),
            x,
            y,
            feature.value("size", 0.0),
            feature.value("length", 0.0),
            feature.value("angle", 0.0),
            feature.value("code", feature.value("text", "")),
            feature.value("xInFile", x),
            feature.value("yInFile", y)};
}

/// Features without a place, such as the outline of a whole face, tell nothing to compare.
OutputMember MemberOf(const json& member) {
    OutputMember read;
    read.mark = member.at("mark").get<std::string>();
    read.profile = member.at("profileName").get<std::string>();
    read.quantity = member.at("quantity").get<long>();
    read.length = member.at("length").get<double>();
    read.status = StatusInWords(member.at("valid").get<bool>(),
                                member.at("warnings").get<bool>(),
                                member.at("nonStandard").get<bool>());
    for (const json& feature : member.at("features"))
        if (feature.contains("face"))
            read.features.push_back(FeatureOf(feature));
    return read;
}

OutputBars BarsOf(const json& bars) {
    return {bars.at("name").get<std::string>(),
            bars.at("profile").get<std::string>(),
            bars.at("material").get<std::string>(),
            bars.at("bars").get<long>(),
            bars.at("utilisation").get<double>()};
}

/// Parses a document whose members are dropped as soon as they were taken.
json ParseWithoutMembers(std::istream& stream, const TakeMember& take) {
    constexpr int kKeyDepth = 1;
    constexpr int kMemberDepth = 2;
    using Event = json::parse_event_t;
    std::string key;
    return json::parse(stream, [&](int depth, Event event, json& value) {
        if (event == Event::key && depth == kKeyDepth)
            key = value.get<std::string>();
        if (event != Event::object_end || depth != kMemberDepth || key != "members")
            return true;
        take(MemberOf(value));
        return false;
    });
}

}  // namespace

std::variant<RunDocument, RunDocumentFault> ReadRunDocument(const std::filesystem::path& file,
                                                            const TakeMember& take) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return RunDocumentFault{"cannot be read"};
    try {
        const json document = ParseWithoutMembers(stream, take);
        if (document.at("schema") != kRunSchema)
            return RunDocumentFault{"is of another version (" +
                                    document.at("schema").get<std::string>() + ", not " +
                                    kRunSchema + ")"};
        if (document.at("status") != "done")
            return RunDocumentFault{"tells of a run without an output"};
        RunDocument read;
        for (const json& bars : document.at("bars"))
            read.bars.push_back(BarsOf(bars));
        return read;
    } catch (const json::exception&) {
        return RunDocumentFault{"is not the document of a run"};
    }
}

}  // namespace camjob

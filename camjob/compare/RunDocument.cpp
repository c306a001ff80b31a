#include "camjob/compare/RunDocument.h"

#include "camjob/compare/ChangesJson.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace camjob {

namespace {

/// Features without a place, such as the outline of a whole face, tell nothing to compare.
OutputMember MemberOf(const Json& member) {
    OutputMember read;
    read.mark = member.at("mark").get<std::string>();
    read.profile = member.at("profileName").get<std::string>();
    if (const auto material = member.find("material"); material != member.end())
        read.material = material->get<std::string>();
    read.quantity = member.at("quantity").get<long>();
    read.length = member.at("length").get<double>();
    read.status = StatusInWords(member.at("valid").get<bool>(),
                                member.at("warnings").get<bool>(),
                                member.at("nonStandard").get<bool>());
    for (const Json& feature : member.at("features"))
        if (feature.contains("face"))
            read.features.push_back(FeatureFrom(feature));
    return read;
}

OutputCut CutOf(const Json& entry) {
    OutputCut cut;
    cut.count = entry.at("count").get<long>();
    cut.stock = entry.at("stock").get<double>();
    cut.kerf = entry.at("kerf").get<double>();
    if (const Json& remnant = entry.at("remnant"); !remnant.is_null())
        cut.remnant = remnant.get<std::string>();
    cut.offCut = entry.at("offCut").get<double>();
    cut.isKept = entry.at("kept").get<bool>();
    for (const Json& piece : entry.at("pieces"))
        cut.pieces.push_back({piece.at("mark").get<std::string>(),
                              piece.at("position").get<double>(),
                              piece.at("length").get<double>()});
    return cut;
}

OutputBars BarsOf(const Json& bars) {
    OutputBars read = {bars.at("name").get<std::string>(),
                       bars.at("profile").get<std::string>(),
                       bars.at("material").get<std::string>(),
                       bars.at("bars").get<long>(),
                       bars.at("utilisation").get<double>(),
                       bars.at("uncut").get<long>(),
                       {}};
    for (const Json& entry : bars.at("entries"))
        read.cuts.push_back(CutOf(entry));
    return read;
}

/// Parses a document whose members are dropped as soon as they were taken.
Json ParseWithoutMembers(std::istream& stream, const TakeMember& take) {
    constexpr int kKeyDepth = 1;
    constexpr int kMemberDepth = 2;
    using Event = Json::parse_event_t;
    std::string key;
    return Json::parse(stream, [&](int depth, Event event, Json& value) {
        if (event == Event::key && depth == kKeyDepth)
            key = value.get<std::string>();
        if (event != Event::object_end || depth != kMemberDepth || key != "members")
            return true;
        take(MemberOf(value));
        return false;
    });
}

/// The same by lines, with what stands around the members as a document. Nothing of a document
/// that has them in another form.
std::optional<Json> ParseByLines(std::istream& stream,
                                 const TakeMember& take,
                                 const KnowsMember& knows) {
    std::string around;
    std::string line;
    while (std::getline(stream, line) && line != "\"members\":[")
        around += line + "\n";
    if (!stream)
        return std::nullopt;
    around += line;
    for (bool isLast = false; !isLast && std::getline(stream, line);) {
        const std::string_view text = line;
        const std::size_t end = text.rfind('}') + 1;
        const std::string_view member = text.substr(0, end);
        if (knows == nullptr || !knows(member))
            take(MemberOf(Json::parse(member)));
        isLast = text.substr(end) != ",";
        around += isLast ? line.substr(end) : "";
    }
    around.append(std::istreambuf_iterator<char>(stream), {});
    return Json::parse(around);
}

Json Parse(std::istream& stream, const TakeMember& take, const KnowsMember& knows) {
    if (std::optional<Json> document = ParseByLines(stream, take, knows))
        return *std::move(document);
    stream.clear();
    stream.seekg(0);
    return ParseWithoutMembers(stream, take);
}

}  // namespace

std::variant<RunDocument, RunDocumentFault> ReadRunDocument(const std::filesystem::path& file,
                                                            const TakeMember& take,
                                                            const KnowsMember& knows) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return RunDocumentFault{"cannot be read"};
    try {
        const Json document = Parse(stream, take, knows);
        if (document.at("schema") != kRunSchema)
            return RunDocumentFault{"is of another version (" +
                                    document.at("schema").get<std::string>() + ", not " +
                                    kRunSchema + ")"};
        if (document.at("status") != "done")
            return RunDocumentFault{"tells of a run without an output"};
        RunDocument read;
        for (const Json& bars : document.at("bars"))
            read.bars.push_back(BarsOf(bars));
        if (const Json& changes = document.at("changes"); !changes.is_null())
            read.changes = ChangesFrom(changes);
        return read;
    } catch (const Json::exception&) {
        return RunDocumentFault{"is not the document of a run"};
    }
}

}  // namespace camjob

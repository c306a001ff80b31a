#include "camjob/run/MemberJson.h"

#include "camjob/check/FindingJson.h"
#include "camjob/run/FeatureWords.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <vector>

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
JsonText ListIn(const std::string& file, const std::vector<T>& items) {
    JsonArray array;
    for (const T& item : items)
        array.Add({Dump(ToJson(item, file))});
    return array.ToText();
}

JsonText AccountsText(const plugin::AccountNumbers& accounts) {
    JsonObject object;
    for (std::size_t i = 0; i < kAccountNames.size(); ++i)
        object.Set(kAccountNames[i], accounts.features[i]);
    return object.ToText();
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

/// Features of a member's drawing.
using DrawnFeatures = std::vector<const report::DrawnFeature*>;

struct IsOnLineBefore {
    bool operator()(const report::DrawnFeature* a, const report::DrawnFeature* b) const {
        return a->line < b->line;
    }
    bool operator()(const report::DrawnFeature* feature, long line) const {
        return feature->line < line;
    }
    bool operator()(long line, const report::DrawnFeature* feature) const {
        return line < feature->line;
    }
};

/// By their line; of those in one line the last comes first.
DrawnFeatures ByLine(const report::MemberDrawing& drawing) {
    DrawnFeatures drawn;
    drawn.reserve(drawing.features.size());
    for (auto at = drawing.features.rbegin(); at != drawing.features.rend(); ++at)
        drawn.push_back(&*at);
    std::stable_sort(drawn.begin(), drawn.end(), IsOnLineBefore());
    return drawn;
}

/// An object whose keys may be set several times; the last counts.
class VariableObject {
  public:
    template <typename T>
    void Set(const char* key, const T& value) {
        m_json[key] = value;
    }
    JsonText ToText() const { return {Dump(m_json)}; }

  private:
    Json m_json = Json::object();
};

template <typename Object>
void SetIf(Object& object, const char* key, double value) {
    if (value != 0.0)
        object.Set(key, value);
}

template <typename Object>
void SetIf(Object& object, const char* key, const std::string& value) {
    if (!value.empty())
        object.Set(key, value);
}

/// Where a feature lies and what it is like; what does not apply is left out.
template <typename Object>
void SetDrawn(Object& object,
              const report::MemberDrawing& drawing,
              const report::DrawnFeature& drawn) {
    object.Set("face", drawing.faces[drawn.face].name);
    object.Set("x", drawn.told.x);
    object.Set("y", drawn.told.y);
    if (drawn.told != drawn.at) {
        object.Set("xInFile", drawn.at.x);
        object.Set("yInFile", drawn.at.y);
    }
    SetIf(object, "size", drawn.size);
    SetIf(object, "length", drawn.length);
    SetIf(object, "angle", drawn.angle);
    SetIf(object, "shape", drawn.shape);
    SetIf(object, "code", drawn.code);
    object.Set("status", kStateWords[static_cast<std::size_t>(drawn.state)]);
    SetIf(object, "remark", drawn.remark);
    SetIf(object, "text", drawn.text);
}

/// A feature with its account, and the parts of its drawing that it is.
template <typename Object>
JsonText FeatureText(const AccountedFeature& feature,
                     bool isMemberMade,
                     const report::MemberDrawing& drawing,
                     const DrawnFeatures& parts) {
    const Account account = feature.Get(isMemberMade);
    Object object;
    // A round opening is a hole.
    object.Set(
        "kind",
        parts.empty() ? ZetString(feature.kind).toUtf8() : std::string(WordOf(parts.back()->kind)));
    object.Set("line", feature.line);
    object.Set("account", kAccountNames[static_cast<std::size_t>(account)]);
    for (const report::DrawnFeature* part : parts)
        SetDrawn(object, drawing, *part);
    return object.ToText();
}

/// A part of the drawing that has no account of its own.
JsonText PartText(const report::MemberDrawing& drawing, const report::DrawnFeature& part) {
    JsonObject own;
    own.Set("kind", WordOf(part.kind));
    own.Set("line", part.line);
    SetDrawn(own, drawing, part);
    return own.ToText();
}

JsonText FeaturesJson(const RunReport& report, std::size_t index) {
    const RunMember& member = report.members[index];
    const bool isMade = member.result.IsMade();
    const report::MemberDrawing drawing = report.drawings.Get(index);
    const DrawnFeatures drawn = ByLine(drawing);
    DrawnFeatures parts;
    DrawnFeatures others;
    JsonArray features;
    for (const AccountedFeature& feature : member.features) {
        parts.clear();
        others.clear();
        const auto [begin, end] =
            std::equal_range(drawn.begin(), drawn.end(), feature.line, IsOnLineBefore());
        for (auto at = begin; at != end; ++at)
            (HasAccount(**at) ? parts : others).push_back(*at);
        const auto toText =
            parts.size() > 1 ? &FeatureText<VariableObject> : &FeatureText<JsonObject>;
        features.Add(toText(feature, isMade, drawing, parts));
        for (const report::DrawnFeature* part : others)
            features.Add(PartText(drawing, *part));
    }
    return features.ToText();
}

/// The lines between that of the member and its end.
JsonText OperationsJson(const RunMember& member) {
    JsonArray operations;
    if (member.result.IsMade()) {
        std::string_view lines = member.result.records.text;
        const auto takeLine = [&] {
            const std::string_view line = lines.substr(0, lines.find('\n'));
            lines.remove_prefix(std::min(line.size() + 1, lines.size()));
            return line;
        };
        takeLine();
        for (const long tag : member.result.records.operations) {
            JsonObject operation;
            operation.Set("record", takeLine());
            operation.Set("line", tag);
            operations.Add(operation.ToText());
        }
    }
    return operations.ToText();
}

}  // namespace

Json AccountsJson(const plugin::AccountNumbers& accounts) {
    Json object = Json::object();
    for (std::size_t i = 0; i < kAccountNames.size(); ++i)
        object[kAccountNames[i]] = accounts.features[i];
    return object;
}

JsonText MemberJson(const RunReport& report, std::size_t index, const std::string& file) {
    const RunMember& member = report.members[index];
    const plugin::MemberResult& result = member.result;
    JsonObject object;
    object.Set("file", file);
    object.Set("mark", result.mark.toUtf8());
    object.Set("profileName", result.profileName.toUtf8());
    object.Set("material", report.drawings.GetMaterial(index));
    object.Set("length", report.drawings.GetLength(index));
    object.Set("group", result.group);
    object.Set("quantity", result.quantity);
    object.Set("valid", result.outcome.isValid);
    object.Set("warnings", result.outcome.hasWarnings);
    object.Set("nonStandard", result.outcome.isNonStandard);
    object.Set("left", result.left);
    object.Set("accounts", AccountsText(member.CountAccounts()));
    object.Set("features", FeaturesJson(report, index));
    object.Set("operations", OperationsJson(member));
    object.Set("findings", FindingsText(result.findings, file, member.file.lines));
    object.Set("setAside", ListIn(file, result.setAside));
    return object.ToText();
}

}  // namespace camjob

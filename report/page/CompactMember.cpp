#include "report/page/CompactMember.h"

#include "report/drawing/DrawingText.h"

#include <array>
#include <charconv>

namespace report {

namespace {

/// One JSON array in the making.
class JsonArray {
  public:
    void Add(std::string_view json) {
        Separate();
        m_json += json;
        if (json != "0")
            m_kept = m_json.size();
    }
    void AddNumber(double value) {
        Separate();
        const std::size_t start = m_json.size();
        AppendNumber(m_json, value);
        if (m_json.compare(start, std::string::npos, "0") != 0)
            m_kept = m_json.size();
    }
    void AddIndex(std::size_t index) { Add(std::to_string(index)); }
    void AddText(std::string_view text) { Add(JsonText(text)); }

    std::string ToJson() const { return m_json + "]"; }
    /// The reader takes what is missing at the end for 0.
    std::string ToShortJson() const { return m_json.substr(0, m_kept) + "]"; }

  private:
    void Separate() {
        if (m_json.size() > 1)
            m_json += ',';
    }

    std::string m_json = "[";
    std::size_t m_kept = 1;  ///< up to the last item that is not 0
};

/// No JSON has it.
constexpr char kMark = '\x01';

/// The places of texts where they are known already.
struct SharedPlaces {
    SharedTexts& texts;

    std::string Of(const std::string& text) const { return std::to_string(texts.IndexOf(text)); }
};

/// Places that are still to be found; none is the same for all.
struct LoosePlaces {
    SharedTexts& texts;

    std::string Of(const std::string& text) const {
        const std::size_t index = texts.IndexOf(text);
        return index == 0 ? "0" : kMark + std::to_string(index) + kMark;
    }
};

/// x, y, x, y and so on.
std::string FlatPoints(const Polyline& line) {
    JsonArray points;
    for (const Point& point : line) {
        points.AddNumber(point.x);
        points.AddNumber(point.y);
    }
    return points.ToJson();
}

std::string FaceJson(const DrawnFace& face, const LoosePlaces& places) {
    JsonArray outlines;
    for (const Polyline& outline : face.outlines)
        outlines.Add(FlatPoints(outline));
    JsonArray json;
    json.Add(places.Of(face.name));
    json.AddNumber(face.width);
    json.Add(face.isUnrolled ? "1" : "0");
    json.Add(face.outlines.empty() ? "0" : outlines.ToJson());
    return json.ToShortJson();
}

template <typename Places>
std::string FeatureJson(const DrawnFeature& feature, const Places& places) {
    JsonArray json;
    json.AddIndex(static_cast<std::size_t>(feature.kind));
    json.AddIndex(static_cast<std::size_t>(feature.state));
    json.AddIndex(feature.face);
    json.Add(std::to_string(feature.line));
    json.AddNumber(feature.at.x);
    json.AddNumber(feature.at.y);
    json.AddNumber(feature.size);
    json.Add(places.Of(feature.shape));
    json.Add(places.Of(feature.code));
    json.AddNumber(feature.length);
    json.AddNumber(feature.angle);
    json.Add(feature.told == feature.at ? "0" : FlatPoints({feature.told}));
    json.Add(places.Of(feature.remark));
    json.Add(feature.outline.empty() ? "0" : FlatPoints(feature.outline));
    json.Add(places.Of(feature.text));
    return json.ToShortJson();
}

template <typename Places>
std::string FeaturesJson(const std::vector<DrawnFeature>& features, const Places& places) {
    JsonArray json;
    for (const DrawnFeature& feature : features)
        json.Add(FeatureJson(feature, places));
    return json.ToJson();
}

std::string FindingJson(const DrawnFinding& finding, SharedTexts& texts) {
    JsonArray json;
    json.AddIndex(static_cast<std::size_t>(finding.state));
    json.AddText(finding.text);
    json.Add(std::to_string(finding.line));
    json.Add(finding.isNonStandard ? "1" : "0");
    json.AddIndex(texts.IndexOf(finding.rule));
    json.AddIndex(texts.IndexOf(finding.remedy));
    return json.ToShortJson();
}

std::string ChangesJson(const std::vector<std::array<std::string, 3>>& changes) {
    JsonArray json;
    for (const std::array<std::string, 3>& change : changes) {
        JsonArray texts;
        for (const std::string& text : change)
            texts.AddText(text);
        json.Add(texts.ToJson());
    }
    return json.ToJson();
}

}  // namespace

std::size_t SharedTexts::IndexOf(const std::string& text) {
    const auto [at, isNew] = m_indices.try_emplace(text, m_texts.size());
    if (isNew)
        m_texts.push_back(text);
    return at->second;
}

std::string SharedTexts::ToJson() const {
    JsonArray json;
    for (const std::string& text : m_texts)
        json.AddText(text);
    return json.ToJson();
}

std::string JsonText(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string json = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        // "<" would let "</script>" end the page.
        if (byte < 0x20 || character == '<' || character == '"' || character == '\\')
            Append(json, "\\u00", std::string{kDigits[byte >> 4], kDigits[byte & 0xFu]});
        else
            json += character;
    }
    return json + "\"";
}

CompactDrawing::CompactDrawing(const MemberDrawing& drawing) {
    const LoosePlaces places{m_texts};
    JsonArray faces;
    for (const DrawnFace& face : drawing.faces)
        faces.Add(FaceJson(face, places));
    m_json = faces.ToJson() + "," + FeaturesJson(drawing.features, places);
}

std::string CompactDrawing::Join(SharedTexts& texts) const {
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < m_texts.GetCount(); ++i)
        numbers.push_back(std::to_string(texts.IndexOf(m_texts.At(i))));
    std::string json;
    json.reserve(m_json.size());
    std::string_view rest = m_json;
    for (std::size_t mark; (mark = rest.find(kMark)) != rest.npos;) {
        json += rest.substr(0, mark);
        rest.remove_prefix(mark + 1);
        std::size_t index = 0;
        const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), index);
        json += numbers[index];
        rest.remove_prefix(static_cast<std::size_t>(read.ptr - rest.data()) + 1);
    }
    json += rest;
    return json;
}

std::string CompactFeatures(const std::vector<DrawnFeature>& features, SharedTexts& texts) {
    return FeaturesJson(features, SharedPlaces{texts});
}

std::string CompactMember(const PageMember& member, bool isDrawn, SharedTexts& texts) {
    JsonArray findings;
    for (const DrawnFinding& finding : member.findings)
        findings.Add(FindingJson(finding, texts));
    JsonArray json;
    json.AddText(member.mark);
    json.AddIndex(texts.IndexOf(member.profile));
    json.AddNumber(member.length);
    json.Add(std::to_string(member.quantity));
    json.AddIndex(texts.IndexOf(member.group));
    json.AddIndex(static_cast<std::size_t>(member.state));
    json.Add(member.isNonStandard ? "1" : "0");
    json.AddText(member.file);
    json.AddIndex(texts.IndexOf(member.accounts));
    json.AddIndex(texts.IndexOf(member.material));
    json.Add(findings.ToJson());
    json.Add(isDrawn && !member.drawing.empty() ? member.drawing : "[],[]");
    if (member.changes.empty())
        return json.ToJson();
    json.Add(ChangesJson(member.changes));
    json.Add(isDrawn && !member.earlier.empty() ? member.earlier : "[]");
    return json.ToJson();
}

}  // namespace report

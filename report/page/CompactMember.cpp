#include "report/page/CompactMember.h"

#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>

namespace report {

namespace {

/// No JSON has it.
constexpr char kMark = '\x01';

/// The places of texts where they are known already.
struct SharedPlaces {
    SharedTexts& texts;

    void Append(std::string& json, const std::string& text) const {
        json += std::to_string(texts.IndexOf(text));
    }
};

/// Places that are still to be found; none is the same for all.
struct LoosePlaces {
    SharedTexts& texts;

    void Append(std::string& json, const std::string& text) const {
        const std::size_t index = texts.IndexOf(text);
        if (index == 0) {
            json += '0';
            return;
        }
        json += kMark;
        json += std::to_string(index);
        json += kMark;
    }
};

/// One JSON array in the making, at the end of a text.
class JsonArray {
  public:
    explicit JsonArray(std::string& json) : m_json(json) {
        m_json += '[';
        m_begin = m_kept = m_json.size();
    }

    void Add(std::string_view json) {
        AddBy([&] { m_json += json; });
    }
    void AddNumber(double value) {
        AddBy([&] { AppendNumber(m_json, value); });
    }
    template <std::integral T>
    void AddWhole(T value) {
        AddBy([&] { m_json += std::to_string(value); });
    }
    void AddText(std::string_view text) { Add(JsonText(text)); }
    template <typename Places>
    void AddPlace(const Places& places, const std::string& text) {
        AddBy([&] { places.Append(m_json, text); });
    }
    /// x, y, x, y and so on.
    void AddPoints(const Polyline& line) {
        AddBy([&] {
            JsonArray points(m_json);
            for (const Point& point : line) {
                points.AddNumber(point.x);
                points.AddNumber(point.y);
            }
            points.End();
        });
    }
    /// An item that `append` appends to the text.
    template <typename Append>
    void AddBy(const Append& append) {
        if (m_json.size() > m_begin)
            m_json += ',';
        const std::size_t start = m_json.size();
        append();
        if (m_json.compare(start, std::string::npos, "0") != 0)
            m_kept = m_json.size();
    }

    void End() { m_json += ']'; }
    /// The reader takes what is missing at the end for 0.
    void EndShort() {
        m_json.resize(m_kept);
        End();
    }

  private:
    std::string& m_json;
    std::size_t m_begin;  ///< of its items
    std::size_t m_kept;   ///< up to the last item that is not 0
};

/// A list of which each item is appended by a call.
template <typename Items, typename Append>
void AppendList(std::string& json, const Items& items, const Append& append) {
    JsonArray list(json);
    for (const auto& item : items)
        list.AddBy([&] { append(item); });
    list.End();
}

void AppendFace(std::string& json, const DrawnFace& face, const LoosePlaces& places) {
    JsonArray items(json);
    items.AddPlace(places, face.name);
    items.AddNumber(face.width);
    items.Add(face.isUnrolled ? "1" : "0");
    if (!face.outlines.empty())
        items.AddBy([&] {
            JsonArray outlines(json);
            for (const Polyline& outline : face.outlines)
                outlines.AddPoints(outline);
            outlines.End();
        });
    items.EndShort();
}

template <typename Places>
void AppendFeature(std::string& json, const DrawnFeature& feature, const Places& places) {
    JsonArray items(json);
    items.AddWhole(static_cast<std::size_t>(feature.kind));
    items.AddWhole(static_cast<std::size_t>(feature.state));
    items.AddWhole(feature.face);
    items.AddWhole(feature.line);
    items.AddNumber(feature.at.x);
    items.AddNumber(feature.at.y);
    items.AddNumber(feature.size);
    items.AddPlace(places, feature.shape);
    items.AddPlace(places, feature.code);
    items.AddNumber(feature.length);
    items.AddNumber(feature.angle);
    if (feature.told == feature.at)
        items.Add("0");
    else
        items.AddPoints({feature.told});
    items.AddPlace(places, feature.remark);
    if (feature.outline.empty())
        items.Add("0");
    else
        items.AddPoints(feature.outline);
    items.AddPlace(places, feature.text);
    items.EndShort();
}

template <typename Places>
void AppendFeatures(std::string& json,
                    const std::vector<DrawnFeature>& features,
                    const Places& places) {
    AppendList(
        json, features, [&](const DrawnFeature& feature) { AppendFeature(json, feature, places); });
}

void AppendFinding(std::string& json, const DrawnFinding& finding, SharedTexts& texts) {
    JsonArray items(json);
    items.AddWhole(static_cast<std::size_t>(finding.state));
    items.AddText(finding.text);
    items.AddWhole(finding.line);
    items.Add(finding.isNonStandard ? "1" : "0");
    items.AddWhole(texts.IndexOf(finding.rule));
    items.AddWhole(texts.IndexOf(finding.remedy));
    items.EndShort();
}

void AppendTexts(std::string& json, const std::array<std::string, 3>& texts) {
    AppendList(json, texts, [&](const std::string& text) { json += JsonText(text); });
}

}  // namespace

std::size_t SharedTexts::IndexOf(const std::string& text) {
    if (text.empty() && !m_texts.empty())
        return 0;
    const auto [at, isNew] = m_indices.try_emplace(text, m_texts.size());
    if (isNew)
        m_texts.push_back(text);
    return at->second;
}

std::string SharedTexts::ToJson() const {
    std::string json;
    AppendList(json, m_texts, [&](const std::string& text) { json += JsonText(text); });
    return json;
}

std::string JsonText(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string json = "\"";
    const auto isPlain = [](char character) {
        // "<" would let "</script>" end the page.
        return static_cast<unsigned char>(character) >= 0x20 && character != '<' &&
               character != '"' && character != '\\';
    };
    for (auto at = text.begin(); at != text.end(); ++at) {
        const auto end = std::find_if_not(at, text.end(), isPlain);
        json.append(at, end);
        at = end;
        if (at == text.end())
            break;
        const auto byte = static_cast<unsigned char>(*at);
        Append(json, "\\u00", std::string{kDigits[byte >> 4], kDigits[byte & 0xFu]});
    }
    return json + "\"";
}

CompactDrawing::CompactDrawing(const MemberDrawing& drawing) {
    const LoosePlaces places{m_texts};
    AppendList(
        m_json, drawing.faces, [&](const DrawnFace& face) { AppendFace(m_json, face, places); });
    m_json += ',';
    AppendFeatures(m_json, drawing.features, places);
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
    std::string json;
    AppendFeatures(json, features, SharedPlaces{texts});
    return json;
}

std::string CompactMember(const PageMember& member, bool isDrawn, SharedTexts& texts) {
    // Their texts get their places first.
    std::string findings;
    AppendList(findings, member.findings, [&](const DrawnFinding& finding) {
        AppendFinding(findings, finding, texts);
    });
    std::string json;
    JsonArray items(json);
    items.AddText(member.mark);
    items.AddWhole(texts.IndexOf(member.profile));
    items.AddNumber(member.length);
    items.AddWhole(member.quantity);
    items.AddWhole(texts.IndexOf(member.group));
    items.AddWhole(static_cast<std::size_t>(member.state));
    items.Add(member.isNonStandard ? "1" : "0");
    items.AddText(member.file);
    items.AddWhole(texts.IndexOf(member.accounts));
    items.AddWhole(texts.IndexOf(member.material));
    items.Add(findings);
    items.Add(isDrawn && !member.drawing.empty() ? member.drawing : "[],[]");
    if (!member.changes.empty()) {
        items.AddBy([&] {
            AppendList(
                json, member.changes, [&](const auto& change) { AppendTexts(json, change); });
        });
        items.Add(isDrawn && !member.earlier.empty() ? member.earlier : "[]");
    }
    items.End();
    return json;
}

}  // namespace report

#include "report/drawing/DxfDrawing.h"

#include "report/drawing/ArcEdges.h"
#include "report/drawing/DrawingText.h"

#include <algorithm>
#include <array>
#include <map>

namespace report {

namespace {

constexpr double kFaceGap = 50.0;
constexpr int kWebPosition = 1;
/// A text without a height.
constexpr double kTextHeight = 10.0;
/// Half the length of the strokes of a point that is marked.
constexpr double kPointSize = 2.0;

struct Layer {
    const char* name;
    const char* colour;
};

constexpr Layer kOutlineLayer = {"OUTLINE", "7"};
constexpr Layer kSetAsideLayer = {"SET_ASIDE", "9"};
/// By FeatureKind. An outline has none: its face shows it.
constexpr std::array<Layer, kFeatureKindCount> kLayers = {
    {{"HOLES", "5"},
     {"SLOTS", "4"},
     {"RECTANGLES", "6"},
     {"COUNTERSINKS", "8"},
     {"OPENINGS", "1"},
     {"NOTCHES", "40"},
     {"MARKS", "3"},
     {"TEXTS", "2"},
     {"TRIMS", "30"},
     {"MITRES", "30"},
     {nullptr, nullptr}}
};

/// One pair of group code and value.
std::string Group(int code, const std::string& value) {
    return std::to_string(code) + "\n" + value + "\n";
}

std::string Group(int code, double value) {
    return Group(code, Number(value, 6));
}

std::string PointAt(double x, double y) {
    return Group(10, x) + Group(20, y) + Group(30, 0.0);
}

std::string LayerName(const DrawnFace& face, const Layer& layer) {
    std::string name;
    for (const char c : face.name) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        const char upper = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
        name += isLetter || (c >= '0' && c <= '9') ? upper : '_';
    }
    return name + "_" + layer.name;
}

/// The code point that begins at `at`, which moves behind it; what is no UTF-8 counts as U+FFFD.
unsigned long TakeCodePoint(const std::string& text, std::size_t& at) {
    constexpr unsigned long kReplacement = 0xFFFD;
    const auto byte = static_cast<unsigned char>(text[at++]);
    if (byte < 0x80)
        return byte;
    const int more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
    unsigned long point = byte & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0u) != 0x80)
            return kReplacement;
        point = point << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
    }
    return byte < 0xC0 ? kReplacement : point;
}

/// A character beyond ASCII by its number: the format knows no UTF-8. One beyond four digits, and
/// a control character, becomes a question mark.
std::string TextOf(const std::string& text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        const unsigned long point = TakeCodePoint(text, at);
        if (point < 0x20 || point == 0x7F || point > 0xFFFF) {
            plain += '?';
        } else if (point < 0x80) {
            plain += static_cast<char>(point);
        } else {
            plain += "\\U+";
            for (int shift = 12; shift >= 0; shift -= 4)
                plain += kDigits[point >> shift & 0xFu];
        }
    }
    return plain;
}

class DxfWriter {
  public:
    explicit DxfWriter(const MemberDrawing& drawing);

    std::string Write();

  private:
    void SetOffsets();
    void AddFace(std::size_t face);
    void AddFeature(const DrawnFeature& feature);
    void AddRound(const DrawnFeature& feature, const Layer& layer);
    void AddMark(const DrawnFeature& mark, const Layer& layer);
    void AddText(const DrawnFeature& text, const Layer& layer);
    void AddOutline(std::size_t face, const Layer& layer, const Polyline& outline);
    void AddPolyline(std::size_t face,
                     const Layer& layer,
                     const std::vector<Vertex>& vertices,
                     bool isClosed);
    void AddLine(std::size_t face, const Layer& layer, Point from, Point to);
    /// The head of an entity; its layer is in the table from now on.
    void Begin(const char* type, std::size_t face, const Layer& layer);
    std::string Place(std::size_t face, const Point& at) const {
        return PointAt(at.x, at.y + m_offsets[face]);
    }

    const MemberDrawing& m_drawing;
    std::vector<double> m_offsets;                ///< by face
    std::map<std::string, std::string> m_layers;  ///< colour by name
    std::string m_entities;
    std::string m_layer;  ///< of the entity that was begun
};

DxfWriter::DxfWriter(const MemberDrawing& drawing) : m_drawing(drawing) {
    SetOffsets();
}

void DxfWriter::SetOffsets() {
    double top = 0.0;
    double shift = 0.0;
    for (const DrawnFace& face : m_drawing.faces) {
        if (face.viewPosition == kWebPosition)
            shift = top;
        m_offsets.push_back(top);
        top += face.width + kFaceGap;
    }
    for (double& offset : m_offsets)
        offset -= shift;
}

void DxfWriter::Begin(const char* type, std::size_t face, const Layer& layer) {
    m_layer = LayerName(m_drawing.faces[face], layer);
    m_layers[m_layer] = layer.colour;
    m_entities += Group(0, type) + Group(8, m_layer);
}

void DxfWriter::AddPolyline(std::size_t face,
                            const Layer& layer,
                            const std::vector<Vertex>& vertices,
                            bool isClosed) {
    Begin("POLYLINE", face, layer);
    m_entities += Group(66, "1") + PointAt(0.0, 0.0) + Group(70, isClosed ? "1" : "0");
    for (const Vertex& vertex : vertices) {
        Begin("VERTEX", face, layer);
        m_entities += Place(face, vertex.at);
        if (vertex.bulge != 0.0)
            m_entities += Group(42, vertex.bulge);
    }
    Begin("SEQEND", face, layer);
}

/// The closing point of an outline is the flag of the polyline.
void DxfWriter::AddOutline(std::size_t face, const Layer& layer, const Polyline& outline) {
    std::vector<Vertex> vertices = WithArcs(outline);
    if (vertices.size() > 1 && outline.front() == outline.back())
        vertices.pop_back();
    const bool isCircle = vertices.size() == 2 && vertices.front().bulge != 0.0;
    if (vertices.size() > 2 || isCircle)
        AddPolyline(face, layer, vertices, true);
}

void DxfWriter::AddLine(std::size_t face, const Layer& layer, Point from, Point to) {
    Begin("LINE", face, layer);
    m_entities +=
        Place(face, from) + Group(11, to.x) + Group(21, to.y + m_offsets[face]) + Group(31, 0.0);
}

void DxfWriter::AddFace(std::size_t face) {
    const DrawnFace& drawn = m_drawing.faces[face];
    const double length = m_drawing.length;
    const Polyline box = {
        {0.0,    0.0        },
        {length, 0.0        },
        {length, drawn.width},
        {0.0,    drawn.width},
        {0.0,    0.0        }
    };
    if (drawn.outlines.empty())
        AddOutline(face, kOutlineLayer, box);
    for (const Polyline& outline : drawn.outlines)
        AddOutline(face, kOutlineLayer, outline);
}

void DxfWriter::AddRound(const DrawnFeature& feature, const Layer& layer) {
    if (feature.kind == FeatureKind::kSlot) {
        const std::array<Point, 4> corners = SlotCorners(feature);
        return AddPolyline(
            feature.face,
            layer,
            {
                {corners[0], 0.0},
                {corners[1], 1.0},
                {corners[2], 0.0},
                {corners[3], 1.0}
        },
            true);
    }
    if (feature.size <= 0.0)
        return;
    Begin("CIRCLE", feature.face, layer);
    m_entities += Place(feature.face, feature.at) + Group(40, feature.size / 2.0);
}

void DxfWriter::AddMark(const DrawnFeature& mark, const Layer& layer) {
    if (mark.outline.size() > 1)
        return AddPolyline(mark.face, layer, WithArcs(mark.outline), false);
    const auto [x, y] = mark.at;
    AddLine(mark.face, layer, {x - kPointSize, y}, {x + kPointSize, y});
    AddLine(mark.face, layer, {x, y - kPointSize}, {x, y + kPointSize});
}

void DxfWriter::AddText(const DrawnFeature& text, const Layer& layer) {
    Begin("TEXT", text.face, layer);
    m_entities += Place(text.face, text.at) + Group(40, text.size > 0.0 ? text.size : kTextHeight) +
                  Group(1, TextOf(text.text));
    if (text.angle != 0.0)
        m_entities += Group(50, text.angle);
}

void DxfWriter::AddFeature(const DrawnFeature& feature) {
    const Layer& own = kLayers[static_cast<std::size_t>(feature.kind)];
    if (own.name == nullptr)
        return;
    const Layer& layer = feature.state == FeatureState::kSetAside ? kSetAsideLayer : own;
    const bool isLine = feature.kind == FeatureKind::kMark || feature.kind == FeatureKind::kTrim ||
                        feature.kind == FeatureKind::kMitre;
    if (isLine)
        AddMark(feature, layer);
    else if (feature.kind == FeatureKind::kText)
        AddText(feature, layer);
    else if (feature.outline.empty())
        AddRound(feature, layer);
    else
        AddOutline(feature.face, layer, feature.outline);
}

std::string DxfWriter::Write() {
    for (std::size_t face = 0; face < m_drawing.faces.size(); ++face)
        AddFace(face);
    for (const DrawnFeature& feature : m_drawing.features)
        AddFeature(feature);
    const auto section = [](const char* name, const std::string& content) {
        return Group(0, "SECTION") + Group(2, name) + content + Group(0, "ENDSEC");
    };
    const auto table = [](const char* name, std::size_t count, const std::string& content) {
        return Group(0, "TABLE") + Group(2, name) + Group(70, std::to_string(count)) + content +
               Group(0, "ENDTAB");
    };
    std::string layers;
    for (const auto& [name, colour] : m_layers)
        layers += Group(0, "LAYER") + Group(2, name) + Group(70, "0") + Group(62, colour) +
                  Group(6, "CONTINUOUS");
    // A reader without the last two takes inches or metres.
    const std::string header = Group(9, "$ACADVER") + Group(1, "AC1009") + Group(9, "$INSUNITS") +
                               Group(70, "4") + Group(9, "$MEASUREMENT") + Group(70, "1");
    const std::string lineType = Group(0, "LTYPE") + Group(2, "CONTINUOUS") + Group(70, "0") +
                                 Group(3, "Solid line") + Group(72, "65") + Group(73, "0") +
                                 Group(40, "0");
    return section("HEADER", header) +
           section("TABLES",
                   table("LTYPE", 1, lineType) + table("LAYER", m_layers.size(), layers)) +
           section("ENTITIES", m_entities) + Group(0, "EOF");
}

}  // namespace

std::string DxfOf(const MemberDrawing& drawing) {
    return DxfWriter(drawing).Write();
}

}  // namespace report

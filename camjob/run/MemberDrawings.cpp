#include "camjob/run/MemberDrawings.h"

#include <nlohmann/json.hpp>

namespace camjob {

namespace {

using nlohmann::json;
using report::DrawnFace;
using report::DrawnFeature;
using report::Point;
using report::Polyline;

/// The arrays of a compact drawing; what is missing at the end of one is 0.
class DrawingReader {
  public:
    explicit DrawingReader(const report::SharedTexts& texts) : m_texts(texts) {}

    DrawnFace FaceOf(const json& array) const;
    DrawnFeature FeatureOf(const json& array) const;

  private:
    static double Value(const json& array, std::size_t at) {
        return at < array.size() ? array[at].get<double>() : 0.0;
    }
    static std::size_t Index(const json& array, std::size_t at) {
        return at < array.size() ? array[at].get<std::size_t>() : 0;
    }
    const std::string& Text(const json& array, std::size_t at) const {
        return m_texts.At(Index(array, at));
    }
    static Polyline Points(const json& array, std::size_t at);

    const report::SharedTexts& m_texts;
};

Polyline DrawingReader::Points(const json& array, std::size_t at) {
    Polyline points;
    if (at < array.size() && array[at].is_array())
        for (std::size_t i = 0; i + 1 < array[at].size(); i += 2)
            points.push_back({array[at][i].get<double>(), array[at][i + 1].get<double>()});
    return points;
}

DrawnFace DrawingReader::FaceOf(const json& array) const {
    DrawnFace face;
    face.name = Text(array, 0);
    face.width = Value(array, 1);
    face.isUnrolled = Index(array, 2) == 1;
    if (array.size() > 3)
        for (std::size_t i = 0; i < array[3].size(); ++i)
            face.outlines.push_back(Points(array[3], i));
    return face;
}

DrawnFeature DrawingReader::FeatureOf(const json& array) const {
    DrawnFeature feature;
    feature.kind = static_cast<report::FeatureKind>(Index(array, 0));
    feature.state = static_cast<report::FeatureState>(Index(array, 1));
    feature.face = Index(array, 2);
    feature.line = static_cast<long>(Index(array, 3));
    feature.at = {Value(array, 4), Value(array, 5)};
    feature.size = Value(array, 6);
    feature.shape = Text(array, 7);
    feature.code = Text(array, 8);
    feature.length = Value(array, 9);
    feature.angle = Value(array, 10);
    const Polyline told = Points(array, 11);
    feature.told = told.empty() ? feature.at : told.front();
    feature.remark = Text(array, 12);
    feature.outline = Points(array, 13);
    feature.text = Text(array, 14);
    return feature;
}

}  // namespace

void MemberDrawings::Add(const report::MemberDrawing& drawing) {
    m_members.push_back({drawing.length,
                         m_texts.IndexOf(drawing.material),
                         report::CompactDrawing(drawing, m_texts)});
}

report::MemberDrawing MemberDrawings::Get(std::size_t member) const {
    report::MemberDrawing drawing;
    drawing.length = m_members[member].length;
    const json arrays = json::parse("[" + m_members[member].drawing + "]");
    const DrawingReader reader(m_texts);
    for (const json& face : arrays[0])
        drawing.faces.push_back(reader.FaceOf(face));
    for (const json& feature : arrays[1])
        drawing.features.push_back(reader.FeatureOf(feature));
    return drawing;
}

}  // namespace camjob

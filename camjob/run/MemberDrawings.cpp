#include "camjob/run/MemberDrawings.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace camjob {

namespace {

using report::DrawnFace;
using report::DrawnFeature;
using report::Point;
using report::Polyline;

/// Goes through the arrays of a compact drawing, item by item; what is missing at the end of one is
/// 0.
class DrawingReader {
  public:
    DrawingReader(std::string_view arrays, const report::SharedTexts& texts)
        : m_rest(arrays), m_texts(texts) {}

    std::vector<DrawnFace> Faces() { return List(&DrawingReader::Face); }
    std::vector<DrawnFeature> Features() { return List(&DrawingReader::Feature); }

  private:
    DrawnFace Face();
    DrawnFeature Feature();
    Point At() {
        const double x = Value();
        return {x, Value()};
    }
    Polyline Points() { return List(&DrawingReader::At); }
    double Value();
    bool TakeShort(double& value);
    std::size_t Index() { return static_cast<std::size_t>(Value()); }
    const std::string& Text() { return m_texts.At(Index()); }

    /// Items of the array that comes next; none where something else does.
    template <typename T>
    std::vector<T> List(T (DrawingReader::*read)());
    bool Take(char c);
    bool IsAtItem();
    bool Open() { return IsAtItem() && Take('['); }
    void Close() { Take(']'); }

    std::string_view m_rest;
    const report::SharedTexts& m_texts;
};

bool DrawingReader::Take(char c) {
    const bool isThere = m_rest.starts_with(c);
    m_rest.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

/// Of the array at hand, one is left.
bool DrawingReader::IsAtItem() {
    Take(',');
    return !m_rest.empty() && m_rest.front() != ']';
}

double DrawingReader::Value() {
    double value = 0.0;
    if (IsAtItem() && !TakeShort(value)) {
        const auto end = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        m_rest.remove_prefix(static_cast<std::size_t>(end.ptr - m_rest.data()));
    }
    return value;
}

/// A number of few digits, before an item's end: both parts of the quotient are exact, so it is the
/// nearest double, as from_chars has it.
bool DrawingReader::TakeShort(double& value) {
    constexpr std::size_t kMaxDigits = 15;
    constexpr double kPowersOfTen[] = {1.0, 1e1, 1e2, 1e3};
    std::size_t at = m_rest.front() == '-' ? 1 : 0;
    const std::size_t begin = at;
    std::int64_t digits = 0;
    const auto readDigits = [&](std::size_t most) {
        for (; at < most && m_rest[at] >= '0' && m_rest[at] <= '9'; ++at)
            digits = digits * 10 + (m_rest[at] - '0');
    };
    const std::size_t most = std::min(m_rest.size(), begin + kMaxDigits);
    readDigits(most);
    std::size_t decimals = 0;
    if (at < most && m_rest[at] == '.') {
        const std::size_t point = at++;
        readDigits(most);
        decimals = at - point - 1;
    }
    const bool isShort = at > begin && at < most && decimals < std::size(kPowersOfTen) &&
                         (m_rest[at] == ',' || m_rest[at] == ']');
    if (!isShort)
        return false;
    value = static_cast<double>(digits) / kPowersOfTen[decimals];
    value = begin == 1 ? -value : value;
    m_rest.remove_prefix(at);
    return true;
}

template <typename T>
std::vector<T> DrawingReader::List(T (DrawingReader::*read)()) {
    std::vector<T> items;
    if (!Open()) {
        Value();
        return items;
    }
    while (IsAtItem())
        items.push_back((this->*read)());
    Close();
    return items;
}

DrawnFace DrawingReader::Face() {
    DrawnFace face;
    Open();
    face.name = Text();
    face.width = Value();
    face.isUnrolled = Index() == 1;
    face.outlines = List(&DrawingReader::Points);
    Close();
    return face;
}

DrawnFeature DrawingReader::Feature() {
    DrawnFeature feature;
    Open();
    feature.kind = static_cast<report::FeatureKind>(Index());
    feature.state = static_cast<report::FeatureState>(Index());
    feature.face = Index();
    feature.line = static_cast<long>(Index());
    feature.at = At();
    feature.size = Value();
    feature.shape = Text();
    feature.code = Text();
    feature.length = Value();
    feature.angle = Value();
    const Polyline told = Points();
    feature.told = told.empty() ? feature.at : told.front();
    feature.remark = Text();
    feature.outline = Points();
    feature.text = Text();
    Close();
    return feature;
}

}  // namespace

void MemberDrawings::Add(const Drawn& member) {
    const std::size_t material = m_texts.IndexOf(member.material);
    m_members.push_back({member.length, material, member.drawing.Join(m_texts)});
}

report::MemberDrawing MemberDrawings::Get(std::size_t member) const {
    report::MemberDrawing drawing;
    drawing.length = m_members[member].length;
    DrawingReader reader(m_members[member].drawing, m_texts);
    drawing.faces = reader.Faces();
    drawing.features = reader.Features();
    return drawing;
}

}  // namespace camjob

#include "dstv/NcWriter.h"

#include "codepages/CodePages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

namespace dstv {
namespace {

constexpr int kLeastDecimals = 2;
constexpr int kMaxDecimals = 9;
/// From the origin of a plane to the points that say where its axes run, mm.
constexpr double kAxisLength = 100.0;

/// At least two decimals, more where the number needs them.
std::string NumberText(double value) {
    std::array<char, 400> buffer;
    const auto format = std::chars_format::fixed;
    char* const begin = buffer.data();
    char* const most = begin + buffer.size();
    std::string text(begin, std::to_chars(begin, most, value, format).ptr);
    const std::size_t point = std::min(text.find('.'), text.size());
    const auto decimals = static_cast<int>(text.size() - std::min(point + 1, text.size()));
    if (decimals < kLeastDecimals || decimals > kMaxDecimals)
        text.assign(
            begin,
            std::to_chars(
                begin, most, value, format, std::clamp(decimals, kLeastDecimals, kMaxDecimals))
                .ptr);
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return isZero && text[0] == '-' ? text.substr(1) : text;
}

/// In columns, as people are used to see such files; a number that is wider has a blank before it.
std::string Column(double value, std::size_t width = 9) {
    const std::string text = NumberText(value);
    return std::string(std::max(width, text.size() + 1) - text.size(), ' ') + text;
}

std::string Columns(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values)
        text += Column(value);
    return text;
}

/// A whole number wherever it is one.
std::string HeightText(double height) {
    const std::string text = NumberText(height);
    return text.ends_with(".00") ? text.substr(0, text.size() - 3) : text;
}

char LetterOf(NcFace face) {
    constexpr std::array kLetters = {'o', 'v', 'u', 'h'};
    return kLetters[static_cast<std::size_t>(face)];
}

char LetterOf(NcHoleKind kind) {
    constexpr std::array kLetters = {' ', 'g', 'l', 'm', 's'};
    return kLetters[static_cast<std::size_t>(kind)];
}

/// Block codes on the standard faces and, with a number behind, on planes.
struct Codes {
    const char* standard;
    char onPlane;
};
constexpr Codes kHoles = {"BO", 'B'};
constexpr Codes kTexts = {"SI", 'S'};
constexpr Codes kOuter = {"AK", 'A'};
constexpr Codes kInner = {"IK", 'I'};
constexpr Codes kPowder = {"PU", 'P'};
constexpr Codes kPunch = {"KO", 'K'};

class PartText {
  public:
    PartText(const NcPart& part, const NcWriting& writing)
        : m_part(part), m_writing(writing), m_page(codepages::FindCodePage(writing.encoding)) {}

    std::variant<std::string, ZetString> Write() {
        Line("ST");
        AddHeader();
        for (const NcText& comment : m_part.comments)
            Line("** " + Bytes(comment.value));
        AddFeatures(-1);
        for (long plane = 0; plane < static_cast<long>(m_part.planes.size()); ++plane)
            AddPlane(plane);
        AddSawCuts();
        AddRest();
        Line("EN");
        if (m_foreign)
            return *m_foreign;
        return std::move(m_text);
    }

  private:
    void Line(const std::string& line) { m_text += line + m_writing.lineEnd; }
    void Data(const std::string& data) { Line("  " + data); }

    /// A text in the encoding of the file.
    std::string Bytes(const ZetString& text) {
        if (m_page == nullptr)
            return text.toUtf8();
        std::string bytes;
        for (const wchar_t c : text.view()) {
            const std::optional<char> byte = codepages::ByteOf(static_cast<char32_t>(c), *m_page);
            if (!byte && !m_foreign)
                m_foreign = text;
            bytes += byte.value_or('?');
        }
        return bytes;
    }

    bool IsKept(long line) const { return !m_writing.isKept || m_writing.isKept(line); }

    template <typename Feature>
    bool IsHere(const Feature& feature) const {
        return feature.place.plane == m_plane && IsKept(feature.line);
    }

    std::string FaceOf(const NcPlace& place) const {
        return m_plane < 0 ? std::string(1, LetterOf(place.face)) : " ";
    }
    static std::string Place(double x, char reference, double q) {
        return Column(x) + (reference == 0 ? ' ' : reference) + Column(q, 8);
    }

    void BeginBlock(const Codes& codes) {
        if (m_plane < 0)
            Line(codes.standard);
        else
            Line(codes.onPlane +
                 std::to_string(m_part.planes[static_cast<std::size_t>(m_plane)].number));
    }

    /// Within a block a line without a reference has that of the line before it.
    static bool BeginsBlock(bool& isBegun, char& last, char reference) {
        const bool isInherited = std::exchange(last, reference) != 0 && reference == 0;
        return !std::exchange(isBegun, true) || isInherited;
    }

    void AddHeader() {
        const NcHeader& h = m_part.header;
        for (const ZetString* text : {&h.order, &h.drawing, &h.phase, &h.mark, &h.steelQuality})
            Data(Bytes(*text));
        Data(std::to_string(h.quantity));
        Data(Bytes(h.profileName));
        Data(Bytes(h.profileCode));
        Data(Column(h.length) + (h.sawLength != 0.0 ? "," + Column(h.sawLength) : ""));
        for (const double value : {h.profileHeight,
                                   h.flangeWidth,
                                   h.flangeThickness,
                                   h.webThickness,
                                   h.radius,
                                   h.weight,
                                   h.paintingSurface,
                                   h.webStartCut,
                                   h.webEndCut,
                                   h.flangeStartCut,
                                   h.flangeEndCut})
            Data(Column(value));
        for (const ZetString& text : h.infoTexts)
            Data(Bytes(text));
    }

    /// Those of one plane; below 0: of the standard faces.
    void AddFeatures(long plane) {
        m_plane = plane;
        AddHoles();
        AddTexts();
        for (const bool isInternal : {false, true})
            for (const NcContour& contour : m_part.contours)
                if (contour.isInternal == isInternal && IsHere(contour))
                    AddContour(contour);
        for (const NcMark& mark : m_part.marks)
            if (IsHere(mark))
                AddMark(mark);
    }

    void AddHoles() {
        bool isBegun = false;
        char reference = 0;
        for (const NcHole& hole : m_part.holes) {
            if (!IsHere(hole))
                continue;
            if (BeginsBlock(isBegun, reference, hole.reference))
                BeginBlock(kHoles);
            Data(FaceOf(hole.place) + Place(hole.x, hole.reference, hole.q) + LetterOf(hole.kind) +
                 Column(hole.diameter, 8) + Column(hole.depth, 8) + SlotOf(hole));
        }
    }
    static std::string SlotOf(const NcHole& hole) {
        if (hole.slotWidth != 0.0 || hole.slotHeight != 0.0)
            return "l" + Column(hole.slotWidth, 8) + Column(hole.slotHeight, 8) +
                   Column(hole.slotAngle, 8);
        return hole.sinkAngle != 0.0 ? Column(0.0, 8) + Column(0.0, 8) + Column(hole.sinkAngle, 8)
                                     : "";
    }

    void AddTexts() {
        bool isBegun = false;
        char reference = 0;
        for (const NcNumeration& text : m_part.numerations) {
            if (!IsHere(text))
                continue;
            if (BeginsBlock(isBegun, reference, text.reference))
                BeginBlock(kTexts);
            Data(FaceOf(text.place) + Place(text.x, text.reference, text.q) +
                 Column(text.angle, 8) + " " + HeightText(text.textHeight) +
                 (text.rule == 0 ? ' ' : text.rule) + " " + Bytes(text.text));
        }
    }

    void AddContour(const NcContour& contour) {
        BeginBlock(contour.isInternal ? kInner : kOuter);
        std::string face = FaceOf(contour.place);
        char reference = contour.reference;
        std::size_t notch = 0;
        for (std::size_t i = 0; i <= contour.points.size(); ++i) {
            for (; notch < contour.notchLines.size() &&
                   contour.notchLines[notch].afterPoint == static_cast<long>(i);
                 ++notch) {
                const NcNotchLine& line = contour.notchLines[notch];
                Data(face + Place(line.x, reference, line.q) + line.kind + Column(line.radius, 8));
                reference = 0;
            }
            if (i == contour.points.size())
                break;
            const NcContourPoint& point = contour.points[i];
            Data(face + Place(point.x, reference, point.q) + Column(point.radius) +
                 BevelsOf(point));
            reference = 0;
        }
    }
    static std::string BevelsOf(const NcContourPoint& point) {
        std::string text;
        bool isBevelled = false;
        for (const NcBevel& bevel : point.bevels) {
            text += Column(bevel.angle, 8) + Column(bevel.depth, 8);
            isBevelled = isBevelled || bevel.angle != 0.0 || bevel.depth != 0.0;
        }
        return isBevelled ? text : "";
    }

    void AddMark(const NcMark& mark) {
        BeginBlock(mark.kind == NcMarkKind::kPowder ? kPowder : kPunch);
        for (const NcContourPoint& point : mark.points)
            Data(FaceOf(mark.place) + Place(point.x, 0, point.q) + Column(point.radius));
    }

    void AddPlane(long index) {
        const auto isOnIt = [&](const auto& features) {
            m_plane = index;
            return std::any_of(features.begin(), features.end(), [&](const auto& feature) {
                return IsHere(feature);
            });
        };
        if (!isOnIt(m_part.holes) && !isOnIt(m_part.numerations) && !isOnIt(m_part.contours) &&
            !isOnIt(m_part.marks))
            return;
        const NcPlane& plane = m_part.planes[static_cast<std::size_t>(index)];
        Line("E" + std::to_string(plane.number));
        const ZetGeomPoint3d& o = plane.plane.origin;
        for (const ZetGeomVector3d& axis :
             {ZetGeomVector3d{}, plane.plane.xAxis, plane.plane.yAxis})
            Data(Columns({o.x + axis.x * kAxisLength,
                          o.y + axis.y * kAxisLength,
                          o.z + axis.z * kAxisLength}));
        AddFeatures(index);
    }

    void AddSawCuts() {
        bool isBegun = false;
        for (const NcSawCut& cut : m_part.sawCuts) {
            if (!IsKept(cut.line))
                continue;
            if (!std::exchange(isBegun, true))
                Line("SC");
            Data(Columns(
                {cut.point.x, cut.point.y, cut.point.z, cut.normal.x, cut.normal.y, cut.normal.z}));
        }
    }

    /// A block of lines that nothing of the NC data comes from.
    template <typename Row, typename Text>
    void AddBlock(const char* code, const std::vector<Row>& rows, Text text) {
        if (!rows.empty())
            Line(code);
        for (const Row& row : rows)
            Data(text(row));
    }

    void AddRest() {
        for (const NcSection& section : m_part.sections) {
            Line("PR");
            for (const NcSectionPoint& point : section.points)
                Data(std::string(section.isInner ? "-" : "+") +
                     Columns({point.y, point.z, point.radius}));
        }
        AddBlock("TO", m_part.tolerances, [](const NcTolerance& row) {
            return Columns({row.minimum, row.maximum});
        });
        AddBlock("UE", m_part.cambers, [](const NcCamber& row) {
            return std::string(1, LetterOf(row.face)) + Place(row.x, 0, row.q);
        });
        AddBlock("KA", m_part.bends, [](const NcBend& row) {
            return Columns({row.start.x, row.start.y, row.end.x, row.end.y, row.angle}) +
                   (row.radius ? Column(*row.radius) : "");
        });
        AddBlock("IN", m_part.information, [this](const NcText& row) {
            return Bytes(row.key) + " : " + Bytes(row.value);
        });
    }

    const NcPart& m_part;
    const NcWriting& m_writing;
    const codepages::CodePage* const m_page;
    std::string m_text;
    std::optional<ZetString> m_foreign;
    long m_plane = -1;
};

}  // namespace

std::variant<std::string, ZetString> WriteNc(const NcPart& part, const NcWriting& writing) {
    return PartText(part, writing).Write();
}

}  // namespace dstv

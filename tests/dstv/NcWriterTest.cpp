#include "dstv/NcReader.h"
#include "dstv/NcSample.h"
#include "dstv/NcWriter.h"

#include <random>

namespace {

dstv::NcPart PartOf(const std::string& bytes, const std::string& encoding = "auto") {
    dstv::NcResult result =
        dstv::ParseNc(bytes, L"part.nc1", {dstv::NcMarkSource::kMark, encoding});
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        ADD_FAILURE() << error->describe().toUtf8() << "\n" << bytes;
        return {};
    }
    return std::get<dstv::NcPart>(std::move(result));
}

std::string Written(const dstv::NcPart& part, const dstv::NcWriting& writing = {}) {
    auto written = dstv::WriteNc(part, writing);
    if (const auto* text = std::get_if<ZetString>(&written))
        return "cannot write " + text->toUtf8();
    return std::get<std::string>(written);
}

/// What counts of a part, without its lines.
std::string ShapeOf(const dstv::NcPart& part) {
    const auto at = [](const dstv::NcPlace& place, double x, double q) {
        return std::to_string(static_cast<int>(place.face)) + "/" + std::to_string(place.plane) +
               " " + std::to_string(x) + " " + std::to_string(q) + " ";
    };
    std::string text;
    for (const dstv::NcHole& hole : part.holes)
        for (const double value : {double(int(hole.kind)),
                                   double(int(hole.form)),
                                   hole.diameter,
                                   hole.depth,
                                   hole.sinkAngle,
                                   hole.slotWidth,
                                   hole.slotHeight,
                                   hole.slotAngle})
            text += at(hole.place, hole.x, hole.q) + std::to_string(value) + "\n";
    for (const dstv::NcContour& contour : part.contours) {
        text += contour.isInternal ? "inner\n" : "outer\n";
        for (const dstv::NcContourPoint& point : contour.points)
            text += at(contour.place, point.x, point.q) + std::to_string(point.radius) + " " +
                    std::to_string(point.bevels[0].angle + point.bevels[1].depth) + "\n";
        for (const dstv::NcNotchLine& line : contour.notchLines)
            text += line.kind + at(contour.place, line.x, line.q) + std::to_string(line.radius) +
                    " behind " + std::to_string(line.afterPoint) + "\n";
    }
    for (const dstv::NcMark& mark : part.marks)
        for (const dstv::NcContourPoint& point : mark.points)
            text += std::to_string(static_cast<int>(mark.kind)) + at(mark.place, point.x, point.q) +
                    std::to_string(point.radius) + "\n";
    for (const dstv::NcNumeration& each : part.numerations)
        text += at(each.place, each.x, each.q) + std::to_string(each.angle + each.textHeight) +
                each.rule + each.text.toUtf8() + "\n";
    for (const dstv::NcSawCut& cut : part.sawCuts)
        text += std::to_string(cut.point.x) + " " + std::to_string(cut.normal.y) + "\n";
    text += std::to_string(part.planes.size() + part.bends.size() + part.sections.size() +
                           part.tolerances.size() + part.cambers.size() + part.information.size());
    return text;
}

/// Blocks of every kind, each at random places.
std::string RandomBlocks(unsigned seed) {
    std::mt19937_64 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<long>(random() % limit); };
    // Whole thousandths, as texts: nothing is rounded on the way in.
    const auto mm = [&](long from, long to) {
        const long thousandths = from * 1000 + below(static_cast<unsigned>((to - from) * 1000));
        return std::to_string(thousandths / 1000) + "." +
               std::to_string(1000 + thousandths % 1000).substr(1);
    };
    const auto face = [&] { return std::string(1, "vouh"[below(4)]); };
    const auto reference = [&] { return std::string(1, "osu "[below(4)]); };
    const auto place = [&] { return "  " + face() + " " + mm(50, 900) + reference() + mm(5, 60); };
    std::string text;
    for (long i = below(4); i > 0; --i) {
        text += "BO\n" + place() + std::string(1, " glms"[below(5)]) + " " + mm(5, 20) + " " +
                mm(0, 9) + "\n";
        text += place() + " " + mm(5, 20) + " 0.00l " + mm(1, 40) + " " + mm(0, 2) + " " +
                mm(0, 180) + "\n";
        text += place() + "s 20.0 5.0 0.0 0.0 90.0\n";
    }
    for (long i = below(3); i > 0; --i)
        text += "SI\n" + place() + " " + mm(0, 360) + " 10" + std::string(1, "rz "[below(3)]) +
                "P " + std::to_string(i) + "\n";
    const std::string x = mm(100, 400), q = mm(10, 20);
    for (long i = below(3); i > 0; --i)
        text += "IK\n  v " + x + "o " + q + " 0.00 10.00 2.00\n  v 500.00 " + q +
                " 0.00\n  v 510.00 " + q + "w 5.00\n  v 500.00 50.00 300.5\n  v " + x + " " + q +
                " 0.00\n";
    for (long i = below(3); i > 0; --i)
        text += (below(2) == 0 ? "PU\n" : "KO\n") + place() + " 0.00\n  v 800.00 20.00 0.00\n";
    if (below(2) == 0)
        text += "E1\n  0.00 50.00 0.00\n  100.00 50.00 0.00\n  0.00 120.711 70.711\nB1\n  " +
                mm(50, 900) + " " + mm(5, 20) + " 8.00\nS1\n  100.00 10.00 0.00 12 T\n";
    if (below(2) == 0)
        text += "SC\n  0.00 0.00 0.00 -1.00 0." + std::to_string(below(900) + 10) + " 0.00\n";
    if (below(2) == 0)
        text +=
            "TO\n  -1.00 2.00\nUE\n  v 500.00 20.00\nKA\n  1.00 2.00 3.00 4.00 45.00 "
            "2.50\nPR\n  + 0.00 0.00 0.00\n  + 0.00 9.00 0.00\n  + 9.00 0.00 0.00\n  + 0.00 "
            "0.00 0.00\nIN\n  KEY : value\n";
    return text;
}

TEST(NcWriter, WhatIsWrittenReadsBackAsThePart) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        const std::string bytes = NcSample{.mark = "P1"}.With(RandomBlocks(seed) + "EN\n");
        const dstv::NcPart part = PartOf(bytes);
        const std::string written = Written(part);
        const dstv::NcPart again = PartOf(written);
        EXPECT_EQ(ShapeOf(again), ShapeOf(part)) << bytes << written;
        EXPECT_EQ(Written(again), written);
        EXPECT_LE(again.notes.size(), part.notes.size()) << bytes << written;
        if (HasFailure())
            break;
    }
}

TEST(NcWriter, WritesTheHeaderAsItWasRead) {
    for (const std::string lengths : {"  3000.00,  2999.50", "  3000.00", "  3000.00,     0.10"}) {
        const std::string text =
            "ST\n  order\n  drawing\n  phase\n  mark\n  steel\n  7\n  name\n  I\n  " + lengths +
            "\n     175.00\n      81.25\n       3.00\n       1.50\n       4.00\n      4.416\n"
            "      0.753\n       1.00\n      -2.00\n       3.50\n      -4.00\n"
            "  text 1\n  text 2\n  text 3\n  text 4\n** remark\nEN\n";
        EXPECT_EQ(Written(PartOf(text)), text);
    }
}

TEST(NcWriter, EncodingLineEndsAndWhatIsKept) {
    const std::string bytes = NcSample{.mark = "\xC1\xE0"}.With(
        "BO\n  v 10.00o 20.00 14.00\n  v 60.1234567891 20.00 18.00\n"
        "SC\n  0 0 0 -1 0 0\n  9 0 0 1 0 0\nEN\n");
    const dstv::NcPart part = PartOf(bytes, "windows-1251");
    const long dropped = part.holes.at(0).line;
    const std::string written =
        Written(part, {"windows-1251", "\r\n", [&](long line) { return line != dropped; }});
    EXPECT_NE(written.find("\r\n  \xC1\xE0\r\n"), std::string::npos);
    EXPECT_NE(written.find("BO\r\n  v 60.123456789o   20.00    18.00    0.00\r\nSC\r\n"),
              std::string::npos)
        << written;
    EXPECT_EQ(written.find("SC\r\n"), written.rfind("SC\r\n"));
    EXPECT_EQ(Written(part, {"iso-8859-1", "\n", {}}), "cannot write \xD0\x91\xD0\xB0");
}

}  // namespace

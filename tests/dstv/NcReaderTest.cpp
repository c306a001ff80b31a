#include "dstv/NcReader.h"
#include "dstv/NcSample.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <utility>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using dstv::NcHoleForm;
using dstv::NcHoleKind;
using dstv::NcPart;

/// A file with every block that the standard names.
const std::string kEveryBlock = NcSample().With(
    "** comment\nBO\n  v 100.00u 50.00 18.00\n  o 200.00s 40.00s 30.00 4.0 0.0 0.0 90.0\n"
    "    200.00  40.00 18.00 0.00l 20.00 0.00 30.00\n  v 1512.00o 90.00 10.00 0.00l 30.00 20.00 10.00\n"
    "SI\n  v 10.00u 20.00 0.00 10r P1\n"
    "AK\n  v 0.00o 0.00 0.00 45.00 2.00\n  3000.00 0.00\n  3000.00 175.00\n  40.00 175.00 -40.00\n"
    "  0.00 175.00t 40.00\n  0.00 135.00\n  0.00 0.00\n"
    "IK\n  v 590.00u 80.00 10.00\n  610.00 80.00 10.00\n  590.00 80.00\n"
    "PU\n  v 10.00 10.00\n  20.00 10.00\nKO\n  o 10.00 10.00\n"
    "KA\n  0.00 0.00 100.00 0.00 90.00 2.00\nSC\n  0 0 0 -1 0 0\nTO\n  -1.0 1.0\nUE\n  v 1500.0 5.0\n"
    "PR\n  + 0.0 0.0 0.0\n  + 100.0 0.0\n  + 0.0 50.0\n  + 0.0 0.0\n  - 9.0 9.0\n  8.0 9.0\nIN\n  BESTELLER : X\n"
    "E1\n  0.00 0.00 90.00 100.00 0.00 90.00\n  0.00 151.00 41.00\nB1\n  1100.00u 53.00 18.00\n"
    "S1\n  100.00u 50.00 0.00 5 1/1\nA1\n  0 0\n  500 0\n  500 150\n  0 0\nI1\n 9 5\n 15 5\n 15 9\n 9 5\n"
    "P1\n  1 1\nK1\n  2 2\nEN\n");

TEST(NcReader, ReadsEveryBlock) {
    const NcPart part = ReadPart(kEveryBlock);
    EXPECT_EQ(part.header.quantity, 2);
    EXPECT_EQ(part.header.profileName, L"ZS 175*1.5");
    EXPECT_EQ(part.header.infoTexts[0], L"Purlin");
    EXPECT_EQ(part.holes.size(), 5u);
    EXPECT_EQ(part.contours.size(), 4u);
    EXPECT_EQ(part.marks.size(), 4u);
    EXPECT_EQ(part.numerations.size(), 2u);
    EXPECT_EQ(part.numerations[1].text, L"1/1");
    ASSERT_EQ(part.contours[0].points.size(), 6u);
    ASSERT_EQ(part.contours[0].notchLines.size(), 1u);
    EXPECT_EQ(part.contours[0].notchLines[0].afterPoint, 4);
    EXPECT_EQ(part.contours[0].points[0].bevels[0].angle, 45.0);
    ASSERT_EQ(part.sections.size(), 2u);
    EXPECT_EQ(part.sections[0].points.size(), 4u);
    EXPECT_EQ(part.sections[1].points.size(), 2u);
    EXPECT_EQ(part.bends[0].radius, 2.0);
    EXPECT_EQ(part.sawCuts[0].normal.x, -1.0);
    EXPECT_EQ(part.tolerances[0].minimum, -1.0);
    EXPECT_EQ(part.cambers[0].q, 5.0);
    EXPECT_EQ(part.information[0].value, L"X");
    EXPECT_EQ(part.comments[0].value, L"comment");
    EXPECT_EQ(part.header.lineOf(dstv::NcHeaderValue::kDrawing), 3);
    EXPECT_EQ(part.header.lineOf(dstv::NcHeaderValue::kLength), 10);
    const std::vector<long> lines = {part.comments[0].line,
                                     part.holes[0].line,
                                     part.numerations[0].line,
                                     part.contours[0].line,
                                     part.contours[0].notchLines[0].line,
                                     part.contours[1].line,
                                     part.marks[0].line,
                                     part.bends[0].line,
                                     part.sawCuts[0].line,
                                     part.tolerances[0].line,
                                     part.cambers[0].line,
                                     part.sections[1].line,
                                     part.information[0].line,
                                     part.planes[0].line};
    EXPECT_EQ(lines, (std::vector<long>{26, 28, 33, 35, 39, 43, 47, 52, 54, 56, 58, 64, 67, 68}));
}

TEST(NcReader, ReadsHoleLines) {
    using enum NcHoleForm;
    using Kind = NcHoleKind;
    // clang-format off
    // The numbers: diameter, depth, slot width, height and angle.
    struct Case { const char* line; NcHoleForm form; NcHoleKind kind; std::array<double, 5> numbers; };
    const Case cases[] = {
        {"v100.00u50.00 18.0", kRound, Kind::kPlain, {18, 0, 0, 0, 0}},
        {"v+100.00+50.00+18.0", kRound, Kind::kPlain, {18, 0, 0, 0, 0}},
        {"v 100. 50.00 18.00 .5", kRound, Kind::kPlain, {18, 0.5, 0, 0, 0}},
        {"v 100.00 50.00 18.00 0.005", kRound, Kind::kPlain, {18, 0.005, 0, 0, 0}},
        {"v 100.00o 50.00 18.00 12.0", kRound, Kind::kPlain, {18, 12, 0, 0, 0}},
        {"V 100.00o 50.00 18.00 0.0 0.0 0.0", kRound, Kind::kPlain, {18, 0, 0, 0, 0}},
        {"v 100.00u 50.00g18.0 0.0", kRound, Kind::kThreadRight, {18, 0, 0, 0, 0}},
        {"v 100.00u 50.00l18.0 9.0", kRound, Kind::kThreadLeft, {18, 9, 0, 0, 0}},
        {"v 100.00u 50.00s18.0 8.0 0.0 0.0 90.0", kRound, Kind::kCountersunk, {18, 8, 0, 0, 0}},
        {"v 100.00u 50.00m", kMark, Kind::kMark, {0, 0, 0, 0, 0}},
        {"v 100.00u 50.00 0.00", kMark, Kind::kMark, {0, 0, 0, 0, 0}},
        {"v 100.00 50.00 18.00 0.00l 70.00 0.00 30.0", kSlot, Kind::kPlain, {18, 0, 70, 0, 30}},
        {"v 100.00s50.00 18.00 0.00l70.00 0.00-30.0", kSlot, Kind::kPlain, {18, 0, 70, 0, -30}},
        {"v 100.00 50.00 18.00 0.00l 0.00 6.40 0.0", kSlot, Kind::kPlain, {18, 0, 0, 6.4, 0}},
        {"v 100.00 50.00 18.00 0.00 20.00 0.00 0.0", kSlot, Kind::kPlain, {18, 0, 20, 0, 0}},
        {"v 100.00 50.00 18.00 0.00l 20.00 10.00 0.0", kRectangle, Kind::kPlain, {18, 0, 20, 10, 0}},
        {"v 100.00 50.00 0.00 0.00l 20.00 10.00 0.0", kRectangle, Kind::kPlain, {0, 0, 20, 10, 0}},
        {"v 100.00 50.00 0.00 0.00l 20.00 0.00 0.0", kMark, Kind::kMark, {0, 0, 20, 0, 0}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const NcPart part = ReadPart(NcSample().With("BO\n  " + std::string(c.line) + "\nEN\n"));
        ASSERT_EQ(part.holes.size(), 1u);
        const dstv::NcHole& hole = part.holes[0];
        EXPECT_EQ(hole.line, 27);
        EXPECT_EQ(hole.x, 100.0);
        EXPECT_EQ(hole.q, 50.0);
        EXPECT_EQ(hole.form, c.form);
        EXPECT_EQ(hole.kind, c.kind);
        const std::array<double, 5> numbers = {
            hole.diameter, hole.depth, hole.slotWidth, hole.slotHeight, hole.slotAngle};
        EXPECT_EQ(numbers, c.numbers);
        EXPECT_EQ(hole.sinkAngle, c.kind == Kind::kCountersunk ? 90.0 : 0.0);
        EXPECT_EQ(hole.outline.empty(), c.form != kRectangle);
    }
}

/// Columns count from 1; 0 is told of what is not in the line.
TEST(NcReader, TellsTheColumnOfWhatIsWrong) {
    const std::pair<const char*, long> cases[] = {
        {"BO\n  v 1.0 2.0 -3.0\n",                   13},
        {"BO\n  v 1.0 2.0\n",                        3 },
        {"BO\n  v 1.0 2.0 3.0 0.00.1\n",             17},
        {"BO\nx\n",                                  1 },
        {"E1\n 0 0 0 1 0 0\n",                       1 },
        {"SI\n  v 1 2 0 10 \x01\n",                  14},
        {"AK\n  v 0 0\n  50 0 20\n  50 90\n  0 0\n", 3 },
    };
    for (const auto& [blocks, column] : cases) {
        SCOPED_TRACE(blocks);
        const dstv::NcResult result = dstv::ParseNc(NcSample().With(blocks), L"part.nc1");
        EXPECT_EQ(std::get<dstv::NcError>(result).column, column);
    }
    const dstv::NcResult ended = dstv::ParseNc("ST\n a\n", L"part.nc1");
    EXPECT_EQ(std::get<dstv::NcError>(ended).column, 0);
}

/// Forms of one file that differ in nothing that counts.
TEST(NcReader, ForgivesTheFormOfLines) {
    const std::string blocks =
        "AK\n  v 0.00o 0.00 0.00\n  v 500.00 0.00 0.00\n  v 500.00 175.00 0.00\n  v 0.00 0.00 0.00\n"
        "BO\n  o 100.00s 40.00 18.00 0.00l 20.00 0.00 0.00\nEN\n";
    const std::string plain = NcSample().With(blocks);
    // clang-format off
    const std::pair<const char*, std::string> cases[] = {
        {"CR LF", Replaced(plain, "\n", "\r\n")},
        {"CR alone", Replaced(plain, "\n", "\r")},
        {"byte order mark", "\xEF\xBB\xBF" + plain},
        {"no last line end", plain.substr(0, plain.size() - 1)},
        {"no EN", plain.substr(0, plain.size() - 3)},
        {"old end of file", plain.substr(0, plain.size() - 1) + "\x1A"},
        {"comments in the header", Replaced(plain, "  Order\n", "** a\n  Order\n** b\n")},
        {"not indented", NcSample().Header() + Replaced(blocks, "\n  ", "\n")},
        {"tabs", NcSample().Header() + Replaced(blocks, " ", "\t\t")},
        {"blank lines", NcSample().Header() + Replaced(blocks, "\n", "\n  \n\n")},
        {"trailing blanks", NcSample().Header() + Replaced(blocks, "\n", "  \n")},
        {"no header texts", Replaced(plain, "  Purlin\n\n\n\n", "")},
        {"face once", NcSample().Header() + Replaced(blocks, "\n  v 500", "\n  500")},
    };
    // clang-format on
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(name);
        const NcPart part = ReadPart(text);
        EXPECT_EQ(ToldOf(text), "");
        EXPECT_EQ(part.header.order, L"Order");
        ASSERT_EQ(part.contours.size(), 1u);
        EXPECT_EQ(part.contours[0].outline.size(), 4u);
        ASSERT_EQ(part.holes.size(), 1u);
        EXPECT_EQ(part.holes[0].place.face, dstv::NcFace::kTop);
        EXPECT_EQ(part.holes[0].slotWidth, 20.0);
    }
}

TEST(NcReader, TellsBlockCodesFromHeaderValues) {
    std::string text = Replaced(NcSample().With("BO\n  v 1 2 3\n"), "  Order\n  Z-1", "BO\nE1");
    const NcPart part = ReadPart(text);
    EXPECT_EQ(part.header.order, L"BO");
    EXPECT_EQ(part.header.drawing, L"E1");
    EXPECT_EQ(part.holes.size(), 1u);
}

TEST(NcReader, DecodesEachTextByItself) {
    const std::string text = Replaced(
        Replaced(NcSample().With(""), "Order", "Tr\xC3\xA4ger"), "Purlin", "Tr\xE4ger \x80\x81");
    const NcPart part = ReadPart(text);
    EXPECT_EQ(part.header.order, L"Tr\u00E4ger");
    EXPECT_EQ(part.header.infoTexts[0], L"Tr\u00E4ger \u20AC\uFFFD");
}

TEST(NcReader, RefusesControlCharactersInTexts) {
    for (const std::string& control : {std::string(1, '\0'),
                                       std::string("\x1B"),
                                       std::string("\f"),
                                       std::string("\x7F"),
                                       std::string("\xC2\x85")}) {
        SCOPED_TRACE(testing::PrintToString(control));
        NcSample sample;
        sample.mark = "P" + control + "1";
        const std::string expected =
            ": text \"P\xEF\xBF\xBD"
            "1\": expected a text without control characters";
        EXPECT_EQ(ToldOf(sample.With("EN\n")), "refused 5" + expected + "\n");
        EXPECT_EQ(ToldOf(NcSample().With("SI\n  v 1.0u 2.0 0.0 10r P" + control + "1\nEN\n")),
                  "refused 27" + expected + "\n");
        EXPECT_EQ(ToldOf(Replaced(NcSample().With(""), "Purlin", "P" + control + "1")),
                  "refused 22" + expected + "\n");
        EXPECT_EQ(ToldOf(NcSample().With("IN\n  P" + control + "1 : x\nEN\n")),
                  "refused 27" + expected + "\n");
    }
}

TEST(NcReader, ReadsTextLines) {
    // clang-format off
    struct Case { const char* line; double height; char rule; const wchar_t* text; };
    constexpr Case kCases[] = {
        {"v 1 2 0.00 20r768",     20.0, 'r', L"768"}, {"v 1 2 0.00 10R ABC",    10.0, 'r', L"ABC"}, {"v 1u 2 0.00 012   A 1", 12.0, 0, L"A 1"},
        {"v 1 2 0.00 12 r1",      12.0, 0,   L"r1" }, {"v 1 2 0.00 12zz",       12.0, 'z', L"z"},
        {"v 1 2 0.00",            0.0,  0,   L""   },
    };
    // clang-format on
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.line);
        const NcPart part = ReadPart(NcSample().With("SI\n  " + std::string(c.line) + "\n"));
        ASSERT_EQ(part.numerations.size(), 1u);
        EXPECT_EQ(part.numerations[0].textHeight, c.height);
        EXPECT_EQ(part.numerations[0].rule, c.rule);
        EXPECT_EQ(part.numerations[0].text, c.text);
    }
}

TEST(NcReader, RefusesMoreThanItsLimits) {
    std::string zigzag = "AK\n  v 0 -1\n";
    for (int i = 0; i < 100; ++i)
        zigzag += "  " + std::to_string(i) + " " + std::to_string(i % 2) + " 1000000000\n";
    EXPECT_EQ(ReadError(NcSample().With(zigzag + "  200 -1\n")), "read");
    std::string rounds = "BO\n";
    for (int i = 0; i < 3; ++i)
        rounds += "  v 0 0 900000000 0l 1 1 0\n";
    EXPECT_EQ(ReadError(NcSample().With(rounds)),
              "part.nc1:27: outline \"v 0 0 900000000 0l 1 1 0\": "
              "expected at most 200000 points in one file");
    std::string line = "PU\n  v 0 0\n";
    for (std::size_t i = 0; i < dstv::kMaxOutlinePoints; ++i)
        line += i % 2 == 0 ? "1 1\n" : "0 0\n";
    EXPECT_EQ(ReadError(NcSample().With(line)), "read");
    EXPECT_EQ(ReadError(NcSample().With(line + "2 2\n")),
              "part.nc1:200027: outline \"0 0\": expected at most 200000 points in one file");
    std::string holes = "BO\n";
    for (std::size_t i = 0; i < dstv::kMaxHoles; ++i)
        holes += "  v 1 2 3\n";
    EXPECT_EQ(ReadError(NcSample().With(holes)), "read");
    // Told once, with what is wrong before it.
    EXPECT_EQ(ToldOf(NcSample().With("BO\n  x\n" + holes + "  v 4 5 6\n  v 7 8 9\nE1\n")),
              "refused 27: face \"x\": expected v, o, u or h\n"
              "refused 100029: hole \"v 4 5 6\": expected at most 100000 holes in one file\n");
    const std::string crowd =
        ": holes in slots \"with this slot more than 1000000\": expected at most 1000000 in one file, "
        "a hole counted once for each slot that it lies in";
    for (const bool isUpright : {false, true}) {
        const auto slot = [&](int i) {
            const std::string at = std::to_string(i);
            return isUpright ? "  v 50 " + at + " 18 0l 0 2000 0\n"
                             : "  v " + at + " 50 18 0l 2000 0 0\n";
        };
        std::string slots = "BO\n";
        for (int i = 0; i < 1'000; ++i)
            slots += slot(i);
        EXPECT_EQ(ReadError(NcSample().With(slots)), "read");
        EXPECT_EQ(ReadError(NcSample().With(slots + slot(2))), "part.nc1:1026" + crowd);
        // One that only itself lies in.
        EXPECT_EQ(ReadError(NcSample().With(slots + slot(9'000))), "part.nc1:1027" + crowd);
    }
    std::string planes;
    for (std::size_t i = 0; i < dstv::kMaxPlanes; ++i)
        planes += "E1\n 0 0 0 1 0 0 0 1 0\n";
    EXPECT_EQ(ReadError(NcSample().With(planes)), "read");
    EXPECT_EQ(ReadError(NcSample().With(planes + "E1\n 0 0 0 1 0 0 0 1 0\n")),
              "part.nc1:2026: plane \"E1\": expected at most 1000 planes in one file");
    for (const std::size_t errors : {dstv::kMaxErrors, dstv::kMaxErrors + 1}) {
        std::string bad = "BO\n";
        for (std::size_t i = 0; i < errors; ++i)
            bad += "x\n";
        EXPECT_EQ(LinesOf(ToldOf(NcSample().With(bad))).size(), dstv::kMaxErrors);
    }
    const std::string blank(static_cast<std::size_t>(dstv::kMaxLines) - 25, '\n');
    EXPECT_EQ(ReadError(NcSample().With(blank)), "read");
    EXPECT_EQ(ReadError(NcSample().With(blank + "EN\n")),
              "part.nc1:1000001: line \"EN\": expected at most 1000000 lines in one file");
    const std::string text = "SI\n  v 1 2 0 10 " + std::string(dstv::kMaxTextLength, 'T');
    EXPECT_EQ(ReadError(NcSample().With(text + "\n")), "read");
    EXPECT_EQ(ReadError(NcSample().With(text.substr(0, text.size() - 1) + "\xC3\xA9\n")), "read");
    EXPECT_EQ(ReadError(NcSample().With(text + "T\n")),
              "part.nc1:27: text \"" + std::string(60, 'T') +
                  "...\": expected a text of at most 1000 characters");
    // Besides the notes of blocks, of which none may be missing.
    std::string bad;
    for (int i = 0; i < 1500; ++i)
        bad += "TO\n  x\n";
    const auto notes = ReadPart(NcSample().With(bad)).notes;
    EXPECT_EQ(notes.size(), dstv::kMaxNotes + 1500);
    EXPECT_EQ(std::count_if(notes.begin(),
                            notes.end(),
                            [](const auto& note) { return note.text.contains(L"left out"); }),
              1);
}

/// A thousand times the same slot, and so as many holes in slots as may be: one hole more is one
/// too many wherever it could touch the slot, by rows of 1 mm along it and 2 mm beside and beyond
/// it.
TEST(NcReader, CountsAHoleForEachSlotThatItIsNear) {
    struct Case {
        const char* start;
        const char* slot;  ///< width, height, angle
        std::vector<const char*> counted, others;
    };
    const std::vector<const char*> beside = {
        "1500 78.01", "1500 82.99", "1398.01 80", "1601.99 80"};
    const std::vector<const char*> off = {"1500 77.99", "1500 83.01", "1397.99 80", "1602.01 80"};
    // clang-format off
    const Case cases[] = {
        {"1500 80.25", "100 0 0", beside, off},
        {"1500 80.25", "0 100 90", beside, off},
        {"1500 80.5", "100 0 0", {"1601.99 80.2"}, {"1602.01 80.2"}},
        {"1500 80", "0 100 0", {"1498.01 100", "1500 181.99", "1500 -21.99"}, {"1497.99 100", "1500 182.01", "1500 -22.01"}},
        {"1500.5 80", "100 0 90", {"1500.2 181.99"}, {"1500.2 182.01"}},
        {"1500.25 80", "100 0 -90", {"1502.99 100"}, {"1503.01 100"}},
        {"1500 80.25", "100 0 30", {"1494.98 80.7", "1505.89 80.7", "1425.7 40.1", "1436.61 40.1"},
                                   {"1494.96 80.7", "1505.91 80.7", "1425.68 40.1", "1436.63 40.1"}},
        {"1500 80.25", "100 0 120", {"1497.01 80.7", "1502.99 80.7", "1520.01 40.1", "1525.99 40.1"},
                                    {"1496.99 80.7", "1503.01 80.7", "1519.99 40.1", "1526.01 40.1"}},
        {"1500 80", "0.05 0 0", {"1502.04 80"}, {"1502.06 80"}},
        {"1500 80", "0 0.05 0", {"1500 82.04"}, {"1500 82.06"}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.start + std::string(" ") + c.slot);
        std::string slots = "BO\n";
        for (int i = 0; i < 1'000; ++i)
            slots += std::string("  v ") + c.start + " 18 0l " + c.slot + "\n";
        const auto isRead = [&](const char* place) {
            return ReadError(NcSample().With(slots + "  v " + place + " 5\n")) == "read";
        };
        for (const char* place : c.counted)
            EXPECT_FALSE(isRead(place)) << place;
        for (const char* place : c.others)
            EXPECT_TRUE(isRead(place)) << place;
    }
}

TEST(NcReader, TellsWhichFileCannotBeRead) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir());
    const auto missing = std::get<dstv::NcError>(dstv::ReadNcFile(folder / "no such file.nc"));
    EXPECT_EQ(missing.line, 0);
    EXPECT_EQ(missing.column, 0);
    EXPECT_TRUE(missing.expected.contains(L"a file that can be opened ("))
        << missing.expected.toUtf8();
    EXPECT_EQ(std::get<dstv::NcError>(dstv::ReadNcFile(folder)).expected, L"a file, not a folder");
    const std::filesystem::path wide = folder / std::filesystem::path(u8"Tr\u00E4ger \u0394.nc1");
    std::ofstream(wide, std::ios::binary) << kEveryBlock;
    const auto part = std::get<NcPart>(dstv::ReadNcFile(wide));
    EXPECT_EQ(part.file, dstv::PathText(wide));
    EXPECT_TRUE(part.file.contains(L"Tr\u00E4ger \u0394"));
    EXPECT_EQ(part.holes.size(), 5u);
    std::filesystem::remove(wide);
}

/// A file is read in pieces of 16 KiB; a line "EN" at the end of the first one is not its end.
TEST(NcReader, ReadsFilesOfAllSizes) {
    const std::filesystem::path path = std::filesystem::path(testing::TempDir()) / "sizes.nc1";
    const auto told = [&](const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
        const dstv::NcResult result = dstv::ReadNcFile(path);
        const auto* error = std::get_if<dstv::NcError>(&result);
        return error != nullptr ? error->expected.toUtf8()
                                : std::to_string(std::get<NcPart>(result).holes.size());
    };
    std::string piece = NcSample().With("BO\n v 1 2 3\n** ");
    piece.append((1u << 14) - piece.size() - 3, '*').append("\nEN");
    EXPECT_EQ(told(""), "a file that can be read, and is not empty");
    for (const char* text : {"x", "\n"})
        EXPECT_EQ(told(text), "ST");
    for (const char* end : {"", "\n", "\r\n", "\nBO\n"})
        EXPECT_EQ(told(NcSample().With(std::string("BO\n v 1 2 3\nEN") + end)), "1");
    EXPECT_EQ(told(piece), "1");
    EXPECT_EQ(told(piece + "\nBO\n v 4 5 6\n"), "2");
    EXPECT_EQ(told(piece + std::string(40'000, '\n') + "BO\n v 4 5 6"), "2");
    std::filesystem::resize_file(path, dstv::kMaxFileBytes + 1);
    EXPECT_EQ(std::get<dstv::NcError>(dstv::ReadNcFile(path)).expected,
              L"a file of at most 64 MiB");
    std::filesystem::remove(path);
}

void RunFuzzer(const std::string& text) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

TEST(NcReader, SurvivesEveryDamagedByte) {
    for (std::size_t at = 0; at <= kEveryBlock.size(); ++at)
        RunFuzzer(kEveryBlock.substr(0, at));
    for (std::size_t at = 0; at < kEveryBlock.size(); ++at) {
        RunFuzzer(std::string(kEveryBlock).erase(at, 1));
        for (const char replacement : {'\0', '9', '-', 'l', '\n', '\xFF'})
            RunFuzzer(std::string(kEveryBlock).replace(at, 1, 1, replacement));
    }
}

TEST(NcReader, SurvivesEveryDamagedLine) {
    const std::vector<std::string> lines = LinesOf(kEveryBlock);
    const auto joined = [](const std::vector<std::string>& parts) {
        std::string text;
        for (const std::string& part : parts)
            text += part;
        return text;
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const std::string& replacement : {std::string(), lines[i] + lines[i]}) {
            std::vector<std::string> damaged = lines;
            damaged[i] = replacement;
            RunFuzzer(joined(damaged));
        }
        for (std::size_t j = 0; j < lines.size(); ++j) {
            std::vector<std::string> swapped = lines;
            std::swap(swapped[i], swapped[j]);
            RunFuzzer(joined(swapped));
        }
    }
}

}  // namespace

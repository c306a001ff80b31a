#include "dstv/NcReader.h"
#include "dstv/NcSample.h"

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
    "PR\n  + 0.0 0.0 0.0\n  + 100.0 0.0\n  + 0.0 50.0\n  + 0.0 0.0\nIN\n  BESTELLER : X\n"
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
    ASSERT_EQ(part.sections.size(), 1u);
    EXPECT_EQ(part.sections[0].points.size(), 4u);
    EXPECT_EQ(part.bends[0].radius, 2.0);
    EXPECT_EQ(part.sawCuts[0].normal.x, -1.0);
    EXPECT_EQ(part.tolerances[0].minimum, -1.0);
    EXPECT_EQ(part.cambers[0].q, 5.0);
    EXPECT_EQ(part.information[0].value, L"X");
    EXPECT_EQ(part.comments[0].value, L"comment");
    EXPECT_EQ(part.comments[0].line, 26);
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

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    EXPECT_NE(text.find(from), std::string::npos);
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string WithBlocks(const std::string& blocks) {
    return NcSample().With(blocks);
}

std::string WithMark(const std::string& line) {
    return Replaced(NcSample().With("EN\n"), "  P1\n", line + "\n");
}

std::string WithHeader(std::string NcSample::*value, const char* text) {
    NcSample sample;
    sample.*value = text;
    return sample.With("EN\n");
}

TEST(NcReader, RefusesWithLineTextAndExpectation) {
    // clang-format off
    const std::pair<std::string, const char*> cases[] = {
        {"", R"(1: first line "": expected ST)"},
        {"** c\n\nT\n", R"(3: first line "T": expected ST)"},
        {"ST\n  a\n  b\n", R"(3: header "2 lines, then the end of the file": expected 20 lines)"},
        {"ST\n a\n b\n c\n d\n e\nBO\n", R"(7: quantity "BO": expected a whole number from 0 to 1000000000 (20 header lines before the first block))"},
        {WithHeader(&NcSample::quantity, "1000000001"), R"(7: quantity "1000000001": expected a whole number from 0 to 1000000000)"},
        {WithHeader(&NcSample::quantity, "x"), R"(7: quantity "x": expected a whole number from 0 to 1000000000)"},
        {WithHeader(&NcSample::length, "6236:88"),
         R"(10: length "6236:88": expected a number in mm, or two separated by a comma)"},
        {WithHeader(&NcSample::width, "-1"), R"(12: flange width "-1": expected a number that is not negative)"},
        {WithHeader(&NcSample::height, ""), R"(11: profile height "": expected a number)"},
        {WithHeader(&NcSample::webStartCut, "88"), R"(18: skew cut "88": expected an outline that does not cross itself)"},
        {WithHeader(&NcSample::webEndCut, "90"), R"(19: skew cut "90": expected angles from -89 to 89 degrees)"},
        {WithBlocks("BO\n  v 1.0 2.0\n"), R"(27: hole diameter "v 1.0 2.0": expected a number in mm that is not negative)"},
        {WithBlocks("BO\n  v 1.0 2.0 -3.0\n"), R"(27: hole diameter "-3.0": expected a number in mm that is not negative)"},
        {WithBlocks("BO\n  w 1.0 2.0 3.0\n"), R"(27: face "w": expected v, o, u or h)"},
        {WithBlocks("BO\n\n  1.0 2.0 3.0\n"), R"(28: face "1.0": expected v, o, u or h)"},
        {WithBlocks("BO\n  v 1e2 2.0 3.0\n"), R"(27: reference "e2": expected o, s, u or none)"},
        {WithBlocks("BO\n  v 1.2.3 2.0 3.0\n"), R"(27: hole X "1.2.3": expected a number with at most one point)"},
        {WithBlocks("BO\n  v 1,2 2.0 3.0\n"), R"(27: hole X "1,2": expected a number with a decimal point, not a comma)"},
        {WithBlocks("BO\n  v 1000000001 2.0 3.0\n"), R"(27: hole X "1000000001": expected a number up to 1000000000)"},
        {WithBlocks("BO\n  v 1 2 3 0l 5 0\n"), R"(27: slot angle "v 1 2 3 0l 5 0": expected a number in degrees)"},
        {WithBlocks("BO\n  v 1 2 3 0 0 0 0 7\n"), R"(27: text "7": expected the end of the line)"},
        {WithBlocks("AK\n  v 0 0\n  10 0\nEN\n"), R"(27: contour "v 0 0": expected at least 3 points)"},
        {WithBlocks("AK\n  v 0 0w 5\nEN\n"), R"(26: contour "AK": expected at least 3 points)"},
        {WithBlocks("AK\n  v 0 0\n  10 0\n  0 0\nEN\n"),
         R"(27: contour "v 0 0": expected at least 3 points that are not the same)"},
        {WithBlocks("AK\n  v 0 0\n  100 0 20\n  100 50\n  0 0\n"),
         R"(28: radius "100 0 20": expected at least 25.00, half the distance to the next point)"},
        {WithBlocks("AK\n  v 0 0\n  100 100\n  100 0\n  0 100\n  0 0\n"),
         R"(29: contour "100 0": expected an outline that does not cross itself)"},
        {WithBlocks("E2\n 0 0 0 1 0 0 0 1 0\nB1\n  1 2 3\n"), R"(28: block "B1": expected a block E1 that defines its plane)"},
        {WithBlocks("E1\n 0 0 0 1 0 0\n 0 1\nEN\n"), R"(26: plane "E1": expected nine numbers: origin, point on x, point on y)"},
        {WithBlocks("E1\n 0 0 0 1 0 0\n 0 1 0 5\nEN\n"), R"(28: plane "5": expected no more than nine numbers)"},
        {WithBlocks("E1\n 0 0 0 1 0 0\n 2 0 0\nEN\n"), R"(26: plane "E1": expected three points that are not on one line)"},
    };
    // clang-format on
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ReadError(text), std::string("part.nc1:") + expected);
}

std::string NoteLines(const NcPart& part) {
    std::string lines;
    for (const dstv::NcNote& note : part.notes)
        lines += (note.severity == dstv::NcNote::Severity::kWarning ? "warning " : "note ") +
                 std::to_string(note.line) + ": " + note.text.toUtf8() + "\n";
    return lines;
}

TEST(NcReader, NotesWhatItForgives) {
    const std::string box = "AK\n  v 0 0\n  9 0\n  9 9\n  0 9\n";
    const std::string closed = box + "  0 0\n";
    const std::string lowerCase = "st" + WithBlocks("bo\n v 1 2 3\n").substr(2);
    const std::string tube = Replaced(WithHeader(&NcSample::webEndCut, "15"), "  SO\n", "  RO\n");
    const std::string byPlane = "E1\n 0 0 81 9 0 81 0 9 81\nA1\n 20 0\n 30 0\n 20 9\n 20 0\n";
    // clang-format off
    const std::pair<std::string, const char*> cases[] = {
        {WithBlocks("BO\n  v 1 2 3\nEN\n"), ""},
        {"** c\n** d\n" + WithBlocks(""), "note 1: comment before ST\n"},
        {lowerCase, "warning 1: block code \"st\" is not in capitals\nwarning 26: block code \"bo\" is not in capitals\n"},
        {WithHeader(&NcSample::code, "Q"), "warning 9: profile code \"Q\" is not known: read as SO\n"},
        {WithHeader(&NcSample::length, "9, 8,7"), "warning 10: more than two lengths: the first two count\n"},
        {WithHeader(&NcSample::length, "3000,1499"), "warning 10: saw length that does not fit the length\n"},
        {WithHeader(&NcSample::length, "3000,1500"), ""},
        {WithHeader(&NcSample::length, "0"), "warning 10: length is 0\n"},
        {WithMark("  " + std::string(80, 'x')), ""},
        {WithMark("  " + std::string(81, 'x')), "warning 5: text of more than 80 characters\n"},
        {WithMark("k A992"), "note 5: text begins in column 1, where two blanks belong\n"},
        {WithHeader(&NcSample::webEndCut, "15"), "note 19: face v without an outline: made from the skew cuts\n"},
        {tube, "note 19: face v without an outline: no plate that a skew cut could trim\n"},
        {WithBlocks("AK\n  v 0 0 0 0 0 30 2\n  9 0 0 45 1\n  9 9\n  0 0\n"),
         "note 27: weld preparation: kept beside the NC data\n"},
        {WithBlocks("BO\n  v 1 2 3 0 20 0 0\n"), "warning 27: slot without the letter l: read as a slot\n"},
        {WithBlocks("BO\n  v 1 2 0 0l 20 0 0\n"), "note 27: slot without a diameter: read as a line to be marked\n"},
        {WithBlocks("SI\n  v 1 2 0\n"), "note 27: text without a height\n"},
        {WithHeader(&NcSample::height, "17,5"), "note 11: profile height with a decimal comma\n"},
        {WithBlocks("BR\n  what\n  ever\nEN\n"), "warning 26: block BR is not known: skipped\n"},
        {WithBlocks("EN\n  1 2\nBO\n  v 1 2 3\nSI\n  v 1 2 0 5 A\n"),
         "warning 27: line outside of any block: skipped \"1 2\"\nwarning 28: block BO after EN: read\nwarning 30: block SI after EN: read\n"},
        {WithBlocks("ST\n  x\nBO\n  nonsense\n"), "warning 26: a second part begins here: only the first one is read\n"},
        {WithBlocks(box), "warning 30: contour is not closed: closed by a straight edge\n"},
        {WithBlocks(closed + "  v 20 0\n  30 0\n  20 9\n  20 0\n"), "note 32: another outline of the same face: kept apart\n"},
        {WithBlocks("BO\n  v -1 2 3\n"), "warning 27: hole with a negative X\n"},
        {WithBlocks("BO\n  o 1 90 3\n  v 1 90 3\n"), "warning 27: hole outside of its face\n"},
        {WithBlocks("BO\n  v 2960 90 3 0l 60 0 0\n  v 2990 90 3 0l 40 0 0\n"), "warning 28: hole outside of its face\n"},
        {WithBlocks(closed + "  0 0\n"), "note 32: closing point of a contour repeated: it does not count\n"},
        {WithBlocks(box + "  0.009 -0.009\n"), ""},
        {WithBlocks(box + "  0 0.02\n"), "warning 31: contour is not closed: closed by a straight edge\n"},
        {WithBlocks(byPlane + closed), "note 34: another outline of the same face: kept apart\n"},
        {WithBlocks(closed + "  -16611181.71 -90.16t\n"), "warning 32: notch line far outside of the piece: it does not count\n"},
        {WithBlocks("KA\n  1 2 3\n  0 0 9 0 45\n"),
         "note 26: block KA: kept beside the NC data, which have no place for it\n"
         "warning 27: block KA: bend \"1 2 3\": expected X and Y of two points: line skipped\n"},
        {WithBlocks("E1\n 0 0 0 1 0 0 1 1 0\n"),
         "warning 26: axes of the plane are 45.00 degrees off a right angle: the y axis is turned\n"},
        {WithBlocks("B1\n v 1 2 3\nE1\n 0 0 0 1 0 0 0 1 0\n"),
         "warning 27: face letter in a block on a plane: it does not count\n"},
    };
    // clang-format on
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(NoteLines(ReadPart(text)), expected) << text;
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
        {"old end of file", plain + "\x1A"},
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

TEST(NcReader, ReadsTextLines) {
    // clang-format off
    struct Case { const char* line; double height; char rule; const wchar_t* text; };
    constexpr Case kCases[] = {
        {"v 1 2 0.00 20r768",     20.0, 'r', L"768"}, {"v 1u 2 0.00 012   A 1", 12.0, 0, L"A 1"},
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
    std::string holes = "BO\n";
    for (std::size_t i = 0; i < dstv::kMaxHoles; ++i)
        holes += "  v 1 2 3\n";
    EXPECT_EQ(ReadError(NcSample().With(holes)), "read");
    EXPECT_EQ(ReadError(NcSample().With(holes + "  v 4 5 6\n")),
              "part.nc1:100027: hole \"v 4 5 6\": expected at most 100000 holes in one file");
    const std::string blank(static_cast<std::size_t>(dstv::kMaxLines) - 25, '\n');
    EXPECT_EQ(ReadError(NcSample().With(blank)), "read");
    EXPECT_EQ(ReadError(NcSample().With(blank + "EN\n")),
              "part.nc1:1000001: line \"EN\": expected at most 1000000 lines in one file");
    std::string bad = "TO\n";
    for (int i = 0; i < 1500; ++i)
        bad += "  x\n";
    EXPECT_EQ(ReadPart(NcSample().With(bad)).notes.size(), dstv::kMaxNotes);
}

TEST(NcReader, TellsWhichFileCannotBeRead) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir());
    const auto missing = std::get<dstv::NcError>(dstv::ReadNcFile(folder / "no such file.nc"));
    EXPECT_EQ(missing.line, 0);
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
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < kEveryBlock.size(); at += lines.back().size())
        lines.push_back(kEveryBlock.substr(at, kEveryBlock.find('\n', at) + 1 - at));
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

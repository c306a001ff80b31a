#include "job/FormatFile.h"
#include "plugin/SamplePart.h"
#include "plugin/formats/FormatWriter.h"
#include "plugin/output/MachineRecordText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using job::MachineFormat;
using plugin::FormatFault;
using plugin::FormattedMember;
using plugin::FormatWriter;
using plugin::MachineMember;
using plugin::MachineOperation;
using plugin::MachineOperationKind;

MachineFormat FormatOf(const std::string& text) {
    job::JobFaults faults;
    MachineFormat format = job::ReadFormatText(text, "f", faults);
    for (const job::JobFaults::Fault& fault : faults.TakeSorted())
        ADD_FAILURE() << fault.at.line << ": " << fault.text;
    return format;
}

std::string Shown(const std::string& what, const std::optional<double>& number) {
    return number ? what + std::to_string(std::lround(*number)) : "";
}

/// The member's text; its faults in brackets when there are any.
std::string Written(const MachineFormat& format, const MachineMember& member) {
    std::vector<FormatFault> faults;
    const FormattedMember text = FormatWriter(format).WriteMember(member, {}, faults);
    std::string told;
    for (const FormatFault& fault : faults)
        told += "[" + std::to_string(fault.operation) + " " + fault.text.toUtf8() +
                Shown(" required ", fault.required) + Shown(" found ", fault.found) + "]";
    return told.empty() ? text.text : told;
}

MachineOperation HoleAt(double x, double y, double diameter = 18.0) {
    MachineOperation hole;
    hole.face = eHoleFaceWeb;
    hole.x = x;
    hole.y = y;
    hole.diameter = diameter;
    hole.code = L"B";
    return hole;
}

MachineMember Member(std::vector<MachineOperation> operations) {
    MachineMember member;
    member.mark = L"Z-1";
    member.quantity = 4;
    member.profile = L"Z200";
    member.length = 3000.0;
    member.upperEdges[eHoleFaceWeb] = 200.0;
    member.operations = std::move(operations);
    return member;
}

MachineOperation Slot(double angle) {
    MachineOperation slot = HoleAt(100, 50);
    slot.kind = MachineOperationKind::kSlot;
    slot.angle = angle;
    return slot;
}

MachineOperation Trim(int side, double at) {
    MachineOperation trim = HoleAt(0, 0);
    trim.kind = MachineOperationKind::kTrim;
    trim.side = side;
    trim.at = at;
    return trim;
}

MachineOperation Triangle() {
    MachineOperation outline = HoleAt(0, 0);
    outline.kind = MachineOperationKind::kOutline;
    outline.points = {
        {0,  0},
        {10, 0},
        {0,  5}
    };
    return outline;
}

struct Case {
    const char* name;
    std::string format;
    std::string line;  ///< for holes and slots
    MachineMember member;
    std::string written;
};

class FormatLine : public ::testing::TestWithParam<Case> {};

TEST_P(FormatLine, IsWrittenAsTheFormatSays) {
    const Case& c = GetParam();
    const std::string text = "\n[[line]]\nfor = [\"hole\", \"slot\"]\ntext = [" + c.line + "]\n";
    EXPECT_EQ(Written(FormatOf(c.format + (c.line.empty() ? "" : text)), c.member), c.written);
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

const std::string kXy = "\"{x} {y}\"";
const std::string kRuns =
    "[[line]]\nfor=[\"hole\"]\nrepeat=\"y\"\ntext=[\"{x} {y} {count}*{pitch}\"]\n";

MachineMember Marked(const wchar_t* mark) {
    MachineMember member = Member({HoleAt(1, 2)});
    member.mark = mark;
    return member;
}

// clang-format off
const Case kCases[] = {
    {"Numbers", "", kXy, Member({HoleAt(100.0005, -0.0001)}), "100.001 0.000\n"},
    {"Comma", "[numbers]\ndecimals=2\ndecimal_comma=true", kXy, Member({HoleAt(1.25, -3)}), "1,25 -3,00\n"},
    {"Tenths", "[numbers]\nunit=\"0.1 mm\"\ndecimals=0", kXy, Member({HoleAt(100.07, 0.04)}), "1001 0\n"},
    {"Inches", "[numbers]\nunit=\"inch\"\ndecimals=3", kXy, Member({HoleAt(25.4, 38.1)}), "1.000 1.500\n"},
    {"NoTrailingZeros", "[numbers]\nzeros=\"no_trailing\"", kXy, Member({HoleAt(12.5, 100)}), "12.5 100\n"},
    {"NoLeadingZero", "[numbers]\nzeros=\"no_leading\"", kXy, Member({HoleAt(0.5, -0.25)}), ".500 -.250\n"},
    {"NeitherZeros", "[numbers]\nzeros=\"neither\"", kXy, Member({HoleAt(0.5, 0)}), ".5 0\n"},
    {"Plus", "[numbers]\nplus=true\ndecimals=0", kXy, Member({HoleAt(5, -6)}), "+5 -6\n"},
    {"WidthAndFill", "", "\"{x:>9.1f}|{y:08.2f}|{code:*^5}|{index:3}\"", Member({HoleAt(1, -2)}), "      1.0|-0002.00|**B**|  1\n"},
    {"BracesTwice", "", "\"{{{x:.0f}}}\"", Member({HoleAt(7, 0)}), "{7}\n"},
    {"Exponent", "", "\"{x:.2e} {y:g}\"", Member({HoleAt(1500, 0.5)}), "1.50e+03 0.5\n"},
    {"NoNumber", "", kXy, Member({HoleAt(1, 2), HoleAt(kNan, 1), HoleAt(1, kInfinite)}), "[1 {x}: it is no number][2 {y}: it is no number]"},
    {"FixedColumns", "[format]\nfixed_columns=true", "\"{x:6.1f}\"", Member({HoleAt(9999, 1), HoleAt(10000, 1)}), "[1 {x}: it has 7 characters and its column 6 required 6 found 7]"},
    {"MirroredFace", "[[face]]\nface=\"web\"\nname=\"W\"\nmirror_x=true\nmirror_y=true\nx_offset=10", "\"{face} {x:.0f} {y:.0f}\"", Member({HoleAt(100, 50)}), "W 2910 150\n"},
    {"MirroredTrim", "[[face]]\nface=\"web\"\nmirror_x=true\n[[line]]\nfor=[\"trim\"]\ntext=[\"{side} {at:.0f}\"]", "", Member({Trim(0, 40), Trim(3, 180)}), "end 2960\nupper 180\n"},
    {"FaceWithoutName", "[[face]]\nface=\"top_flange\"\nname=\"T\"", "\"{face}\"", Member({HoleAt(1, 1)}), "[0 {face}: no [[face]] names the face web]"},
    {"OtherFaces", "[format]\nother_faces=\"?\"\n[[face]]\nface=\"top_flange\"\nname=\"T\"", "\"{face}\"", Member({HoleAt(1, 1)}), "?\n"},
    {"AngleClockwise", "[numbers]\nangles=\"clockwise\"\ndecimals=0\n[[line]]\nfor=[\"slot\"]\ntext=[\"{angle}\"]", "", Member({Slot(30), Slot(0)}), "150\n0\n"},
    {"AngleMirrored", "[[face]]\nface=\"web\"\nmirror_x=true\n[[line]]\nfor=[\"slot\"]\ntext=[\"{face} {angle:.0f}\"]", "", Member({Slot(30)}), "web 150\n"},
    {"Tools", "[[tool]]\nkind=\"hole\"\ndiameter=18.03\nnumber=\"7\"", "\"{tool}\"", Member({HoleAt(1, 1), HoleAt(1, 1, 20)}), "[1 {tool}: no [[tool]] is for it, diameter 20.00 found 20]"},
    {"ByTool", "[format]\norder=\"tool\"\n[[tool]]\nkind=\"hole\"\ndiameter=20\nnumber=\"1\"\n[[tool]]\nkind=\"hole\"\nnumber=\"2\"", "\"{tool} {x:.0f}\"", Member({HoleAt(9, 1), HoleAt(5, 1, 20), HoleAt(3, 1), HoleAt(1, 1, 20)}), "1 1\n1 5\n2 3\n2 9\n"},
    {"ByX", "[format]\norder=\"x\"", "\"{x:.0f} {y:.0f}\"", Member({HoleAt(9, 1), HoleAt(3, 8), HoleAt(3, 2)}), "3 2\n3 8\n9 1\n"},
    {"Capitals", "[texts]\nupper_case=true", "\"{mark}\"", Marked(L"Stra\u00DFe \u0141\u00F3d\u017A \u00D8\u00E6\u03AC"), "STRASSE LODZ OAE\xCE\x91\n"},
    {"OwnWordsInCapitals", "[texts]\nupper_case=true\n[[face]]\nface=\"web\"\nname=\"Steg\"\n[[face]]\nface=\"top_flange\"\n[[line]]\nfor=[\"trim\"]\ntext=[\"{kind} {side} {face}\"]", "\"{kind} {face}\"", Member({HoleAt(1, 1), Trim(0, 40)}), "HOLE Steg\nTRIM START Steg\n"},
    {"Encoding", "[texts]\nencoding=\"windows-1250\"", "\"{mark:3}|\"", Marked(L"\u0141"), "\xA3  |\n"},
    {"FillBeyondTheBasicPlane", "", "\"{mark:\U0001F529>5}\"", Member({HoleAt(1, 2)}), "\U0001F529\U0001F529Z-1\n"},
    {"NotInEncoding", "[texts]\nencoding=\"iso-8859-1\"", "\"{mark}\"", Marked(L"\u0141"), "[0 {mark}: \"\u0141\": the encoding of the format has not all its characters]"},
    {"TooLong", "[texts]\nlongest=3", "\"{mark}\"", Marked(L"ABCD"), "[0 {mark}: \"ABCD\": it is longer than 3 characters required 3 found 4]"},
    {"CutOff", "[texts]\nlongest=3\ntoo_long=\"cut\"", "\"{mark}\"", Marked(L"ABCD"), "ABC\n"},
    {"Forbidden", "[texts]\nforbidden=\";,\"", "\"{mark}\"", Marked(L"A;B"), "[0 {mark}: \"A;B\": it has a character that the format forbids]"},
    {"ControlCharacter", "", "\"{mark}\"", Marked(L"A\nB"), "[0 {mark}: \"A\nB\": it has a control character]"},
    {"QuoteWithoutEscape", "[texts]\nquotes=\"always\"", "\"{mark}\"", Marked(L"A\"B"), "[0 {mark}: \"A\"B\": it has a quote, and the format no escape for it]"},
    {"QuotesWhereNeeded", "[texts]\nquotes=\"needed\"\nescapes=\"doubled\"", "\"{mark},{profile}\"", Marked(L"1\", 2"), "\"1\"\", 2\",Z200\n"},
    {"GuardedFormula", "[texts]\nquotes=\"needed\"\nguard_formulas=true", "\"{mark},{code}\"", Marked(L"=1,2"), "\"'=1,2\",B\n"},
    {"QuotesAroundCommas", "[numbers]\ndecimals=1\ndecimal_comma=true\n[texts]\nquotes=\"needed\"\n[[line]]\nfor=[\"outline\"]\ntext=[\"\\\"{points}\\\"\"]\n[[line]]\nfor=[\"point\"]\ntext=[\"{x}\"]", "\"{mark},{x:>7},{y:.0f}\"", Member({HoleAt(1.5, 2), Triangle()}), "Z-1,  \"1,5\",2\n\"0,0 10,0 0,0\"\n"},
    {"Backslashes", "[texts]\nquotes=\"always\"\nescapes=\"backslash\"", "\"{mark}\"", Marked(L"a\\b\"\n\x1B"), "\"a\\\\b\\\"\\n\\u001B\"\n"},
    {"NoLineForIt", "", kXy, Member({HoleAt(1, 2), Triangle()}), "[1 the format has no line for it]"},
    {"NoLineForItsCode", "[[line]]\nfor=[\"hole\"]\ncodes=[\"X\"]\ntext=[\"x\"]", "", Member({HoleAt(1, 2)}), "[0 no line of the format for it fits its face, code and group]"},
    {"NoLineForOne", kRuns, "", Member({HoleAt(1, 2)}), "[0 the lines of the format that fit it are with \"repeat\", and it is not repeated]"},
    {"NothingForIt", "[[line]]\nfor=[\"outline\"]\ntext=[]\n[[line]]\nfor=[\"point\"]\ntext=[\"p\"]", "", Member({Triangle()}), ""},
    {"FirstThatFits", "[[line]]\nfor=[\"hole\"]\ncodes=[\"X*\"]\ntext=[\"x\"]\n[[line]]\nfor=[\"hole\"]\nfaces=[\"top_flange\"]\ntext=[\"t\"]\n[[line]]\nfor=[\"hole\"]\ngroups=[\"g*\"]\ntext=[\"g\"]", "\"else\"", Member({HoleAt(1, 1)}), "else\n"},
    {"PointsInLine", "[[line]]\nfor=[\"outline\"]\ntext=[\"{index}<{points}>\"]\n[[line]]\nfor=[\"point\"]\ntext=[\"{index}:{x:.0f}/{y:.0f}\"]\nbetween=\"; \"", "", Member({Triangle(), Triangle()}), "1<1:0/0; 2:10/0; 3:0/5>\n2<1:0/0; 2:10/0; 3:0/5>\n"},
    {"PointsWithoutLineInLine", "[[line]]\nfor=[\"outline\"]\ntext=[\"O {points}|\"]\n[[line]]\nfor=[\"point\"]\ngroups=[\"zzz\"]\ntext=[\"p\"]", "", Member({Triangle()}), "[0 no line of the format for its points fits its face, code and group]"},
    {"PointsWithoutLine", "[[line]]\nfor=[\"outline\"]\ntext=[\"O\"]\n[[line]]\nfor=[\"point\"]\ngroups=[\"zzz\"]\ntext=[\"p\"]", "", Member({Triangle()}), "[0 no line of the format for its points fits its face, code and group]"},
    {"PointsAsLines", "[[line]]\nfor=[\"outline\"]\ntext=[\"{count}\"]\n[[line]]\nfor=[\"point\"]\ntext=[\"{index} {x:.0f}\"]", "", Member({Triangle()}), "3\n1 0\n2 10\n3 0\n"},
    {"ColumnsWithPitch", kRuns, kXy, Member({HoleAt(10, 20), HoleAt(10, 60), HoleAt(10, 100), HoleAt(50, 20), HoleAt(50, 70, 14)}), "10.000 20.000 3*40.000\n50.000 20.000\n50.000 70.000\n"},
    {"UnevenColumns", kRuns, kXy, Member({HoleAt(10, 20), HoleAt(10, 60), HoleAt(10, 110)}), "10.000 20.000 2*40.000\n10.000 110.000\n"},
    {"EvenAsItIsWritten", "[numbers]\ndecimals=1\n" + kRuns, kXy, Member({HoleAt(10, 0.04), HoleAt(10, 33.33), HoleAt(10, 66.62)}), "10.0 0.0 3*33.3\n"},
    {"EvenInTheFinestDecimals", "[numbers]\ndecimals=0\n[[line]]\nfor=[\"hole\"]\nrepeat=\"x\"\ntext=[\"{x:.3f} {y} {count}*{pitch:.1f}\"]", kXy, Member({HoleAt(100.4, 50), HoleAt(200, 50), HoleAt(299.6, 50), HoleAt(399.25, 50)}), "100.400 50 3*99.6\n399 50\n"},
    {"ColumnsFromTheOtherEdge", "[[face]]\nface=\"web\"\nmirror_y=true\n[numbers]\ndecimals=0\n" + kRuns, kXy, Member({HoleAt(10, 20), HoleAt(10, 60)}), "10 140 2*40\n"},
    {"RowsFromTheEnd", "[[face]]\nface=\"web\"\nmirror_x=true\n[numbers]\ndecimals=0\n[[line]]\nfor=[\"hole\"]\nrepeat=\"x\"\nleast=3\ntext=[\"{x} {y} {count}*{pitch}\"]", kXy, Member({HoleAt(10, 20), HoleAt(20, 20), HoleAt(30, 20), HoleAt(95, 20, 14)}), "2970 20 3*10\n2905 20\n"},
    {"Counts", "[[line]]\nfor=[\"member\"]\ntext=[\"{mark} {lines} {operations}\",\"{length:.0f}\"]\n[[line]]\nfor=[\"member_end\"]\ntext=[\"end {lines}\"]", "\"a\",\"b\"", Member({HoleAt(1, 1), HoleAt(2, 1)}), "Z-1 4 2\n3000\na\nb\na\nb\nend 4\n"},
    {"MemberItself", "[texts]\nlongest=2\n[[line]]\nfor=[\"member\"]\ntext=[\"{mark}\"]", kXy, Member({HoleAt(1, 1)}), "[-1 {mark}: \"Z-1\": it is longer than 2 characters required 2 found 3]"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Format, FormatLine, ::testing::ValuesIn(kCases), RowName());

/// The numbers of a line, in units of their last decimal.
std::vector<long> StepsIn(std::string line) {
    line.erase(std::remove(line.begin(), line.end(), '.'), line.end());
    std::replace(line.begin(), line.end(), '*', ' ');
    std::istringstream words(line);
    return {std::istream_iterator<long>(words), {}};
}

/// Places at and near the halves between two numbers that can be written.
TEST(FormatLine, RepeatedHolesLieWhereEachWouldBeWritten) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937_64 random(seed);
        const std::string decimals = std::to_string(seed % 4);
        const double step = std::pow(10.0, -static_cast<double>(seed % 4));
        std::vector<MachineOperation> holes;
        for (int i = 0; i < 12; ++i) {
            const double offset = static_cast<double>(random() % 3) * step * 1e-9;
            holes.push_back(
                HoleAt(1, static_cast<double>(random() % 40) * 0.5 * step + offset - step));
        }
        const std::string numbers = "[numbers]\ndecimals=" + decimals + "\n";
        const std::string plain = "[[line]]\nfor=[\"hole\"]\ntext=[\"{y}\"]\n";
        const std::string runs =
            "[[line]]\nfor=[\"hole\"]\nrepeat=\"y\"\ntext=[\"{y} {count}*{pitch} {x:.0f}\"]\n";
        std::multiset<long> expected;
        std::istringstream single(Written(FormatOf(numbers + plain), Member(holes)));
        for (std::string line; std::getline(single, line);)
            expected.insert(StepsIn(line).front());
        std::multiset<long> repeated;
        std::istringstream lines(Written(FormatOf(numbers + runs + plain), Member(holes)));
        for (std::string line; std::getline(lines, line);) {
            const std::vector<long> told = StepsIn(line);
            const bool isRun = told.size() > 1;
            for (long i = 0; i < (isRun ? told[1] : 1); ++i)
                repeated.insert(told[0] + (isRun ? i * told[2] : 0));
        }
        EXPECT_EQ(repeated, expected) << seed;
    }
}

TEST(FormatFile, FramesFilesAndGroups) {
    const MachineFormat format = FormatOf(R"(
[texts]
line_ends = "crlf"
[[line]]
for = ["file_start"]
text = ["{header}", "F {lines} {members} {pieces}"]
[[line]]
for = ["group_start"]
text = ["{header}", "G {group} {lines} {pieces}"]
[[line]]
for = ["member"]
text = ["{mark}"]
[[line]]
for = ["file_end"]
text = ["E {job}"]
)");
    const FormatWriter writer(format);
    std::vector<FormatFault> faults;
    const FormattedMember member = writer.WriteMember(Member({}), {}, faults);
    plugin::FormatTexts texts;
    texts.job = L"J";
    EXPECT_EQ(writer.WriteFile(
                  {
                      {L"g",    L"Profile Z", {L"one", L"two"}, {&member, &member}},
                      {L"none", {},           {L"x"},           {}                }
    },
                  {L"top"},
                  texts,
                  faults),
              "top\r\nF 5 2 8\r\none\r\ntwo\r\nG g 2 8\r\nZ-1\r\nZ-1\r\nE J\r\n");
    EXPECT_TRUE(faults.empty());
}

// ---- the built-in formats -----------------------------------------------------------------------

// clang-format off
const wchar_t* const kTexts[] = {L"", L"\"", L"a \"b\", c", L"\\", L"x=1;", L"two\nlines\r\n", L"Träger 12°", L"\t ", L"\x1B"};
// clang-format on

MachineMember RandomMember(unsigned seed) {
    std::mt19937_64 random(seed);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    const auto number = [&] { return (below(2000000) - 500000) * 0.0005; };
    const auto text = [&] { return ZetString(kTexts[random() % std::size(kTexts)]); };
    MachineMember member;
    member.mark = text();
    member.quantity = below(1000);
    member.profile = text();
    member.length = number();
    member.operations.resize(static_cast<std::size_t>(below(20)));
    for (MachineOperation& operation : member.operations) {
        operation.kind = static_cast<MachineOperationKind>(below(9));
        operation.face = below(7);
        operation.cut = below(2);
        for (double MachineOperation::*value : {&MachineOperation::x,
                                                &MachineOperation::y,
                                                &MachineOperation::diameter,
                                                &MachineOperation::length,
                                                &MachineOperation::width,
                                                &MachineOperation::depth,
                                                &MachineOperation::sinkDiameter,
                                                &MachineOperation::sinkDepth,
                                                &MachineOperation::sinkAngle,
                                                &MachineOperation::at,
                                                &MachineOperation::height})
            operation.*value = number();
        // A slot's is from 0 to below 180.
        operation.angle = below(180000) * 0.001;
        operation.thread = below(3);
        operation.side = below(4);
        operation.end = below(2);
        operation.cutFace = below(2);
        operation.mark = below(3);
        operation.text = text();
        operation.code = text();
        const bool hasPoints =
            operation.kind == MachineOperationKind::kOutline ||
            (operation.kind == MachineOperationKind::kMark && operation.mark != plugin::kTextMark);
        for (int i = below(4); i > 0 && hasPoints; --i)
            operation.points.append({number(), number()});
    }
    return member;
}

TEST(BuiltInFormat, RecordsAreTheSameBytes) {
    const MachineFormat format = FormatOf(std::string(job::FindBuiltInFormat("records")->text));
    for (unsigned seed = 0; seed < 300; ++seed) {
        const MachineMember member = RandomMember(seed);
        EXPECT_EQ(Written(format, member), plugin::FormatMember(member)) << seed;
    }
}

/// Rows of a table by RFC 4180.
std::vector<std::vector<std::string>> RowsOf(const std::string& text) {
    std::vector<std::vector<std::string>> rows(1, {""});
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' && isQuoted && text[i + 1] == '"')
            rows.back().back() += text[i++];
        else if (c == '"')
            isQuoted = !isQuoted;
        else if (c == ',' && !isQuoted)
            rows.back().emplace_back();
        else if (c == '\r' && !isQuoted && text[i + 1] == '\n')
            ++i, rows.push_back({""});
        else
            rows.back().back() += c;
    }
    rows.pop_back();
    return rows;
}

TEST(BuiltInFormat, CsvHasARowForEachOperationAndEveryColumn) {
    const MachineFormat format = FormatOf(std::string(job::FindBuiltInFormat("csv")->text));
    const FormatWriter writer(format);
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        MachineMember member = RandomMember(seed);
        member.mark = L"a,\"b\"\r\nc";
        for (MachineOperation& operation : member.operations)
            operation.code = operation.text = L" two, \"three\"";
        std::vector<FormatFault> faults;
        member.profile = L"Z";
        const FormattedMember written = writer.WriteMember(member, {}, faults);
        const auto rows = RowsOf(writer.WriteFile(
            {
                {L"g", {}, {}, {&written}}
        },
            {},
            {},
            faults));
        ASSERT_TRUE(faults.empty());
        ASSERT_EQ(rows.size(), member.operations.size() + 1);
        for (std::size_t i = 1; i < rows.size(); ++i) {
            ASSERT_EQ(rows[i].size(), rows[0].size());
            EXPECT_EQ(rows[i][1], "a,\"b\"\r\nc");
        }
    }
}

}  // namespace

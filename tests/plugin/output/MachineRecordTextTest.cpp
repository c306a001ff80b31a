#include "plugin/SamplePart.h"
#include "plugin/output/MachineRecordText.h"
#include "support/Golden.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using job::Job;
using job::Uncovered;
using plugin::MachineFault;
using plugin::MachineMember;
using plugin::MachineOperation;
using plugin::MachineOperationKind;

std::string RecordsOf(Judged& judged) {
    judged->GenerateOutPutStringForHoles();
    judged->GenerateOutPutStringForNotches();
    judged->GenerateMemData();
    return judged->GetMemOutPutStr().toUtf8();
}

/// The members of a text; none when it has a fault.
std::vector<MachineMember> Read(const std::string& text) {
    auto result = plugin::ReadMachineRecords(ZetString::fromUtf8(text));
    if (const auto* fault = std::get_if<MachineFault>(&result)) {
        ADD_FAILURE() << "line " << fault->line << ": " << fault->text.toUtf8();
        return {};
    }
    return std::get<std::vector<MachineMember>>(std::move(result));
}

std::string Write(const std::vector<MachineMember>& members) {
    std::string text;
    for (const MachineMember& member : members)
        text += plugin::FormatMember(member);
    return text;
}

/// All is made, under the code "?".
Job AcceptingJob() {
    Job job = SampleJob();
    job.uncoveredHoles = {Uncovered::kAccept, L"?"};
    job.uncoveredNotches = {Uncovered::kAccept, L"N"};
    return job;
}

TEST(MachineRecord, HoldsEveryKindOfOperation) {
    Job job = AcceptingJob();
    job::HoleRule rectangle;
    rectangle.shape = eHoleShapeRectangular;
    rectangle.code = L"R";
    job.holeRules = {rectangle};
    job.memberTypes[0].bottomFlange = {70.0, true};
    Part part(L"Z-1");
    part.Qty(4).Hole(kWebView, 100, 50, 18).Hole(kWebView, 200, 50, 12, 2);
    part.Hole(kWebView, 300, 50, 12, 1).Hole(kWebView, 500, 100, 13);
    ZetNCHoleData sink;
    sink.x = 500;
    sink.y = 100;
    sink.size = 26;
    sink.kind = ZetNCHoleData::eKindCountersunk;
    sink.depth = 6.5;
    part.Hole(kWebView, sink).Slot(kTopView, 100, 35, 14, 26, 90.0);
    part.Slot(kBottomView, 200, 30, 14, 40, 30.0).Opening(kWebView, 700, 60, 60, 40);
    // clang-format off
    part.Contour(kWebView, ZetNCContour::eTypeInternal, {{2000, 50}, {2100, 50}, {2050, 101}});
    part.Contour(kWebView, ZetNCContour::eTypeExternal,
                 {{60, 0}, {3000, 0}, {3000, 200}, {0, 200}, {0, 40}, {60, 40}});
    // clang-format on
    Judged judged(job, part);
    // On the bottom flange Y and the angle are turned over: 20 along at 30 degrees up from (200,
    // 30) is (217.321, 40), 30 from the zero line.
    EXPECT_TRUE(MatchesGolden(PLUGIN_GOLDEN_FOLDER, "every-operation", RecordsOf(judged)));
}

TEST(MachineRecord, LeavesOutWhatIsNotMade) {
    Job job = SampleJob();
    Part part(L"Z1");
    part.Hole(kWebView, 100, 50, 18).Opening(kWebView, 500, 100, 60, 40);
    Judged judged(job, part);
    EXPECT_EQ(RecordsOf(judged),
              "member mark=\"Z1\" quantity=1 profile=\"Z200x2.0\" length=3000.000 material=\"\" weight=0.000\nend\n");
}

// ---- back again ---------------------------------------------------------------------------------

// clang-format off
const wchar_t* const kAwkwardTexts[] = {
    L"", L"\"", L"a \"b\" c", L"\\", L"\\\"", L"x=1 code=", L"end", L"two\nlines\r\n", L"member ",
    L"Träger 12°, 鋼", L"\t ", L"\033[2J\f\177\205\237 \\u001B"};
// clang-format on

/// A part with up to 12 holes, slots and openings at places with three decimals, far apart and
/// all on their faces.
void AddRandomFeatures(Part& part, std::mt19937_64& random) {
    const auto number = [&random](unsigned below) { return static_cast<int>(random() % below); };
    const int count = number(12);
    for (int i = 0; i < count; ++i) {
        const double x = 200.0 * (i + 1) + number(60000) * 0.001;
        const double y = 30.0 + number(10000) * 0.001;
        const int view = number(3);
        if (number(3) == 0)
            part.Slot(view, x, y, 14.0, 10.0 + number(9), number(360));
        else if (number(2) == 0)
            part.Hole(view, x, y, 10.0 + number(900) * 0.01, number(3));
        else
            part.Opening(view, x, y, 40.0 + number(9), 20.0);
    }
}

TEST(MachineRecord, ReadsBackAsTheMemberIs) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        const auto text = [&random] { return kAwkwardTexts[random() % std::size(kAwkwardTexts)]; };
        Job job = AcceptingJob();
        job.uncoveredHoles.code = text();
        job.uncoveredNotches.code = text();
        Part part(text(), text());
        part.Qty(static_cast<long>(random() % 1000)).Length(3000.125);
        AddRandomFeatures(part, random);
        Judged judged(job, part);
        const std::string records = RecordsOf(judged);
        const std::vector<MachineMember> members =
            Read("heading\n" + records + "  \nmember-like\n");
        ASSERT_EQ(members.size(), 1u);
        const ZetString written = ZetString::fromUtf8(records);
        EXPECT_TRUE(std::none_of(written.view().begin(), written.view().end(), [](wchar_t c) {
            return c != L'\t' && c != L'\n' && camdata::detail::IsControl(c);
        })) << records;
        const MachineMember& member = members.front();
        EXPECT_EQ(member.mark, judged->GetMark());
        EXPECT_EQ(member.profile, judged->GetProfileName());
        EXPECT_EQ(member.quantity, judged->GetQty());
        EXPECT_EQ(member.length, 3000.125);
        EXPECT_EQ(static_cast<long>(member.operations.size()),
                  judged->GetHoles().length() + judged->GetNotches().length());
        EXPECT_EQ(Write(members), records);
    }
}

TEST(MachineRecord, ExampleOfTheDocumentReadsBack) {
    std::ifstream stream(PLUGIN_DOCS_FOLDER "/machine-file.md", std::ios::binary);
    const std::string document{std::istreambuf_iterator<char>(stream), {}};
    const std::size_t begin = document.find("```\n") + 4;
    const std::string example = document.substr(begin, document.find("```", begin) - begin);
    EXPECT_EQ(Write(Read(example)), example);
}

struct FaultCase {
    const char* name;
    const char* text;
    long line;
    const char* fault;
};

class Fault : public ::testing::TestWithParam<FaultCase> {};

TEST_P(Fault, IsNamedWithItsLine) {
    const FaultCase& c = GetParam();
    const auto result = plugin::ReadMachineRecords(ZetString::fromUtf8(c.text));
    const auto* fault = std::get_if<MachineFault>(&result);
    ASSERT_NE(fault, nullptr);
    EXPECT_EQ(fault->line, c.line);
    EXPECT_EQ(fault->text.toUtf8(), c.fault);
}

#define MEMBER "member mark=\"A\" quantity=1 profile=\"P\" length=1.000 material=\"\" weight=0\n"
// clang-format off
const FaultCase kFaultCases[] = {
    {"NoEnd",         "heading\n" MEMBER,                                2, "the member has no end"},
    {"Unknown",       MEMBER "drill face=web\nend\n",                    2, "no operation of that name is known"},
    {"MissingField",  "member mark=\"A\" profile=\"P\" length=1\nend\n", 1, "the field quantity is missing"},
    {"OpenQuotes",    "member mark=\"A quantity=1\nend\n",               1, "the field mark has no valid value"},
    {"UnknownEscape", "member mark=\"\\x\" quantity=1\nend\n",           1, "the field mark has no valid value"},
    {"ShortEscape",   "member mark=\"\\u01B\" quantity=1\nend\n",        1, "the field mark has no valid value"},
    {"CutEscape",     "member mark=\"\\u00",                              1, "the field mark has no valid value"},
    {"NotWhole",      "member mark=\"A\" quantity=1.5 profile=\"P\"\n",  1, "the field quantity has no valid value"},
    {"TooMany",       "member mark=\"A\" quantity=99999999999999999999\n", 1, "the field quantity has no valid value"},
    {"NoNumber",      MEMBER "rectangle face=web x=1e5\nend\n",          2, "the field x has no valid value"},
    {"UnknownFace",   MEMBER "hole face=left x=1\nend\n",                2, "the field face has no valid value"},
    {"HalfAPoint",    MEMBER "outline face=web cut=external x=1 y=1 points=\"1,2 3\" code=\"\"\nend\n", 2, "the field points has no valid value"},
    {"TooMuch",       MEMBER "rectangle face=web x=1 y=1 length=1 width=1 code=\"\" more\nend\n", 2, "there is more in the line than its fields"},
};
// clang-format on
#undef MEMBER

INSTANTIATE_TEST_SUITE_P(MachineRecord, Fault, ::testing::ValuesIn(kFaultCases), RowName());

}  // namespace

#include "camjob/SampleJob.h"

#include <gtest/gtest.h>

// What goes wrong in somebody's first jobs: each message names file, line and what to do.

namespace {

struct Mistake {
    const char* name;
    std::pair<std::string, std::string>
        jobEdit;  ///< text of the sample job, and what takes its place
    std::pair<std::string, std::string> ncFile;  ///< a file beside the sample's, or instead of one
    std::vector<std::string> told;               ///< parts of what is told, or of the errors file
};

std::string Header(const std::string& name, const std::string& length = "900.00") {
    return nc::Header("N1", name, length);
}

const std::string kHoleRule = "[[hole_rule]]\nid = \"bolt\"\n";

// clang-format off
const Mistake kMistakes[] = {
    {"NoMemberTypeForAProfile", {}, {"nc/6.nc1", Header("IPE300\n  I") + "EN\n"},
     {"nc/6.nc1:8: profile \"IPE300\", code I: no member type of the job takes it; add or change a [[member_type]]; \"unmatched\" in [nc] can leave such files out"}},
    {"PatternInOtherLetters", {"profile = \"Z*\"", "profile = \"z*\""}, {},
     {"nc/1.nc1:8: profile \"Z200x2.0\", code SO: no member type of the job takes it; \"purlin\" in line 30 of the job is for profile \"z*\": capitals count"}},
    {"PatternOfAnotherProfile", {"profile = \"Z*\"", "profile = \"Z3*\""}, {},
     {"no member type of the job takes it; the nearest, \"purlin\" in line 30 of the job, is for profile \"Z3*\""}},
    {"PatternOfAnotherCode", {"profile = \"Z*\"", "profile = \"Z*\"\ncode = \"L\""}, {},
     {"no member type of the job takes it; \"purlin\" in line 30 of the job takes the profile, but only code L"}},
    {"MarkInAnotherLine", {}, {"nc/6.nc1", nc::Plain("")},
     {"nc/6.nc1:5: the part has no mark to tell it by; instead of \"mark\", \"mark\" in [nc] of the job can be one of \"drawing\", \"phase\", \"file_name\", \"path\""}},
    {"SameMarkTwice", {}, {"nc/6.nc1", nc::Plain("L1")},
     {"nc/6.nc1:5: mark \"L1\" is already that of the part in ", "nc/4.nc1; instead of \"mark\", \"mark\" in [nc]"}},
    {"MarkSourceThatRepeats", {"[project]", "[nc]\nmark = \"drawing\"\n[project]"}, {},
     {"nc/2.nc1:3: mark \"D-4711\" is already that of the part in ", "\"mark\" in [nc]"}},
    {"MarkSourceUnknown", {"[project]", "[nc]\nmark = \"name\"\n[project]"}, {},
     {"job.toml:10:8: \"mark\" must be one of \"mark\", \"drawing\", \"phase\", \"file_name\""}},
    {"WrongEncoding", {"[project]", "[nc]\nencoding = \"utf-8\"\n[project]"}, {"nc/6.nc1", nc::Header("Tr\xE4ger") + "EN\n"},
     {"nc/6.nc1:5: text \"Träger\": expected text in utf-8, which has no such byte; \"encoding\" in [nc] of the job"}},
    {"EncodingMisspelt", {"[project]", "[nc]\nencoding = \"window-1251\"\n[project]"}, {},
     {"job.toml:10:12: \"encoding\" must be one of", "did you mean \"windows-1251\"?"}},
    {"ShadowedHoleRule", {kHoleRule, "[[hole_rule]]\nid = \"all\"\ncode = \"X\"\n\n" + kHoleRule}, {},
     {"job.toml:46:1: this table can never be reached: hole rule \"all\" in line 42", "put it before that one"}},
    {"ShadowedMemberType", {"profile = \"Z*\"", "profile = \"*\""}, {},
     {"this table can never be reached: member type \"purlin\" in line 30"}},
    {"BraceInACode", {"code = \"B18\"", "code = \"B{18}\""}, {},
     {"job.toml:45:8: \"code\": there is no value {18}", "is written {{"}},
    {"BraceThatStaysOpen", {"code = \"B18\"", "code = \"B{diameter\""}, {},
     {"job.toml:45:8: \"code\": { and } enclose a value, such as {diameter:.1f}"}},
    {"ConversionOfPrintf", {"code = \"B18\"", "code = \"B%.1f\""}, {},
     {"job.toml:45:8: \"code\": \"%.1f\" is not filled in here: a value stands in braces, such as {diameter:.1f}"}},
    {"DiameterAsText", {"diameters = [18.0]", "diameters = [\"18\"]"}, {},
     {"job.toml:44:14: each of \"diameters\" must be a number, not a text; write it without quotes"}},
    {"DiameterWithoutBrackets", {"diameters = [18.0]", "diameters = 18.0"}, {},
     {"job.toml:44:13: \"diameters\" must be a list", "in square brackets"}},
    {"DecimalComma", {"diameters = [18.0]", "diameters = [18]\nmember_name_length = 1,5"}, {}, {"job.toml:45:23: a comma cannot stand here: a number has a decimal point"}},
    {"MisspeltKey", {"diameters", "diameter"}, {},
     {"job.toml:44:1: unknown key \"diameter\" in [[hole_rule]]; did you mean \"diameters\"?"}},
    {"MisspeltGroup", {"group = \"struts\"", "group = \"strut\""}, {},
     {"there is no [[group]] with the id \"strut\"; did you mean \"struts\"?"}},
    {"NoFileFits", {"nc/*.nc1", "NC/*.nc1"}, {}, {"job.toml:3:13: no file fits \"NC/*.nc1\": ", " holds \"nc\", and capitals count"}},
    {"FolderWithBackslash", {"nc/*.nc1", "nc\\\\*.nc1"}, {}, {"job.toml:3:13: ", "part folders with / on every system"}},
    {"TypographicQuotes", {"id = \"bolt\"", "id = \u201Cbolt\u201D"}, {},
     {"job.toml:43:6: this character can only stand in a text", "plain quotes"}},
    {"NotchRuleForTheOtherEnd", {"[[assembly]]", "[[corner_notch]]\nid = \"cope\"\nface = \"web\"\nacross = \"upper\"\ncorners = 4\noutput = \"N %.0f %.0f\"\nvalues = [\"length\", \"width\"]\n\n[[assembly]]"},
     {"nc/6.nc1", Header("Z200x2.0\n  SO") + "AK\n  v 0 0 0\n  900 0 0\n  900 150 0\n  800 150 0\n  800 200 0\n  0 200 0\n  0 0 0\nEN\n"},
     {"nc/6.nc1:23: No corner notch describes it; the nearest, cope, is for another end of the member: notch on web at (X:850.0, Y:175.0), 4 corners [uncovered_notch by cope, job line 51]"}},
    {"SizeFromTheWrongCharacters", {"profile = \"Z*\"", "profile = \"Z*\"\nheight = { source = \"name\", start = 0, length = 3 }"}, {},
     {"nc/1.nc1:8: profile \"Z200x2.0\", code SO: \"purlin\" in line 30 of the job looks for its height in characters 0 to 2 of the name, counted from 0, and there is \"Z20\" instead of a number above 0; correct \"start\" and \"length\" in line 33"}},
    {"NumberWithoutQuotes", {"number = \"1\"", "number = 26-007"}, {}, {"job.toml:11:", "a text stands in quotes"}},
    {"FaceAsNumber", {"code = \"B18\"", "code = \"B{face:.1f}\""}, {},
     {"job.toml:45:8: \"code\": {face} is a text: only a width can stand behind its colon"}},
    {"ShadowedTrim", {"[[assembly]]", "[[trim]]\nid = \"a\"\ncode = \"T\"\n[[trim]]\nid = \"b\"\nsides = [\"end\"]\ncode = \"{x} {diameter}\"\n\n[[assembly]]"}, {},
     {"job.toml:54:1: this table can never be reached: trim \"a\" in line 51", "job.toml:57:8: \"code\": there is no value {diameter}, only face, x and y"}},
    {"QuantityAsWord", {}, {"nc/6.nc1", std::string(nc::Plain("N1")).replace(nc::Plain("N1").find("  12\n"), 5, "  two\n")},
     {"nc/6.nc1:7: quantity \"two\": expected a whole number"}},
    {"QuantityTooLarge", {"date = 2026-03-02", "date = 2026-03-02\nmax_quantity = 11"}, {},
     {"nc/1.nc1:7: Quantity (12) is above 11 [quantity by purlin, job line 31: required 11, found 12]", "quantity: Raise `max_quantity`"}},
    {"HeaderLineMissing", {}, {"nc/6.nc1", "ST\n  O\n  D\n  N1\n  S350\n  12\n  Z200\n  SO\n  900\n  200\n  65\n"},
     {"nc/6.nc1:7: quantity \"Z200\"", "a header line before it seems to be missing"}},
    {"TwoErrorsInOneFile", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 1,5 2.0 18\n  w 5 5 18\nEN\n"},
     {"nc/6.nc1:23: hole X \"1,5\"", "nc/6.nc1:24: face \"w\": expected v, o, u or h"}},
    {"PartOfAnAssemblyMissing", {"parts = [{ mark = \"C1\" }]", "parts = [{ mark = \"C9\" }]"}, {},
     {"job.toml:53:19: the assemblies name part \"C9\", which no NC file has; did you mean \"C1\"?; correct it, or add its file to \"nc_files\" in line 3"}},
    {"MainPartAsPart", {"parts = [{ mark = \"C1\" }]", "parts = [{ mark = \"A1\" }]"}, {},
     {"\"A1\" is a main part: it cannot be a part of an assembly"}},
    {"UncoveredHole", {"id = \"any\"\ncode", "id = \"any\"\ndiameters = [30.0]\ncode"}, {},
     {"nc/1.nc1:24: No hole rule covers it; the nearest, bolt, is for another diameter: 14.0 round holes on top flange",
      "[uncovered_hole by bolt, job line 42: required 18, found 14]", "uncovered_hole: Add a `[[hole_rule]]` of its shape, or this diameter, overall length, face or row to one."}},
    {"UncoveredShape", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 450 100 18 0l 20 0 0\nEN\n"},
     {"nc/6.nc1:23: No hole rule is for its shape: 18.0x20.0 slot holes on web", "[uncovered_hole by purlin, job line 30]", "uncovered_hole: Add a `[[hole_rule]]`"}},
    {"WrongPairSpacing", {"code = \"B18\"", "code = \"B18\"\npairs = [{ code = \"B18\", spacing = 40.0 }]\npair_must = true"},
     {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 400 100 18\n  v 460 100 18\nEN\n"},
     {"nc/6.nc1:23: It has no second hole", "[missing_pair by bolt, job line 42: required 40, found 60]", "missing_pair: Add the spacing to `pairs`, or take `pair_must` away."}},
    {"WrongNumberInAGroup", {"code = \"B18\"", "code = \"B18\"\ngroup = { code = \"G\", holes = 3, must = true }"}, {},
     {"nc/1.nc1:23: It belongs to no group of holes", "[missing_group by bolt, job line 42: required 3, found 1]", "missing_group: Set `holes`"}},
    {"ExcludedWithoutAnotherRule", {"code = \"B18\"", "code = \"B18\"\nexcluded_members = [\"Z200x2.0\"]"}, {},
     {"nc/1.nc1:23: Its hole rule excludes this member", "[excluded_hole by bolt, job line 42]", "excluded_hole: Give the rule an `otherwise_suffix`"}},
    {"UncoveredNotch", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "IK\n  v 400 50 0\n  500 50 0\n  500 90 0\n  400 90 0\n  400 50 0\nEN\n"},
     {"nc/6.nc1:23: No corner notch describes it: notch on web at (X:450.0, Y:70.0), 4 corners", "[uncovered_notch by purlin, job line 30]", "uncovered_notch: Add a `[[corner_notch]]`"}},
    {"SideCutOff", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "AK\n  v 0 0 0\n  850 0 0\n  850 200 0\n  0 200 0\n  0 0 0\nEN\n"},
     {"nc/6.nc1:23: No trim covers it: the web is cut off at its end, to X 850.0 [uncovered_trim by purlin, job line 30: required 900, found 850]", "uncovered_trim: Add a `[[trim]]` for this face and side."}},
    {"HeaderShorterThanTheOutline", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "AK\n  v 0 0 0\n  1100 0 0\n  1100 200 0\n  0 200 0\n  0 0 0\nEN\n"},
     {"nc/6.nc1:23: The outline reaches beyond its face: web, from (X:0.0, Y:0.0) to (X:1100.0, Y:200.0) [unclear_cut by purlin, job line 30: required 900, found 1100]", "unclear_cut: Compare the outline with the header's"}},
    {"HoleBeyondTheFace", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 400 250 18\nEN\n"},
     {"nc/6.nc1:23: It lies outside of its face or of the member", "[hole_outside by purlin, job line 30: required 200, found 250]", "hole_outside: Correct the model, or `zero` and `reversed`"}},
    {"CountersinkWithoutHole", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 400 100s 26 6.5 0 0 90\nEN\n"},
     {"nc/6.nc1:23: The countersink has no plain round hole at its place", "lone_countersink: Correct the model"}},
    {"CountersinkOfAHoleInASlot", {}, {"nc/6.nc1", Header("Z200x2.0\n  SO") + "BO\n  v 400 100 20 0l 60 0 0\n  v 430 100 10\n  v 430 100s 20 2\nEN\n"},
     {"nc/6.nc1:25: The hole of the countersink is set aside"}},
    {"NoPieces", {}, {"nc/6.nc1", std::string(nc::Plain("N1")).replace(nc::Plain("N1").find("  12\n"), 5, "  0\n")},
     {"nc/6.nc1:7: Quantity (0): there is nothing to make [quantity by purlin, job line 30: required 1, found 0]", "quantity: Raise `max_quantity`, or correct quantity or length in the NC file's header."}},
    {"NoLength", {}, {"nc/6.nc1", Header("C100x1.5\n  C", "0.00") + "EN\n"},
     {"nc/6.nc1:10: Length (0.0): there is nothing to make [quantity by strut, job line 37: found 0]"}},
    {"TooFewPartsOfAnAssembly", {"{ mark = \"C1\" }", "{ mark = \"C1\", count = 2 }"}, {},
     {"nc/2.nc1:7: 12 no of parts are not selected in selection [missing_parts by A1, job line 52: required 24, found 12]", "missing_parts: Raise the quantity"}},
    {"LongerThanTheBar", {}, {"nc/6.nc1", Header("C100x1.5\n  C", "4100.00") + "EN\n"},
     {"nc/6.nc1:10: Member length (4100.0) is greater than the stock length 4000 [longer_than_stock by strut, job line 37: required 4000, found 4100]", "longer_than_stock: Add a longer `[[stock]]`"}},
    {"WrongLengthForAPattern", {"group = \"struts\"\n", "group = \"struts\"\nfixed_pattern = \"tie\"\n[[fixed_pattern]]\nid = \"tie\"\nlength = 1280.0\nholes = [{ diameter = 18.0, code = \"B18\", positions = [40.0] }]\n"}, {},
     {"nc/3.nc1:5: hole of diameter 18.0 missing at 40.0 [fixed_pattern by tie, job line 42: required 40]", "nc/3.nc1:10: Member length (1300.0) should be 1280 [fixed_length by tie, job line 42: required 1280, found 1300]",
      "fixed_length: Give parts of this length a member type without `fixed_pattern`"}},
    {"FindingMisspelt", {"report = { max_length", "report = { max_lenght"}, {},
     {"job.toml:35:", "unknown key \"max_lenght\"", "did you mean \"max_length\"?"}},
    {"ReportMisspelt", {"max_length = \"error\"", "max_length = \"none\""}, {},
     {"job.toml:35:", "\"max_length\" must be one of \"off\", \"warning\""}},
    {"TooLong", {}, {},
     {"nc/4.nc1:10: Member length (6000.0) should not be greater than 2000 [max_length by purlin, job line 30: required 2000, found 6000]", "max_length: Raise `max_length`, or take the part off this machine."}},
};
// clang-format on

class BeginnersMistake : public ::testing::TestWithParam<Mistake> {};

TEST_P(BeginnersMistake, IsToldWithItsRemedy) {
    const Mistake& mistake = GetParam();
    const TempFolder folder;
    SampleJob().Write(folder);
    std::string job = SampleJob().Text();
    const std::size_t at = job.find(mistake.jobEdit.first);
    ASSERT_NE(at, std::string::npos);
    folder.Write("job.toml", job.replace(at, mistake.jobEdit.first.size(), mistake.jobEdit.second));
    if (!mistake.ncFile.first.empty())
        folder.Write(mistake.ncFile.first, mistake.ncFile.second);
    const CamjobRun run = RunJobFile(folder);
    EXPECT_NE(run.exitCode, 0);
    const bool isMade = std::filesystem::exists(folder.PathOf("out/s-errors.txt"));
    const std::string told = run.err + run.out + (isMade ? folder.Read("out/s-errors.txt") : "");
    for (const std::string& part : mistake.told)
        EXPECT_NE(told.find(part), std::string::npos) << "no \"" << part << "\" in:\n" << told;
}

INSTANTIATE_TEST_SUITE_P(Mistakes,
                         BeginnersMistake,
                         ::testing::ValuesIn(kMistakes),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace

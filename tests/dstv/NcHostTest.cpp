#include "dstv/NcEntries.h"
#include "dstv/NcHost.h"
#include "dstv/NcSample.h"
#include "dstv/NcWriter.h"
#include "support/Golden.h"

#include "camdata/platform/host/HostPtr.h"
#include "camdata/platform/host/IStructureObject.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <numbers>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using dstv::NcFileEntity;

NcFileEntity EntityOf(const NcSample& sample, const std::string& blocks) {
    return NcFileEntity(ReadPart(sample.With(blocks)));
}

const ZetNCView* ViewAt(const ZetNCStructure& structure, int position) {
    for (const ZetNCView& view : structure.getViews())
        if (view.getViewPos() == position)
            return &view;
    return nullptr;
}

TEST(NcHost, OffersHeaderOfBeamAndPlate) {
    NcSample sample;
    sample.length = "2500.40, 2480.00";
    const NcFileEntity beam = EntityOf(sample, "");
    const ZetNCHeaderData header = beam.getHeader(0);
    EXPECT_EQ(beam.getType(), ZetNCEntity::eNCTypeBeam);
    EXPECT_EQ(header.drawingNumber + L"|" + header.mark + L"|" + header.profileName + L"|" +
                  header.profileCode + L"|" + header.material,
              L"Z-1|P1|ZS 175*1.5|SO|S350GD");
    EXPECT_EQ(header.quantity, 2);
    // clang-format off
    const std::vector<double> dimensions = {header.length, header.sawLength, header.height,
                                            header.width, header.thickness,
                                            header.weightPerMetre, header.surfacePerMetre};
    // clang-format on
    EXPECT_EQ(dimensions, (std::vector{2500.4, 2480.0, 175.0, 81.0, 1.5, 4.416, 0.753}));
    sample.code = "B";
    const NcFileEntity plate = EntityOf(sample, "");
    EXPECT_EQ(plate.getType(), ZetNCEntity::eNCTypePlate);
    EXPECT_EQ(plate.getHeader(0).height, 175.0);
    EXPECT_EQ(plate.getHeader(0).width, 175.0);
}

TEST(NcHost, SortsFacesIntoViews) {
    const NcFileEntity entity =
        EntityOf({},
                 "BO\n  h 1 2 3\n  u 4 5 6\n  o 7 8 9\n  v 10 11 12\n"
                 "  u 13 14 15\nSI\n  o 1 2 30 10 T\nKO\n  h 1 2\nPU\n  h 3 4\n");
    const ZetNCStructure structure = entity.getNCStructure(0);
    constexpr double kXs[] = {7.0, 10.0, 4.0, 1.0};
    ASSERT_EQ(structure.getViews().length(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(structure.getViews()[i].getViewPos(), i);
        EXPECT_EQ(structure.getViews()[i].getHoles()[0].x, kXs[i]);
        EXPECT_EQ(structure.getViews()[i].getHoles()[0].size, kXs[i] + 2.0);
    }
    EXPECT_EQ(structure.getViews()[0].getNumerations()[0].text, L"T");
    EXPECT_EQ(structure.getViews()[0].getNumerations()[0].angle, 30.0);
    const ZetArray<ZetNCMark>& marks = structure.getViews()[3].getMarks();
    EXPECT_EQ(marks[0].points[0].y, 2.0);
    EXPECT_EQ(marks[0].kind, ZetNCMark::eKindPunch);
    EXPECT_EQ(marks[1].kind, ZetNCMark::eKindPowder);
    EXPECT_EQ(entity.getHoleTargets()[4].view, 2);
    EXPECT_EQ(entity.getHoleTargets()[4].index, 1);
}

TEST(NcHost, MakesHoleData) {
    const std::pair<const char*, ZetNCHoleData> cases[] = {
        {"v 100 50 18 12",            {0, 100.0, 50.0, 0, 18.0, 0, 0.0, 0.0, 12.0, 27} },
        {"v 100 50g18",               {0, 100.0, 50.0, 1, 18.0, 0, 0.0, 0.0, 0.0, 27}  },
        {"v 100 50l18",               {0, 100.0, 50.0, 2, 18.0, 0, 0.0, 0.0, 0.0, 27}  },
        {"v 100 50s30 4 0 0 90",      {0, 100.0, 50.0, 4, 30.0, 0, 0.0, 90.0, 4.0, 27} },
        {"v 100 50 18 0l 40 0 30",    {0, 100.0, 50.0, 0, 18.0, 1, 40.0, 30.0, 0.0, 27}},
        {"v 100 50 31.78 0l 0 6.4 5", {0, 100.0, 50.0, 0, 31.78, 1, 6.4, 95.0, 0.0, 27}},
    };
    for (const auto& [line, expected] : cases) {
        SCOPED_TRACE(line);
        const ZetNCStructure structure =
            EntityOf({}, "BO\n  " + std::string(line) + "\n").getNCStructure(0);
        ASSERT_EQ(structure.getViews().length(), 1);
        EXPECT_EQ(structure.getViews()[0].getHoles(), ZetArray<ZetNCHoleData>{expected});
    }
}

TEST(NcHost, MakesContoursAndMarksOfOtherHoleLines) {
    const NcFileEntity entity = EntityOf({},
                                         "IK\n  v 1 1\n  5 1\n  1 5\n  1 1\n"
                                         "BO\n  v 100 50 0 0l 20 10 90\n  v 7 8 0\n"
                                         "  v 10 20 0 0l 30 0 90\n");
    std::wstring kinds;
    for (const dstv::NcEntry& entry : EntriesOf(entity.getPart()))
        kinds.append(entry.kind).append(L" ");
    EXPECT_EQ(kinds, L"opening rectangle mark mark ");
    const ZetNCView view = entity.getNCStructure(0).getViews()[0];
    EXPECT_TRUE(view.getHoles().isEmpty());
    ASSERT_EQ(view.getInternalContours().length(), 2);
    // Holes come first; width 20 and height 10, turned by 90 degrees about (100, 50).
    const ZetNCContour& sharp = view.getInternalContours()[0];
    EXPECT_EQ(sharp.type, ZetNCContour::eTypeInternal);
    EXPECT_EQ(sharp.xValues, (ZetArray<double>{100.0, 100.0, 90.0, 90.0, 100.0}));
    EXPECT_EQ(sharp.yValues, (ZetArray<double>{50.0, 70.0, 70.0, 50.0, 50.0}));
    EXPECT_EQ(sharp.bulges.length(), 5);
    ASSERT_EQ(view.getMarks().length(), 2);
    using Points = ZetArray<ZetGeomPoint2d>;
    // clang-format off
    EXPECT_EQ(view.getMarks()[0].points, (Points{{7.0, 8.0}}));
    EXPECT_EQ(view.getMarks()[1].points, (Points{{10.0, 20.0}, {10.0, 50.0}}));
    // clang-format on
}

/// "start web 45 at 0 line 18" for each cut, a line each; "noted" for those that are no NC data.
std::string CutsIn(const NcFileEntity& entity) {
    std::string text;
    const ZetNCStructure structure = entity.getNCStructure(0);
    for (const ZetNCCut& cut : structure.getCuts())
        text += ZetString::format(L"%s %s %.3f at %.1f line %d\n",
                                  ZetString(cut.end == ZetNCCut::eEndStart ? L"start" : L"end"),
                                  ZetString(cut.face == ZetNCCut::eFaceWeb ? L"web" : L"flange"),
                                  cut.angle,
                                  cut.x,
                                  cut.hostTag)
                    .toUtf8();
    for (const dstv::NcEntry& entry : EntriesOf(entity.getPart()))
        if (entry.isNoted)
            text += "noted line " + std::to_string(entry.line) + "\n";
    return text;
}

/// A piece 3000 long, 175 high and 81 wide: angles of the header, and planes that cut it.
TEST(NcHost, OffersTheCutsThatNoOutlineHas) {
    struct Case {
        const char *webStart, *webEnd, *flangeEnd, *blocks, *cuts;
    };
    const Case cases[] = {
        {"0",  "0", "0",   "",                                 ""                                                                       },
        {"45",
         "0",       "-30",
         "",                                                   "start web 45.000 at 0.0 line 18\nend flange -30.000 at 3000.0 line 21\n"},
        {"45",
         "0",       "0",
         "AK\n v 175 0\n 3000 0\n 3000 175\n 0 175\n 175 0\n"
         "AK\n u 175 0\n 3000 0\n 3000 81\n 175 81\n 175 0\n", "noted line 18\n"                                                        },
        {"45",
         "0",       "0",
         "AK\n v 175 0\n 3000 0\n 3000 175\n 0 175\n 175 0\n", "start web 45.000 at 0.0 line 18\n"                                      },
        {"0",
         "0",       "30",
         "AK\n o 0 0\n 3000 0\n 2953.235 81\n 0 81\n 0 0\n",   "end flange 30.000 at 3000.0 line 21\n"                                  },
        {"45",
         "0",       "0",
         "AK\n v 0 0\n 3000 0\n 3000 175\n 0 175\n 0 0\n",     "start web 45.000 at 0.0 line 18\n"                                      },
        {"45",
         "0",       "0",
         "AK\n v 5 0\n 3000 0\n 3000 175\n 0 175\n 0 5\n 5 0\n"
         "AK\n u 175 0\n 3000 0\n 3000 81\n 175 81\n 175 0\n", "start web 45.000 at 0.0 line 18\n"                                      },
        {"45",
         "0",       "0",
         "AK\n v 175 0\n 3000 0\n 3000 175\n 80 175\n 80 95\n 175 0\n"
         "AK\n u 175 0\n 3000 0\n 3000 81\n 175 81\n 175 0\n", "noted line 18\n"                                                        },
        {"45",
         "0",       "0",
         "AK\n v 175 -87.5\n 3000 -87.5\n 3000 87.5\n 0 87.5\n 175 -87.5\n"
         "AK\n u 175 0\n 3000 0\n 3000 81\n 175 81\n 175 0\n", "noted line 18\n"                                                        },
        {"0",  "0", "0",   "SC\n 3000 0 0 1 0 0\n",            "end web 0.000 at 3000.0 line 27\n"                                      },
        {"0",  "0", "0",   "SC\n 3000 175 0 1 -1 0\n",         "end web -45.000 at 3000.0 line 27\n"                                    },
        {"0",
         "0",       "0",
         "SC\n 0 0 0 -1 1 1\n",                                "start web -45.000 at 0.0 line 27\nstart flange -45.000 at 0.0 line 27\n"},
        {"0",  "0", "0",   "SC\n 0 50 0 0 1 0\n",              "noted line 27\n"                                                        },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.blocks) + c.webStart);
        NcSample sample;
        sample.webStartCut = c.webStart;
        sample.webEndCut = c.webEnd;
        sample.flangeEndCut = c.flangeEnd;
        EXPECT_EQ(CutsIn(EntityOf(sample, std::string(c.blocks) + "EN\n")), c.cuts);
    }
}

/// A tube of diameter 175 with a mitre of 30 degrees: its unrolled surface ends in a wave through
/// points at these angles round the tube, degrees, `off` mm away from where the mitre ends it.
TEST(NcHost, ARoundTubeHasItsMitreWhereItsSurfaceEndsInTheWave) {
    enum Where { kEnd, kStart, kSawn, kSawnStart };
    struct Case {
        std::vector<double> degrees;
        double highest;  ///< where the wave is longest, degrees
        double off;
        Where where;
        std::string more;  ///< points behind the wave
        const char* cuts;
    };
    const char* const kOffered = "end web 30.000 at 3000.0 line 19\n";
    const char* const kNoted = "noted line 19\n";
    const std::vector<double> seven = {0, 60, 120, 180, 240, 300, 360};
    const std::vector<double> eight = {0, 40, 90, 135, 180, 230, 290, 360};
    std::vector<double> many;
    for (int i = 0; i < 99; ++i)
        many.push_back(360.0 * i / 98.0);
    // clang-format off
    const Case cases[] = {
        {eight, 0.0, 0.0, kEnd, "", kNoted},
        {seven, 0.0, 0.0, kEnd, "", kOffered},
        {many, 0.0, 0.49, kEnd, "", kNoted},
        {many, 0.0, 0.51, kEnd, "", kOffered},
        {many, 0.0, -0.49, kEnd, "", kNoted},
        {eight, 70.0, 0.0, kEnd, "", kNoted},
        {eight, 0.0, 0.0, kEnd, " 2898.45 549.7787\n", kNoted},
        {eight, 0.0, 0.0, kEnd, " 2898.48 549.7787\n", kOffered},
        {eight, 250.0, 0.0, kStart, "", "noted line 18\n"},
        {many, 250.0, 0.51, kStart, "", "start web 30.000 at 0.0 line 18\n"},
        {many, 250.0, -0.51, kStart, "", "start web 30.000 at 0.0 line 18\n"},
        {eight, 70.0, 0.0, kSawn, "", "noted line %d\n"},
        {eight, 70.0, 100.0, kSawnStart, "", "noted line %d\n"},
        {{0, 360}, 0.0, 0.0, kEnd, " 2999 549.7787\n 2998 549.7787\n 2997 549.7787\n 2996 549.7787\n"
                                   " 2995 549.7787\n 2994 549.7787\n 2993 549.7787\n", kOffered},
    };
    // clang-format on
    const double height = 87.5 * std::tan(std::numbers::pi / 6.0);
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        const bool isAtStart = c.where == kStart || c.where == kSawnStart;
        const bool isSawn = c.where == kSawn || c.where == kSawnStart;
        const std::string other = isAtStart ? "3000" : "0";
        std::string blocks = "AK\n v " + other + " 0\n";
        for (const double degrees : c.degrees) {
            const double wave = std::cos((degrees - c.highest) * std::numbers::pi / 180.0);
            const double length = 3000.0 - c.off - height + height * wave;
            blocks += ZetString::format(L" v %.6f %.6f\n",
                                        isAtStart ? 3000.0 - length : length,
                                        87.5 * degrees * std::numbers::pi / 180.0)
                          .toUtf8();
        }
        blocks += c.more + " " + other + " 549.7787\n " + other + " 0\n";
        NcSample sample;
        sample.code = "RO";
        (isAtStart ? sample.webStartCut : sample.webEndCut) = isSawn ? "0" : "30";
        // Slanted to both sides alike, through the middle of the mitre.
        if (isSawn)
            blocks += isAtStart ? "SC\n 150.518 87.5 87.5 -1 0.4082483 0.4082483\n"
                                : "SC\n 2949.482 87.5 87.5 1 0.4082483 0.4082483\n";
        const std::string line = std::to_string(LinesOf(sample.With(blocks)).size());
        EXPECT_EQ(CutsIn(EntityOf(sample, blocks)), Replaced(c.cuts, "%d", line));
    }
}

/// What the host offers of a part, a line each; behind "@" the line of the file.
std::string OfferedBy(const NcFileEntity& entity) {
    std::string text = CutsIn(entity);
    const auto numbers = [&](std::initializer_list<double> each) {
        for (const double number : each)
            text += ZetString::format(L" %.2f", number).toUtf8();
    };
    const auto line = [&](const std::string& what, long at, std::initializer_list<double> each) {
        text += what + " @" + std::to_string(at);
        numbers(each);
        text += "\n";
    };
    const auto contours = [&](const char* what, const ZetArray<ZetNCContour>& each) {
        for (const ZetNCContour& contour : each) {
            text += what;
            text += " @" + std::to_string(contour.hostTag);
            for (long i = 0; i < contour.xValues.length(); ++i)
                numbers({contour.xValues[i], contour.yValues[i]});
            text += "\n";
        }
    };
    const ZetNCStructure structure = entity.getNCStructure(0);
    for (const ZetNCView& view : structure.getViews()) {
        const ZetGeomPlane plane = view.getPlane();
        text += "view " + std::to_string(view.getViewPos());
        numbers({plane.origin.x, plane.origin.y, plane.origin.z});
        numbers({plane.xAxis.x, plane.xAxis.y, plane.xAxis.z});
        numbers({plane.yAxis.x, plane.yAxis.y, plane.yAxis.z});
        text += "\n";
        for (const ZetNCHoleData& hole : view.getHoles())
            line("hole " + std::to_string(hole.kind),
                 hole.hostTag,
                 {hole.x, hole.y, hole.size, hole.slotLength, hole.slotAngle, hole.depth});
        contours("outline", view.getExternalContours());
        contours("opening", view.getInternalContours());
        for (const ZetNCMark& mark : view.getMarks())
            for (const ZetGeomPoint2d& point : mark.points)
                line("mark " + std::to_string(mark.kind), mark.hostTag, {point.x, point.y});
        for (const ZetNCNumeration& number : view.getNumerations())
            line("text", number.hostTag, {number.x, number.y, number.angle});
    }
    for (const dstv::NcHoleTarget& target : entity.getHoleTargets())
        text += "target " + std::to_string(target.view) + "/" + std::to_string(target.index) + "\n";
    return text;
}

/// What is written of a part behind the texts of the sample's header.
std::string WrittenBlocks(const dstv::NcPart& part) {
    const std::string header = "\n  Purlin\n  \n  \n  \n";
    const std::string text = std::get<std::string>(dstv::WriteNc(part, {}));
    return text.substr(text.find(header) + header.size());
}

/// A file of told-files.txt while it is read, and what is told, offered and written of it.
struct ToldFile {
    std::vector<std::string> header = LinesOf(NcSample().Header());
    std::string blocks = "EN\n";
    std::optional<std::string> whole;
    std::string told, offered, written;

    void Take(const std::string& line) {
        const std::string text = Replaced(line.size() > 2 ? line.substr(2) : "", "\\n", "\n");
        if (line[0] == '!')
            told += text + "\n";
        else if (line[0] == '=')
            offered += text + "\n";
        else if (line[0] == '~')
            written += text + "\n";
        else if (line[0] == '+')
            blocks = text;
        else if (line[0] == '>')
            whole = text;
        else
            header[std::stoul(text) - 1] =
                text.substr(std::min(text.find(' '), text.size() - 1) + 1) + "\n";
    }
    std::string Text() const {
        std::string text;
        for (const std::string& line : header)
            text += line;
        return whole.value_or(text + blocks);
    }
};

TEST(NcHost, TellsOffersAndWritesWhatIsInFiles) {
    std::ifstream stream(DSTV_TEST_FOLDER "/told-files.txt", std::ios::binary);
    ToldFile file;
    int cases = 0;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line[0] != '#') {
            file.Take(line);
            continue;
        }
        if (!line.empty())
            continue;
        const std::string text = file.Text();
        EXPECT_EQ(ToldOf(text), file.told) << text;
        if (!file.offered.empty()) {
            EXPECT_EQ(OfferedBy(NcFileEntity(ReadPart(text))), file.offered) << text;
        }
        if (!file.written.empty()) {
            EXPECT_EQ(WrittenBlocks(ReadPart(text)), file.written) << text;
        }
        file = ToldFile();
        ++cases;
    }
    EXPECT_GT(cases, 60);
}

/// Stands in a pattern for one of these.
struct Choice {
    char sign;
    std::vector<const char*> texts;
};

/// Numbers on the limits of the reader's rules, and a little beside them.
// clang-format off
const std::vector<Choice> kChoices = {
    {'@', {"v", "v", "o", "u", "h"}},
    {':', {"u", "o", "s", " "}},
    {'<', {"-1.1", "-1", "-0.5", "0", "0", "0", "0.5", "1", "175"}},
    {'>', {"2825", "2999", "2999.5", "3000", "3000", "3000", "3000.5", "3000.6", "3001", "3001.1"}},
    {'_', {"-1.1", "-1", "-0.6", "-0.5", "0", "0", "0", "0.5"}},
    {'^', {"80", "81", "81", "81.5", "81.6", "82.1", "175", "175", "175.5", "175.6", "176", "176.1"}},
    {'#', {" 0", " 0.01", " 5", " 18", " 18 4", "s18 4 0 0 90", "g18"}},
    {'~', {"0", "0.01", "0.02", "20", "30"}},
    {'%', {"0", "30", "-45", "90", "-90", "360"}},
    {'!', {"0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0.1", "30", "-45", "89", "89.1"}},
    {'&', {" 0", " 0", "w 5", "t 5", " 0 20", " 0 45 4", " 2"}},
    {'|', {" 0", " 49.98", " 49.97", " -50", " 90"}},
    {'?', {"-1", "0", "0", "0.001", "0.1", "1", "57", "58"}},
    {'*', {"81", "81.01", "81.2", "40"}},
    {'$', {"SO", "SO", "B", "RO", "U", "L", "I"}},
};
// clang-format on
/// What is in brackets comes again at "=".
const char* const kBlocks[] = {
    "BO\n @ <: _#\n @ >: ^#\n",
    "BO\n @ >: _ 18 0l ~ ~ %\n @ <: ^ 5 4l ~ ~ %\n",
    "AK\n @ (< _)\n > _\n > ^&\n < ^\n =\n",
    "AK\n @ (< _)\n > _\n > ^\n < ^&\n =\n",
    "IK\n @ (1500 _)|\n 1600 _\n 1600 ^\n =\n",
    "SC\n > 0 0 1 ? ?\n < 0 0 -1 ? ?\n",
    "PU\n @ <: _\n > ^\nSI\n @ >: ^ % 10 T\n",
    "P1\n 50 _\nE1\n 0 0 81\n 100 0 *\n 0 100 *\nB1\n 50 _ 18 0l ~ ~ %\nS1\n 50 ^ % 10 T\n",
    "A1\n (0 _)\n > _\n > ^&\n =\nE1\n 0 0 *\n -100 0 81\n 0 100 *\n",
    "PR\n + 0 0 0\n + 9 _ 0\n 9 ^ 5\n - 1 1 0\n 2 _ 0\nTO\n ? ?\nUE\n @ >: _\nKA\n < _ > ^ ! 2\nIN\n KEY : T\n",
};

std::string Filled(const std::string& pattern, std::mt19937_64& random) {
    std::string text;
    std::size_t begin = 0, end = 0;
    for (const char c : pattern) {
        const auto choice = std::find_if(
            kChoices.begin(), kChoices.end(), [&](const Choice& each) { return each.sign == c; });
        if (choice != kChoices.end())
            text += choice->texts[random() % choice->texts.size()];
        else if (c == '(')
            begin = text.size();
        else if (c == ')')
            end = text.size();
        else
            text += c == '=' ? text.substr(begin, end - begin) : std::string(1, c);
    }
    return text;
}

TEST(NcHost, OffersTheSameOfFilesOnTheLimitsOfTheRules) {
    std::mt19937_64 random(1);
    std::string text;
    for (int i = 0; i < 150; ++i) {
        NcSample sample;
        sample.code = Filled("$", random);
        for (std::string* cut :
             {&sample.webStartCut, &sample.webEndCut, &sample.flangeStartCut, &sample.flangeEndCut})
            *cut = Filled("!", random);
        std::string blocks;
        for (int k = 0; k < 3; ++k)
            blocks += Filled(kBlocks[random() % std::size(kBlocks)], random);
        const std::string told = ToldOf(sample.With(blocks));
        const bool isRead = told.find("refused") == std::string::npos;
        text += "---- " + sample.code + " " + sample.webStartCut + " " + sample.webEndCut + " " +
                sample.flangeStartCut + " " + sample.flangeEndCut + "\n" + blocks + "----\n" + told;
        if (!isRead)
            continue;
        const NcFileEntity entity = EntityOf(sample, blocks);
        const std::string written = std::get<std::string>(dstv::WriteNc(entity.getPart(), {}));
        text += OfferedBy(entity) + "written" + written.substr(written.find("\n  Purlin\n"));
    }
    EXPECT_TRUE(MatchesGolden(DSTV_TEST_FOLDER "/golden", "boundaries", text));
}

/// Faces of a piece 175 high and 81 wide; on each a slot, a text and a mark at (100, 50) of its
/// plane, at 30 degrees.
TEST(NcHost, TakesParallelPlanesForStandardFaces) {
    // clang-format off
    struct Case { const char *name, *points; int position; double x, y, angle; };
    // clang-format on
    constexpr Case kCases[] = {
        {"front",                    "0 0 81 100 0 81 0 100 81",        1, 100.0, 50.0,  30.0 },
        {"front, moved",             "500 20 40 600 20 40 500 120 40",  1, 600.0, 70.0,  30.0 },
        {"front, upright",           "0 0 0 0 9 0 -9 0 0",              1, -50.0, 100.0, 120.0},
        {"behind",                   "500 0 0 400 0 0 500 100 0",       3, 400.0, 50.0,  150.0},
        {"top from outside",         "0 175 81 100 175 81 0 175 -19",   0, 100.0, 31.0,  -30.0},
        {"top with the view's axes", "0 175 0 100 175 0 0 175 100",     0, 100.0, 50.0,  30.0 },
        {"below the top flange",     "0 173.5 0 100 173.5 0 0 173.5 9", 0, 100.0, 50.0,  30.0 },
        {"bottom, moved",            "100 0 10 200 0 10 100 0 110",     2, 200.0, 60.0,  30.0 },
        {"rounded to 0.01",          "0 0 81 100 0 81.01 0 100 81",     1, 100.0, 50.0,  30.0 },
        {"inclined",                 "0 0 90 100 0 90 0 151 41",        5, 100.0, 50.0,  30.0 },
        {"inclined, moved",          "500 0 90 600 0 90 500 151 41",    5, 600.0, 50.0,  30.0 },
        {"inclined, running back",   "500 0 90 400 0 90 500 151 41",    5, 400.0, 50.0,  150.0},
        {"across the piece",         "0 0 0 0 9 0 0 0 9",               5, 100.0, 50.0,  30.0 },
    };
    const std::string features =
        "\nB3\n  100.00 50.00 18.0 0.0l 40.0 0.0 30.0\nS3\n 100 50 30 10 T\nP3\n 100 50\n";
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        const ZetNCStructure structure =
            EntityOf({}, "E3\n " + std::string(c.points) + features).getNCStructure(0);
        ASSERT_EQ(structure.getViews().length(), 1);
        const ZetNCView& view = structure.getViews()[0];
        EXPECT_EQ(view.getViewPos(), c.position);
        const ZetNCHoleData hole = view.getHoles()[0];
        const ZetNCNumeration text = view.getNumerations()[0];
        const ZetGeomPoint2d mark = view.getMarks()[0].points[0];
        for (const auto& place : {
                 ZetGeomPoint2d{hole.x, hole.y},
                 {text.x, text.y},
                 mark
        })
            EXPECT_LT((place - ZetGeomPoint2d{c.x, c.y}).length(), 1e-5);
        EXPECT_NEAR(hole.slotAngle, c.angle, 1e-9);
        EXPECT_NEAR(text.angle, c.angle, 1e-9);
    }
}

TEST(NcHost, NumbersInclinedPlanesInOrder) {
    const std::string first = "E1\n 0 0 90 100 0 90 0 151 41\n";
    const NcFileEntity entity =
        EntityOf({},
                 "B2\n  5 6 7\n" + first + "B1\n  1 2 3\nE2\n 0 0 0 1 0 0 0 1 1\n" + first +
                     "A1\n 0 0\n 9 0\n 9 9\n 0 0\nBO\n  v 1 2 3\n");
    const ZetNCStructure structure = entity.getNCStructure(0);
    ASSERT_EQ(structure.getViews().length(), 3);
    EXPECT_EQ(structure.getViews()[1].getViewPos(), 5);
    EXPECT_EQ(structure.getViews()[1].getHoles()[0].size, 3.0);
    EXPECT_EQ(structure.getViews()[1].getExternalContours().length(), 1);
    EXPECT_EQ(structure.getViews()[2].getViewPos(), 6);
    EXPECT_EQ(structure.getViews()[2].getHoles()[0].size, 7.0);
}

void ExpectVector(const ZetGeomVector3d& actual, const ZetGeomVector3d& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-5);
    EXPECT_NEAR(actual.y, expected.y, 1e-5);
    EXPECT_NEAR(actual.z, expected.z, 1e-5);
}

TEST(NcHost, HandsPlanesOverInTheFrameOfTheCode) {
    // clang-format off
    struct Case { const char* code; ZetGeomVector3d origin, yAxis, frontNormal, topOrigin; };
    // clang-format on
    // The y axis of the inclined plane is (0, 151, -49) / 158.7514.
    const Case cases[] = {
        {"SO", {0, -90, 0}, {0, 0.308659, 0.951173},  {0, -1, 0}, {0, 0, 175}},
        {"B",  {0, -90, 0}, {0, 0.308659, 0.951173},  {0, -1, 0}, {0, 0, 175}},
        {"U",  {0, 0, 90},  {0, 0.951173, -0.308659}, {0, 0, 1},  {0, 175, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        NcSample sample;
        sample.code = c.code;
        const ZetNCStructure structure =
            EntityOf(sample, "E1\n 0 0 90 100 0 90 0 151 41\nB1\n 1 2 3\nBO\n v 1 2 3\n o 1 2 3\n")
                .getNCStructure(0);
        const ZetGeomPlane plane = ViewAt(structure, 5)->getPlane();
        ExpectVector(plane.origin.asVector(), c.origin);
        ExpectVector(plane.xAxis, {1, 0, 0});
        ExpectVector(plane.yAxis, c.yAxis);
        ExpectVector(ViewAt(structure, 1)->getPlane().normal(), c.frontNormal);
        ExpectVector(ViewAt(structure, 0)->getPlane().origin.asVector(), c.topOrigin);
    }
}

TEST(NcHost, ModelObjectOutlivesItsEntity) {
    const auto object = HostPtr<IHostObject>::adopt(EntityOf({}, "").getModelObject());
    IHostObject* found = nullptr;
    ASSERT_EQ(object->queryInterface(IStructureObject::kId, &found), kHostOk);
    const auto structure = HostPtr<IStructureObject>::adopt(static_cast<IStructureObject*>(found));
    ASSERT_EQ(object->queryInterface(IEqualPartObject::kId, &found), kHostOk);
    const auto part = HostPtr<IEqualPartObject>::adopt(static_cast<IEqualPartObject*>(found));
    ZetString name;
    EXPECT_EQ(structure->getProfileName(&name), kHostOk);
    EXPECT_EQ(name, L"ZS 175*1.5");
    ZetString texts;
    for (const auto get : {&IEqualPartObject::getPartNumber,
                           &IEqualPartObject::getAssemblyNumber,
                           &IEqualPartObject::getName,
                           &IEqualPartObject::getMaterial,
                           &IEqualPartObject::getFinish,
                           &IEqualPartObject::getRemark}) {
        EXPECT_EQ((part.get()->*get)(&name), kHostOk);
        texts += name + L"|";
    }
    EXPECT_EQ(texts, L"P1||ZS 175*1.5|S350GD||Purlin|");
    IEqualPartObject::HostBool isMainPart = IEqualPartObject::kHostTrue;
    EXPECT_EQ(part->getMainPart(&isMainPart), kHostOk);
    EXPECT_EQ(isMainPart, 0);
    EXPECT_EQ(object->queryInterface({1, 2, 3, {}}, &found), kHostNoInterface);
    EXPECT_EQ(found, nullptr);
}

}  // namespace

#include "camjob/run/LedgerRun.h"

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <set>

// The law, from outside: each feature of random parts is in the accounts, and made, told or left
// out as the lines of the files have it.

using namespace ledger;

namespace {

/// Of each NC file, that with ST included.
constexpr long kHeaderLines = 21;
/// Parts of every kind of feature, many of them wrong, and how many features each has.
class PartMaker {
  public:
    explicit PartMaker(unsigned seed) : m_random(seed) {}

    std::string Make(int number, long features) {
        std::string text = nc::Header("P" + std::to_string(number),
                                      std::vector<const char*>{kZ, kBox, kPlate, kTube}[Pick(4)],
                                      "6000");
        for (long i = 0; i < features; ++i)
            text += Feature();
        return text + "EN\n";
    }

  private:
    using Maker = std::string (PartMaker::*)();

    std::size_t Pick(std::size_t count) { return m_random() % count; }
    /// On a grid, so that features meet each other.
    std::string At(double from, double to) {
        const auto steps = static_cast<std::size_t>((to - from) / 12.5);
        return Number(from + 12.5 * static_cast<double>(Pick(steps + 1)));
    }
    /// The pieces are made from left to right, which operands of + need not be: a seed makes the
    /// same parts with each compiler.
    static std::string Joined(std::initializer_list<std::string> pieces) {
        std::string text;
        for (const std::string& piece : pieces)
            text += piece;
        return text;
    }
    static std::string Number(double value) { return ZetString::format(L"%.2f", value).toUtf8(); }
    std::string Face() { return std::string(1, "vouh"[Pick(4)]); }
    std::string Place() {
        return Joined({"  ", Face(), " ", At(-25, 6050), " ", At(-12.5, 212.5)});
    }
    std::string Size() { return " " + Number(std::vector<double>{10, 13, 18, 22}[Pick(4)]); }

    std::string Hole() { return Joined({"BO\n", Place(), Size(), "\n"}); }
    std::string Thread() { return "BO\n" + Place() + "g 12.00\n"; }
    std::string Sink() { return "BO\n" + Place() + "s 26.00 6.50 0.00 0.00 90.00\n"; }
    std::string Slot() {
        return Joined({"BO\n",
                       Place(),
                       Size(),
                       " 0.00l ",
                       At(12.5, 100),
                       " 0.00 ",
                       Pick(2) == 0 ? "0.00" : "90.00",
                       "\n"});
    }
    std::string Rectangle() { return "BO\n" + Place() + " 10.00 0.00l 50.00 25.00 0.00\n"; }
    std::string Mark() { return "KO\n" + Place() + "\n"; }
    std::string Text() { return "SI\n" + Place() + " 0.00 10r T\n"; }
    std::string Opening() {
        const std::string face = Face();
        return Contour("IK\n  " + face, 100.0 * static_cast<double>(Pick(60)), 25, 50, 50);
    }
    std::string Circle() {
        const std::string y = At(50, 150);
        const double x = 100.0 * static_cast<double>(Pick(60)) + 30;
        const std::string right = Number(x + 9) + " " + y;
        return "IK\n  v " + right + " 9.00\n  " + Number(x - 9) + " " + y + " 9.00\n  " + right +
               "\n";
    }
    std::string Outline() {
        const std::string face = Face();
        return Contour("AK\n  " + face, 25.0 * static_cast<double>(Pick(3)), 0, 5900, 200);
    }
    std::string SawCut() {
        return Joined({"SC\n  ",
                       Pick(2) == 0 ? "6000" : "0",
                       " 0 0 1 ",
                       std::to_string(Pick(3)),
                       " ",
                       std::to_string(Pick(2)),
                       "\n"});
    }
    std::string Block() { return "XY\n  what\n"; }
    std::string EmptyBlock() {
        return std::vector<std::string>{"BO", "SI", "AK", "IK", "PU", "KO", "SC"}[Pick(7)] + "\n";
    }
    /// An opening with a fillet, or with a relief hole that has no arc.
    std::string NotchLine() {
        const double x = 100.0 * static_cast<double>(Pick(59));
        const auto point = [&](double dx, double y, const char* rest) {
            return "  " + Number(x + dx) + " " + Number(y) + rest + "\n";
        };
        const std::string corner =
            Pick(2) == 0 ? point(50, 80, "") + point(50, 80, "w 8.00")
                         : point(50, 72, " 8.00") + point(50, 80, "t 8.00") + point(42, 80, "");
        return "IK\n  " + Face() + point(0, 30, "") + point(50, 30, "") + corner +
               point(0, 80, "") + point(0, 30, "");
    }
    /// A slope, one whose X axis runs askew, or one that faces the end; and something on it.
    std::string OnPlane() {
        const std::string plane =
            std::vector<std::string>{"  0 200 0\n  100 200 0\n  0 190 60\n",
                                     "  1000 200 0\n  1100 100 0\n  1000 200 100\n",
                                     "  6000 100 0\n  6000 200 0\n  6000 100 50\n"}[Pick(3)];
        const std::string place = Joined({"  ", At(-25, 6050), " ", At(-12.5, 50)});
        const double x = 100.0 * static_cast<double>(Pick(61));
        return "E1\n" + plane +
               std::vector<std::string>{"B1\n" + place + " 13.00\n",
                                        "B1\n" + place + " 13.00 0.00l 25.00 0.00 0.00\n",
                                        "K1\n" + place + "\n",
                                        "S1\n" + place + " 0.00 10r T\n",
                                        Contour("I1\n ", x, 5, 50, 20)}[Pick(5)];
    }

    /// A box, with a corner cut out of it or not.
    std::string Contour(const std::string& begin, double x, double y, double length, double width) {
        const auto point = [](double a, double b) {
            return " " + Number(a) + " " + Number(b) + "\n";
        };
        std::string text = begin + point(x, y) + point(x + length, y);
        if (Pick(2) == 0)
            text += point(x + length, y + width);
        else
            text += point(x + length, y + width / 2) + point(x + length - 20, y + width / 2) +
                    point(x + length - 20, y + width);
        return text + point(x, y + width) + point(x, y);
    }

    std::string Feature() {
        constexpr Maker kMakers[] = {&PartMaker::Hole,
                                     &PartMaker::Hole,
                                     &PartMaker::Hole,
                                     &PartMaker::Thread,
                                     &PartMaker::Sink,
                                     &PartMaker::Slot,
                                     &PartMaker::Rectangle,
                                     &PartMaker::Mark,
                                     &PartMaker::Text,
                                     &PartMaker::Opening,
                                     &PartMaker::Circle,
                                     &PartMaker::Outline,
                                     &PartMaker::SawCut,
                                     &PartMaker::Block,
                                     &PartMaker::EmptyBlock,
                                     &PartMaker::NotchLine,
                                     &PartMaker::OnPlane};
        return (this->*kMakers[Pick(std::size(kMakers))])();
    }

    std::mt19937 m_random;
};

/// The round holes and countersinks in the lines of an NC file, as "face x y" of their operations,
/// by line.
std::map<long, std::string> RoundHolesIn(const std::string& text) {
    std::map<long, std::string> holes;
    std::istringstream lines(text);
    std::string block;
    std::string line;
    for (long number = 1; std::getline(lines, line); ++number) {
        if (line.size() == 2)
            block = line;
        std::istringstream words(line);
        words.imbue(std::locale::classic());  // the files are read alike in all of them
        char face = 0;
        double x = 0.0;
        double y = 0.0;
        std::string rest;
        if (block != "BO" || !(words >> face >> x >> y) || !std::getline(words, rest) ||
            rest.find('l') != std::string::npos)
            continue;
        const std::map<char, const wchar_t*> faces = {
            {'v', L"web"          },
            {'o', L"top_flange"   },
            {'u', L"bottom_flange"},
            {'h', L"web_back"     }
        };
        const bool isSink = rest.find('s') != std::string::npos;
        holes[number] = ZetString::format(L"%sface=%s x=%.3f y=%.3f ",
                                          ZetString(isSink ? L"countersunk " : L""),
                                          ZetString(faces.at(face)),
                                          x,
                                          y)
                            .toUtf8();
    }
    return holes;
}

/// The features in the lines of an NC file of the maker's: by line, "BO" and so on; "none" for a
/// block without lines, "w" for a relief hole.
std::map<long, std::string> FeaturesIn(const std::string& text) {
    std::map<long, std::string> features;
    std::istringstream lines(text);
    std::string line;
    std::string block;
    for (long number = 1; std::getline(lines, line); ++number) {
        if (number <= kHeaderLines)
            continue;
        if (line.size() == 2) {
            if (!block.empty())
                features[number - 1] = "none";
            // Of an unknown block its own line counts, else the first one in it.
            if (line == "XY")
                features[number] = line;
            block = line == "XY" || line == "E1" || line == "EN" ? "" : line;
        } else if (line.find('w') != std::string::npos && line != "  what") {
            features[number] = "w";
        } else if (!block.empty()) {
            features[number] = std::exchange(block, "");
        }
    }
    return features;
}

/// What the lines of an NC file say of where things must not be: made, it would be a fault.
class Places {
  public:
    explicit Places(const std::string& text) {
        std::istringstream lines(text);
        std::string line;
        long first = 0;
        for (long number = 1; std::getline(lines, line); ++number) {
            if (number <= kHeaderLines)
                continue;
            if (line.size() == 2) {
                m_block = line;
                m_face = 0;
                first = number + 1;
                if (line == "E1")
                    m_plane.clear();
                continue;
            }
            Read(line, m_block == "BO" ? number : first);
        }
    }

    /// On a plane that faces the end, beyond the member, or in what an outline on its face that is
    /// made leaves away.
    bool IsNowhere(long line, const std::multiset<long>& made) const {
        if (m_nowhere.count(line) > 0)
            return true;
        const auto at = m_openings.find(line);
        return at != m_openings.end() &&
               std::any_of(m_outlines.begin(), m_outlines.end(), [&](const auto& each) {
                   return made.count(each.first) > 0 && each.second.face == at->second.face &&
                          !Meet(each.second, at->second);
               });
    }

  private:
    struct Box {
        char face;
        double minX;
        double maxX;
        double minY;
        double maxY;
    };

    static bool Meet(const Box& a, const Box& b) {
        return a.minX < b.maxX - 0.1 && b.minX < a.maxX - 0.1 && a.minY < b.maxY - 0.1 &&
               b.minY < a.maxY - 0.1;
    }
    static void Extend(std::map<long, Box>& boxes, long line, const Box& box) {
        Box& whole = boxes.insert({line, box}).first->second;
        whole = {box.face,
                 std::min(whole.minX, box.minX),
                 std::max(whole.maxX, box.maxX),
                 std::min(whole.minY, box.minY),
                 std::max(whole.maxY, box.maxY)};
    }

    void Read(const std::string& line, long feature) {
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        const bool hasFace = line.size() > 2 && std::string("vouh").find(line[2]) < 4;
        if (hasFace)
            words >> m_face;
        std::vector<double> numbers;
        for (double number = 0.0; words >> number;)
            numbers.push_back(number);
        if (m_block == "E1")
            return m_plane.insert(m_plane.end(), numbers.begin(), numbers.end()), void();
        if (numbers.size() < 2)
            return;
        const double x = numbers[0];
        const double y = numbers[1];
        if (m_block == "B1" || m_block == "K1" || m_block == "S1" || m_block == "I1")
            ReadOnPlane(x, y, feature);
        if (m_block == "IK")
            Extend(m_openings, feature, {m_face, x, x, y, y});
        if (m_block == "AK")
            Extend(m_outlines, feature, {m_face, x, x, y, y});
        // A rectangle of 50 by 25, with corners of 5.
        if (m_block == "BO" && line.find("l 50.00 25.00") != std::string::npos)
            Extend(m_openings, feature, {m_face, x - 5, x + 55, y - 5, y + 30});
    }

    /// Marks on an askew plane may be anywhere; of an opening there one corner may be outside.
    void ReadOnPlane(double x, double y, long feature) {
        const double alongX = (m_plane[3] - m_plane[0]) / Length(3);
        const double alongY = (m_plane[6] - m_plane[0]) / Length(6);
        const double at = m_plane[0] + x * alongX + y * alongY;
        const bool isOutside = m_block == "B1" && (at < -0.1 || at > 6000.1);
        if ((alongX == 0.0 && alongY == 0.0) || isOutside)
            m_nowhere.insert(feature);
    }
    double Length(std::size_t point) const {
        return std::hypot(std::hypot(m_plane[point] - m_plane[0], m_plane[point + 1] - m_plane[1]),
                          m_plane[point + 2] - m_plane[2]);
    }

    std::string m_block;
    char m_face = 0;
    std::vector<double> m_plane;
    std::set<long> m_nowhere;
    std::map<long, Box> m_openings;
    std::map<long, Box> m_outlines;
};

/// A member of a run as programs and machines see it.
struct SeenMember {
    SeenMember(const Ran& ran, const Json& member) : accounts(member["accounts"]) {
        const std::string mark = member["mark"];
        const std::size_t begin = ran.orders.find("member mark=\"" + mark + "\"");
        block = ran.orders.substr(begin, ran.orders.find("\nend\n", begin) - begin);
        for (const char* list : {"findings", "setAside"})
            for (const Json& message : member[list])
                told.insert(message["line"].get<long>());
        for (const Json& note : ran.document["notes"])
            if (note["file"] == member["file"])
                told.insert(note["line"].get<long>());
        for (const Json& operation : member["operations"])
            made.insert(operation["line"].get<long>());
    }

    Json accounts;
    std::string block;  ///< of the machine file
    std::set<long> told;
    std::multiset<long> made;  ///< lines of the operations
};

/// A number of the environment; .ci/long asks for many more parts, and for others each time.
unsigned NumberOf(const char* variable, unsigned otherwise) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(value, nullptr, 10));
}

// Each feature of the files is made by an operation, or a message has its line; a hole's operation
// lies at its place; and what is made, told and left out is as much as there is.
TEST(Ledger, HoldsForRandomParts) {
    const unsigned seed = NumberOf("CAMDATA_LAW_SEED", 1);
    SCOPED_TRACE("CAMDATA_LAW_SEED " + std::to_string(seed));
    const auto parts = static_cast<int>(NumberOf("CAMDATA_LAW_PARTS", 20));
    constexpr long kFeatures = 500;
    PartMaker maker(seed);
    std::map<std::string, std::string> files;
    for (int i = 0; i < parts; ++i)
        files["P" + std::to_string(i)] = maker.Make(i, kFeatures);
    const std::string reports =
        "report = { uncovered_hole = \"warning\", uncovered_trim = \"warning\", unclear_cut = "
        "\"warning\", hole_outside = \"warning\", lone_countersink = \"warning\" }\n";
    const Ran ran(files,
                  kJob + ("code = \"B\"\n" + reports) +
                      "[[member_type]]\nid = \"sections\"\ngroup = \"all\"\nmarks = true\n" +
                      reports);
    ASSERT_EQ(ran.exitCode, 0) << ran.document["faults"].dump(1);
    ASSERT_EQ(ran.document["members"].size(), static_cast<std::size_t>(parts));
    for (const Json& each : ran.document["members"]) {
        const std::string mark = each["mark"];
        SCOPED_TRACE(mark);
        const SeenMember member(ran, each);
        const bool isPlate = files[mark].find(kPlate) != std::string::npos;
        long settled = 0;
        for (const auto& [name, count] : member.accounts.items())
            settled += count.get<long>();
        const std::map<long, std::string> features = FeaturesIn(files[mark]);
        EXPECT_GE(features.size(), static_cast<std::size_t>(kFeatures));
        EXPECT_EQ(settled, static_cast<long>(features.size()));
        EXPECT_EQ(member.block.find("inf"), std::string::npos);
        EXPECT_EQ(member.block.find("nan"), std::string::npos);
        EXPECT_EQ(std::count(member.block.begin(), member.block.end(), '\n'),
                  static_cast<long>(member.made.size()));
        const std::map<long, std::string> holes = RoundHolesIn(files[mark]);
        std::map<std::string, long> seen;
        const Places places(files[mark]);
        for (const auto& [line, block] : features) {
            ++seen[block];
            EXPECT_FALSE(member.made.count(line) > 0 && places.IsNowhere(line, member.made))
                << "line " << line << ": " << block;
            // Without marks one note tells them all; an outline may cut nothing of a plate; one
            // operation makes cuts that are the same.
            const bool isMark = block == "KO" || block == "SI" || block == "K1" || block == "S1";
            const bool isUnseen =
                (isPlate && (isMark || block == "AK")) || block == "SC" || holes.count(line) > 0;
            EXPECT_TRUE(isUnseen || member.told.count(line) > 0 || member.made.count(line) > 0)
                << "line " << line << ": " << block;
        }
        const long noted = seen["XY"] + seen["none"] + seen["w"];
        EXPECT_GE(member.accounts["noted"], noted);
        EXPECT_LE(member.accounts["noted"], noted + seen["SC"]);
        EXPECT_EQ(member.accounts["not_for_machine"],
                  isPlate ? seen["KO"] + seen["SI"] + seen["K1"] + seen["S1"] : 0);
        for (const auto& [line, place] : holes)
            EXPECT_TRUE(member.told.count(line) > 0 ||
                        member.block.find(place) != std::string::npos)
                << "line " << line << ": " << place;
    }
}

}  // namespace

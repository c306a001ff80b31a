#include "plugin/SamplePart.h"
#include "plugin/output/JobRun.h"
#include "support/Golden.h"
#include "support/TempFolder.h"

#include <charconv>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

// The cutting table as the saw's software gets it: these tests read nothing else of a plan.

namespace {

struct Row {
    std::map<std::string, std::string> fields;

    const std::string& operator[](const std::string& column) const { return fields.at(column); }
    /// In 0.001 mm.
    long Length(const std::string& column) const {
        const std::string& text = (*this)[column];
        double value = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), value);  // whatever the locale
        return std::lround(value * 1000.0);
    }
};

/// The fields of one record, as RFC 4180 has them.
std::vector<std::string> SplitRecord(std::istringstream& text) {
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    for (int c = text.get(); c != EOF; c = text.get()) {
        if (isQuoted && c == '"' && text.peek() == '"')
            fields.back() += static_cast<char>(text.get());
        else if (c == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && c == ',')
            fields.emplace_back();
        else if (!isQuoted && c == '\r' && text.peek() == '\n')
            return text.get(), fields;
        else
            fields.back() += static_cast<char>(c);
    }
    return {};
}

std::vector<Row> ReadTable(const std::string& content) {
    std::istringstream text(content);
    const std::vector<std::string> columns = SplitRecord(text);
    std::vector<Row> rows;
    for (auto fields = SplitRecord(text); !fields.empty(); fields = SplitRecord(text)) {
        EXPECT_EQ(fields.size(), columns.size());
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size() && i < fields.size(); ++i)
            row.fields[columns[i]] = fields[i];
    }
    return rows;
}

struct Saw {
    long kerf = 0;
    long gripStart = 0;
    long gripEnd = 0;
    long leastOffcut = 0;  ///< 0: none is kept
    std::set<std::string> stocks;
};

/// The rows of one bar, in their order.
void CheckBar(const std::vector<Row>& rows, const Saw& saw) {
    const long stock = rows.front().Length("stock");
    EXPECT_TRUE(saw.stocks.count(rows.front()["stock"])) << rows.front()["stock"];
    long next = saw.gripStart;
    long end = 0;
    for (const Row& row : rows) {
        EXPECT_EQ(row.Length("position"), next);
        EXPECT_EQ(row["stock"], rows.front()["stock"]);
        EXPECT_EQ(row["profile"], rows.front()["profile"]);
        EXPECT_EQ(row["material"], rows.front()["material"]);
        end = next + row.Length("length");
        next = end + saw.kerf;
    }
    const long limit = stock - saw.gripEnd;
    const long offCut = std::max(0L, limit - next);
    EXPECT_LE(end, limit);
    EXPECT_EQ(rows.front().Length("offcut"), offCut);
    EXPECT_EQ(rows.front()["kept"],
              saw.leastOffcut > 0 && offCut >= saw.leastOffcut ? "yes" : "no");
}

using Wanted = std::map<std::string, std::pair<long, long>>;  ///< by mark: length, pieces

/// Every piece once, and every bar possible; the number of bars.
long CheckTable(const std::vector<Row>& rows, const Wanted& wanted, const Saw& saw) {
    std::map<long, std::vector<Row>> bars;
    std::map<std::string, std::set<long>> pieces;
    for (const Row& row : rows) {
        bars[std::stol(row["bar"])].push_back(row);
        EXPECT_EQ(row.Length("length"), wanted.at(row["mark"]).first);
        EXPECT_TRUE(pieces[row["mark"]].insert(std::stol(row["piece"])).second);
    }
    for (const auto& [mark, of] : wanted) {
        EXPECT_EQ(static_cast<long>(pieces[mark].size()), of.second) << mark;
        EXPECT_EQ(*pieces[mark].rbegin(), of.second) << mark;
    }
    EXPECT_EQ(bars.rbegin()->first, static_cast<long>(bars.size()));
    for (const auto& [number, ofBar] : bars)
        CheckBar(ofBar, saw);
    return static_cast<long>(bars.size());
}

struct Case {
    const char* name;
    std::vector<job::Stock> stocks;
    job::BarPlan plan;
    Saw saw;
    long bars;
};

/// The names of its files begin with "job".
job::Job NestedJob() {
    job::Job job = SampleJob();
    job.project.fileName = L"job";
    job.groups[job::kFirstOwnGroup].isNested = true;
    return job;
}

struct Member {
    const wchar_t* mark;
    const wchar_t* profile;
    const wchar_t* material;
    long pieces;
    double length;
};

using Parts = std::vector<std::unique_ptr<Part>>;

/// The parts must outlive the run.
void AddAll(const std::vector<Member>& members, plugin::JobRun& run, Parts& parts) {
    for (const Member& member : members) {
        parts.push_back(std::make_unique<Part>(member.mark, member.profile));
        run.Add(parts.back()->Material(member.material).Qty(member.pieces).Length(member.length));
    }
}

class CuttingTable : public ::testing::TestWithParam<Case> {};

/// Two profiles, two materials of one of them; a mark and a material that need quotes.
TEST_P(CuttingTable, IsAPlanOfItself) {
    const Case& tested = GetParam();
    TempFolder folder;
    job::Job job = NestedJob();
    job.groups[job::kFirstOwnGroup].plan = tested.plan;
    job.stocks = tested.stocks;
    const std::vector<Member> members = {
        {L"A",        L"Z200x2.0", L"S350GD",       7,  1333.5 },
        {L"B",        L"Z200x2.0", L"S350GD",       9,  1250.0 },
        {L"C, \"c\"", L"Z200x2.0", L"S350GD, zinc", 5,  1990.0 },
        {L"D",        L"Z250x2.0", L"S350GD",       11, 980.125},
        {L"E",        L"Z250x2.0", L"S350GD",       4,  2700.0 },
    };
    Wanted wanted;
    Parts parts;
    plugin::JobRun run(job, folder.PathOf(""));
    AddAll(members, run, parts);
    for (const Member& member : members)
        wanted[ZetString(member.mark).toUtf8()] = {std::lround(member.length * 1000.0),
                                                   member.pieces};
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_TRUE(run.GetPlanFaults().empty());
    EXPECT_EQ(run.GetPlans().size(), 3u);
    const std::vector<Row> rows = ReadTable(folder.Read("job-cutting.csv"));
    EXPECT_EQ(CheckTable(rows, wanted, tested.saw), tested.bars);
}

job::Stock MakeStock(double length, double kerf = 0.0) {
    job::Stock stock;
    stock.profilePattern = L"Z2*";
    stock.length = length;
    stock.kerf = kerf;
    stock.gripStart = kerf > 0.0 ? 50.0 : 0.0;
    stock.gripEnd = kerf > 0.0 ? 25.0 : 0.0;
    if (kerf > 0.0)
        stock.leastOffcut = 500.0;
    return stock;
}

const Saw kNoSaw = {.stocks = {"4000.000"}};

Saw SawWith(std::set<std::string> stocks) {
    return {3500, 50000, 25000, 500000, std::move(stocks)};
}

INSTANTIATE_TEST_SUITE_P(Plans,
                         CuttingTable,
                         ::testing::Values(
                             Case{
                                 "given", {},
                                  job::BarPlan::kGiven, kNoSaw, 17
},
                             Case{"least", {}, job::BarPlan::kLeast, kNoSaw, 15},
                             Case{"kerf_and_grips",
                                  {MakeStock(12000, 3.5)},
                                  job::BarPlan::kLeast,
                                  SawWith({"12000.000"}),
                                  5},
                             Case{"two_lengths",
                                  {MakeStock(6000, 3.5), MakeStock(9000, 3.5)},
                                  job::BarPlan::kLeast,
                                  SawWith({"6000.000", "9000.000"}),
                                  9}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(CuttingPlans, GivenIsRefusedForOtherBarsThanTheLibraryKnows) {
    job::Job job = NestedJob();
    job.groups[job::kFirstOwnGroup].plan = job::BarPlan::kGiven;
    Part part(L"A");
    for (const auto& [stock, isRefused] : std::vector<std::pair<job::Stock, bool>>{
             {MakeStock(4000), false},
             {              MakeStock(6000),           true     },
             { MakeStock(4000,           3),                true}
    }) {
        job.stocks = {stock};
        plugin::JobRun run(job, "");
        run.Add(part);
        EXPECT_EQ(run.FindPlanConflicts().size(), isRefused ? 1u : 0u);
    }
}

/// What one plan takes is not there for the next, bars cut alike have one block, and what is not
/// cut is told. An off-cut below 500 is not kept; the grip is still on one that is.
TEST(CuttingPlans, LimitedBarsAreTakenOnce) {
    TempFolder folder;
    job::Job job = NestedJob();
    for (job::OutputFile& file : job.files)
        file.hasProjectHeader = false;
    job.files[job::kOrderFile].lineEnds = job::LineEnds::kCrLf;
    job.memberTypes[0].reports[job::kLongerThanStock] = eReportingWarning;
    job.groups[job::kFirstOwnGroup].sortKeys = {eSortMark};
    job.cutting.remnants = "rest.csv";
    job.remnants = {
        {L"Z200x2.0", L"S1", 3075, 1, L"one"},
        {L"Z200x2.0", L"S1", 1500, 2, L"two"},
        {L"Z200x2.0", L"S2", 6575, 1, L""   },
        {L"Z250x2.0", L"S1", 3075, 1, L"no" },
    };
    job.stocks = {MakeStock(12000, 3.5), MakeStock(6075, 3.5), MakeStock(6075, 3.5)};
    job.stocks[1].quantity = 1;
    job.stocks[2].quantity = 1;
    job.stocks[2].profilePattern = L"C*";
    const std::vector<Member> members = {
        {L"A", L"Z200x2.0", L"S1", 2, 3000 },
        {L"B", L"Z200x2.0", L"S2", 2, 6000 },
        {L"D", L"Z250x2.0", L"",   3, 7000 },
        {L"E", L"Z250x2.0", L"",   1, 11925},
        {L"F", L"Z250x2.0", L"",   1, 8000 },
        {L"G", L"C100x1.5", L"",   1, 5000 },
        {L"H", L"C100x1.5", L"",   1, 4000 },
        {L"I", L"C100x1.5", L"",   1, 900  },
        {L"K", L"U120x2.0", L"",   2, 4500 },
        {L"L", L"U120x2.0", L"",   1, 1500 },
    };
    Parts parts;
    plugin::JobRun run(job, folder.PathOf(""));
    AddAll(members, run, parts);
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_TRUE(run.GetPlanFaults().empty());
    EXPECT_TRUE(MatchesGoldenFolder(PLUGIN_GOLDEN_FOLDER "/limited-bars", folder.PathOf("")));
}

/// Other ways to cut are only told where they cut every piece, and a plan that lacks bars is
/// compared with none.
TEST(CuttingPlans, OnlyWholePlansAreCompared) {
    job::Job job = NestedJob();
    for (const auto& [shortBars, uncut] : std::vector<std::pair<long, const wchar_t*>>{
             {2, L""      },
             {0, L"2 of A"}
    }) {
        TempFolder folder;
        job.stocks = {MakeStock(9000), MakeStock(6000)};
        job.stocks[0].quantity = 1;
        job.stocks[1].quantity = shortBars;
        Part a(L"A");
        plugin::JobRun run(job, folder.PathOf(""));
        run.Add(a.Length(4000).Qty(4));
        ASSERT_TRUE(run.Write(folder.PathOf("")));
        const plugin::ProfilePlan& plan = run.GetPlans().front();
        EXPECT_EQ(DescribeUncut(plan), uncut);
        EXPECT_EQ(plan.GetBound().has_value(), plan.IsComplete());
        EXPECT_EQ(plan.firstFit.has_value(), plan.IsComplete());
        EXPECT_EQ(plan.given, std::nullopt);
        EXPECT_EQ(plan.GetSaving(), 0);
    }
}

TEST(CuttingPlans, APieceLongerThanTheLongestStockIsAFinding) {
    TempFolder folder;
    job::Job job = NestedJob();
    job.stocks = {MakeStock(6000, 3), MakeStock(3000, 3)};
    Part fits(L"A"), tooLong(L"B");
    plugin::JobRun run(job, folder.PathOf(""));
    run.Add(fits.Length(5925));
    run.Add(tooLong.Length(5926));
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_EQ(ReadTable(folder.Read("job-cutting.csv")).size(), 1u);
    EXPECT_NE(folder.Read("job-errors.txt")
                  .find("greater than the stock length 6000, of which 5925 can "
                        "be used"),
              std::string::npos);
}

}  // namespace

#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "camjob/run/RunCommand.h"
#include "threads/OrderedWork.h"

#include <atomic>
#include <cstdio>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr unsigned kThreads[] = {1, 2, 7};

/// All that a run may make.
constexpr const char* kEverything = R"([job]
name = "Many"
nc_files = ["nc/*.nc1"]
date = 2026-03-02
[nc]
unreadable = "leave_out"
unmatched = "leave_out"
[project]
file_name = "s"
[[file]]
id = "nc"
format = "dstv"
[[file]]
id = "rows"
ending = "-rows.csv"
format = "csv"
[[group]]
id = "purlins"
sort = ["length", "mark"]
nesting = true
plan = "least"
files = ["nc", "rows"]
[[stock]]
profile = "Z*"
length = 6000
kerf = 3
[[member_type]]
id = "purlin"
profile = "Z*"
group = "purlins"
[[hole_rule]]
id = "bolt"
diameters = [18.0]
code = "B18"
)";

std::string Number(const char* format, long number) {
    char text[64];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

/// Members with holes that are right, refused and set aside, and files that are left out.
std::string GeneratedFile(long number) {
    const std::string profile =
        number % 17 == 0 ? "XX\n  SO" : Number("Z%ldx2.0\n  SO", 200 + number % 4 * 10);
    const std::string mark = Number("M%ld", number);
    if (number % 23 == 0)
        return nc::Header(mark, profile, "none") + "EN\n";
    std::string text =
        nc::Header(mark, profile, Number("%ld.00", 800 + number * 37 % 3000)) + "BO\n";
    // Now and then a member that takes longer than those behind it.
    for (long i = 0; i < (number % 50 == 1 ? 400 : number % 9); ++i)
        text += Number("  v %ld.00u 60.00 18.00\n", 40 + i * 7);
    if (number % 5 == 0)
        text += "  v 100.00u 90.00 18.00\n  v 100.00u 90.00 18.00\n  v 300.00u 90.00 99.00\n";
    return text + "EN\n";
}

void WriteMany(const TempFolder& folder) {
    fs::create_directories(folder.PathOf("nc"));
    folder.Write("job.toml", kEverything);
    for (long i = 1; i <= 300; ++i)
        folder.Write(Number("nc/%04ld.nc1", i), GeneratedFile(i));
}

constexpr const char* kOneProfile = R"([job]
name = "One profile"
nc_files = ["nc/*.nc1"]
date = 2026-03-02
[project]
file_name = "s"
[[group]]
id = "purlins"
nesting = true
[[member_type]]
id = "purlin"
profile = "Z*"
group = "purlins"
)";

/// So many of one profile that its plan and lists are shared out, too.
void WriteOneProfile(const TempFolder& folder) {
    fs::create_directories(folder.PathOf("nc"));
    folder.Write("job.toml", kOneProfile);
    for (long i = 1; i <= 600; ++i)
        folder.Write(
            Number("nc/%04ld.nc1", i),
            nc::Header(Number("M%ld", i), "Z200x2.0\n  SO", Number("%ld.00", 800 + i * 37 % 3000)) +
                "EN\n");
}

/// Main parts before and behind their parts, which other files stand between.
void WriteAssemblies(const TempFolder& folder) {
    SampleJob job;
    job.more =
        "[[assembly]]\nmain = \"L1\"\nparts = [{ mark = \"C2\" }, { mark = \"C9\", count = 3 }]\n";
    job.Write(folder);
    folder.Write("nc/0.nc1", nc::Header("C9", "C100x1.5\n  C", "700.00") + "EN\n");
    for (long i = 50; i < 90; ++i)
        folder.Write(Number("nc/2-%ld.nc1", i), nc::Plain(Number("S%ld", i)));
}

void WriteRefused(const TempFolder& folder) {
    SampleJob().Write(folder);
    folder.Write("nc/2a.nc1", nc::BadLength());
    folder.Write("nc/3.nc1", nc::Header("Q", "XX\n  SO") + "EN\n");
    folder.Write("nc/6.nc1", nc::Plain("C1"));
    folder.Write("nc/7.nc1", "nonsense");
}

void WriteWarehouse(const TempFolder& folder) {
    // Without the slash at its end, which Windows takes for another folder.
    const fs::path root = folder.PathOf("").parent_path();
    fs::copy(CAMJOB_EXAMPLES "/warehouse", root, fs::copy_options::recursive);
    fs::rename(root / "warehouse.toml", root / "job.toml");
}

struct Outcome {
    std::string report;
    std::string json;
    Files files;

    bool operator==(const Outcome&) const = default;
};

Outcome OutcomeWith(unsigned threads) {
    const std::string number = std::to_string(threads);
    fs::remove_all("out");
    const CamjobRun run =
        RunTool({"run", "job.toml", "--notes", "--out", "out", "--threads", number});
    Outcome outcome = {ReportOf(run), "", {}};
    if (fs::exists("out"))
        outcome.files = ContentOf("out");
    outcome.json =
        ReportOf(RunTool({"run", "job.toml", "--json", "--out", "out", "--threads", number}));
    return outcome;
}

TEST(Threads, AnyNumberOfThemGivesTheSame) {
    struct Case {
        const char* name;
        void (*write)(const TempFolder& folder);
        const char* part;  ///< of the report: the run is what it is meant to be
    };
    const Case cases[] = {
        {"many members",  WriteMany,       "exit code 1\n"},
        {"one profile",   WriteOneProfile, "exit code 0\n"},
        {"assemblies",    WriteAssemblies, "exit code 1\n"},
        {"refused files", WriteRefused,    "exit code 2\n"},
        {"the example",   WriteWarehouse,  "exit code 1\n"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        const TempFolder folder;
        each.write(folder);
        const CurrentFolder there(folder.PathOf(""));
        const Outcome one = OutcomeWith(1);
        ExpectParts(one.report, {each.part});
        for (const unsigned threads : kThreads)
            EXPECT_TRUE(OutcomeWith(threads) == one) << threads << " threads";
    }
}

TEST(Threads, CancelledOnTheWayTheyLeaveTheOldOutput) {
    const TempFolder folder;
    WriteMany(folder);
    RunJobFile(folder);
    folder.Write("nc/0001.nc1", nc::Plain("NEW"));
    const Files before = ContentOf(folder.PathOf("out"));
    camjob::StagingDisk disk;
    std::vector<std::string> told;
    for (const unsigned threads : kThreads) {
        TextStream out, err;
        int asked = 0;
        const int code =
            camjob::RunJob({.job = ArgumentFor(folder, "job.toml"),
                            .folder = ArgumentFor(folder, "out"),
                            .threads = threads},
                           {.disk = disk, .isCancelled = [&] { return ++asked == 120; }},
                           out,
                           err);
        EXPECT_EQ(code, 130);
        EXPECT_EQ(asked, 120);
        EXPECT_EQ(ContentOf(folder.PathOf("out")), before);
        told.push_back(out.GetText() + err.GetText());
        EXPECT_EQ(told.back(), told.front());
    }
}

TEST(Threads, ResultsComeInOrderAndFaultsInTheirTurn) {
    for (const unsigned threads : kThreads) {
        SCOPED_TRACE(threads);
        constexpr std::size_t kFault = 700;
        const std::size_t window = threads::OrderedWork::WindowOf(threads);
        std::atomic<std::size_t> taken = 0;
        std::atomic<std::size_t> begun = 0;
        std::atomic<bool> isAheadOfWindow = false;
        threads::ResultsInOrder<std::size_t> results(2000, threads, [&](std::size_t piece) {
            ++begun;
            if (piece > taken + window)
                isAheadOfWindow = true;
            if (piece == kFault)
                throw std::runtime_error("in its turn");
            return piece * piece;
        });
        for (; taken < kFault; ++taken)
            EXPECT_EQ(results.Next(), taken * taken);
        EXPECT_THROW(results.Next(), std::runtime_error);
        EXPECT_FALSE(isAheadOfWindow);
        EXPECT_LE(begun, kFault + window);
    }
}

/// Another thread takes the results, and this one works along when it has time; then it stops the
/// work.
TEST(Threads, WhoHelpsGetsNoResultsAndMayStop) {
    for (const unsigned threads : kThreads) {
        SCOPED_TRACE(threads);
        constexpr std::size_t kCount = 2000;
        constexpr std::size_t kStop = 300;
        threads::ResultsInOrder<std::size_t> all(
            kCount,
            threads,
            [](std::size_t piece) { return piece; },
            threads::OrderedWork::Taker::kIsHelped);
        std::size_t taken = 0;
        std::thread taker([&] {
            while (taken < kCount && all.Next() == taken)
                ++taken;
        });
        all.Help();
        taker.join();
        EXPECT_EQ(taken, kCount);

        std::promise<void> isThere;
        threads::ResultsInOrder<std::size_t> some(
            kCount,
            threads,
            [](std::size_t piece) { return piece; },
            threads::OrderedWork::Taker::kIsHelped);
        std::size_t before = 0;
        const auto takeAll = [&] {
            for (; before < kCount; ++before) {
                if (before == kStop)
                    isThere.set_value();
                some.Next();
            }
        };
        std::future<void> stopped = std::async(std::launch::async, takeAll);
        isThere.get_future().wait();
        some.Stop();
        some.Help();
        stopped.wait();
        EXPECT_GE(before, kStop);
        if (before < kCount) {
            EXPECT_THROW(stopped.get(), threads::OrderedWork::Stopped);
        }
    }
}

}  // namespace

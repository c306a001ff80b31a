#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "camjob/console/Interrupt.h"
#include "camjob/disk/StagedOutput.h"
#include "camjob/disk/StoppingDisk.h"
#include "camjob/run/RunCommand.h"
#include "support/Golden.h"
#include "support/SystemText.h"

#include <cstdlib>
#include <vector>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

TEST(RunCommand, TellsWhatWasMadeAndWhere) {
    const TempFolder folder;
    SampleJob().Write(folder);
    const CurrentFolder there(folder.PathOf(""));
    const CamjobRun run = RunTool({"run", "job.toml", "--out", "made/here"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/run/golden", "run", run.out));
    const Files made = ContentOf(folder.PathOf("made/here"));
    EXPECT_EQ(made.size(), 8u);

    // Once more: the same bytes. Without --out it goes where the job says.
    EXPECT_EQ(RunTool({"run", "job.toml", "--out", "made/here"}).out, run.out);
    EXPECT_EQ(RunTool({"run", "job.toml"}).exitCode, 1);
    EXPECT_EQ(ContentOf(folder.PathOf("made/here")), made);
    EXPECT_EQ(ContentOf(folder.PathOf("out")), made);
}

TEST(RunCommand, TellsItAsJson) {
    const TempFolder folder;
    SampleJob().Write(folder);
    const auto runJson = [&] {
        const CamjobRun run = RunTool({"run", "--json", ArgumentFor(folder, "job.toml")});
        EXPECT_EQ(run.err, "");
        return ApprovableJson(run.out, folder);
    };
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/run/golden", "json-done", runJson()));
    folder.Write("nc/6.nc1", nc::BadLength());
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/run/golden", "json-refused", runJson()));
}

struct Refusal {
    const char* name;
    std::vector<std::pair<std::string, std::string>> files;  ///< written over the sample's
    std::vector<std::string> messages;
};

TEST(RunCommand, RefusesFaultyInputWithAllFaultsAndWritesNothing) {
    SampleJob unknownPart;
    unknownPart.more = "[[assembly]]\nmain = \"L1\"\nparts = [{ mark = \"Q7\" }]\n";
    SampleJob noFile;
    noFile.ncFiles = "*.nc2";
    // clang-format off
    const Refusal refusals[] = {
        {"NC files among good ones",
         {{"nc/2a.nc1", nc::BadLength()}, {"nc/6.nc1", "nonsense"},
          {"nc/3.nc1", nc::Header("Q", "XX\n  SO") + "EN\n"}},
         {"nc/2a.nc1:10: length \"6236:88\"", "nc/6.nc1:1:",
          "nc/3.nc1:8: profile \"XX\", code SO: no member type of the job takes it"}},
        {"one mark twice", {{"nc/6.nc1", nc::Plain("C2")}},
         {"nc/6.nc1:5: mark \"C2\" is already that of the part in ", "nc/3.nc1"}},
        {"no mark", {{"nc/6.nc1", nc::Plain("")}}, {"nc/6.nc1:5: the part has no mark to tell it by"}},
        {"an unknown part", {{"job.toml", unknownPart.Text()}},
         {"job.toml:56:19: the assemblies name part \"Q7\", which no NC file has"}},
        {"a broken job", {{"job.toml", "[job]\nname = 1\n"}}, {"job.toml:2:"}},
        {"no NC file", {{"job.toml", noFile.Text()}}, {"job.toml:3:"}},
    };
    // clang-format on
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        const TempFolder folder;
        SampleJob().Write(folder);
        for (const auto& [file, bytes] : refusal.files)
            folder.Write(file, bytes);
        const CamjobRun run = RunJobFile(folder);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.out, "");
        ExpectParts(run.err, refusal.messages);
        ExpectParts(run.err, {"camjob: nothing was written\n"});
        EXPECT_FALSE(fs::exists(folder.PathOf("out")));
    }
}

/// A header that tells 12 pieces, with another number.
std::string WithQuantity(const std::string& quantity, std::string header) {
    return header.replace(header.find("\n  12\n"), 6, "\n  " + quantity + "\n");
}

TEST(RunCommand, NamesTheFilesOfMembersWithErrors) {
    const TempFolder folder;
    SampleJob job;
    job.reports = "sources = true\n";
    job.Write(folder);
    // More of the single part than its main part takes.
    folder.Write("nc/2.nc1",
                 WithQuantity("15", nc::Header("C1", "C100x1.5\n  C", "900.00")) + "EN\n");
    EXPECT_EQ(RunJobFile(folder).exitCode, 1);
    ExpectParts(folder.Read("out/s-errors.txt"),
                {"Part Number = L1\n          NC file    = ", "/nc/4.nc1\n          Section "});
    ExpectParts(folder.Read("out/s-warnings.txt"),
                {"Part Number = C1\n          NC file    = ",
                 "/nc/2.nc1\n          Section ",
                 "          3 no of parts are not used in any assemblies\n"});
}

// Of four pieces a bar and a remnant hold three; the next run has another remnant.
TEST(RunCommand, TellsBarsInHandAndPiecesWithoutOne) {
    const TempFolder folder;
    folder.Write("job.toml",
                 "[job]\nnc_files = [\"*.nc1\"]\n[project]\nfile_name = \"s\"\n[cutting]\n"
                 "remnants = \"rest.csv\"\n[[stock]]\nprofile = \"Z2*\"\nlength = 6000\n"
                 "quantity = 1\n[[group]]\nid = \"g\"\nnesting = true\n[[member_type]]\n"
                 "id = \"t\"\ngroup = \"g\"\nreport = { no_bar = \"warning\" }\n");
    folder.Write("1.nc1", WithQuantity("4", nc::Header("P1", "Z200x2.0\n  SO", "3000")) + "EN\n");
    const auto runWith = [&](const std::string& remnant) {
        folder.Write("rest.csv",
                     "profile,material,length,quantity,name\r\nZ200x2.0,S350GD,3100,1," + remnant);
        return RunJobFile(folder);
    };
    ExpectParts(runWith("R-7").out,
                {"1 piece of Z200x2.0, S350GD has no bar, none is long enough or left: 1 of P1\n"});
    ExpectParts(folder.Read("out/s-report.html"),
                {"remnant R-7", "7.5 m; no bar is long enough or left for 1 of P1"});
    ExpectParts(runWith("R-8").out,
                {"bars of g  2, used 98.9 %, 1 piece without a bar  2, used 98.9 %, 1 piece "
                 "without a bar, cut differently\n"});
}

TEST(RunCommand, GoesOnWithoutFilesThatTheJobLeavesOut) {
    const TempFolder folder;
    SampleJob job;
    job.more =
        "[nc]\nunreadable = \"leave_out\"\nunmatched = \"leave_out\"\n"
        "[[file]]\nid = \"info\"\nline_ends = \"crlf\"\n";
    job.Write(folder);
    folder.Write("nc/2a.nc1", nc::BadLength());
    folder.Write("nc/6.nc1", nc::Header("L1", "XX\n  SO") + "EN\n");
    const CamjobRun run = RunJobFile(folder);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.exitCode, 1);
    const std::string reasons[] = {
        "nc/2a.nc1:10: length \"6236:88\": expected a number in mm, or two separated by a comma",
        "nc/6.nc1:8: profile \"XX\", code SO: no member type of the job takes it; add or change a "
        "[[member_type]]"};
    const std::string info = folder.Read("out/s-info.txt");
    const nlohmann::json json =
        nlohmann::json::parse(RunTool({"run", "--json", ArgumentFor(folder, "job.toml")}).out);
    for (std::size_t i = 0; i < std::size(reasons); ++i) {
        ExpectParts(run.out, {"  files left out\n", reasons[i] + "\n"});
        ExpectParts(info, {"Files left out\r\n", reasons[i] + "\r\n"});
        ExpectParts(json["leftOut"][i]["message"], {reasons[i]});
    }
    EXPECT_EQ(json["members"].size(), 4u);
    // CR before each line end of this file, and in no other one.
    for (std::size_t at = 0; (at = info.find('\n', at + 1)) != std::string::npos;)
        EXPECT_EQ(info[at - 1], '\r');
    const std::string orders = folder.Read("out/s-orders.txt");
    EXPECT_EQ(orders.find('\r'), std::string::npos);
    ExpectParts(orders, {"member mark=\"A1\""});
}

/// A job's own texts have none; names of files and settings are made elsewhere.
TEST(RunCommand, EscapesControlCharactersFromElsewhere) {
    const TempFolder folder;
    SampleJob job;
    job.reports = "sources = true\n";
    job.more =
        "[nc]\nunreadable = \"leave_out\"\n"
        "[[file]]\nid = \"order\"\nproject_header = true\n";
    job.Write(folder);
    const std::string controls = "x\x7F\xC2\x85\xC2\x9Fy";
    folder.Write("nc/4" + controls + "\u202E.nc1", nc::Header("L2") + "EN\n");
    folder.Write("nc/7" + controls + ".nc1", nc::BadLength());
    std::filesystem::create_directories(folder.PathOf("out"));
    folder.Write("out/project-settings.txt",
                 "+s\n+1" + controls + "\x1B\f\n+\n+one\r\ntwo\n+\n+\n+\n+\n");
    EXPECT_EQ(RunJobFile(folder).exitCode, 1);
    const std::string escaped = "x\\u007F\\u0085\\u009Fy";
    ExpectParts(folder.Read("out/s-orders.txt"), {": 1" + escaped + "\\u001B\\u000C\n", ": one\n"});
    ExpectParts(folder.Read("out/s-errors.txt"), {"4" + escaped + "\u202E.nc1\n"});
    ExpectParts(folder.Read("out/s-info.txt"), {"7" + escaped + ".nc1:10"});
    const std::string text =
        RunTool(
            {"run", "--json", ArgumentFor(folder, "job.toml"), "--out", ArgumentFor(folder, "out")})
            .out;
    ExpectParts(text, {"nc/4" + escaped + "\\u202E.nc1\""});
    EXPECT_EQ(text.find(controls), std::string::npos);
    const nlohmann::json json = nlohmann::json::parse(text);
    ExpectParts(json["leftOut"][0]["file"], {"7" + controls + ".nc1"});
    // A mark may not have them, whatever it is taken from.
    SampleJob marked;
    marked.more = "[nc]\nmark = \"file_name\"\n";
    folder.Write("job.toml", marked.Text());
    const CamjobRun run = RunJobFile(folder);
    EXPECT_EQ(run.exitCode, 2);
    ExpectParts(run.err, {"expected a name without control characters, for it is the mark"});
}

TEST(RunCommand, DoesNotReplaceItsOwnInput) {
    const TempFolder folder;
    SampleJob job;
    job.more = "[[file]]\nid = \"x\"\nending = \".toml\"\n";
    job.Write(folder, "s.toml");
    const CamjobRun run = RunJobFile(folder, "s.toml", "");
    EXPECT_EQ(run.exitCode, 2);
    ExpectParts(run.err, {"s.toml: the output would replace this file"});
    EXPECT_EQ(folder.Read("s.toml"), job.Text());
    job.more += "format = \"out/s.toml\"\n";
    job.Write(folder);
    fs::create_directory(folder.PathOf("out"));
    folder.Write("out/s.toml", "[[line]]\nfor = [\"hole\"]\ntext = []\n");
    ExpectParts(RunJobFile(folder).err, {"out/s.toml: the output would replace this file"});
}

/// The name of an output in capitals: one file or two, as the file system has it.
TEST(RunCommand, KnowsItsInputByLettersOfAnotherCase) {
    const TempFolder folder;
    SampleJob job;
    job.ncFiles += "\", \"out/S-OWN.txt";
    job.Write(folder);
    fs::create_directory(folder.PathOf("out"));
    folder.Write("out/S-OWN.txt", nc::Plain("A2"));
    const bool isOneFile = fs::exists(folder.PathOf("out/s-own.txt"));
    const CamjobRun run = RunJobFile(folder);
    EXPECT_EQ(run.exitCode, isOneFile ? 2 : 1) << run.err;
    EXPECT_EQ(folder.Read("out/S-OWN.txt"), nc::Plain("A2"));
}

#ifndef _WIN32
TEST(RunCommand, KnowsItsInputBehindALink) {
    const TempFolder folder;
    SampleJob().Write(folder);
    fs::create_directory(folder.PathOf("out"));
    folder.Write("out/s-own.txt", nc::Plain("A1"));
    fs::create_symlink("../out/s-own.txt", folder.PathOf("nc/6.nc1"));
    const CamjobRun run = RunJobFile(folder);
    EXPECT_EQ(run.exitCode, 2);
    ExpectParts(run.err, {"6.nc1: the output would replace this file"});
    EXPECT_EQ(folder.Read("out/s-own.txt"), nc::Plain("A1"));
}
#endif

/// Runs the sample job with a disk, or an answer to whether it is cancelled, of the test's own.
CamjobRun RunSample(const TempFolder& folder,
                    camjob::StagingDisk& disk,
                    const std::function<bool()>& isCancelled) {
    TextStream out;
    TextStream err;
    const int code = camjob::RunJob({ArgumentFor(folder, "new.toml"), ArgumentFor(folder, "out")},
                                    {.disk = disk, .isCancelled = isCancelled},
                                    out,
                                    err);
    return {code, out.GetText(), err.GetText()};
}

/// The output of an earlier job in the folder "out", and what a newer one would make of it.
struct OldAndNew {
    Files oldFiles;
    Files newFiles;

    explicit OldAndNew(const TempFolder& folder) {
        SampleJob().Write(folder, "old.toml");
        SampleJob newer;
        newer.number = "2";
        newer.ownFile = "later";
        newer.Write(folder, "new.toml");
        RunJobFile(folder, "old.toml");
        RunJobFile(folder, "new.toml", "other");
        oldFiles = ContentOf(folder.PathOf("out"));
        newFiles = ContentOf(folder.PathOf("other"));
    }
};

/// A saw would make one bar too few of what such a planner plans.
TEST(RunCommand, RefusesAWrongPlan) {
    const TempFolder folder;
    OldAndNew files(folder);
    SampleJob newer;
    newer.number = "2";
    newer.more = "[[stock]]\nprofile = \"C*\"\nlength = 6000\n";
    newer.Write(folder, "new.toml");
    camjob::StagingDisk disk;
    const auto run = [&](const cutting::Planner& planner) {
        TextStream out, err;
        const int code = camjob::RunJob(
            {ArgumentFor(folder, "new.toml"), ArgumentFor(folder, "out")},
            {.disk = disk, .isCancelled = [] { return false; }, .planLeast = planner},
            out,
            err);
        return CamjobRun{code, out.GetText(), err.GetText()};
    };
    const CamjobRun wrong = run([](const auto& demand, const auto& stocks, const auto& effort) {
        cutting::Plan plan = cutting::MakeLeastPlan(demand, stocks, effort);
        plan.bars.pop_back();
        return plan;
    });
    EXPECT_EQ(wrong.exitCode, 4);
    EXPECT_EQ(wrong.out, "");
    ExpectParts(wrong.err,
                {"a cutting plan is wrong: C100x1.5, S350GD: Mark 1: 0 pieces instead of",
                 "this is a fault of this program; the output in",
                 "is as it was"});
    EXPECT_EQ(ContentOf(folder.PathOf("out")), files.oldFiles);
    EXPECT_EQ(run(&cutting::MakeLeastPlan).exitCode, 1);
    EXPECT_NE(ContentOf(folder.PathOf("out")), files.oldFiles);
}

TEST(RunCommand, CancelledAtAnyMomentItLeavesTheOldOutput) {
    const TempFolder folder;
    const OldAndNew files(folder);
    camjob::StagingDisk disk;
    int moment = 1;
    for (;; ++moment) {
        SCOPED_TRACE(moment);
        int asked = 0;
        const CamjobRun run = RunSample(folder, disk, [&] { return ++asked == moment; });
        if (asked < moment)
            break;
        EXPECT_EQ(run.exitCode, 130);
        EXPECT_EQ(run.out, "");
        ExpectParts(run.err, {"camjob: stopped; the output in ", " is as it was\n"});
        EXPECT_EQ(ContentOf(folder.PathOf("out")), files.oldFiles);
    }
    // Before each of five files, each of four members, and before the commit.
    EXPECT_EQ(moment, 11);
    EXPECT_EQ(ContentOf(folder.PathOf("out")), files.newFiles);
}

TEST(RunCommand, AnOutputThatCannotBeWrittenEndsWithItsOwnCode) {
    const TempFolder folder;
    const OldAndNew files(folder);
    camjob::StagingDisk disk;
    const auto never = [] { return false; };
    const auto expectFailure = [&](const CamjobRun& run, const std::string& message) {
        EXPECT_EQ(run.exitCode, 3);
        EXPECT_EQ(run.out, "");
        ExpectParts(run.err, {message});
        EXPECT_EQ(ContentOf(folder.PathOf("out")), files.oldFiles);
    };
    {
        camjob::StagedOutput other(folder.PathOf("out"), disk);
        other.Begin();
        expectFailure(RunSample(folder, disk, never), "another camjob is writing to this folder");
    }
    struct FullDisk : camjob::StagingDisk {
        std::error_code FlushFile(const fs::path&) override {
            return std::make_error_code(std::errc::no_space_on_device);
        }
    } full;
    expectFailure(RunSample(folder, full, never),
                  "cannot be written (" + SystemText(std::errc::no_space_on_device) + ")");
    folder.Write("file", "text");
    const CamjobRun run = RunJobFile(folder, "new.toml", "file");
    EXPECT_EQ(run.exitCode, 3);
    ExpectParts(run.err, {"file: the output needs a folder, and this is a file\n"});
}

#ifndef _WIN32
/// While it lives, no file grows beyond a size, as on a disk that is full.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t size) : m_action(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit limit = {size, m_limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_action);
    }

  private:
    void (*m_action)(int);
    rlimit m_limit = {};
};

TEST(RunCommand, AFullDiskLeavesTheOldOutput) {
    const TempFolder folder;
    const OldAndNew files(folder);
    CamjobRun run;
    {
        const FileSizeLimit limit(files.newFiles.at("s-orders.txt").size() / 2);
        run = RunJobFile(folder, "new.toml");
    }
    EXPECT_EQ(run.exitCode, 3);
    ExpectParts(
        run.err,
        {"s-orders.txt: cannot be written (" + SystemText(std::errc::file_too_large) + ")\n"});
    EXPECT_EQ(ContentOf(folder.PathOf("out")), files.oldFiles);
    EXPECT_FALSE(fs::exists(folder.PathOf("out") / ".camjob" / "staging"));
}

/// A user without rights, for as long as it lives.
class OrdinaryUser {
  public:
    OrdinaryUser() { m_isOther = geteuid() == 0 && seteuid(kNobody) == 0; }
    ~OrdinaryUser() { EXPECT_TRUE(!m_isOther || seteuid(0) == 0); }

  private:
    static constexpr uid_t kNobody = 65534;

    bool m_isOther;
};

TEST(RunCommand, AnUnwritableFolderStaysAsItIs) {
    const TempFolder folder;
    const OldAndNew files(folder);
    const fs::path out = folder.PathOf("out");
    fs::create_directory(folder.PathOf("empty"));
    for (const fs::path& path :
         {out, out / ".camjob", out / ".camjob" / "lock", folder.PathOf("empty")})
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::remove);
    CamjobRun inOld;
    CamjobRun inEmpty;
    {
        const OrdinaryUser user;
        inOld = RunJobFile(folder, "new.toml");
        inEmpty = RunJobFile(folder, "new.toml", "empty");
    }
    EXPECT_EQ(inOld.exitCode, 3);
    const std::string denied = SystemText(std::errc::permission_denied);
    ExpectParts(inOld.err, {"out: the folder cannot be written to (" + denied + ")\n"});
    EXPECT_EQ(inEmpty.exitCode, 3);
    ExpectParts(inEmpty.err, {".camjob: the folder cannot be made (" + denied + ")\n"});
    EXPECT_EQ(ContentOf(out), files.oldFiles);
    EXPECT_TRUE(fs::is_empty(folder.PathOf("empty")));
    for (const fs::path& path : {out, out / ".camjob", folder.PathOf("empty")})
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
}

TEST(RunCommand, CtrlCIsOnlyNotedOnce) {
    const camjob::Interrupt interrupt;
    EXPECT_FALSE(interrupt.WasRequested());
    std::raise(SIGINT);
    EXPECT_TRUE(interrupt.WasRequested());
    EXPECT_EXIT(std::raise(SIGINT), ::testing::KilledBySignal(SIGINT), "");
}
#endif

/// A process that ends hard: instead of one of the changes of the output, or (below 0) at one of
/// the questions whether it is cancelled.
class KilledRun : public ::testing::TestWithParam<int> {};

TEST_P(KilledRun, LeavesOldOrNewForTheNextStart) {
    const TempFolder folder{TempFolder::Shared()};
    const OldAndNew files(folder);
    const int moment = GetParam();
    StoppingDisk disk(moment, StoppingDisk::Stop::kEnd);
    int asked = 0;
    const auto question = [&] {
        if (++asked == -moment)
            std::_Exit(StoppingDisk::kEndCode);
        return false;
    };
    EXPECT_EXIT(
        RunSample(folder, disk, question), ::testing::ExitedWithCode(StoppingDisk::kEndCode), "");
    const bool isRecorded = fs::exists(folder.PathOf("out") / ".camjob" / "commit");
    // The next start need not come to anything itself.
    folder.Write("nc/6.nc1", nc::BadLength());
    const CamjobRun next = RunJobFile(folder, "old.toml");
    EXPECT_EQ(next.exitCode, 2);
    const char* message = "camjob: finished the output of an earlier run in ";
    EXPECT_EQ(next.err.find(message) != std::string::npos, isRecorded) << next.err;
    const Files now = ContentOf(folder.PathOf("out"));
    EXPECT_TRUE(now == files.newFiles || (!isRecorded && now == files.oldFiles));
    EXPECT_FALSE(fs::exists(folder.PathOf("out") / ".camjob" / "staging"));
}

INSTANTIATE_TEST_SUITE_P(Moments,
                         KilledRun,
                         ::testing::Values(-7, -9, 1, 3, 5, 9, 12, 13, 14, 16, 17, 18, 21, 22, 24));

}  // namespace

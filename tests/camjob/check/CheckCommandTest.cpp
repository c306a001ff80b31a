#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "camjob/check/CheckCommand.h"
#include "support/Golden.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <utility>

namespace {

/// Files of each fate, judged by the sample job, which also codes rectangular openings.
CamjobRun CheckByJob(const TempFolder& folder, std::vector<std::string> arguments) {
    SampleJob job;
    job.more = "[[hole_rule]]\nid = \"opening\"\nshape = \"rectangle\"\ncode = \"R\"\n";
    job.Write(folder);
    folder.Write("nc/6.nc1", nc::Header("Q", "XX\n  SO") + "EN\n");
    folder.Write(
        "nc/7.nc1",
        nc::Header("W", "Z200x2.0\n  SO", "1500.00") +
            "BO\n  v 700.00 90.00 0.00 0.00l 30.00 20.00 0.00\nIK\n  v 900.00u 80.00 0.00\n"
            "  900 120\n  960 120\n  960 80\n  900 80\nEN\n");
    arguments.insert(arguments.begin(), {"check", "--job", ArgumentFor(folder, "job.toml")});
    for (const char* file : {"nc/1.nc1", "nc/4.nc1", "nc/5.nc1", "nc/6.nc1", "nc/7.nc1"})
        arguments.push_back(ArgumentFor(folder, file));
    return RunTool(arguments);
}

TEST(CheckByJob, ShowsTheBlocksOfTheLibrary) {
    const TempFolder folder;
    const CamjobRun run = CheckByJob(folder, {});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/check/golden",
                              "by-job",
                              WithoutFolder(run.out + "---- stderr\n" + run.err, folder)));
}

TEST(CheckByJob, TellsTheJudgementAsJson) {
    const TempFolder folder;
    const std::string document = ApprovableJson(CheckByJob(folder, {"--json"}).out, folder);
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/check/golden", "by-job-json", document));
}

TEST(CheckByJob, AFaultyJobEndsItAtOnce) {
    const TempFolder folder;
    folder.Write("job.toml", "[job]\nnam = 1\n");
    const CamjobRun run =
        RunTool({"check", "--job", ArgumentFor(folder, "job.toml"), ArgumentFor(folder, "x.nc1")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("job.toml:2:1: "), std::string::npos) << run.err;
}

// ---- lists of names -----------------------------------------------------------------------------

TEST(CheckLists, EachNameIsCheckedOnce) {
    struct Case {
        std::string list;
        std::vector<std::string> arguments;
        std::vector<std::string> files;  ///< reported, in this order
        int exitCode;
    };
    const std::vector<std::string> fromList = {"--files-from", "list"};
    const std::string partedByNul("a.nc1\0b.nc1\0", 12);
    const Case cases[] = {
        {"a.nc1\nb.nc1\n",                     fromList,                          {"a.nc1", "b.nc1"},                               0},
        {"\xEF\xBB\xBF"
         "a.nc1\r\n\r\nb.nc1",        fromList,
         {"a.nc1", "b.nc1"},
         0                                                                                                                           },
        {"b.nc1\n",                            {"a.nc1", "--files-from", "list"}, {"a.nc1", "b.nc1"},                               0},
        {"bad.nc1\nfolder\ngone.nc1\na.nc1\n",
         fromList,                                                                {"bad.nc1", "folder/c.nc1", "gone.nc1", "a.nc1"},
         2                                                                                                                           },
        {partedByNul,                          fromList,                          {"list"},                                         2},
        {"",                                   fromList,                          {},                                               0},
        {"",                                   {"--files-from", "none"},          {"none"},                                         2},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.list);
        const TempFolder folder;
        std::filesystem::create_directory(folder.PathOf("folder"));
        for (const char* file : {"a.nc1", "b.nc1", "folder/c.nc1"})
            folder.Write(file, nc::Plain());
        folder.Write("bad.nc1", nc::BadLength());
        folder.Write("list", each.list);
        const CurrentFolder current(folder.PathOf("."));
        std::vector<std::string> arguments = {"check", "--jsonl"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const CamjobRun run = RunTool(arguments);
        EXPECT_EQ(run.exitCode, each.exitCode);
        std::vector<nlohmann::json> documents = DocumentsIn(run.out);
        ASSERT_EQ(documents.size(), each.files.size() + 1) << run.out;
        const long read = documents.back()["summary"]["filesRead"];
        const long refused = documents.back()["summary"]["filesRefused"];
        EXPECT_EQ(read + refused, static_cast<long>(each.files.size()));
        for (std::size_t i = 0; i < each.files.size(); ++i)
            EXPECT_EQ(documents[i]["file"], each.files[i]);
    }
}

/// Lines that come one by one, each when what was asked for before is out.
class OneByOne : public std::streambuf {
  public:
    OneByOne(std::vector<std::string> lines, TextStream& out)
        : m_lines(std::move(lines)), m_out(out) {}
    std::vector<long> m_outBefore;  ///< lines of the report before each of these

  private:
    int_type underflow() override {
        const std::string& text = m_out.GetText();
        m_outBefore.push_back(static_cast<long>(std::count(text.begin(), text.end(), '\n')));
        if (m_at == m_lines.size())
            return traits_type::eof();
        std::string& line = m_lines[m_at++];
        setg(line.data(), line.data(), line.data() + line.size());
        return traits_type::to_int_type(line[0]);
    }

    std::vector<std::string> m_lines;
    std::size_t m_at = 0;
    TextStream& m_out;
};

TEST(CheckLists, EachFileIsToldBeforeTheNextNameIsRead) {
    const TempFolder folder;
    folder.Write("a.nc1", nc::Plain());
    const std::string line = ArgumentFor(folder, "a.nc1") + "\n";
    TextStream out;
    TextStream err;
    OneByOne names({line, line, line}, out);
    std::streambuf* const before = std::cin.rdbuf(&names);
    const int code = camjob::RunCamjob({"check", "--files-from", "-", "--jsonl"}, out, err);
    std::cin.rdbuf(before);
    std::cin.clear();
    EXPECT_EQ(code, 0);
    EXPECT_EQ(names.m_outBefore, (std::vector<long>{0, 1, 2, 3}));
    EXPECT_EQ(DocumentsIn(out.GetText()).size(), 4u);
}

TEST(CheckLists, ALineSaysWhatTheDocumentSays) {
    const TempFolder folder;
    const auto document = nlohmann::json::parse(CheckByJob(folder, {"--json"}).out);
    std::vector<nlohmann::json> lines = DocumentsIn(CheckByJob(folder, {"--jsonl"}).out);
    ASSERT_EQ(lines.size(), document["files"].size() + 1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i]["schema"], document["schema"]);
        lines[i].erase("schema");
        if (i + 1 < lines.size())
            EXPECT_EQ(lines[i], document["files"][i]);
        else
            EXPECT_EQ(lines[i]["summary"], document["summary"]);
    }
}

}  // namespace

#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "support/Golden.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace {

/// A member with holes, a slot and a text.
std::string Member(const std::string& mark, const std::string& features) {
    return nc::Header(mark, "Z200x2.0\n  SO", "1500.00") + "BO\n" + features + "EN\n";
}

/// A purlin with a corner cut off at its end.
std::string Coped(double length) {
    const auto text = [](double x) { return std::to_string(static_cast<long>(x)) + ".00"; };
    return nc::Header("M3", "Z200x2.0\n  SO", text(length)) + "AK\n  v 0.00u 0.00 0.00\n    " +
           text(length) + " 0.00 0.00\n    " + text(length) + " 150.00 0.00\n    " +
           text(length - 60.0) + " 150.00 0.00\n    " + text(length - 60.0) +
           " 200.00 0.00\n    0.00 200.00 0.00\n    0.00 0.00 0.00\nEN\n";
}

/// With further lines, without the assembly, whose members these jobs have not.
void WriteAlone(const SampleJob& job, const TempFolder& folder) {
    std::string text = job.Text();
    const std::size_t assembly = text.find("[[assembly]]");
    text.erase(assembly, text.size() - job.more.size() - assembly);
    folder.Write("job.toml", text);
}

/// Yesterday's job.
SampleJob WriteOld(const TempFolder& folder) {
    SampleJob job;
    job.Write(folder);
    folder.Write("nc/6.nc1",
                 Member("M1",
                        "  v 100.00 50.00 18.00\n  v 300.00 50.00 18.00\n  v 500.00 50.00 18.00\n"
                        "  v 700.00 50.00 14.00\n  v 900.00 99.00 18.00 0.00l 40.00 0.00 0.00\n"));
    folder.Write("nc/7.nc1", nc::Plain("R<1>"));
    folder.Write("nc/9.nc1",
                 Member("M2",
                        "  v 1000.00 50.00 14.00\n  v 1100.00 50.00 14.00\n"
                        "  v 1200.00 50.00 14.00\n"));
    return job;
}

/// Features moved, recoded, changed, added and removed; members that came and went; other values.
void Revise(const TempFolder& folder, const SampleJob& job) {
    std::string text = job.Text();
    text.replace(text.find("\"X\""), 3, "\"Y\"");
    folder.Write("job.toml", text);
    folder.Write("nc/3.nc1", nc::Header("C2", "C100x1.5\n  C", "1400.00") + "EN\n");
    folder.Write("nc/4.nc1", nc::Header("L1", "Z200x2.0\n  SO", "1900.00") + "EN\n");
    folder.Write("nc/6.nc1",
                 Member("M1",
                        "  v 100.00 50.00 18.00\n  v 320.00 50.00 18.00\n  v 500.00 50.00 20.00\n"
                        "  v 700.00 50.00 14.00\n  o 900.00 30.00 18.00\n"));
    std::filesystem::remove(folder.PathOf("nc/7.nc1"));
    folder.Write("nc/8.nc1", nc::Plain("N1"));
    // A row that moves as a whole, all but past itself.
    folder.Write("nc/9.nc1",
                 Member("M2",
                        "  v 930.00 50.00 14.00\n  v 1030.00 50.00 14.00\n"
                        "  v 1130.00 50.00 14.00\n"));
}

TEST(CompareCommand, TellsWhatDiffers) {
    const TempFolder folder;
    const SampleJob job = WriteOld(folder);
    const CurrentFolder there(folder.PathOf(""));
    EXPECT_EQ(RunTool({"run", "job.toml", "--out", "old"}).exitCode, 1);
    EXPECT_EQ(RunTool({"run", "job.toml", "--out", "out"}).exitCode, 1);
    Revise(folder, job);

    // The output that is replaced is the one to compare with. A run that is repeated tells the
    // same.
    const CamjobRun run = RunTool({"run", "job.toml", "--out", "out"});
    EXPECT_NE(run.out.find("against out/s-run.json: "), std::string::npos) << run.out;
    const std::string written = folder.Read("out/s-run.json");
    const nlohmann::json document = nlohmann::json::parse(written);
    const CamjobRun again = RunTool({"run", "job.toml", "--out", "out"});
    EXPECT_NE(
        again.out.find("nothing has changed since the last run, which told:\nagainst the output "
                       "that was replaced: "),
        std::string::npos)
        << again.out;
    EXPECT_EQ(folder.Read("out/s-run.json"), written);

    const CamjobRun compared = RunTool({"compare", "old", "out"});
    const CamjobRun json = RunTool({"compare", "old", "out/s-run.json", "--json"});
    EXPECT_TRUE(MatchesGolden(
        CAMJOB_GOLDEN_FOLDER "/compare/golden", "compared", ReportOf(compared) + ReportOf(json)));
    nlohmann::json told = nlohmann::json::parse(json.out);
    for (const char* key : {"schema", "newer"})
        told.erase(key);
    told["against"] = "s-run.json";
    EXPECT_EQ(told, document["changes"]);

    // Also where neither the document nor the page would need it.
    std::string text = folder.Read("job.toml");
    folder.Write("job.toml", text.insert(text.find("html = "), "run_document = false\n"));
    const CamjobRun asked = RunTool({"run", "job.toml", "--out", "none", "--against", "old"});
    EXPECT_NE(asked.out.find(compared.out.substr(compared.out.find(": "))), std::string::npos)
        << asked.out;
    EXPECT_EQ(RunTool({"compare", "out", "out"}).out, "against out: nothing has changed\n");
}

TEST(CompareCommand, RefusesWhatIsNoOutput) {
    const TempFolder folder;
    WriteOld(folder);
    const CurrentFolder there(folder.PathOf(""));
    RunTool({"run", "job.toml", "--out", "out"});
    std::string document = folder.Read("out/s-run.json");
    folder.Write("cut-run.json", document.substr(0, document.size() / 2));
    document.replace(document.find("camjob-run/"), 12, "camjob-run/0");
    folder.Write("other.json", document);
    folder.Write("refused.json", RunTool({"run", "job.toml", "--json", "--against", "nc"}).out);
    folder.Write("list.json", "[]");
    std::filesystem::create_directories(folder.PathOf("two"));
    folder.Write("two/a-run.json", "");
    folder.Write("two/b-run.json", "");
    const std::pair<const char*, const char*> cases[] = {
        {"nowhere",      "camjob: nowhere: cannot be read\n"                                   },
        {"nc",           "camjob: nc: no output of a run: no file in it ends in -run.json\n"   },
        {"two",          "camjob: two: several outputs: name the file that ends in -run.json\n"},
        {"cut-run.json", "camjob: cut-run.json: is not the document of a run\n"                },
        {"list.json",    "camjob: list.json: is not the document of a run\n"                   },
        {"other.json",
         "camjob: other.json: is of another version (camjob-run/0, not camjob-run/2)\n"        },
        {"refused.json", "camjob: refused.json: tells of a run without an output\n"            },
    };
    const std::string before = folder.Read("out/s-run.json");
    for (const auto& [name, message] : cases) {
        SCOPED_TRACE(name);
        for (const CamjobRun& run :
             {RunTool({"compare", name, "out"}), RunTool({"compare", "out", name})}) {
            EXPECT_EQ(run.exitCode, 2);
            EXPECT_EQ(run.out + run.err, message);
        }
        const CamjobRun run = RunTool({"run", "job.toml", "--against", name});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.out + run.err, message + std::string("camjob: nothing was written\n"));
    }
    EXPECT_EQ(folder.Read("out/s-run.json"), before);

    // An earlier output that cannot be read is no reason not to replace it.
    folder.Write("out/s-run.json", "[]");
    const CamjobRun run = RunTool({"run", "job.toml", "--out", "out"});
    EXPECT_EQ(
        run.err,
        "camjob: out/s-run.json: is not the document of a run; what has changed is not told\n");
    EXPECT_EQ(folder.Read("out/s-run.json"), before);
}

TEST(CompareCommand, AnOutlineIsChanged) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.PathOf("nc"));
    SampleJob job;
    job.ncFiles = "nc/1*.nc1";
    WriteAlone(job, folder);
    const CurrentFolder there(folder.PathOf(""));
    for (const double length : {1500.0, 1600.0}) {
        folder.Write("nc/10.nc1", Coped(length));
        RunTool({"run", "job.toml", "--out", "of" + std::to_string(static_cast<long>(length))});
    }
    const std::string out = RunTool({"compare", "of1500", "of1600"}).out;
    EXPECT_NE(out.find("web: outline changed  1500 x 200 at"), std::string::npos) << out;
    EXPECT_EQ(out.find("outline removed"), std::string::npos) << out;
}

TEST(CompareCommand, TellsHowBarsAreCut) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.PathOf("nc"));
    SampleJob job;
    job.ncFiles = "nc/C*.nc1";
    folder.Write("nc/CA.nc1", nc::Header("A", "C100x1.5\n  C", "3000.00") + "EN\n");
    folder.Write("nc/CB.nc1", nc::Header("B", "C100x1.5\n  C", "2990.00") + "EN\n");
    const CurrentFolder there(folder.PathOf(""));
    const auto run = [&](const std::string& more) {
        job.more = "[[stock]]\nprofile = \"C*\"\nlength = 6000.0\n" + more;
        WriteAlone(job, folder);
        return RunTool({"run", "job.toml", "--out", "out"}).out;
    };
    run("");
    const std::pair<const char*, const char*> cases[] = {
        {"kerf = 5.0\n",   "12, used 99.8 %  12, used 99.8 %, cut differently"      },
        {"quantity = 8\n", "12, used 99.8 %  8, used 99.9 %, 8 pieces without a bar"},
        {"",               "8, used 99.9 %, 8 pieces without a bar  12, used 99.8 %"},
        {"quantity = 8\n", "12, used 99.8 %  8, used 99.9 %, 8 pieces without a bar"},
    };
    for (const auto& [more, wanted] : cases) {
        const std::string out = run(more);
        EXPECT_NE(out.find(std::string("bars of struts  ") + wanted), std::string::npos) << out;
    }
    // The members that lack bars, wherever they are told.
    const nlohmann::json document = nlohmann::json::parse(folder.Read("out/s-run.json"));
    long uncut = 0;
    long told = 0;
    for (const nlohmann::json& member : document["members"])
        for (const nlohmann::json& finding : member["findings"])
            if (finding["type"] == "no_bar") {
                EXPECT_TRUE(member["valid"] && member["warnings"]);
                uncut += finding["required"].get<long>() - finding["found"].get<long>();
                ++told;
            }
    EXPECT_EQ(uncut, document["bars"][0]["uncut"]);
    EXPECT_EQ(told, document["groups"][0]["withWarnings"]);
}

}  // namespace

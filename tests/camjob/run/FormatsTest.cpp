#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "camjob/NcFiles.h"
#include "support/Golden.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

// The three machines of the examples: every byte of their files.
TEST(Formats, FilesOfTheExamplesAreTheApprovedOnes) {
    const TempFolder folder;
    for (const char* example : {"warehouse", "formats"})
        fs::copy(std::string(CAMJOB_EXAMPLES "/") + example,
                 folder.PathOf(example),
                 fs::copy_options::recursive);
    const CurrentFolder current(folder.PathOf("formats"));
    EXPECT_EQ(RunTool({"run", "formats.toml", "--out", "made"}).exitCode, 1);
    EXPECT_TRUE(MatchesGoldenFolder(CAMJOB_GOLDEN_FOLDER "/run/golden/formats",
                                    folder.PathOf("formats/made")));
}

// Y from the opposite edge, where the face really ends.
TEST(Formats, FacesAreMirroredWhereTheyEnd) {
    struct Case {
        std::string file;
        std::string type;  ///< keys of its member type
        std::string face;
        std::string y;  ///< of its first hole
    };
    const Case cases[] = {
        {"Z200-purlin", "",                                               "top_flange", "35.0" },
        {"Z200-purlin", "top_flange = { zero = 64.0 }",                   "top_flange", "35.0" },
        {"Z200-purlin", "top_flange = { zero = 142.0, reversed = true }", "top_flange", "107.0"},
        {"Z200-purlin",
         "top_flange = { zero = 64.0 }\nattributes = { height = 200.0, top_flange = 74.0, "
         "bottom_flange = 66.0, thickness = 2.0 }",                       "top_flange",
         "31.0"                                                                                },
        {"plate",       "",                                               "top_flange", "6.0"  },
        {"CHS114-tube", "",                                               "web",        "299.5"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.file + " " + each.type);
        const TempFolder folder;
        folder.Write(
            "f.toml",
            "[[face]]\nface = \"" + each.face +
                "\"\nmirror_y = true\n[[line]]\nfor = [\"hole\"]\nfaces = [\"" + each.face +
                "\"]\ntext = [\"{y:.1f}\"]\n[[line]]\nfor = [\"hole\", \"mitre\"]\ntext = []\n");
        if (each.file == "plate")
            folder.Write(
                "part.nc1",
                "ST\n  O\n  D\n  1\n  PL\n  S355\n  1\n  PL10\n  B\n  200\n  100\n  0\n  10\n  "
                "10\n  0\n  0\n  0\n  0\n  0\n  0\n  0\nBO\n  o 100u 4 4\nEN\n");
        else
            fs::copy(CAMJOB_EXAMPLES "/nc/" + each.file + ".nc1", folder.PathOf("part.nc1"));
        folder.Write(
            "job.toml",
            "[job]\nnc_files = [\"part.nc1\"]\n[project]\nfile_name = \"j\"\n[[file]]\n"
            "id = \"order\"\nending = \".txt\"\nformat = \"f.toml\"\n[[group]]\nid = \"g\"\n"
            "[[member_type]]\nid = \"t\"\ngroup = \"g\"\n" +
                each.type + "\n[[hole_rule]]\nid = \"h\"\nshape = \"round\"\ncode = \"H\"\n");
        const CurrentFolder current(folder.PathOf("."));
        const CamjobRun run = RunTool({"run", "job.toml", "--out", "made"});
        EXPECT_NE(run.exitCode, 2) << run.out << run.err;
        const std::string orders = folder.Read("made/j.txt");
        EXPECT_EQ(orders.substr(0, orders.find('\n')), each.y) << orders << run.err;
    }
}

// A countersink with its hole, which is there twice, and another hole. Of an outline the trim has
// no line, but its notch has.
TEST(Formats, WhatNoFileSaysIsNotForTheMachine) {
    const TempFolder folder;
    folder.Write(
        "f.toml",
        "[[line]]\nfor = [\"hole\", \"countersunk\", \"trim\"]\ntext = []\n[[line]]\nfor = "
        "[\"slot\", \"notch\"]\ntext = [\"{kind} {number}\"]\n");
    folder.Write("part.nc1",
                 nc::Header("P1", "Z200x2.0\n  SO", "1000") +
                     "BO\n  v 500 100 13\n  v 500 100s 26 3\n  v 500 100 13\n  v 600 100 18\n"
                     "  v 700 100 18 0l 20 0 0\nAK\n  v 0 0\n  900 0\n  900 150\n  850 150\n"
                     "  850 200\n  0 200\n  0 0\nEN\n");
    folder.Write("job.toml",
                 "[job]\nnc_files = [\"part.nc1\"]\n[project]\nfile_name = \"j\"\nnumber = \"26\"\n"
                 "[uncovered_notches]\naction = \"accept\"\ncode = \"N\"\n"
                 "[[trim]]\nid = \"saw\"\ncode = \"W\"\n[[file]]\n"
                 "id = \"m\"\nending = \".m\"\nformat = \"f.toml\"\n[[group]]\nid = \"g\"\n"
                 "files = [\"m\"]\n[uncovered_holes]\naction = \"accept\"\ncode = \"H\"\n"
                 "[[member_type]]\nid = \"t\"\ngroup = \"g\"\n");
    const CurrentFolder current(folder.PathOf("."));
    const CamjobRun run = RunTool({"run", "job.toml", "--out", "made", "--json"});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    ExpectParts(
        run.out,
        {"\"accounts\":{\"made\":2,\"refused\":0,\"not_made\":0,\"set_aside\":1,\"noted\":0,"
         "\"not_for_machine\":3}",
         "not for this machine: 3 features; "});
    EXPECT_EQ(folder.Read("made/j.m"), "slot 26\nnotch 26\n");
}

// A mitre, a trim, a countersink with its hole, and a mark that is too long for its column.
TEST(Formats, WhatAFormatCannotSayIsRefused) {
    const TempFolder folder;
    folder.Write("f.toml",
                 "[format]\nfixed_columns = true\n[[line]]\nfor = [\"member\"]\n"
                 "text = [\"{mark:>3}\"]\n[[line]]\nfor = [\"hole\"]\ntext = [\"{kind}\"]\n");
    const std::string blocks =
        "BO\n  v 500 100 13\n  v 500 100s 26 3\n  v 600 100 18\nAK\n  v 0 0\n  900 0\n  900 200\n"
        "  0 200\n  0 0\nSC\n  0 200 0 -1 -1 0\nEN\n";
    folder.Write("1.nc1", nc::Header("P1", "Z200x2.0\n  SO", "1000") + blocks);
    folder.Write("2.nc1", nc::Header("LONG", "Z200x2.0\n  SO", "1000") + "EN\n");
    folder.Write("job.toml",
                 "[job]\nnc_files = [\"*.nc1\"]\n[project]\nfile_name = \"j\"\n[[trim]]\n"
                 "id = \"saw\"\ncode = \"W\"\n[[file]]\nid = \"m\"\nending = \".m\"\n"
                 "format = \"f.toml\"\n[[group]]\nid = \"g\"\n"
                 "files = [\"m\"]\n[uncovered_holes]\naction = \"accept\"\ncode = \"H\"\n"
                 "[[member_type]]\nid = \"t\"\ngroup = \"g\"\n");
    const CurrentFolder current(folder.PathOf("."));
    const CamjobRun run = RunTool({"run", "job.toml", "--out", "made"});
    EXPECT_EQ(run.exitCode, 1);
    const std::string none = " Format \"f\" (f.toml): the format has no line for it: ";
    ExpectParts(run.out,
                {"1.nc1:23:" + none + "countersunk on web at (X:500.0, Y:100.0)",
                 "1.nc1:24:" + none + "countersunk on web at (X:500.0, Y:100.0)",
                 "1.nc1:27:" + none + "trim of the end side of web at 900.0",
                 "1.nc1:33:" + none + "mitre at the start",
                 "2.nc1:5: Format \"f\" (f.toml): {mark}: \"LONG\": it has 4 characters and its "
                 "column 3 [unwritable by t, job line 18: required 3, found 4]"});
    EXPECT_EQ(folder.Read("made/j.m"), "");
}

// Files of one name in two folders, whose marks are their paths.
TEST(Formats, NcFilesAreNamedByWhatTellsPartsApart) {
    struct Case {
        std::string names;
        std::string told;  ///< "": two files are written
    };
    const Case cases[] = {
        {"",                                  ""                                     },
        {"names = \"{file_name}{mark}.nc1\"", ""                                     },
        {"names = \"{file_name}.nc1\"",       "it is that of the part in \"a/p.nc1\""},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.names);
        const TempFolder folder;
        folder.Write("job.toml",
                     "[job]\nnc_files = [\"*/p.nc1\"]\n[nc]\nmark = \"path\"\n[[file]]\nid = "
                     "\"nc\"\nformat = \"dstv\"\n" +
                         each.names +
                         "\n[[group]]\nid = \"g\"\nfiles = [\"nc\"]\n[[member_type]]\nid = "
                         "\"t\"\ngroup = \"g\"\nreport = { uncovered_hole = \"warning\" }\n");
        for (const char* sub : {"a", "b"}) {
            fs::create_directory(folder.PathOf(sub));
            fs::copy(CAMJOB_EXAMPLES "/nc/Z200-purlin.nc1", folder.PathOf(sub) / "p.nc1");
        }
        const CurrentFolder current(folder.PathOf("."));
        const CamjobRun run = RunTool({"run", "job.toml", "--out", "made"});
        EXPECT_EQ(run.exitCode == 2, !each.told.empty()) << run.err;
        EXPECT_NE(run.err.find(each.told), std::string::npos) << run.err;
        const fs::path made("made/nc");
        const auto files = fs::exists(made) ? std::distance(fs::directory_iterator(made), {}) : 0;
        EXPECT_EQ(files, each.told.empty() ? 2 : 0);
    }
}

// What no member can change is told at the file's format in the job; the older output stays.
TEST(Formats, WhatAFileCannotExpressIsToldAtItsPlace) {
    struct Case {
        std::string format;  ///< begins the file, and the line for the start of a group
        std::string told;    ///< "": nothing
    };
    const std::string start = "[[line]]\nfor = [\"group_start\"]\ntext = ";
    const Case cases[] = {
        {"[texts]\nencoding = \"iso-8859-1\"\n" + start + "[\"{group}\"]",
         "{group}: \"g\u0141\": the encoding of the format has not all its characters in group "
         "\"g\u0141\", Profile Z200x2.0"                                               },
        {"[texts]\nlongest = 14\n" + start + "[\"G {group} {section} N{members}\"]",
         "{section}: \"Profile Z200x2.0\": it is longer than 14 characters"            },
        {"[texts]\nforbidden = \"2\"\n" + start + "[\"{section}\"]",
         "{section}: \"Profile Z200x2.0\": it has a character that the format forbids" },
        {"[format]\nfixed_columns = true\n" + start + "[\"{pieces:>1}\"]",
         "{pieces}: it has 2 characters and its column 1"                              },
        {"[texts]\nlongest = 2\n" + start + "[\"{group}\"]",                         ""},
    };
    const std::string job =
        "[job]\nnc_files = [\"p.nc1\"]\n[[file]]\nid = \"order\"\nformat = \"f.toml\"\n[[group]]\n"
        "id = \"g\u0141\"\nsplit_by = \"profile\"\n[[group]]\nid = \"nobody is in it\"\n"
        "[[member_type]]\nid = \"t\"\ngroup = \"g\u0141\"\nreport = { uncovered_hole = \"warning\" "
        "}\n";
    const TempFolder folder;
    folder.Write("job.toml", job);
    fs::copy(CAMJOB_EXAMPLES "/nc/Z200-purlin.nc1", folder.PathOf("p.nc1"));
    fs::create_directory(folder.PathOf("made"));
    const CurrentFolder current(folder.PathOf("."));
    for (const Case& each : cases) {
        SCOPED_TRACE(each.format);
        folder.Write("f.toml",
                     each.format + "\n[[line]]\nfor = [\"hole\", \"outline\"]\ntext = []\n");
        folder.Write("made/job-orders.txt", "older");
        const CamjobRun run = RunTool({"run", "job.toml", "--out", "made"});
        EXPECT_EQ(run.exitCode == 2, !each.told.empty()) << run.err;
        const std::string told = "job.toml:5:10: file \"order\": its format cannot express ";
        EXPECT_NE(run.err.find(each.told.empty() ? "" : told + each.told), std::string::npos)
            << run.err;
        EXPECT_EQ(folder.Read("made/job-orders.txt") == "older", !each.told.empty());
    }
}

std::string OrdersOf(const fs::path& folder) {
    std::ifstream stream(folder / "warehouse12-orders.txt", std::ios::binary);
    std::string orders(std::istreambuf_iterator<char>(stream), {});
    stream.close();
    std::ifstream rails(folder / "warehouse12-rails.txt", std::ios::binary);
    return orders + std::string(std::istreambuf_iterator<char>(rails), {});
}

// The NC files of the example job, made by it, make the same machine records.
TEST(Formats, NcFilesReadBackToTheSameMembers) {
    const TempFolder folder;
    fs::copy(CAMJOB_EXAMPLES "/warehouse", folder.PathOf("hall"), fs::copy_options::recursive);
    std::string job = folder.Read("hall/warehouse.toml");
    const std::string group = "\n[[group]]\nid = \"";
    for (std::size_t at = job.find(group); at != std::string::npos; at = job.find(group, at + 1)) {
        const std::size_t end = job.find("\n\n", at);
        const std::size_t files = job.find("files = [", at);
        if (files < end)
            job.insert(files + 9, "\"nc\", ");
        else
            job.insert(job.find("\nheader", at), "\nfiles = [\"order\", \"nc\"]");
    }
    job.insert(job.find("files = [\"plates\"]") + 9, "\"nc\", ");
    // Its main part is not made, so the second job would miss it.
    const std::size_t assembly = job.find("[[assembly]]\nmain = \"DP1\"");
    job.erase(assembly, job.find("\n\n", assembly) - assembly);
    job += "\n[[file]]\nid = \"nc\"\nformat = \"dstv\"\nfolder = \"parts\"\n";
    folder.Write("hall/first.toml", job);
    job.replace(job.find("nc/*.nc1"), 8, "made/parts/*.nc1");
    folder.Write("hall/second.toml", job);
    const CurrentFolder current(folder.PathOf("hall"));
    RunTool({"run", "first.toml", "--out", "made"});
    const CamjobRun again = RunTool({"run", "second.toml", "--out", "again"});
    EXPECT_NE(again.exitCode, 2) << again.out << again.err;
    EXPECT_NE(OrdersOf("made").find("member mark="), std::string::npos);
    EXPECT_EQ(OrdersOf("again"), OrdersOf("made"));
}

}  // namespace

#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"
#include "support/TempFolder.h"
#include "support/WritingMember.h"
#include "support/host/FakeHost.h"

#include "camdata/output/CMxCamGlobAcc.h"

#include <cerrno>
#include <deque>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;
using Texts = std::vector<std::string>;

// What a run is made of

struct FileRow {
    const char* name;
    const wchar_t* header;
    bool create = true;
};

struct GroupRow {
    GroupRow(long id, long file, const wchar_t* line)
        : memGroupID(id), files({file}), header({line}) {}

    long memGroupID;
    ZetArray<long> files;
    Lines header;
    bool nesting = false;
};

/// A run with five file groups and three groups, to be changed.
struct Job {
    explicit Job(std::vector<MemberRow> rows) : members(std::move(rows)) {}
    Job& FileName(std::size_t file, const char* name) { return files[file].name = name, *this; }
    Job& NoFile(std::size_t file) { return files[file].create = false, *this; }
    Job& FileCount(std::size_t count) { return files.resize(count), *this; }
    Job& GroupFiles(std::size_t group, ZetArray<long> positions) {
        return groups[group].files = positions, *this;
    }
    Job& GroupID(std::size_t group, long id) { return groups[group].memGroupID = id, *this; }
    Job& Header(Lines lines) { return groups[0].header = lines, *this; }
    Job& Nesting() { return groups[0].nesting = true, *this; }
    Job& IndexMap(ZetArray<int> map) { return groupIndexMap = map, *this; }
    Job& InfoBlocks(ZetArray<Lines> blocks) { return infoBlocks = blocks, *this; }
    Job& InfoOrder(ZetArray<long> order) { return infoOrder = order, *this; }

    std::vector<MemberRow> members;
    std::vector<FileRow> files = {
        {"a.txt",    L"A"   },
        {"info.txt", L"INFO"},
        {"err.txt",  L"ERR" },
        {"warn.txt", L"WARN"},
        {"b.txt",    L"B"   },
    };
    std::vector<GroupRow> groups = {
        GroupRow(0, 0, L"G0"),
        GroupRow(1, 4, L"G1"),
        GroupRow(2, 0, L"G2"),
    };
    ZetArray<int> groupIndexMap = {0, 1, 2};
    ZetArray<Lines> infoBlocks = {
        Lines{L"all"}, Lines{L"one"}, Lines{L"errors"}, Lines{L"warnings"}};
    ZetArray<long> infoOrder = {0};
};

ZetArray<CMxFileGroups> FileGroupsOf(const Job& job, const TempFolder& folder) {
    ZetArray<CMxFileGroups> groups;
    for (const FileRow& row : job.files) {
        const std::string name = row.name;
        groups.append({});
        groups.last().setValues(7,
                                name.empty() ? ZetString() : folder.NameOf(name),
                                ZetString::fromUtf8(name + " link"),
                                Lines{row.header},
                                false,
                                row.create);
    }
    return groups;
}

ZetArray<CMxGroups> GroupsOf(const Job& job) {
    ZetArray<CMxGroups> groups;
    for (const GroupRow& row : job.groups) {
        groups.append({});
        groups.last().setValues(row.memGroupID,
                                ZetArray<long>(row.files),
                                Lines(row.header),
                                ZetArray<eSortOrder>{eSortMark});
        groups.last().SetNesting(row.nesting);
    }
    return groups;
}

class JobRun {
  public:
    explicit JobRun(const Job& job) {
        ClearHostPrints();
        CMxAddlInfo info;
        info.SetAddInfoArr(ZetArray<Lines>(job.infoBlocks), ZetArray<long>(job.infoOrder));
        m_accumulator.SetAddInfo(info);
        m_accumulator.appendGroups(ZetArray<int>(job.groupIndexMap), GroupsOf(job));
        m_accumulator.appendFileGroups(FileGroupsOf(job, m_folder));
        for (const MemberRow& row : job.members) {
            m_members.emplace_back(row, m_log);
            m_accumulator.Append(&m_members.back());
        }
    }

    /// What each file in the folder holds.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.PathOf(""))) {
            const std::string name = entry.path().filename().string();
            files[name] = m_folder.Read(name);
        }
        return files;
    }
    /// What the members were handed, then what they are to nest.
    Texts Log() const {
        Texts log = m_log;
        for (const WritingMember& member : m_members) {
            if (const std::string text = member.NestText(); !text.empty())
                log.push_back(text);
        }
        return log;
    }

    TempFolder m_folder;
    Texts m_log;
    std::deque<WritingMember> m_members;
    CMxCamGlobAcc m_accumulator;
};

Texts Prompted() {
    Texts texts;
    for (const HostPrint& print : HostPrints())
        texts.push_back(ZetString(print.text).toUtf8());
    return texts;
}

// Expected texts

std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
}

/// A member's line in the additional information.
std::string Info(const std::string& mark, const std::string& quantity) {
    return Padded(mark, 20) + Padded("Z200", 20) + Padded(quantity, 4) + "\n";
}

/// The head of a member's report.
std::string Report(const std::string& mark, const std::string& quantity) {
    return "Part Number = " + mark +
           "\n          Section    = Z200\n          Quantity   = " + quantity + "\n";
}

const std::string kGap = "  \n  \n  \n";
const std::string kInfoHead = "INFO\n" + kGap + "all\n";
const std::string kInfoM1 = kInfoHead + Info("M1", "1");
const std::string kInfoM1M2 = kInfoM1 + Info("M2", "1");
const std::string kCover = std::string(100, ' ') + "\n";

/// A run and what comes of it: the bytes of all files, what members were handed, what the host was
/// told. Each file has its header lines unless told otherwise.
struct RunCase {
    RunCase(const char* caseName, Job caseJob) : name(caseName), job(std::move(caseJob)) {}
    RunCase& Has(const char* file, std::string text) {
        return files[file] = std::move(text), *this;
    }
    RunCase& Lacks(const char* file) { return files.erase(file), *this; }
    RunCase& Log(Texts texts) { return log = std::move(texts), *this; }
    RunCase& Prompts(Texts texts) { return prompted = std::move(texts), *this; }

    const char* name;
    Job job;
    std::map<std::string, std::string> files = {
        {"a.txt",    "A\n"    },
        {"b.txt",    "B\n"    },
        {"err.txt",  "ERR\n"  },
        {"info.txt", kInfoHead},
        {"warn.txt", "WARN\n" },
    };
    Texts log;
    Texts prompted;
};

void Expect(const RunCase& row) {
    SCOPED_TRACE(row.name);
    JobRun run(row.job);
    run.m_accumulator.WriteOutPut();
    const auto files = run.Files();
    EXPECT_EQ(files.size(), row.files.size());
    for (const auto& [name, text] : row.files)
        EXPECT_EQ(files.contains(name) ? files.at(name) : "no file", text) << name;
    EXPECT_EQ(run.Log(), row.log);
    EXPECT_EQ(Prompted(), row.prompted);
    EXPECT_TRUE(run.m_accumulator.GetFileFaults().isEmpty());
}

// Files and groups

const MemberRow kM1(L"M1");
const MemberRow kM2(L"M2");
const MemberRow kM2InGroup2 = MemberRow(L"M2").Group(2);
const Texts kLogM1 = {"M1 > a.txt warn.txt err.txt |"};
const Texts kLogM1M2 = {"M1 > a.txt warn.txt err.txt |", "M2 > a.txt warn.txt err.txt |"};

TEST(OutputWritingTest, GroupsWriteToTheirFiles) {
    const RunCase cases[] = {
        RunCase("no members", Job({})),
        RunCase("one group, ordered by mark", Job({kM2, MemberRow(L"M1").Qty(3)}))
            .Has("a.txt", "A\nG0\nM1 x3\nM2 x1\n")
            .Has("info.txt", kInfoHead + Info("M1", "3") + Info("M2", "1"))
            .Log(kLogM1M2),
        RunCase("two groups on one file, ordered by their IDs",
                Job({kM2InGroup2, MemberRow(L"M9"), MemberRow(L"M0").Group(2)}))
            .Has("a.txt", "A\nG0\nM9 x1\nG2\nM0 x1\nM2 x1\n")
            .Has("info.txt", kInfoHead + Info("M9", "1") + Info("M0", "1") + Info("M2", "1"))
            .Log({"M9 > a.txt warn.txt err.txt |",
                  "M0 > a.txt warn.txt err.txt |",
                  "M2 > a.txt warn.txt err.txt |"}),
        RunCase("two files for a group, the first is the main file",
                Job({MemberRow(L"M1").WritesTo({0, 1})}).GroupFiles(0, {4, 0}))
            .Has("a.txt", "A\nM1 x1\n")
            .Has("b.txt", "B\nG0\nM1 x1\n")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > b.txt a.txt warn.txt err.txt |"}),
        RunCase("a file group twice",
                Job({MemberRow(L"M1").WritesTo({0, 1})}).GroupFiles(0, {0, 0}))
            .Has("a.txt", "A\nG0\nM1 x1\nM1 x1\n")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > a.txt a.txt warn.txt err.txt |"}),
        RunCase("no file of its own: the main file is that of the warnings",
                Job({kM1}).GroupFiles(0, {}))
            .Has("warn.txt", "WARN\nG0\nM1 x1\n")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > warn.txt err.txt |"}),
        RunCase("the additional information follows what members wrote to its file",
                Job({kM1}).GroupFiles(0, {1}))
            .Has("info.txt", "INFO\nG0\nM1 x1\n" + kGap + "all\n" + Info("M1", "1"))
            .Log({"M1 > info.txt warn.txt err.txt |"}),
        RunCase("header lines as when the list was made, files and nesting by member group ID",
                Job({kM1, kM2InGroup2}).GroupID(0, 2).Nesting().GroupFiles(2, {4}))
            .Has("b.txt", "B\nG0\nM1 x1\nM2 x1\n")
            .Has("info.txt", kInfoM1M2)
            .Log({"M1 > b.txt warn.txt err.txt |", "M2 > b.txt warn.txt err.txt |"}),
        RunCase("several group IDs of members for one group",
                Job({kM1, MemberRow(L"M2").Group(3)}).IndexMap({0, 1, 2, 0}))
            .Has("a.txt", "A\nG0\nM1 x1\nM2 x1\n")
            .Has("info.txt", kInfoM1M2)
            .Log(kLogM1M2),
    };
    for (const RunCase& row : cases)
        Expect(row);
}

TEST(OutputWritingTest, HeaderLinesWithoutMembersBehindThemAreCovered) {
    const MemberRow silent = MemberRow(L"M1").WritesTo({});
    const Lines wide = {ZetString(L'=', 150)};
    const RunCase cases[] = {
        RunCase("a shorter header: the file grows", Job({silent}))
            .Has("a.txt", "A\n" + kCover)
            .Has("info.txt", kInfoM1)
            .Log(kLogM1),
        RunCase("a longer header: its end stays", Job({silent}).Header(wide))
            .Has("a.txt", "A\n" + kCover + std::string(49, '=') + "\n")
            .Has("info.txt", kInfoM1)
            .Log(kLogM1),
        RunCase("no header, nothing to cover", Job({silent}).Header({}))
            .Has("info.txt", kInfoM1)
            .Log(kLogM1),
        RunCase("a section behind the cover of a shorter header",
                Job({silent, kM2InGroup2}).Header({L"G0", L"more"}))
            .Has("a.txt", "A\n" + kCover + "G2\nM2 x1\n")
            .Has("info.txt", kInfoM1M2)
            .Log(kLogM1M2),
        RunCase("a section over the rest of a longer header",
                Job({silent, kM2InGroup2}).Header(wide))
            .Has("a.txt", "A\n" + kCover + "G2\nM2 x1\n" + std::string(40, '=') + "\n")
            .Has("info.txt", kInfoM1M2)
            .Log(kLogM1M2),
        RunCase("written to another file than the main file",
                Job({MemberRow(L"M1").WritesTo({1})}).GroupFiles(0, {0, 4}))
            .Has("a.txt", "A\n" + kCover)
            .Has("b.txt", "B\nM1 x1\n")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > a.txt b.txt warn.txt err.txt |"}),
    };
    for (const RunCase& row : cases)
        Expect(row);
}

TEST(OutputWritingTest, FilesThatAreNotMade) {
    const RunCase cases[] = {
        RunCase("main file without flag", Job({kM1}).NoFile(0))
            .Lacks("a.txt")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > - warn.txt err.txt |"}),
        RunCase("main file without name, a second file",
                Job({MemberRow(L"M1").WritesTo({0, 1})}).FileName(4, "").GroupFiles(0, {4, 0}))
            .Has("a.txt", "A\nM1 x1\n")
            .Lacks("b.txt")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > - a.txt warn.txt err.txt |"}),
        RunCase("neither error nor warning file",
                Job({MemberRow(L"M1").Invalid()}).NoFile(2).FileName(3, ""))
            .Has("a.txt", "A\nG0\nM1 x1\n")
            .Lacks("err.txt")
            .Lacks("warn.txt")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > a.txt () () |"})
            .Prompts({"Part Number = M1\n",
                      "          Section    = Z200\n",
                      "          Quantity   = 1\n",
                      "          is wrong\n"}),
        RunCase("the main file is that of the warnings, which is not made",
                Job({kM1}).GroupFiles(0, {}).NoFile(3))
            .Lacks("warn.txt")
            .Has("info.txt", kInfoM1)
            .Log({"M1 > () err.txt |"})
            .Prompts({"G0\n"}),
        RunCase("no additional information", Job({kM1}).NoFile(1))
            .Has("a.txt", "A\nG0\nM1 x1\n")
            .Lacks("info.txt")
            .Log(kLogM1),
    };
    for (const RunCase& row : cases)
        Expect(row);
}

// Assemblies, nests, additional information

MemberRow P1(long quantity) {
    return MemberRow(L"P1").Group(2).Qty(quantity).SecondaryPart();
}

/// An assembly A1 with one P1, and other members; its additional information lists errors, then
/// warnings.
Job Assembly(long quantity, const std::vector<MemberRow>& others) {
    std::vector<MemberRow> members = {MemberRow(L"A1").Qty(quantity).MainPartWith(L"P1")};
    members.insert(members.end(), others.begin(), others.end());
    return Job(members).InfoOrder({2, 3});
}

std::string ErrorsAndWarnings(const std::string& errors, const std::string& warnings) {
    return "INFO\n" + kGap + "errors\n" + errors + kGap + "warnings\n" + warnings;
}

std::string Shortfall(const std::string& count) {
    return "          *Error: " + count +
           " of the single parts (Part no : P1) are not selected / valid for this assembly\n";
}

std::string TooFew(const std::string& count) {
    return "          " + count + " no of parts are not selected in selection\n";
}

const std::string kThreeLeftOver = "          3 no of parts are not used in any assemblies\n";

TEST(OutputWritingTest, SecondaryPartsGoToTheSecondGroupAndAreReportedAtTheEnd) {
    const Texts log = {"A1 > a.txt warn.txt err.txt | P1", "P1 > b.txt warn.txt err.txt | P1"};
    const RunCase cases[] = {
        RunCase("too few", Assembly(4, {P1(1)}))
            .Has("a.txt", "A\nG0\nA1 x4\n")
            .Has("b.txt", "B\nG1\nP1 x-3\n")
            .Has("err.txt",
                 "ERR\n" + Report("A1", "4") + Shortfall("3") + Report("P1", "-3") + TooFew("3"))
            .Has("info.txt", ErrorsAndWarnings(Info("A1", "4") + Info("P1", "-3"), ""))
            .Log(log),
        RunCase("enough", Assembly(2, {P1(2)}))
            .Has("a.txt", "A\nG0\nA1 x2\n")
            .Has("b.txt", "B\nG1\nP1 x0\n")
            .Has("info.txt", ErrorsAndWarnings("", ""))
            .Log(log),
        RunCase("too many", Assembly(2, {P1(5)}))
            .Has("a.txt", "A\nG0\nA1 x2\n")
            .Has("b.txt", "B\nG1\nP1 x3\n")
            .Has("warn.txt", "WARN\n" + Report("P1", "3") + kThreeLeftOver)
            .Has("info.txt", ErrorsAndWarnings("", Info("P1", "3")))
            .Log(log),
        RunCase("a part stands twice among all members", Assembly(2, {P1(5)}).InfoOrder({0}))
            .Has("a.txt", "A\nG0\nA1 x2\n")
            .Has("b.txt", "B\nG1\nP1 x3\n")
            .Has("warn.txt", "WARN\n" + Report("P1", "3") + kThreeLeftOver)
            .Has("info.txt", kInfoHead + Info("A1", "2") + Info("P1", "3") + Info("P1", "3"))
            .Log(log),
        RunCase("one too few counts as not found: the next one is taken from, too",
                Assembly(2, {P1(1), P1(5)}))
            .Has("a.txt", "A\nG0\nA1 x2\n")
            .Has("b.txt", "B\nG1\nP1 x-1\nP1 x3\n")
            .Has("err.txt", "ERR\n" + Report("P1", "-1") + TooFew("1"))
            .Has("warn.txt", "WARN\n" + Report("P1", "3") + kThreeLeftOver)
            .Has("info.txt", ErrorsAndWarnings(Info("P1", "-1"), Info("P1", "3")))
            .Log({"A1 > a.txt warn.txt err.txt | P1 P1",
                  "P1 > b.txt warn.txt err.txt | P1 P1",
                  "P1 > b.txt warn.txt err.txt | P1 P1"}),
        RunCase("one too few, no other", Assembly(2, {P1(1)}))
            .Has("a.txt", "A\nG0\nA1 x2\n")
            .Has("b.txt", "B\nG1\nP1 x-1\n")
            .Has("err.txt",
                 "ERR\n" + Report("A1", "2") + Shortfall("1") + Report("P1", "-1") + TooFew("1"))
            .Has("info.txt", ErrorsAndWarnings(Info("A1", "2") + Info("P1", "-1"), ""))
            .Log(log),
        RunCase("none at all", Assembly(3, {}))
            .Has("a.txt", "A\nG0\nA1 x3\n")
            .Has("err.txt", "ERR\n" + Report("A1", "3") + Shortfall("1"))
            .Has("info.txt", ErrorsAndWarnings(Info("A1", "3"), ""))
            .Log({"A1 > a.txt warn.txt err.txt |"}),
        RunCase("the host is told when there is no file for errors",
                Assembly(4, {P1(1), kM2InGroup2}).FileName(2, ""))
            .Has("a.txt", "A\nG0\nA1 x4\nG2\nM2 x1\n")
            .Has("b.txt", "B\nG1\nP1 x-3\n")
            .Lacks("err.txt")
            .Has("info.txt", ErrorsAndWarnings(Info("A1", "4") + Info("P1", "-3"), ""))
            .Log({"A1 > a.txt warn.txt () | P1",
                  "P1 > b.txt warn.txt () | P1",
                  "M2 > a.txt warn.txt () | P1"})
            .Prompts({"Part Number = A1\n",
                      "          Section    = Z200\n",
                      "          Quantity   = 4\n",
                      Shortfall("3"),
                      "Part Number = P1\n",
                      "          Section    = Z200\n",
                      "          Quantity   = -3\n",
                      TooFew("3")}),
    };
    for (const RunCase& row : cases)
        Expect(row);
}

TEST(OutputWritingTest, AMissingPartCanBeAWarning) {
    Job job = Assembly(3, {});
    job.members[0].ShortfallAsWarning();
    Expect(RunCase("warning", job)
               .Has("a.txt", "A\nG0\nA1 x3\n")
               .Has("warn.txt",
                    "WARN\n" + Report("A1", "3") +
                        "          *Warning*: 1 of the single parts (Part no : P1) are not "
                        "selected / valid for this assembly\n")
               .Has("info.txt", ErrorsAndWarnings("", Info("A1", "3")))
               .Log({"A1 > a.txt warn.txt err.txt |"}));
}

TEST(OutputWritingTest, TheLastMemberHoldsThePartsToNest) {
    const MemberRow m1 = MemberRow(L"M1").Qty(2);
    const MemberRow m2 = MemberRow(L"M2").Invalid();
    const MemberRow m3 = MemberRow(L"M3").Qty(4);
    const MemberRow wrongM3 = MemberRow(L"M3").Qty(4).Invalid();
    const std::string wrongM2 = "ERR\n" + Report("M2", "1") + "          is wrong\n";
    const auto expect = [](const char* name,
                           const Job& job,
                           const std::string& errors,
                           const Texts& nests) {
        Texts log = {"M1 > a.txt warn.txt err.txt |",
                     "M2 > a.txt warn.txt err.txt |",
                     "M3 > a.txt warn.txt err.txt |"};
        log.insert(log.end(), nests.begin(), nests.end());
        Expect(RunCase(name, job)
                   .Has("a.txt", "A\nG0\nM1 x2\nM2 x1\nM3 x4\n")
                   .Has("err.txt", errors)
                   .Has("info.txt", kInfoHead + Info("M1", "2") + Info("M2", "1") + Info("M3", "4"))
                   .Log(log));
    };
    expect("an invalid member is left out, the last in order holds",
           Job({m3, m1, m2}).Nesting(),
           wrongM2,
           {"M3 holds M1 x2 1000.0, M3 x4 1000.0,"});
    expect("an invalid member holds, too",
           Job({wrongM3, m1, m2}).Nesting(),
           wrongM2 + Report("M3", "4") + "          is wrong\n",
           {"M3 holds M1 x2 1000.0,"});
    expect("not without the group's flag", Job({m3, m1, m2}), wrongM2, {});
}

TEST(OutputWritingTest, BlocksOfTheAdditionalInformationInTheirOrder) {
    const std::string one = kGap + "one\n" + Info("M1", "1") + Info("M1", "1");
    Expect(RunCase("repeated and missing blocks",
                   Job({MemberRow(L"M1").InfoBlocks({1, 0, 1}), kM2}).InfoOrder({1, 3, 0, 1}))
               .Has("a.txt", "A\nG0\nM1 x1\nM2 x1\n")
               .Has("info.txt",
                    "INFO\n" + one + kGap + "warnings\n" + kGap + "all\n" + Info("M1", "1") +
                        Info("M1", "1") + Info("M2", "1") + one)
               .Log(kLogM1M2));
}

// What cannot be written

TEST(OutputWritingTest, PositionsThatAreNotThereFailAnAssertion) {
    // What is in the main file after the accumulator's end.
    const auto expect = [](const char* name, const Job& job, const std::string& mainFile) {
        SCOPED_TRACE(name);
        JobRun run(job);
        EXPECT_EQ(AssertionOf([&] { run.m_accumulator.WriteOutPut(); }), "isValid( index )");
        run.m_accumulator = CMxCamGlobAcc();
        EXPECT_EQ(run.m_folder.Read("a.txt"), mainFile);
    };
    expect("three file groups", Job({}).FileCount(3), "A\n");
    expect("no block", Job({}).InfoBlocks({}), "A\n");
    expect("block in the order", Job({kM1}).InfoOrder({4}), "A\nG0\nM1 x1\n");
    expect("file group of a group", Job({kM1}).GroupFiles(0, {0, 5}), "A\n");
    expect("group by member group ID", Job({kM1}).GroupID(0, 3), "A\n");
}

TEST(OutputWritingTest, FilesThatCannotBeOpenedAreLentAndListed) {
    JobRun run(Job({kM1}).FileName(0, "new/a.txt").FileName(1, "new/info.txt"));
    const auto missing = [&](const char* name) {
        return FileFault{run.m_folder.NameOf(name), ZetFileFault::Operation::kOpen, ENOENT};
    };
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.Log(), Texts{"M1 > (a.txt) warn.txt err.txt |"});
    // Each time that a file is asked for it is tried again, with its header lines.
    EXPECT_EQ(Prompted(), (Texts{"A\n", "INFO\n", "A\n", "G0\n", "INFO\n"}));
    EXPECT_EQ(run.m_accumulator.GetFileFaults(),
              (ZetArray<FileFault>{missing("new/a.txt"), missing("new/info.txt")}));

    std::filesystem::create_directory(run.m_folder.PathOf("new"));
    const CMxCamGlobAcc copy = run.m_accumulator;
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.m_folder.Read("new/a.txt"), "A\nG0\nM1 x1\n");
    EXPECT_TRUE(run.m_accumulator.GetFileFaults().isEmpty());
    EXPECT_EQ(copy.GetFileFaults().length(), 2);
}

#ifndef _WIN32
TEST(OutputWritingTest, AFullDeviceIsListedOnceTheRunIsOver) {
    JobRun run(Job({kM1}).FileName(0, "full.txt"));
    std::filesystem::create_symlink("/dev/full", run.m_folder.PathOf("full.txt"));
    run.m_accumulator.WriteOutPut();
    const FileFault full = {
        run.m_folder.NameOf("full.txt"), ZetFileFault::Operation::kWrite, ENOSPC};
    EXPECT_EQ(run.m_accumulator.GetFileFaults(), ZetArray<FileFault>{full});
}
#endif

// Single operations

TEST(OutputWritingTest, AdditionalInformationWrittenLaterReplacesTheFile) {
    JobRun run(Job({kM1}));
    run.m_folder.Write("info.txt", "what was there");
    EXPECT_FALSE(run.m_accumulator.WriteAddInfo());
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.m_folder.Read("info.txt"), kInfoHead + kGap + "all\n" + Info("M1", "1"));
    EXPECT_FALSE(run.m_accumulator.WriteAddInfo());
    run.m_accumulator = CMxCamGlobAcc();
    EXPECT_EQ(run.m_folder.Read("info.txt"), kInfoHead + Info("M1", "1"));
    EXPECT_EQ(AssertionOf([&] { run.m_accumulator.WriteAddInfo(); }), "isValid( index )");
}

TEST(OutputWritingTest, LinkFileNamesOfFileGroups) {
    const JobRun run(Job({}));
    Lines names = {L"before"};
    ZetArray<int> ids = {4, 0, 4};
    run.m_accumulator.LinkFiles(names, ids);
    EXPECT_EQ(names, (Lines{L"before", L"b.txt link", L"a.txt link", L"b.txt link"}));
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(AssertionOf([&] { run.m_accumulator.LinkFiles(names, {5}); }), "isValid( index )");
}

TEST(OutputWritingTest, OrderingTwoMembersSelectsTheGeneralEpsilon) {
    const auto writeWithTolerance3 = [](const Job& job) {
        JobRun run(job);
        CMxGeom::SetTol(eTolValue, 3.0);
        run.m_accumulator.WriteOutPut();
    };
    writeWithTolerance3(Job({kM1, kM2InGroup2}));
    EXPECT_TRUE(CurrentToleranceIs(3.0));
    writeWithTolerance3(Job({kM1, kM2}));
    EXPECT_TRUE(CurrentToleranceIs(0.1));
}

}  // namespace

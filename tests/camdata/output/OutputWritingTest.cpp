#include "support/AssertionOf.h"
#include "support/Golden.h"
#include "support/TempFolder.h"
#include "support/WritingMember.h"
#include "support/host/FakeHost.h"

#include "camdata/output/CMxCamGlobAcc.h"

#include <cerrno>
#include <deque>
#include <filesystem>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

CMxFileGroups FileGroup(const wchar_t* name, const wchar_t* header) {
    CMxFileGroups group;
    group.setValues(7, name, ZetString(name) + L" link", Lines{header}, false, true);
    return group;
}

CMxGroups Group(long id, long file, const wchar_t* header) {
    CMxGroups group;
    group.setValues(id, ZetArray<long>{file}, Lines{header}, ZetArray<eSortOrder>{eSortMark});
    return group;
}

/// A run with five file groups and three groups, to be changed.
struct Job {
    explicit Job(std::vector<MemberRow> rows) : members(std::move(rows)) {}
    Job& FileName(long file, const wchar_t* name) { return files[file].SetFileName(name), *this; }
    Job& NoFile(long file) { return files[file].SetCreateFilePointer(false), *this; }
    Job& FileCount(long count) { return files.setLength(count), *this; }
    Job& GroupFiles(long group, ZetArray<long> positions) {
        return groups[group].SetFileGroupIDs(positions), *this;
    }
    Job& GroupID(long group, long id) { return groups[group].SetMemGroupID(id), *this; }
    Job& Header(Lines lines) { return groups[0].SetHeaderInfos(lines), *this; }
    Job& Nesting() { return groups[0].SetNesting(true), *this; }
    Job& IndexMap(ZetArray<int> map) { return groupIndexMap = map, *this; }
    Job& InfoBlocks(ZetArray<Lines> blocks) { return infoBlocks = blocks, *this; }
    Job& InfoOrder(ZetArray<long> order) { return infoOrder = order, *this; }

    std::vector<MemberRow> members;
    // clang-format off
    ZetArray<CMxFileGroups> files = {
        FileGroup(L"a.txt", L"A"), FileGroup(L"info.txt", L"INFO"), FileGroup(L"err.txt", L"ERR"),
        FileGroup(L"warn.txt", L"WARN"), FileGroup(L"b.txt", L"B")};
    // clang-format on
    ZetArray<CMxGroups> groups = {Group(0, 0, L"G0"), Group(1, 4, L"G1"), Group(2, 0, L"G2")};
    ZetArray<int> groupIndexMap = {0, 1, 2};
    ZetArray<Lines> infoBlocks = {Lines{L"all"}, Lines{L"one"}, Lines{L"err"}, Lines{L"warn"}};
    ZetArray<long> infoOrder = {0};
};

class JobRun {
  public:
    explicit JobRun(Job job) {
        ClearHostPrints();
        for (CMxFileGroups& group : job.files) {
            if (!group.GetFileName().isEmpty())
                group.SetFileName(m_folder.NameOf(group.GetFileName().toUtf8()));
        }
        CMxAddlInfo info;
        info.SetAddInfoArr(job.infoBlocks, job.infoOrder);
        m_accumulator.SetAddInfo(info);
        m_accumulator.appendGroups(job.groupIndexMap, job.groups);
        m_accumulator.appendFileGroups(job.files);
        for (const MemberRow& row : job.members) {
            m_members.emplace_back(row, m_log);
            m_accumulator.Append(&m_members.back());
        }
    }

    /// What comes of it: a failed assertion, what the members were handed and are to nest, what the
    /// host was told, the faults, and all files; there "$" is a line feed.
    std::string Outcome() {
        // As good as the one that was filled.
        CMxCamGlobAcc accumulator(std::move(m_accumulator));
        EXPECT_EQ(accumulator.GetCount(), static_cast<long>(m_members.size()));
        const std::string assertion = AssertionOf([&] { accumulator.WriteOutPut(); });
        std::string text = assertion == "none" ? "" : "assertion " + assertion + "\n";
        for (const std::string& line : m_log)
            text += line + "\n";
        for (const WritingMember& member : m_members)
            text += member.NestText();
        for (const HostPrint& print : HostPrints())
            text += "host: " + ZetString(print.text).toUtf8();
        for (const FileFault& fault : accumulator.GetFileFaults())
            text += "cannot open " + WritingMember::PlainName(fault.fileName) + "\n";
        accumulator = CMxCamGlobAcc();
        return text + Files();
    }

    TempFolder m_folder;
    CMxCamGlobAcc m_accumulator;

  private:
    std::string Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.PathOf("")))
            names.insert(entry.path().filename().string());
        std::string text;
        for (const std::string& name : names) {
            text += "== " + name + "\n";
            for (const char c : m_folder.Read(name))
                text += c == '\n' ? "$\n" : std::string(1, c);
        }
        return text;
    }

    std::vector<std::string> m_log;
    std::deque<WritingMember> m_members;
};

/// An assembly A1 with one part P1, and other members. The additional information lists errors,
/// then warnings.
Job Assembly(MemberRow main, const std::vector<MemberRow>& others) {
    std::vector<MemberRow> members = {main.MainPartWith(L"P1")};
    members.insert(members.end(), others.begin(), others.end());
    return Job(members).InfoOrder({2, 3});
}

MemberRow P1(long quantity) {
    return MemberRow(L"P1").Group(2).Qty(quantity).SecondaryPart();
}

const MemberRow kM1(L"M1");
const MemberRow kM1Twice = MemberRow(L"M1").WritesTo({0, 1});
const MemberRow kSilentM1 = MemberRow(L"M1").WritesTo({});
const MemberRow kM2(L"M2");
const MemberRow kM2InGroup2 = MemberRow(L"M2").Group(2);
const MemberRow kWrongM2 = MemberRow(L"M2").Invalid();
const MemberRow kM3 = MemberRow(L"M3").Qty(4);
const Lines kWide = {ZetString(L'=', 150)};

// clang-format off
/// Runs, and the golden files that hold what comes of them.
const std::pair<const char*, Job> kRuns[] = {
    // Groups and their files.
    {"no-members", Job({})},
    {"one-group", Job({kM2, MemberRow(L"M1").Qty(3)})},
    {"two-groups-on-one-file", Job({kM2InGroup2, MemberRow(L"M9"), MemberRow(L"M0").Group(2)})},
    {"two-files-of-a-group", Job({kM1Twice}).GroupFiles(0, {4, 0})},
    {"a-file-twice", Job({kM1Twice}).GroupFiles(0, {0, 0})},
    {"no-file-of-its-own", Job({kM1}).GroupFiles(0, {})},
    {"members-in-the-additional-information", Job({kM1}).GroupFiles(0, {1})},
    {"header-of-the-list-files-by-member-group", Job({kM1, kM2InGroup2}).GroupID(0, 2).Nesting().GroupFiles(2, {4})},
    {"two-group-ids-in-one-group", Job({kM1, MemberRow(L"M2").Group(3)}).IndexMap({0, 1, 2, 0})},
    {"index-map-swaps-groups", Job({MemberRow(L"M2").Group(1), P1(2)}).IndexMap({1, 0, 2})},
    // Header lines with nothing behind them.
    {"covered-short-header", Job({kSilentM1})},
    {"covered-long-header", Job({kSilentM1}).Header(kWide)},
    {"no-header-to-cover", Job({kSilentM1}).Header({})},
    {"section-behind-a-short-header", Job({kSilentM1, kM2InGroup2}).Header({L"G0", L"more"})},
    {"section-over-a-long-header", Job({kSilentM1, kM2InGroup2}).Header(kWide)},
    {"covered-though-another-file-is-written", Job({MemberRow(L"M1").WritesTo({1})}).GroupFiles(0, {0, 4})},
    // Files that are not made.
    {"main-file-without-flag", Job({kM1}).NoFile(0)},
    {"main-file-without-name", Job({kM1Twice}).FileName(4, L"").GroupFiles(0, {4, 0})},
    {"no-error-and-warning-files", Job({MemberRow(L"M1").Invalid()}).NoFile(2).FileName(3, L"")},
    {"main-file-is-a-missing-warning-file", Job({kM1}).GroupFiles(0, {}).NoFile(3)},
    {"no-additional-information", Job({kM1}).NoFile(1)},
    {"unopenable", Job({kM1}).FileName(0, L"no/a.txt").FileName(1, L"no/info.txt")},
    // Assemblies.
    {"too-few-parts", Assembly(MemberRow(L"A1").Qty(4), {P1(1)})},
    {"enough-parts", Assembly(MemberRow(L"A1").Qty(2), {P1(2)})},
    {"too-many-parts", Assembly(MemberRow(L"A1").Qty(2), {P1(5)})},
    {"parts-among-all-members", Assembly(kM1, {P1(1)}).InfoOrder({0})},
    {"one-too-few-takes-from-the-next", Assembly(MemberRow(L"A1").Qty(2), {P1(1), P1(5)})},
    {"one-too-few-and-no-other", Assembly(MemberRow(L"A1").Qty(2), {P1(1)})},
    {"no-part", Assembly(MemberRow(L"A1").Qty(3), {})},
    {"no-part-as-warning", Assembly(MemberRow(L"A1").ShortfallAsWarning(), {})},
    {"parts-only", Job({P1(2)}).InfoOrder({0, 3})},
    {"parts-without-error-file", Assembly(MemberRow(L"A1").Qty(4), {P1(1), kM2InGroup2}).FileName(2, L"")},
    // Nests.
    {"nest", Job({kM3, MemberRow(L"M1").Qty(2), kWrongM2}).Nesting()},
    {"nest-with-an-invalid-holder", Job({kM1, kWrongM2}).Nesting()},
    {"nest-of-nothing", Job({kWrongM2}).Nesting()},
    {"nesting-of-members-does-not-count", Job({kM3, kM1})},
    // Additional information.
    {"repeated-and-missing-blocks", Job({MemberRow(L"M1").InfoBlocks({1, 0, 1}), kM2}).InfoOrder({1, 3, 0, 1})},
    {"long-marks", Job({MemberRow(L"A-mark-of-25-characters..").Qty(123456).InfoBlocks({2, 2})}).InfoOrder({2, 0, 2})},
    // Positions that are not there.
    {"three-file-groups", Job({}).FileCount(3)},
    {"no-block", Job({}).InfoBlocks({})},
    {"no-such-block", Job({kM1}).InfoOrder({4})},
    {"no-such-file-group", Job({kM1}).GroupFiles(0, {0, 5})},
    {"no-such-group", Job({kM1}).GroupID(0, 3)},
};
// clang-format on

TEST(OutputWritingTest, WholeRuns) {
    for (const auto& [name, job] : kRuns)
        EXPECT_TRUE(MatchesGolden(OUTPUT_GOLDEN_FOLDER, name, JobRun(job).Outcome()));
}

TEST(OutputWritingTest, FaultsAreThoseOfTheLastRun) {
    JobRun run(Job({kM1}).FileName(0, L"new/a.txt"));
    run.m_accumulator.WriteOutPut();
    const FileFault fault = {
        run.m_folder.NameOf("new/a.txt"), ZetFileFault::Operation::kOpen, ENOENT};
    EXPECT_EQ(run.m_accumulator.GetFileFaults(), ZetArray<FileFault>{fault});

    std::filesystem::create_directory(run.m_folder.PathOf("new"));
    const CMxCamGlobAcc copy = run.m_accumulator;
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.m_folder.Read("new/a.txt"), "A\nG0\nM1 x1\n");
    EXPECT_TRUE(run.m_accumulator.GetFileFaults().isEmpty());
    EXPECT_EQ(copy.GetFileFaults(), ZetArray<FileFault>{fault});
}

#ifndef _WIN32
TEST(OutputWritingTest, AFullDeviceIsListedOnceTheRunIsOver) {
    JobRun run(Job({kM1}).FileName(0, L"full.txt"));
    std::filesystem::create_symlink("/dev/full", run.m_folder.PathOf("full.txt"));
    run.m_accumulator.WriteOutPut();
    const FileFault fault = {
        run.m_folder.NameOf("full.txt"), ZetFileFault::Operation::kWrite, ENOSPC};
    EXPECT_EQ(run.m_accumulator.GetFileFaults(), ZetArray<FileFault>{fault});
}
#endif

TEST(OutputWritingTest, AdditionalInformationWrittenLaterReplacesTheFile) {
    const std::string gap = "  \n  \n  \n";
    const std::string line = "M1                  Z200                1   \n";
    JobRun run(Job({kM1}));
    EXPECT_FALSE(run.m_accumulator.WriteAddInfo());
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.m_folder.Read("info.txt"), "INFO\n" + gap + "all\n" + gap + "all\n" + line);
    EXPECT_FALSE(run.m_accumulator.WriteAddInfo());
    run.m_accumulator = CMxCamGlobAcc();
    EXPECT_EQ(run.m_folder.Read("info.txt"), "INFO\n" + gap + "all\n" + line);
    EXPECT_EQ(AssertionOf([&] { run.m_accumulator.WriteAddInfo(); }), "isValid( index )");
}

/// A member that calls the host's code while it is written.
class CallingMember : public TestMember {
  public:
    CallingMember(long groupID, std::function<void()> call) : m_call(std::move(call)) {
        SetGroupID(groupID);
    }
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>&, ZetArray<CMxPeilaib*>&) override {
        m_call();
    }

  private:
    std::function<void()> m_call;
};

TEST(OutputWritingTest, MembersCannotChangeTheRunThatWritesThem) {
    JobRun run(Job({kM1}));
    CMxCamGlobAcc& accumulator = run.m_accumulator;
    TestMember ofTheSameGroup;
    ofTheSameGroup.SetGroupID(0);
    TestMember ofAnotherGroup;
    ofAnotherGroup.SetGroupID(2);
    std::vector<std::string> assertions;
    const auto note = [&](auto call) { assertions.push_back(AssertionOf(call)); };
    CallingMember member(0, [&] {
        ZetArray<CMxFileGroups> none;
        CMxCamGlobAcc copy = accumulator;
        note([&] { accumulator.Append(&ofTheSameGroup); });
        note([&] { accumulator.Append(&ofAnotherGroup); });
        note([&] { copy.Append(&ofTheSameGroup); });
        note([&] { copy.Append(&ofAnotherGroup); });
        note([&] { copy.appendFileGroups(none); });
        note([&] { accumulator.appendFileGroups(none); });
        note([&] { accumulator.appendGroups({}, {}); });
        note([&] { accumulator.SortPeilaibArr(); });
        note([&] { copy.SortPeilaibArr(); });
        note([&] { accumulator.WriteOutPut(); });
        note([&] { copy.WriteOutPut(); });
        note([&] { accumulator = CMxCamGlobAcc(); });
        note([&] { accumulator = copy; });
        note([&] { copy = std::move(accumulator); });
        note([&] { const CMxCamGlobAcc taken(std::move(accumulator)); });
        note([&] { copy = accumulator; });
    });
    accumulator.Append(&member);
    accumulator.WriteOutPut();
    const std::string failed = "!isWriting()";
    EXPECT_EQ(assertions,
              (std::vector<std::string>{failed,
                                        failed,
                                        failed,
                                        "none",
                                        "none",
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        failed,
                                        "none"}));
    EXPECT_EQ(AssertionOf([&] { accumulator.Append(nullptr); }), "member != nullptr");
    EXPECT_EQ(accumulator.GetCount(), 2);
    EXPECT_EQ(run.m_folder.Read("a.txt"), "A\nG0\nM1 x1\n");
    accumulator.Append(&ofTheSameGroup);
    EXPECT_EQ(accumulator.GetCount(), 3);
}

TEST(OutputWritingTest, AfterAnExceptionTheNextRunBeginsAnew) {
    JobRun run(Job({kM1, kM2}));
    bool isFaulty = true;
    CallingMember member(2, [&] {
        if (isFaulty)
            throw std::runtime_error("no");
    });
    run.m_accumulator.Append(&member);
    EXPECT_THROW(run.m_accumulator.WriteOutPut(), std::runtime_error);
    EXPECT_EQ(run.m_folder.Read("a.txt"), "A\nG0\nM1 x1\nM2 x1\nG2\n");
    isFaulty = false;
    run.m_accumulator.WriteOutPut();
    EXPECT_EQ(run.m_folder.Read("a.txt").substr(0, 17), "A\nG0\nM1 x1\nM2 x1\n");
    const std::string info = run.m_folder.Read("info.txt");
    EXPECT_EQ(info.find("M1 "), info.rfind("M1 ")) << info;
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

}  // namespace

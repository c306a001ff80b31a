#include "camjob/FolderContent.h"
#include "camjob/disk/StagedOutput.h"
#include "camjob/disk/StoppingDisk.h"
#include "support/TempFolder.h"

#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using camjob::OutputFailure;
using camjob::StagedOutput;
using camjob::StagingDisk;

const Files kOld = {
    {"a.txt",       "old a"},
    {"b.txt",       "old b"},
    {"gone.txt",    "old"  },
    {"left/g.nc1",  "old g"},
    {"nc/a.nc1",    "old a"},
    {"nc/gone.nc1", "old"  },
};
const Files kNew = {
    {"a.txt",      "new a"},
    {"b.txt",      "new b"},
    {"more.txt",   "new"  },
    {"made/m.nc1", "new m"},
    {"nc/a.nc1",   "new a"},
};
const std::pair<std::string, std::string> kForeign = {"notes.txt", "not camjob's"};

Files WithForeign(Files files) {
    files.insert(kForeign);
    return files;
}

void Produce(const fs::path& folder, const Files& files, StagingDisk& disk) {
    StagedOutput output(folder, disk);
    output.Begin();
    WriteFiles(output.GetStagingFolder(), files);
    output.Commit();
}

void Produce(const fs::path& folder, const Files& files) {
    StoppingDisk disk;
    Produce(folder, files, disk);
}

/// A folder with the old output and a file of somebody else.
fs::path FolderWithOldOutput(const TempFolder& folder) {
    const fs::path path = folder.PathOf("out");
    fs::remove_all(path);
    Produce(path, kOld);
    WriteFiles(path, {kForeign});
    return path;
}

/// What went wrong; "" when nothing did.
template <typename Action>
std::string FailureOf(Action action) {
    try {
        action();
        return "";
    } catch (const OutputFailure& failure) {
        return failure.what();
    }
}

/// False when the action came to its end before the moment.
template <typename Action>
bool CutAt(int moment, Action action) {
    StoppingDisk disk(moment, StoppingDisk::Stop::kCut);
    try {
        action(disk);
        return false;
    } catch (const StoppingDisk::Cut&) {
        return true;
    }
}

bool IsFinishedByNext(const fs::path& folder) {
    StoppingDisk disk;
    return StagedOutput(folder, disk).Recover();
}

TEST(StagedOutput, ReplacesTheLastOutputAndNothingElse) {
    const TempFolder folder;
    const fs::path path = FolderWithOldOutput(folder);
    EXPECT_EQ(ContentOf(path), WithForeign(kOld));
    StagingDisk disk;
    Produce(path, kNew, disk);
    EXPECT_EQ(ContentOf(path), WithForeign(kNew));
    Produce(path, {});
    EXPECT_EQ(ContentOf(path), Files{kForeign});
    EXPECT_FALSE(fs::exists(path / ".camjob" / "staging"));
}

TEST(StagedOutput, CutAtAnyMomentItIsOldOrNewAfterTheNextStart) {
    const TempFolder folder;
    int moments = 0;
    int finished = 0;
    for (bool isCut = true; isCut; ++moments) {
        // The start that follows is cut too, at each of its moments.
        for (int second = 1;; ++second) {
            SCOPED_TRACE(testing::Message() << "cut at " << moments + 1 << ", then " << second);
            const fs::path path = FolderWithOldOutput(folder);
            isCut = CutAt(moments + 1, [&](StagingDisk& disk) { Produce(path, kNew, disk); });
            const bool isRecorded = fs::exists(path / ".camjob" / "commit");
            const bool isSecondCut = CutAt(second, [&](StagingDisk& disk) {
                EXPECT_EQ(StagedOutput(path, disk).Recover(), isRecorded);
            });
            IsFinishedByNext(path);
            const bool isNew = isRecorded || !isCut || ContentOf(path) == WithForeign(kNew);
            EXPECT_EQ(ContentOf(path), WithForeign(isNew ? kNew : kOld));
            EXPECT_FALSE(fs::exists(path / ".camjob" / "staging"));
            EXPECT_FALSE(IsFinishedByNext(path));
            finished += isRecorded ? 1 : 0;
            if (!isSecondCut)
                break;
        }
    }
    EXPECT_GT(moments, 15);
    EXPECT_GT(finished, 20);
}

TEST(StagedOutput, AFailureOfTheDiskAtAnyMomentLeavesOldOrNew) {
    const TempFolder folder;
    for (int moment = 1;; ++moment) {
        SCOPED_TRACE(moment);
        const fs::path path = FolderWithOldOutput(folder);
        StoppingDisk disk(moment, StoppingDisk::Stop::kFail);
        const std::string failure = FailureOf([&] { Produce(path, kNew, disk); });
        if (!disk.WasReached())
            break;
        const bool isLater =
            failure.find("the next run in this folder finishes it") != failure.npos;
        if (!failure.empty() && !isLater) {
            EXPECT_EQ(ContentOf(path), WithForeign(kOld)) << failure;
        }
        // The next start meets the same disk, and does not take what it cannot read for nothing.
        StoppingDisk bad(moment, StoppingDisk::Stop::kFail);
        FailureOf([&] { StagedOutput(path, bad).Recover(); });
        IsFinishedByNext(path);
        const bool isNew = failure.empty() || isLater;
        EXPECT_EQ(ContentOf(path), WithForeign(isNew ? kNew : kOld)) << failure;
        Produce(path, kNew);
        EXPECT_EQ(ContentOf(path), WithForeign(kNew));
    }
}

/// Tells in which order what reaches the disk.
class TellingDisk : public StagingDisk {
  public:
    explicit TellingDisk(fs::path folder) : m_folder(std::move(folder)) {}

    std::error_code FlushFile(const fs::path& file) override { return Tell("flush", file); }
    std::error_code FlushFolder(const fs::path& folder) override { return Tell("flush", folder); }
    std::error_code Rename(const fs::path& from, const fs::path& to) override {
        Tell("place", to);
        return StagingDisk::Rename(from, to);
    }
    std::error_code RemoveFile(const fs::path& file) override {
        Tell("remove", file);
        return StagingDisk::RemoveFile(file);
    }
    std::error_code RemoveFolder(const fs::path& folder) override {
        Tell("remove", folder);
        return StagingDisk::RemoveFolder(folder);
    }

    std::string told;

  private:
    std::error_code Tell(const std::string& what, const fs::path& path) {
        told += what + " " + path.lexically_relative(m_folder).generic_string() + "\n";
        return {};
    }

    const fs::path m_folder;
};

/// The record takes its place when all that it tells of is on the disk, and leaves it when the disk
/// has the output.
TEST(StagedOutput, GoesOnWhenTheDiskHasWhatCameBefore) {
    const TempFolder folder;
    const fs::path path = folder.PathOf("out");
    Produce(path,
            {
                {"a.txt",    "old"},
                {"gone.txt", "old"}
    });
    TellingDisk disk(path);
    {
        StagedOutput output(path, disk);
        output.Begin();
        WriteFiles(output.GetStagingFolder(),
                   {
                       {"a.txt",    "new"},
                       {"nc/b.nc1", "new"}
        });
        disk.told.clear();
        output.Commit();
    }
    EXPECT_EQ(disk.told,
              "flush .camjob/staging/a.txt\nflush .camjob/staging/nc/b.nc1\n"
              "flush .camjob/staging/nc\nflush .camjob/staging\n"
              "flush .camjob/commit.new\nplace .camjob/commit\nflush .camjob\n"
              "remove gone.txt\nplace a.txt\nplace nc/b.nc1\nflush nc\nflush .\n"
              "place .camjob/output\nflush .camjob\nremove .camjob/staging\n");
}

struct Refusal {
    const char* name;
    void (*prepare)(const fs::path&);
    const char* message;
};

void WriteProtect(const fs::path& file) {
    constexpr fs::perms kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(file, kWrite, fs::perm_options::remove);
}

TEST(StagedOutput, RefusesWhatItMustNotReplace) {
    const TempFolder folder;
    const auto makeFolder = [](const fs::path& path) { fs::create_directory(path / "more.txt"); };
    const auto protectUsed = [](const fs::path& path) { WriteProtect(path / "a.txt"); };
    const auto protectUnused = [](const fs::path& path) { WriteProtect(path / "gone.txt"); };
    const auto pointElsewhere = [](const fs::path& path) {
        WriteFiles(path / ".camjob",
                   {
                       {"output", "camjob-output/1\nfile ../other.txt\nend\n"}
        });
    };
    const auto breakOff = [](const fs::path& path) {
        WriteFiles(path / ".camjob",
                   {
                       {"output", "camjob-output/1\nfile a.txt\n"}
        });
    };
    const auto makeUnreadable = [](const fs::path& path) {
        fs::remove(path / ".camjob" / "output");
        fs::create_directory(path / ".camjob" / "output");
    };
    const auto loseStaged = [](const fs::path& path) {
        WriteFiles(path / ".camjob",
                   {
                       {"commit", "camjob-output/1\nfile a.txt\nremoved gone.txt\nend\n"}
        });
    };
    // clang-format off
    const Refusal refusals[] = {
        {"a folder in a file's place", makeFolder, "more.txt: cannot be replaced: it is not a file"},
        {"write protection", protectUsed, "a.txt: cannot be replaced: it is write-protected"},
        {"write protection of an old file", protectUnused, "gone.txt: cannot be replaced: it is write"},
        {"a list that points elsewhere", pointElsewhere, "this record of camjob is damaged"},
        {"a list that breaks off", breakOff, "this record of camjob is damaged"},
        {"a list that cannot be read", makeUnreadable, "this record of camjob cannot be read ("},
        {"a commit whose files are gone", loseStaged, "commit: the files that this record names are gone; "},
    };
    // clang-format on
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        const fs::path path = FolderWithOldOutput(folder);
        refusal.prepare(path);
        const Files before = ContentOf(path);
        const std::string failure = FailureOf([&] { Produce(path, kNew); });
        EXPECT_NE(failure.find(refusal.message), std::string::npos) << failure;
        EXPECT_EQ(ContentOf(path), before);
        EXPECT_FALSE(fs::exists(path / ".camjob" / "staging"));
        for (const auto& entry : fs::directory_iterator(path))
            fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    }
}

TEST(StagedOutput, RefusesRecordsOfAnythingButItsFiles) {
    const TempFolder folder;
    for (const char* name : {"", ".", "..", ".camjob", "../x", "x/..", "x/", "/x", "a/b/c", "a\\b"})
        for (const char* word : {"file ", "removed "}) {
            SCOPED_TRACE(word + std::string(name));
            const fs::path path = FolderWithOldOutput(folder);
            WriteFiles(path / ".camjob",
                       {
                           {"commit", std::string("camjob-output/1\n") + word + name + "\nend\n"}
            });
            const std::string failure = FailureOf([&] { Produce(path, kNew); });
            EXPECT_NE(failure.find("this record of camjob is damaged"), std::string::npos);
            EXPECT_EQ(ContentOf(path), WithForeign(kOld));
        }
}

TEST(StagedOutput, AnOpenFileIsReplacedOrRefused) {
    const TempFolder folder;
    const fs::path path = FolderWithOldOutput(folder);
    std::string failure;
    {
        const std::ifstream reader(path / "a.txt");
        failure = FailureOf([&] { Produce(path, kNew); });
    }
    // Windows does not let go of a name while its file is open.
    EXPECT_EQ(ContentOf(path), WithForeign(failure.empty() ? kNew : kOld));
    EXPECT_TRUE(failure.empty() || failure.find("has it open") != std::string::npos) << failure;
}

TEST(StagedOutput, MakesAMissingFolderAndRefusesWhatIsNone) {
    const TempFolder folder;
    Produce(folder.PathOf("new") / "deep", kNew);
    EXPECT_EQ(ContentOf(folder.PathOf("new") / "deep"), kNew);
    folder.Write("file", "text");
    struct Place {
        const char* folder;
        const char* message;
    };
    std::vector<Place> places = {
        {"file",      "file: the output needs a folder, and this is a file"},
        {"file/deep", "file: the output needs a folder, and this is a file"},
    };
#ifndef _WIN32
    fs::create_symlink("nowhere", folder.PathOf("dangling"));
    fs::create_symlink("loop", folder.PathOf("loop"));
    fs::create_symlink("new", folder.PathOf("link"));
    Produce(folder.PathOf("link"), kNew);
    EXPECT_EQ(ContentOf(folder.PathOf("new")).count("a.txt"), 1u);
    places.insert(
        places.end(),
        {
            {"dangling",  "dangling: the output needs a folder, and this is a link to"    },
            {"loop",      "loop: the output needs a folder, and this is a link that leads"},
            {"loop/deep", "loop: the output needs a folder, and this is a link that leads"},
    });
#endif
    for (const Place& place : places) {
        SCOPED_TRACE(place.folder);
        const std::string failure = FailureOf([&] { Produce(folder.PathOf(place.folder), kNew); });
        EXPECT_NE(failure.find(place.message), std::string::npos) << failure;
    }
    EXPECT_EQ(folder.Read("file"), "text");
    EXPECT_FALSE(fs::exists(folder.PathOf("nowhere")));
}

TEST(StagedOutput, OneAtATimeInAFolder) {
    const TempFolder folder;
    const fs::path path = folder.PathOf("out");
    {
        StagingDisk disk;
        StagedOutput first(path, disk);
        first.Begin();
        WriteFiles(first.GetStagingFolder(), kNew);
        const std::string failure = FailureOf([&] { Produce(path, kOld); });
        EXPECT_NE(failure.find("another camjob is writing to this folder"), std::string::npos);
        first.Commit();
    }
    EXPECT_EQ(ContentOf(path), kNew);
    Produce(path, kOld);
    EXPECT_EQ(ContentOf(path), kOld);
}

TEST(StagedOutput, ANameInOtherLettersIsStillItsFile) {
    const TempFolder folder;
    const fs::path path = folder.PathOf("out");
    Produce(path,
            {
                {"Orders.txt", "old"}
    });
    const bool ignoresCase = fs::exists(path / "oRDERS.tXT");
    Produce(path,
            {
                {"orders.txt", "new"}
    });
    ASSERT_EQ(ContentOf(path).size(), 1u);
    EXPECT_EQ(ContentOf(path).begin()->second, "new") << ignoresCase;
}

}  // namespace

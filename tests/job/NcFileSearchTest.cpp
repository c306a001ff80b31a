#include "job/JobFile.h"
#include "job/Utf8Path.h"
#include "support/TempFolder.h"

#include <algorithm>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

using job::Job;

struct Case {
    const char* name;
    std::vector<std::string> patterns;
    std::vector<std::string> files;  ///< relative to the job's folder
    const char* fault = "";
};

class NcFileSearch : public ::testing::TestWithParam<Case> {};

TEST_P(NcFileSearch, FindsTheFiles) {
    const TempFolder folder;
    for (const char* subfolder : {"nc", "nc/deep", "nc/folder.nc1"})
        std::filesystem::create_directory(folder.PathOf(subfolder));
    for (const char* file : {"nc/a1.nc1",
                             "nc/a10.nc1",
                             "nc/a2.nc1",
                             "nc/B.NC1",
                             "nc/Träger.nc1",
                             "nc/.a3.nc1",
                             "nc/deep/z.nc1",
                             "plain.nc"})
        folder.Write(file, "");
    Job job;
    job.file = folder.NameOf("job.toml").toUtf8();
    long line = 0;
    for (const std::string& pattern : GetParam().patterns)
        job.ncFiles.push_back({pattern, ++line, 7});
    const job::NcFilesResult result = ExpandNcFiles(job);
    if (const auto* errors = std::get_if<1>(&result)) {
        ASSERT_EQ(errors->size(), 1u);
        std::string text = DescribeJobError(errors->front());
        std::string path = job.file.substr(0, job.file.rfind("job.toml") - 1);
        // On Windows the job's own name may have others.
        for (std::string* each : {&text, &path})
            std::replace(each->begin(), each->end(), '\\', '/');
        for (const std::string& shown : {path + "/", path})
            for (std::size_t at = text.find(shown); at != std::string::npos; at = text.find(shown))
                text.erase(at, shown.size());
        EXPECT_EQ(text, std::string("job.toml") + GetParam().fault);
        return;
    }
    std::vector<std::string> names;
    for (const job::NamedNcFile& file : std::get<0>(result)) {
        const auto relative =
            job::PathFromUtf8(file.name).lexically_relative(folder.PathOf("")).generic_u8string();
        names.emplace_back(relative.begin(), relative.end());
    }
    EXPECT_EQ(names, GetParam().files);
    EXPECT_STREQ(GetParam().fault, "");
}

// clang-format off
const Case kCases[] = {
    {"Name", {"plain.nc"}, {"plain.nc"}},
    {"SortedByName", {"nc/a*.nc1"}, {"nc/a1.nc1", "nc/a10.nc1", "nc/a2.nc1"}},
    {"OneCharacter", {"nc/a?.nc1"}, {"nc/a1.nc1", "nc/a2.nc1"}},
    {"NoFoldersNoHiddenFiles", {"nc/*"}, {"nc/B.NC1", "nc/Träger.nc1", "nc/a1.nc1", "nc/a10.nc1", "nc/a2.nc1"}},
    {"CaseCounts", {"nc/b.nc1"}, {}, ":1:7: no file fits \"nc/b.nc1\": \"nc\" holds \"B.NC1\", and capitals count"},
    {"CaseCountsInPatterns", {"nc/B*.nc1"}, {}, ":1:7: no file fits \"nc/B*.nc1\": \"nc\" holds \"B.NC1\", and capitals count"},
    {"UmlautIsOneCharacter", {"nc/Tr?ger.*"}, {"nc/Träger.nc1"}},
    {"WildFolders", {"*/*/?.nc1"}, {"nc/deep/z.nc1"}},
    {"DotFile", {"nc/.*"}, {"nc/.a3.nc1"}},
    {"EachFileOnce", {"nc/a1*", "nc/a1.nc1", "nc/../nc/./a10.nc1"}, {"nc/a1.nc1", "nc/a10.nc1"}},
    {"PatternsTogether", {"plain.nc", "nc/deep/*"}, {"nc/deep/z.nc1", "plain.nc"}},
    {"NothingFits", {"plain.nc", "nc/x*"}, {}, ":2:7: no file fits \"nc/x*\": \"nc\" holds other names, such as \"B.NC1\""},
    {"NoSuchFolder", {"gone/*.nc1"}, {}, ":1:7: no file fits \"gone/*.nc1\": \"\" holds other names, such as \"nc\""},
    {"FolderIsNoFile", {"nc/folder.nc1"}, {}, ":1:7: no file fits \"nc/folder.nc1\": it is a folder; write \"nc/folder.nc1/*.nc1\""},
    {"FolderWithSlash", {"nc/deep/"}, {}, ":1:7: no file fits \"nc/deep/\": it is a folder; write \"nc/deep/*.nc1\""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases,
                         NcFileSearch,
                         ::testing::ValuesIn(kCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

#ifndef _WIN32
/// What a search comes across and cannot use: left out unseen, files of the job would be missing.
struct Obstacle {
    const char* name;
    void (*make)(const TempFolder& folder);
    const char* pattern;
    const char* fault;  ///< "": the file is found, and whoever reads it tells
};

void LinkTo(const char* target, const std::filesystem::path& link) {
    std::filesystem::create_symlink(target, link);
}

// clang-format off
const Obstacle kObstacles[] = {
    {"LinkToNothing", [](const TempFolder& f) { LinkTo("gone", f.PathOf("nc/link.nc1")); }, "nc/l*", ""},
    {"NameThatIsNoUtf8", [](const TempFolder& f) { f.Write("nc/\xE4\xDF.nc1", ""); }, "nc/??.nc1", ""},
    {"Pipe", [](const TempFolder& f) { mkfifo(f.PathOf("nc/p.nc1").c_str(), 0600); }, "nc/*",
     "nc/p.nc1\" is not a file"},
    {"FolderCalledLikeAFile", [](const TempFolder& f) { std::filesystem::create_directory(f.PathOf("nc/b.nc1")); }, "nc/*.nc1",
     "nc/b.nc1\" is a folder, not a file"},
    {"Loop", [](const TempFolder& f) { LinkTo("o.nc1", f.PathOf("nc/o.nc1")); }, "nc/o*", ""},
    {"LoopInTheWay", [](const TempFolder& f) { LinkTo("o", f.PathOf("o")); }, "*/*.nc1",
     "o\" cannot be listed ("},
    {"LoopBeforeAName", [](const TempFolder& f) { LinkTo("o", f.PathOf("o")); }, "*/a.nc1",
     "o/a.nc1\" cannot be looked at ("},
    {"LinkToNoFolder", [](const TempFolder& f) { LinkTo("gone", f.PathOf("o")); }, "*/*.nc1",
     "o\" is a link to nothing"},
    {"LinkToNoFolderBeforeAName", [](const TempFolder& f) { LinkTo("gone", f.PathOf("o")); }, "*/a.nc1",
     "o\" is a link to nothing"},
};
// clang-format on

TEST(NcFileSearchObstacles, AreFoundOrTold) {
    for (const Obstacle& obstacle : kObstacles) {
        SCOPED_TRACE(obstacle.name);
        const TempFolder folder;
        std::filesystem::create_directory(folder.PathOf("nc"));
        folder.Write("nc/a.nc1", "");
        obstacle.make(folder);
        Job job;
        job.file = folder.NameOf("job.toml").toUtf8();
        job.ncFiles = {
            {obstacle.pattern, 1, 7}
        };
        const job::NcFilesResult result = ExpandNcFiles(job);
        const auto* errors = std::get_if<1>(&result);
        ASSERT_EQ(errors == nullptr, obstacle.fault == std::string());
        if (errors == nullptr)
            EXPECT_EQ(std::get<0>(result).size(), 1u);
        else
            EXPECT_NE(DescribeJobError(errors->front()).find(obstacle.fault), std::string::npos)
                << DescribeJobError(errors->front());
    }
}
#endif

}  // namespace

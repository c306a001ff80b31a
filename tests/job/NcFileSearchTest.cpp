#include "job/JobFile.h"
#include "support/TempFolder.h"

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
        EXPECT_EQ(DescribeJobError(errors->front()), job.file + GetParam().fault);
        return;
    }
    std::vector<std::string> names;
    for (const std::filesystem::path& file : std::get<0>(result)) {
        const auto relative = file.lexically_relative(folder.PathOf("")).generic_u8string();
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
    {"CaseCounts", {"nc/b.nc1"}, {}, ":1:7: no file fits \"nc/b.nc1\""},
    {"CaseCountsInPatterns", {"nc/B*.nc1"}, {}, ":1:7: no file fits \"nc/B*.nc1\""},
    {"UmlautIsOneCharacter", {"nc/Tr?ger.*"}, {"nc/Träger.nc1"}},
    {"WildFolders", {"*/*/?.nc1"}, {"nc/deep/z.nc1"}},
    {"DotFile", {"nc/.*"}, {"nc/.a3.nc1"}},
    {"EachFileOnce", {"nc/a1*", "nc/a1.nc1", "nc/../nc/./a10.nc1"}, {"nc/a1.nc1", "nc/a10.nc1"}},
    {"PatternsTogether", {"plain.nc", "nc/deep/*"}, {"nc/deep/z.nc1", "plain.nc"}},
    {"NothingFits", {"plain.nc", "nc/x*"}, {}, ":2:7: no file fits \"nc/x*\""},
    {"NoSuchFolder", {"gone/*.nc1"}, {}, ":1:7: no file fits \"gone/*.nc1\""},
    {"FolderIsNoFile", {"nc/folder.nc1"}, {}, ":1:7: no file fits \"nc/folder.nc1\""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases,
                         NcFileSearch,
                         ::testing::ValuesIn(kCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

#ifndef _WIN32
/// Whoever reads the files will tell.
TEST(NcFileSearchLinks, ALinkToAFileThatIsGoneIsFound) {
    const TempFolder folder;
    std::filesystem::create_symlink("gone", folder.PathOf("link.nc1"));
    Job job;
    job.file = folder.NameOf("job.toml").toUtf8();
    job.ncFiles = {
        {"*.nc1", 1, 7}
    };
    const job::NcFilesResult result = ExpandNcFiles(job);
    ASSERT_EQ(result.index(), 0u);
    EXPECT_EQ(std::get<0>(result).size(), 1u);
}
#endif

}  // namespace

#include "job/Job.h"
#include "job/JobKeys.h"
#include "support/JobKeyNames.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace {

constexpr const char* kDocument = JOB_DOCS_FOLDER "/job-file.md";
constexpr const char* kBegin = "<!-- Every key: written by the tests, see docs/tests.md -->\n";

std::string ReadFile(const std::string& name) {
    std::ifstream stream(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string ListKeys() {
    std::string text;
    for (const job::JobKeyTable& table : job::ListJobKeys()) {
        text += "\n### `" + table.title + "`\n\n" + table.meaning +
                "\n\n| key | value | unit | default | meaning |\n|---|---|---|---|---|\n";
        for (const job::JobKey& key : table.keys)
            text += "| `" + key.name + "` | " + key.value + " | " + key.unit + " | " +
                    key.defaultValue + " | " + key.meaning + " |\n";
    }
    return text;
}

TEST(JobKeys, AreDocumented) {
    const std::string document = ReadFile(kDocument);
    const std::size_t begin = document.find(kBegin);
    ASSERT_NE(begin, std::string::npos);
    const std::string wanted = document.substr(0, begin) + kBegin + ListKeys();
    if (std::getenv("UPDATE_GOLDEN") != nullptr)
        std::ofstream(kDocument, std::ios::binary) << wanted;
    else
        EXPECT_EQ(document, wanted) << "run the tests with UPDATE_GOLDEN=1";
}

/// The word of what a check does without the job is a note beside its row.
TEST(JobKeys, DefaultsOfReportTypes) {
    const char* const words[] = {"", "\"warning\"", "\"non_standard\"", "", "\"error\""};
    const job::MemberType type;
    for (const job::JobKeyTable& table : job::ListJobKeys())
        for (std::size_t i = 0; table.title == "member_type.report" && i < table.keys.size(); ++i)
            EXPECT_EQ(table.keys[i].defaultValue,
                      words[type.GetReportType(static_cast<int>(i))])
                << table.keys[i].name;
}

/// What is read in the good job is every key.
TEST(JobKeys, AllStandInTheGoodJob) {
    EXPECT_EQ(FindMissingJobKeys(ReadFile(JOB_TEST_FOLDER "/good-job.toml")),
              std::vector<std::string>());
}

}  // namespace

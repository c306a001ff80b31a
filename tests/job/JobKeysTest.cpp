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

/// The texts of a finding, as code.
std::string ListTexts(std::string texts) {
    for (std::size_t end = 0; (end = texts.find('\n', end)) != std::string::npos; end += 6)
        texts.replace(end, 1, "`<br>`");
    return '`' + texts + '`';
}

std::string ListFindings(const job::JobKeyTable& table) {
    std::string text = "Each is " + table.keys.front().value +
                       ".\n\n| finding | what is said | what it means | what to do | default "
                       "|\n|---|---|---|---|---|\n";
    for (std::size_t i = 0; i < table.keys.size(); ++i) {
        const job::FindingType& type = job::kFindingTypes[i];
        text += "| `" + table.keys[i].name + "` | " + ListTexts(type.text) + " | " + type.meaning +
                " | " + type.remedy + " | " + table.keys[i].defaultValue + " |\n";
    }
    return text;
}

std::string ListKeys() {
    std::string text;
    for (const job::JobKeyTable& table : job::ListJobKeys()) {
        text += "\n### `" + table.title + "`\n\n" + table.meaning + "\n\n";
        if (table.title == "member_type.report") {
            text += ListFindings(table);
            continue;
        }
        text += KeyRowsText(table);
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

/// The library's own checks do in a job what they do without one.
TEST(JobKeys, DefaultsOfTheLibrarysChecks) {
    const CMemberValidations library;
    for (int check = 0; check < job::kUncoveredHole; ++check)
        EXPECT_EQ(library.GetReportType(static_cast<eValidationTypes>(check)),
                  job::kDefaultReports[static_cast<std::size_t>(check)])
            << job::kFindingTypes[check].name;
}

/// What is read in the good job is every key.
TEST(JobKeys, AllStandInTheGoodJob) {
    EXPECT_EQ(FindMissingJobKeys(ReadFile(JOB_TEST_FOLDER "/good-job.toml")),
              std::vector<std::string>());
}

}  // namespace

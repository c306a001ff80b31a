#include "job/FormatFile.h"
#include "job/JobFile.h"
#include "job/JobKeys.h"
#include "support/BrokenFiles.h"
#include "support/JobKeyNames.h"
#include "support/TempFolder.h"

#include <cstdlib>

namespace {

std::string ReadSample(const std::string& name) {
    std::ifstream stream(JOB_TEST_FOLDER "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string FaultsOf(const std::string& text) {
    job::JobFaults faults;
    job::ReadFormatText(text, "format", faults);
    std::string lines;
    for (const job::JobFaults::Fault& fault : faults.TakeSorted())
        lines += std::to_string(fault.at.line) + ":" + std::to_string(fault.at.column) + ": " +
                 fault.text + "\n";
    return lines;
}

class BrokenFormat : public ::testing::TestWithParam<BrokenFile> {};

TEST_P(BrokenFormat, EveryFaultIsTold) {
    std::string text = ReadSample("good-format.toml");
    const std::size_t at = text.find(GetParam().oldText);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, GetParam().oldText.size(), GetParam().newText);
    EXPECT_EQ(FaultsOf(text), GetParam().faults);
}

INSTANTIATE_TEST_SUITE_P(Cases,
                         BrokenFormat,
                         ::testing::ValuesIn(ReadBrokenFiles(JOB_TEST_FOLDER
                                                             "/broken-formats.txt")),
                         [](const auto& instance) { return instance.param.name; });

TEST(FormatFile, GoodAndBuiltInOnesHaveNoFault) {
    EXPECT_EQ(FaultsOf(ReadSample("good-format.toml")), "");
    for (const job::BuiltInFormat& format : job::GetBuiltInFormats())
        EXPECT_EQ(format.text.empty() ? "" : FaultsOf(std::string(format.text)), "") << format.name;
}

constexpr const char* kJob =
    "[job]\nnc_files = [\"*\"]\n[[group]]\nid = \"g\"\n[[member_type]]\nid = \"t\"\ngroup = \"g\"\n";

/// Those of the job file come first, then those of the format files that it names.
TEST(FormatFile, IsCheckedWithItsJob) {
    const TempFolder folder;
    folder.Write("a.toml", "[[line]]\nfor = [\"member\"]\ntext = [\"{mrk}\"]\n");
    struct Case {
        std::string file;
        std::string fault;
    };
    const Case cases[] = {
        {"id = \"order\"\nformat = \"csv\"",                                     ""             },
        {"id = \"order\"\nformat = \"csf\"",
         "job.toml:10:10: \"format\": there is no format \"csf\"; did you mean \"csv\"?; the name "
         "of a format file ends with .toml"                                                     },
        {"id = \"info\"\nformat = \"csv\"",
         "job.toml:10:10: \"format\": the file \"info\" takes no members: only \"order\" and files "
         "of the job's own do"                                                                  },
        {"id = \"x\"\nformat = \"dstv\"",                                        ""             },
        {"id = \"x\"\nformat = \"dstv\"\nnames = \"{mrk}.nc1\"",
         "job.toml:11:9: \"names\": there is no value {mrk}, only mark, file_name, drawing, "
         "profile, phase, order and group; did you mean \"mark\"?"                              },
        {"id = \"x\"\nformat = \"dstv\"\nnames = \"a.nc1\"",
         "job.toml:11:9: \"names\": it needs {mark}, {file_name} or {drawing}: members would have one "
         "file"                                                                                 },
        {"id = \"x\"\nformat = \"dstv\"\nnames = \"{drawing}-{file_name}.nc1\"", ""             },
        {"id = \"x\"\nformat = \"dstv\"\nnames = \"{mark\"",
         "job.toml:11:9: \"names\": a { has no } behind it"                                     },
        {"id = \"x\"\nformat = \"dstv\"\nnames = \"{mark}.nc1 \"",
         "job.toml:11:9: \"names\": a file's name cannot be empty nor end with a dot or a blank"},
        {"id = \"x\"\nformat = \"dstv\"\nheader = [\"a\"]",
         "job.toml:11:10: \"header\" goes not with this format: NC files have no header lines"  },
        {"id = \"x\"\nformat = \"dstv\"\nfolder = \"NUL\"",
         "job.toml:11:10: file name \"NUL\": Windows keeps this name for a device"              },
        {"id = \"x\"\nformat = \"dstv\"\nending = \"-x\"",
         "job.toml:11:10: \"ending\" goes not with format = \"dstv\": the files are named by "
         "\"folder\" and \"names\""                                                             },
        {"id = \"order\"\nfolder = \"nc\"",
         "job.toml:10:10: \"folder\" and \"names\" go only with format = \"dstv\""              },
        {"id = \"order\"\nformat = \"b.toml\"",
         "job.toml:10:10: \"format\": the file \"b.toml\": there is no such file"               },
        {"id = \"order\"\nformat = \"a.toml\"\n[[file]]\nid = \"x\"\nending = \"x\"\nformat = "
         "\"a.toml\"",                                                  "a.toml:3:9: member: there is no value {mrk} in this line; did you mean \"mark\"?; a { "
         "that is meant as it stands is written {{"              },
    };
    for (const Case& each : cases) {
        const job::JobResult result =
            job::ReadJobFile(folder.Write("job.toml", kJob + ("[[file]]\n" + each.file + "\n")));
        std::string faults;
        if (const auto* errors = std::get_if<std::vector<job::JobError>>(&result))
            for (job::JobError error : *errors) {
                error.file = std::filesystem::path(error.file).filename().string();
                faults += DescribeJobError(error);
            }
        EXPECT_EQ(faults, each.fault);
    }
}

// ---- the document -------------------------------------------------------------------------------

constexpr const char* kDocument = JOB_DOCS_FOLDER "/format-file.md";
constexpr const char* kBegin =
    "<!-- Every key and value: written by the tests, see docs/tests.md -->\n";

std::string ListFields() {
    std::string text = "\n### Values\n\n| value | in lines for | meaning |\n|---|---|---|\n";
    for (const job::FieldRow& row : job::GetFieldRows()) {
        std::string parts;
        for (std::size_t part = 0; part < job::kFormatParts; ++part)
            if ((row.parts >> part & 1u) != 0)
                parts += (parts.empty() ? "" : ", ") +
                         std::string(NameOf(static_cast<job::FormatPart>(part)));
        const bool isAnywhere = row.parts == (1u << job::kFormatParts) - 1;
        text += "| `" + std::string(row.name) + "` | " + (isAnywhere ? "all" : parts) + " | " +
                row.meaning + " |\n";
    }
    return text;
}

TEST(FormatFile, KeysAndValuesAreDocumented) {
    std::ifstream stream(kDocument, std::ios::binary);
    const std::string document{std::istreambuf_iterator<char>(stream), {}};
    stream.close();
    const std::size_t begin = document.find(kBegin);
    ASSERT_NE(begin, std::string::npos);
    std::string wanted = document.substr(0, begin) + kBegin;
    for (const job::JobKeyTable& table : job::ListFormatKeys())
        wanted += "\n### `" + table.title + "`\n\n" + table.meaning + "\n\n" + KeyRowsText(table);
    wanted += ListFields();
    if (std::getenv("UPDATE_GOLDEN") != nullptr)
        std::ofstream(kDocument, std::ios::binary) << wanted;
    else
        EXPECT_EQ(document, wanted) << "run the tests with UPDATE_GOLDEN=1";
}

TEST(FormatFile, AllKeysStandInTheGoodFormat) {
    const std::string good = ReadSample("good-format.toml");
    for (const job::JobKeyTable& table : job::ListFormatKeys())
        for (const job::JobKey& key : table.keys)
            EXPECT_NE(good.find("\n" + key.name + " = "), std::string::npos) << key.name;
}

}  // namespace

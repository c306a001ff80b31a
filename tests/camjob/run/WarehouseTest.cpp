#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "support/Golden.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace {

namespace fs = std::filesystem;

/// What a run left on the screen; names of files as Linux writes them.
std::string PrintedBy(const CamjobRun& run) {
    std::string text = ReportOf(run);
    std::replace(text.begin(), text.end(), '\\', '/');
    return std::regex_replace(text, std::regex("(-report\\.html) +[0-9]+"), "$1 (any size)");
}

/// What the page says, without how it looks and behaves.
void KeepWords(const fs::path& page) {
    std::ifstream stream(page, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(stream), {});
    stream.close();
    for (const std::string element : {"style>", "script>"})
        for (std::size_t start; (start = text.find("<" + element)) != std::string::npos;)
            text.erase(start, text.find("</" + element, start) + 2 + element.size() - start);
    std::ofstream(page, std::ios::binary) << text;
}

// The example job from end to end: what is printed, and every byte of every file.
TEST(Warehouse, OutputIsTheApprovedOne) {
    const TempFolder folder;
    fs::copy(CAMJOB_EXAMPLES "/warehouse", folder.PathOf("warehouse"), fs::copy_options::recursive);
    {
        const CurrentFolder current(folder.PathOf("warehouse"));
        const CamjobRun run = RunTool({"run", "warehouse.toml", "--out", "made"});
        folder.Write("warehouse/made/printed.txt", PrintedBy(run));
        KeepWords("made/warehouse12-report.html");
    }
    for (const std::string made : {"", "/plasma"})
        EXPECT_TRUE(MatchesGoldenFolder(CAMJOB_GOLDEN_FOLDER "/run/golden/warehouse" + made,
                                        folder.PathOf("warehouse/made" + made)));
}

}  // namespace

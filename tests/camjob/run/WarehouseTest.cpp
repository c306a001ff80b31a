#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "support/Golden.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

/// What a run left on the screen; names of files as Linux writes them.
std::string PrintedBy(const CamjobRun& run) {
    std::string text = ReportOf(run);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

// The example job from end to end: what is printed, and every byte of every file.
TEST(Warehouse, OutputIsTheApprovedOne) {
    const TempFolder folder;
    fs::copy(CAMJOB_EXAMPLES "/warehouse", folder.PathOf("warehouse"), fs::copy_options::recursive);
    {
        const CurrentFolder current(folder.PathOf("warehouse"));
        const CamjobRun run = RunTool({"run", "warehouse.toml", "--out", "made"});
        folder.Write("warehouse/made/printed.txt", PrintedBy(run));
    }
    EXPECT_TRUE(MatchesGoldenFolder(CAMJOB_GOLDEN_FOLDER "/run/golden/warehouse",
                                    folder.PathOf("warehouse/made")));
}

}  // namespace

#include "camjob/CamjobRun.h"
#include "support/Golden.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

/// Makes a folder the current one for a while: what is printed depends on the names of the job and
/// its output.
class CurrentFolder {
  public:
    explicit CurrentFolder(const fs::path& folder) : m_before(fs::current_path()) {
        fs::current_path(folder);
    }
    ~CurrentFolder() { fs::current_path(m_before); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

  private:
    fs::path m_before;
};

/// What a run left on the screen; names of files as Linux writes them.
std::string PrintedBy(const CamjobRun& run) {
    std::string text = "exit code " + std::to_string(run.exitCode) + "\n---- stdout\n" + run.out +
                       "---- stderr\n" + run.err;
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

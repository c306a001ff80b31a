#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "support/Golden.h"

namespace {

using Json = nlohmann::json;

CamjobRun CheckAsJson(const TempFolder& folder, const std::vector<std::string>& files) {
    std::vector<std::string> arguments{"check", "--json"};
    for (const std::string& file : files)
        arguments.push_back(ArgumentFor(folder, file));
    CamjobRun run = RunTool(arguments);
    EXPECT_EQ(run.err, "");
    return run;
}

TEST(CheckJson, IsTheApprovedDocument) {
    const TempFolder folder;
    folder.Write("holes.nc1", CheckedFile("all-holes"));
    folder.Write("good.nc1", nc::Plain());
    folder.Write("bad.nc1", nc::BadLength());
    const CamjobRun run = CheckAsJson(folder, {"holes.nc1", "bad.nc1", "good.nc1", "good.nc1"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(MatchesGolden(
        CAMJOB_GOLDEN_FOLDER "/check/golden", "json", ApprovableJson(run.out, folder)));
}

TEST(CheckJson, HoldsAnyText) {
    const std::string mark = "\"quoted\" \\ \xE2\x80\xA8 </script> \xF0\x9F\x94\xA9";
    const TempFolder folder;
    folder.Write("z.nc1", nc::Plain(mark));
    const Json files = Json::parse(CheckAsJson(folder, {"z.nc1", "gone.nc1"}).out)["files"];
    EXPECT_EQ(files[0]["header"]["mark"], mark);
    EXPECT_EQ(files[0]["file"], ArgumentFor(folder, "z.nc1"));
    EXPECT_EQ(files[1]["error"]["line"], 0);
}

}  // namespace

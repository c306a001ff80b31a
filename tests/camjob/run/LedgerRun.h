#pragma once

#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "support/FindingText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

/// Runs whose accounts are looked at.
namespace ledger {

using Json = nlohmann::ordered_json;

inline constexpr const char* kZ = "Z200x2.0\n  SO";
inline constexpr const char* kTube = "CHS200\n  RO";
inline constexpr const char* kI = "HP200\n  I";
inline constexpr const char* kBox = "RHS200x65\n  M";
inline constexpr const char* kPlate = "PL2\n  B";

inline constexpr const char* kJob = R"([job]
nc_files = ["nc/*.nc1"]
[project]
file_name = "s"
[tolerances]
check_distances = false
[[group]]
id = "all"
[[hole_rule]]
id = "countersunk"
shape = "countersunk"
code = "K"
[[hole_rule]]
id = "slot"
shape = "slot"
code = "L"
[[hole_rule]]
id = "round"
diameters = [10.0, 13.0, 18.0, 20.0]
code = "H"
[uncovered_notches]
action = "accept"
code = "N"
[[trim]]
id = "saw"
faces = ["web"]
sides = ["start", "end"]
code = "SAW"
[[member_type]]
id = "any"
group = "all"
)";
inline std::string Read(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A run of NC files by a job.
struct Ran {
    explicit Ran(const std::map<std::string, std::string>& files, const std::string& job = kJob) {
        const TempFolder folder;
        std::filesystem::create_directories(folder.PathOf("nc"));
        folder.Write("job.toml", job);
        for (const auto& [name, text] : files)
            folder.Write("nc/" + name + ".nc1", text);
        const CamjobRun run = RunTool({"run",
                                       ArgumentFor(folder, "job.toml"),
                                       "--out",
                                       ArgumentFor(folder, "out"),
                                       "--json"});
        exitCode = run.exitCode;
        document = Json::parse(run.out);
        CheckTexts();
        orders = Read(folder.PathOf("out/s-orders.txt"));
    }

    /// Each finding is told as the table of findings says.
    void CheckTexts() const {
        for (const Json& member : document["members"])
            for (const Json& finding : member["findings"]) {
                const auto* const type = std::find_if(
                    std::begin(job::kFindingTypes),
                    std::end(job::kFindingTypes),
                    [&](const job::FindingType& each) { return finding["type"] == each.name; });
                ASSERT_NE(type, std::end(job::kFindingTypes));
                EXPECT_TRUE(IsTextOf(*type, finding["text"].get<std::string>())) << finding.dump(1);
            }
    }

    int exitCode;
    Json document;
    std::string orders;
};

}  // namespace ledger

#include "camjob/ToolRun.h"
#include "fuzz/Law.h"
#include "fuzz/ScratchFolder.h"

#include <nlohmann/json.hpp>

// A whole run of any NC file by jobs of several kinds: its features are all accounted for (a run in
// which they are not ends with exit code 4), and its report is a document. The first byte chooses
// the job.

namespace {

constexpr const char* kBegin = R"([job]
nc_files = ["p.nc1"]
[project]
file_name = "s"
[reports]
html = false
sources = true
)";
constexpr const char* kRules = R"([[hole_rule]]
id = "sunk"
shape = "countersunk"
code = "K{depth:.1f}"
[[hole_rule]]
id = "round"
diameters = [10.0, 13.0, 14.0, 18.0, 22.0]
code = "D{diameter:.1f}"
[[hole_rule]]
id = "slot"
shape = "slot"
code = "L"
[[trim]]
id = "saw"
faces = ["web"]
sides = ["start", "end"]
code = "SAW"
[uncovered_notches]
action = "accept"
code = "N"
)";
constexpr const char* kMember = R"([[member_type]]
id = "any"
group = "all"
)";

struct Choice {
    int bit;
    const char* text;
};

std::string JobOf(unsigned choice) {
    constexpr Choice kSettings[] = {
        {1, "[tolerances]\ncheck_distances = false\n"                      },
        {2, "[nc]\nunreadable = \"leave_out\"\nunmatched = \"leave_out\"\n"},
    };
    constexpr Choice kFilesOfGroup[] = {
        {8,  ", \"nc\""  },
        {16, ", \"rows\""},
    };
    constexpr Choice kGroups[] = {
        {4, "nesting = true\nplan = \"least\"\n"},
    };
    constexpr Choice kFiles[] = {
        {8,  "[[file]]\nid = \"nc\"\nformat = \"dstv\"\nfolder = \"nc\"\nnames = \"{mark}.nc1\"\n"},
        {16, "[[file]]\nid = \"rows\"\nending = \".csv\"\nformat = \"csv\"\n"                     },
    };
    constexpr Choice kMembers[] = {
        {32, "marks = true\n"                                                   },
        {64, "report = { duplicate_hole = \"off\", uncovered_hole = \"off\" }\n"},
    };
    std::string job = kBegin;
    const auto add = [&](const auto& choices) {
        for (const Choice& each : choices)
            if ((choice & static_cast<unsigned>(each.bit)) != 0)
                job += each.text;
    };
    add(kSettings);
    job += "[[group]]\nid = \"all\"\nfiles = [\"machine\"";
    add(kFilesOfGroup);
    job += "]\n";
    add(kGroups);
    job += "[[file]]\nid = \"machine\"\nending = \".txt\"\n";
    add(kFiles);
    job += kRules;
    job += kMember;
    add(kMembers);
    return job;
}

/// The accounts of each member hold as many features as it has.
void CheckDocument(const nlohmann::json& document) {
    Check(document.contains("status") && document["status"] != "fault", "a run is no fault");
    if (!document.contains("members"))
        return;
    for (const nlohmann::json& member : document["members"])
        Check(member.contains("accounts"), "a member has its accounts");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static const ScratchFolder folder;
    const std::string job = folder.Write("job.toml", JobOf(data[size - 1])).string();
    folder.Write("p.nc1", TextOf(data, size - 1));
    const CamjobRun run = RunTool({"run", job, "--out", folder.NameOf("out"), "--json"});
    Check(run.exitCode >= 0 && run.exitCode <= 2, "a run is done or refused");
    const auto document = nlohmann::json::parse(run.out, nullptr, false);
    Check(!document.is_discarded(), "a report is a document");
    CheckDocument(document);
    return 0;
}

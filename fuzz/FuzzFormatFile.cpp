#include "camjob/ToolRun.h"
#include "fuzz/Law.h"
#include "fuzz/ScratchFolder.h"

// Any bytes are a format that a part with every kind of operation is written by, or are refused
// with a message.

namespace {

constexpr const char* kPart =
    "ST\n  O\n  D\n  1\n  P1\n  S350GD\n  2\n  Z200x2.0\n  SO\n  2000.00\n  200.00\n  65.00\n  2.00\n"
    "  2.00\n  4.00\n  5.3\n  0.7\n  0.0\n  0.0\n  0.0\n  0.0\nAK\n  v 0 0\n  1900 0\n  1900 160\n"
    "  1850 160\n  1850 200\n  0 200\n  0 0\nIK\n  v 100 50\n  200 50\n  200 90\n  100 90\n  100 50\n"
    "BO\n  v 500 100 13\n  v 500 100s 26 6.5 0 0 90\n  v 600 50 18\n  v 700 50 18\n  v 800 50 18\n"
    "  o 900 30 14 0l 20 0 0\n  u 950 30 10 0l 50 25 0\nSI\n  v 50 100 0 10r P \xC3\x84\nKO\n"
    "  o 100 50\n  200 50\nEN\n";

constexpr const char* kJob = R"([job]
nc_files = ["p.nc1"]
[project]
file_name = "s"
[reports]
html = false
[tolerances]
check_distances = false
[[group]]
id = "all"
files = ["machine"]
[[file]]
id = "machine"
ending = ".mac"
format = "f.toml"
[[hole_rule]]
id = "every"
diameters = [10.0, 13.0, 14.0, 18.0]
code = "H"
[[hole_rule]]
id = "sunk"
shape = "countersunk"
code = "K"
[[hole_rule]]
id = "slot"
shape = "slot"
code = "L"
[uncovered_notches]
action = "accept"
code = "N"
[[trim]]
id = "saw"
code = "SAW"
[[member_type]]
id = "any"
group = "all"
marks = true
)";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    static const std::string job = folder.Write("job.toml", kJob).string();
    static const std::string part = folder.Write("p.nc1", kPart).string();
    folder.Write("f.toml", TextOf(data, size));
    const CamjobRun run = RunTool({"run", job, "--out", folder.NameOf("out")});
    Check(run.exitCode >= 0 && run.exitCode <= 2, "a format is used or refused");
    Check(run.exitCode != 2 || !run.err.empty(), "what is refused has a message");
    return 0;
}

#include "SampleJob.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

template <typename... Values>
std::string Print(const char* format, Values... values) {
    char line[512];
    std::snprintf(line, sizeof line, format, values...);
    return line;
}

std::string Header(long number, double length) {
    return Print(
        "ST\n** member %ld\n  Hall\n  D-%ld\n  1\n  P%ld\n  S350GD\n  %ld\n  Z200x2.0\n"
        "  SO\n  %.2f\n  200.00\n  142.00\n  2.00\n  2.00\n  3.00\n  5.650\n  0.800\n"
        "  0.000\n  0.000\n  0.000\n  0.000\n\n\n\n\n",
        number,
        number / 100,
        number,
        number % 7 + 1,
        length);
}

/// Two bolts at each end, and eight pairs along the web.
std::string Holes(double length) {
    std::string text = "BO\n";
    const auto pair = [&](double x) {
        text += Print("  v %9.2fu   60.00    18.00     0.00\n", x);
        text += Print("  v %9.2fu  140.00    18.00     0.00\n", x);
    };
    pair(40.0);
    for (int i = 1; i <= 8; ++i)
        pair(length * i / 9.0);
    pair(length - 40.0);
    return text;
}

/// A face of the given width whose corner at the member's end is cut out, 50 x 30.
std::string NotchedFace(char face, double length, double width) {
    const double points[][2] = {
        {0.0,           0.0         },
        {length,        0.0         },
        {length,        width - 30.0},
        {length - 50.0, width - 30.0},
        {length - 50.0, width       },
        {0.0,           width       },
        {0.0,           0.0         },
    };
    std::string text = "AK\n";
    for (const auto& point : points)
        text += Print("  %c %9.2fu %9.2f 0.00 0.00 0.00 0.00 0.00\n", face, point[0], point[1]);
    return text;
}

std::string NcFile(long number) {
    const double length = 2000.0 + static_cast<double>(number % 1900);
    return Header(number, length) + Holes(length) + NotchedFace('v', length, 200.0) +
           NotchedFace('o', length, 142.0) + "EN\n";
}

constexpr const char* kJob = R"([job]
name = "Benchmark"
nc_files = ["nc/*.nc1"]
date = 2026-03-02

[project]
file_name = "BENCH"

[[group]]
id = "purlins"
sort = ["profile_name", "length", "mark"]
nesting = true

[[member_type]]
id = "Z purlin"
profile = "Z*"
group = "purlins"
height = { source = "name", start = 1, length = 3 }
width = { source = "header" }
thickness = { source = "header" }

[[hole_rule]]
id = "M16"
shape = "round"
diameters = [18.0]
faces = ["web"]
back_marks = [60.0, 140.0]
code = "H18"

[[corner_notch]]
id = "end"
along = "end"
across = "upper"
face = "web"
corners = 4
rectangle = true
output = "N %.1f x %.1f"
values = ["length", "width"]

[[corner_notch]]
id = "end of flange"
along = "end"
across = "upper"
face = "top_flange"
corners = 4
rectangle = true
output = "F %.1f x %.1f"
values = ["length", "width"]
)";

constexpr const char* kNoReports = R"(
[reports]
html = false
run_document = false
)";

}  // namespace

void WriteSampleJob(const std::filesystem::path& folder, long members) {
    std::filesystem::create_directories(folder / "nc");
    for (long i = 1; i <= members; ++i)
        WriteFile(folder / "nc" / Print("%06ld.nc1", i), NcFile(i));
    WriteFile(folder / "job.toml", kJob + std::string(kNoReports));
    WriteFile(folder / "reports.toml", kJob);
}

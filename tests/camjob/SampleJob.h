#pragma once

#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"

#include <string>

/// A job of two groups in a folder of its own: Z sections, one of them the main part of an
/// assembly, and nested C sections; those of code B are left out.
struct SampleJob {
    std::string number = "1";     ///< heads every file
    std::string ownFile = "own";  ///< ID and ending of a file besides the usual four
    std::string more;             ///< further lines
    std::string reports;          ///< further lines of [reports]
    std::string ncFiles = "nc/*.nc1";

    std::string Text() const {
        return R"([job]
name = "Sample"
nc_files = [")" +
               ncFiles + R"("]
date = 2026-03-02

[reports]
html = false
)" + reports + R"(
[project]
file_name = "s"
number = ")" + number +
               R"("

[[file]]
id = ")" + ownFile +
               R"("
ending = "-)" + ownFile +
               R"(.txt"

[[group]]
id = "purlins"

[[group]]
id = "struts"
nesting = true

[[member_type]]
id = "plate"
code = "B"
skip = true
group = "purlins"

[[member_type]]
id = "purlin"
profile = "Z*"
group = "purlins"
limits = { max_length = 2000.0 }
report = { max_length = "error" }

[[member_type]]
id = "strut"
profile = "C*"
group = "struts"

[[hole_rule]]
id = "bolt"
diameters = [18.0]
code = "B18"

[[hole_rule]]
id = "any"
code = "X"

[[assembly]]
main = "A1"
parts = [{ mark = "C1" }]
)" + more;
    }

    /// Writes the job and its NC files: the main part, its part, a strut, a purlin that is too long
    /// and a plate.
    void Write(const TempFolder& folder, const std::string& name = "job.toml") const {
        std::filesystem::create_directories(folder.PathOf("nc"));
        folder.Write(name, Text());
        folder.Write("nc/1.nc1", nc::Plain("A1"));
        folder.Write("nc/2.nc1", nc::Header("C1", "C100x1.5\n  C", "900.00") + "EN\n");
        folder.Write("nc/3.nc1", nc::Header("C2", "C100x1.5\n  C", "1300.00") + "EN\n");
        folder.Write("nc/4.nc1", nc::Header("L1") + "EN\n");
        folder.Write("nc/5.nc1", nc::Header("P1", "PL10\n  B", "300.00") + "EN\n");
    }
};

inline CamjobRun RunJobFile(const TempFolder& folder,
                            const std::string& job = "job.toml",
                            const std::string& out = "out") {
    return RunTool({"run", ArgumentFor(folder, job), "--out", ArgumentFor(folder, out)});
}

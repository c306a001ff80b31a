#include "ChildProcess.h"
#include "SampleJob.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

// Whole jobs: `camjob run` as a process of its own, beside a process that reads the same NC files
// and writes the same output bytes and does nothing else. Both run in turn, with a warm file cache.
//
// camdata_job_bench CAMJOB FOLDER [MEMBERS...] prints a table; jobs are made in FOLDER, about 1 KB
// per member. It is the caller's to remove.

namespace {

namespace fs = std::filesystem;

int RunCamjob(const std::string& camjob, const fs::path& job) {
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    execl(camjob.c_str(),
          camjob.c_str(),
          "run",
          (job / "job.toml").c_str(),
          "--out",
          (job / "out").c_str(),
          static_cast<char*>(nullptr));
    return 1;
}

std::vector<char> ReadAll(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY);
    std::vector<char> bytes(fs::file_size(path));
    const bool isRead =
        file >= 0 && read(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    close(file);
    if (!isRead)
        throw std::runtime_error("cannot read " + path.string());
    return bytes;
}

/// Reads what camjob reads and writes what it has written, in one process.
int ReadAndWrite(const fs::path& job) {
    std::size_t sum = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(job / "nc"))
        sum += ReadAll(entry.path()).size();
    fs::create_directories(job / "copy");
    for (const fs::directory_entry& entry : fs::directory_iterator(job / "out")) {
        if (!entry.is_regular_file())
            continue;
        const std::vector<char> bytes = ReadAll(entry.path());
        std::ofstream(job / "copy" / entry.path().filename(), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    return sum > 0 ? 0 : 1;
}

double MedianOf(std::vector<Measured> runs, double Measured::*figure) {
    std::sort(runs.begin(), runs.end(), [=](const Measured& a, const Measured& b) {
        return a.*figure < b.*figure;
    });
    return runs[runs.size() / 2].*figure;
}

void Report(long members, const std::vector<Measured>& runs, const std::vector<Measured>& floors) {
    const double perMember = 1e6 / static_cast<double>(members);
    const double run = MedianOf(runs, &Measured::seconds) * perMember;
    const double floor = MedianOf(floors, &Measured::seconds) * perMember;
    const double memory = MedianOf(runs, &Measured::peakKib);
    std::printf("| %7ld | %8.1f | %8.1f | %5.1f | %9.1f | %8.2f |\n",
                members,
                run,
                floor,
                run / floor,
                memory / 1024.0,
                memory / static_cast<double>(members));
    std::fflush(stdout);
}

void Bench(const std::string& camjob, const fs::path& folder, long members) {
    const fs::path job = folder / std::to_string(members);
    WriteSampleJob(job, members);
    const int repeats = members < 100000 ? 7 : 3;
    std::vector<Measured> runs;
    std::vector<Measured> floors;
    RunChild([&] { return RunCamjob(camjob, job); });
    for (int i = 0; i < repeats; ++i) {
        runs.push_back(RunChild([&] { return RunCamjob(camjob, job); }));
        floors.push_back(RunChild([&] { return ReadAndWrite(job); }));
    }
    Report(members, runs, floors);
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fprintf(stderr, "usage: %s CAMJOB FOLDER [MEMBERS...]\n", arguments[0]);
        return 2;
    }
    std::vector<long> sizes;
    for (int i = 3; i < count; ++i)
        sizes.push_back(std::strtol(arguments[i], nullptr, 10));
    if (sizes.empty())
        sizes = {100, 1000, 10000, 100000};
    std::printf(
        "| members | us/member | floor us/member | ratio | peak MiB | KiB/member |\n"
        "|---|---|---|---|---|---|\n");
    try {
        for (const long members : sizes)
            Bench(arguments[1], arguments[2], members);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}

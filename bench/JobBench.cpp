#include "ChildProcess.h"
#include "LogChart.h"
#include "SampleJob.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

// Whole jobs: `camjob run` as a process of its own, beside a floor: a process that opens, reads and
// closes the same NC files, writes the same output bytes, flushes as often, and does nothing else.
// Both run in turn, with a warm file cache; first without report page and run document, then with.
// Then the same jobs with one thread and with one for each core, in turn.
//
// camdata_job_bench CAMJOB FOLDER [MEMBERS...] prints four tables, and draws members.svg and
// threads.svg in FOLDER, where the jobs are made, too, about 1 KB per member. It is the caller's to
// remove.

namespace {

namespace fs = std::filesystem;

/// What camjob flushes besides the files of the output: folders, and the list of what it replaces.
constexpr int kFurtherFlushes = 5;

/// One for each core.
std::string AllThreads() {
    return std::to_string(std::max(std::thread::hardware_concurrency(), 1u));
}

int RunCamjob(const std::string& camjob,
              const fs::path& job,
              const fs::path& out,
              const std::string& threads = AllThreads()) {
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    execl(camjob.c_str(),
          camjob.c_str(),
          "run",
          job.c_str(),
          "--out",
          out.c_str(),
          "--threads",
          threads.c_str(),
          static_cast<char*>(nullptr));
    return 1;
}

std::string ReadAll(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return bytes;
}

/// The files of an output.
std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(ReadAll(entry.path()));
    return files;
}

bool ReadNcFiles(const fs::path& folder) {
    DIR* const listing = opendir(folder.c_str());
    static std::array<char, 1u << 14> bytes;
    bool isRead = listing != nullptr;
    for (const dirent* entry = nullptr; isRead && (entry = readdir(listing)) != nullptr;) {
        if (entry->d_name[0] == '.')
            continue;
        const int file = openat(dirfd(listing), entry->d_name, O_RDONLY);
        isRead = read(file, bytes.data(), bytes.size()) > 0;
        close(file);
    }
    return isRead;
}

bool WriteFlushed(const fs::path& path, const std::string& bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(file, bytes.data() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += static_cast<std::size_t>(count);
    }
    return fsync(file) == 0 && close(file) == 0;
}

/// Reads what camjob reads and writes what it has written.
int ReadAndWrite(const fs::path& nc, const fs::path& out, const std::vector<std::string>& files) {
    bool isDone = ReadNcFiles(nc);
    for (std::size_t i = 0; i < files.size(); ++i)
        isDone = isDone && WriteFlushed(out / std::to_string(i), files[i]);
    const int folder = open(out.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < kFurtherFlushes; ++i)
        isDone = isDone && fsync(folder) == 0;
    return isDone ? 0 : 1;
}

double MedianOf(std::vector<Measured> runs, double Measured::*figure) {
    std::sort(runs.begin(), runs.end(), [=](const Measured& a, const Measured& b) {
        return a.*figure < b.*figure;
    });
    return runs[runs.size() / 2].*figure;
}

/// Microseconds per member.
struct Times {
    double wall;
    double processor;
};

Times TimesOf(const std::vector<Measured>& runs, long members) {
    const double perMember = 1e6 / static_cast<double>(members);
    return {MedianOf(runs, &Measured::seconds) * perMember,
            MedianOf(runs, &Measured::processorSeconds) * perMember};
}

int RepeatsOf(long members) {
    return members < 100000 ? 9 : 3;
}

/// Lines of a chart: of what is measured, and of what it is held against.
struct Lines {
    ChartLine runs;
    ChartLine floor;

    void Add(long members, double run, double other) {
        runs.points.push_back({static_cast<double>(members), run});
        floor.points.push_back({static_cast<double>(members), other});
    }
};

void Bench(const std::string& camjob,
           const fs::path& folder,
           const std::string& jobName,
           long members,
           Lines& lines) {
    const fs::path job = folder / jobName;
    const fs::path out = folder / "out";
    const fs::path copy = folder / "copy";
    fs::remove_all(out);
    fs::create_directories(copy);
    // Before this process holds the files: the system counts its memory as the child's, too.
    const double memory = RunChild([&] { return RunCamjob(camjob, job, out); }).peakKib;
    const std::vector<std::string> files = FilesIn(out);
    std::vector<Measured> runs;
    std::vector<Measured> floors;
    for (int i = 0; i < RepeatsOf(members); ++i) {
        fs::remove_all(out);
        runs.push_back(RunChild([&] { return RunCamjob(camjob, job, out); }));
        floors.push_back(RunChild([&] { return ReadAndWrite(folder / "nc", copy, files); }));
    }
    const Times run = TimesOf(runs, members);
    const Times floor = TimesOf(floors, members);
    std::printf("| %7ld | %8.1f | %8.1f | %5.1f | %8.1f | %8.1f | %5.1f | %9.1f | %8.2f |\n",
                members,
                run.wall,
                floor.wall,
                run.wall / floor.wall,
                run.processor,
                floor.processor,
                run.processor / floor.processor,
                memory / 1024.0,
                memory / static_cast<double>(members));
    std::fflush(stdout);
    lines.Add(members, run.wall, floor.wall);
}

/// The run with all threads, held against that with one.
void BenchThreads(const std::string& camjob,
                  const fs::path& folder,
                  const std::string& jobName,
                  long members,
                  Lines& lines) {
    const fs::path out = folder / "out";
    const auto measure = [&](const std::string& threads) {
        fs::remove_all(out);
        return RunChild([&] { return RunCamjob(camjob, folder / jobName, out, threads); });
    };
    std::vector<Measured> shared;
    std::vector<Measured> alone;
    for (int i = 0; i < RepeatsOf(members); ++i) {
        shared.push_back(measure(AllThreads()));
        alone.push_back(measure("1"));
    }
    const Times all = TimesOf(shared, members);
    const Times one = TimesOf(alone, members);
    std::printf("| %7ld | %8.1f | %8.1f | %5.2f | %8.1f | %8.1f | %5.2f |\n",
                members,
                one.wall,
                all.wall,
                one.wall / all.wall,
                one.processor,
                all.processor,
                all.processor / one.processor);
    std::fflush(stdout);
    lines.Add(members, all.wall, one.wall);
}

using Measure = void (*)(const std::string& camjob,
                         const fs::path& folder,
                         const std::string& jobName,
                         long members,
                         Lines& lines);

/// A table for each of the jobs, and a chart of both; `heads` are the columns.
void BenchAll(const std::string& camjob,
              const fs::path& folder,
              const std::vector<long>& sizes,
              const char* heads,
              Measure measure,
              Lines plain,
              Lines reported,
              const char* chart) {
    for (const auto& [name, lines] : {
             std::pair("job.toml", &plain), {"reports.toml", &reported}
    }) {
        std::printf("\n%s, us per member\n\n%s", lines->runs.name.c_str(), heads);
        for (const long members : sizes)
            measure(camjob, folder / std::to_string(members), name, members, *lines);
    }
    std::ofstream(folder / chart) << LogChart(
        "Wall time per member, microseconds",
        "members of the job",
        {plain.runs, plain.floor, reported.runs, reported.floor});
}

void BenchJobs(const std::string& camjob, const fs::path& folder, const std::vector<long>& sizes) {
    BenchAll(camjob,
             folder,
             sizes,
             "| members | wall | floor | ratio | processor | floor | ratio | peak MiB | "
             "KiB/member |\n|---|---|---|---|---|---|---|---|---|\n",
             &Bench,
             {
                 {"camjob run, without page and run document", {}},
                 {"floor",                                     {}}
    },
             {{"camjob run, with both", {}}, {"floor of both", {}}},
             "members.svg");
    const std::string all = AllThreads() + " threads";
    const std::string heads = "| members | wall, 1 thread | " + all + " | times | processor, 1 | " +
                              all + " | ratio |\n|---|---|---|---|---|---|---|\n";
    BenchAll(camjob,
             folder,
             sizes,
             heads.c_str(),
             &BenchThreads,
             {
                 {"without page and run document, " + all, {}},
                 {"1 thread",                              {}}
    },
             {{"with both, " + all, {}}, {"with both, 1 thread", {}}},
             "threads.svg");
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
    try {
        for (const long members : sizes)
            WriteSampleJob(fs::path(arguments[2]) / std::to_string(members), members);
        BenchJobs(arguments[1], arguments[2], sizes);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}

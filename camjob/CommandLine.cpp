#include "camjob/CommandLine.h"

#include "camjob/Version.h"
#include "camjob/check/CheckCommand.h"
#include "camjob/compare/CompareCommand.h"
#include "camjob/console/Interrupt.h"
#include "camjob/console/ShownText.h"
#include "camjob/disk/StagingDisk.h"
#include "camjob/formats/FormatsCommand.h"
#include "camjob/host/HostCommand.h"
#include "camjob/init/InitCommand.h"
#include "camjob/run/Cores.h"
#include "camjob/run/RunCommand.h"
#include "camjob/run/SeveralJobs.h"
#include "camjob/show/ShowCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>
#include <string>
#include <system_error>

namespace camjob {

namespace {

constexpr const char* kExitCodes =
    "Exit codes: 0 done; 1 done, but a member has errors, a piece no bar or a file was left out; 2 bad usage, or a file that cannot be "
    "read; 3 a file or the report could not be written; 4 a fault of the program that was caught before it "
    "could do harm; 130 stopped by Ctrl-C. The highest wins.";

std::string UsageError(const CLI::App* app, const CLI::Error& error) {
    return std::string("camjob: ") + error.what() + "\n" + app->help();
}

/// The command line of each command.
struct Options {
    CheckOptions check;
    JobsOptions run;
    InitOptions init;
    ShowOptions show;
    HostOptions host;
    CompareOptions compare;
    FormatsOptions formats;
    std::shared_ptr<const void>* leftover = nullptr;  ///< of a run
};

void DescribeCheck(CLI::App& command, Options& options) {
    command.add_option(
        "FILE",
        options.check.files,
        "DSTV NC files, each reported in turn; of a folder all .nc and .nc1 files in it and below");
    command.add_option("--files-from",
                       options.check.filesFrom,
                       "File that lists more of them, a line each; - for the standard input");
    command.add_option(
        "--job", options.check.job, "Judge the members by the rules of this job file");
    auto* json = command.add_flag(
        "--json", options.check.asJson, "Write one JSON document instead of tables");
    command
        .add_flag("--jsonl",
                  options.check.asLines,
                  "Write a line of JSON for each file as soon as it is checked, and one for all")
        ->excludes(json);
}

int Check(const Options& options, OutputStream& out, OutputStream& err) {
    if (!options.check.files.empty() || !options.check.filesFrom.empty())
        return RunCheck(options.check, out, err);
    err.Write("camjob: FILE is required, or --files-from: what is to be checked?\n");
    return kExitBadInput;
}

/// Not the folder at hand: "" is a variable that was never set.
std::string FaultOfFolder(const std::string& folder) {
    return folder.empty() ? "the folder has no name" : "";
}

std::string FaultOfThreads(const std::string& number) {
    constexpr unsigned kMost = 256;
    unsigned count = 0;
    const char* const end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, count);
    const bool isGood = read.ec == std::errc() && read.ptr == end && count >= 1 && count <= kMost;
    return isGood ? ""
                  : "\"" + number + "\" is no number of threads: give one from 1 to " +
                        std::to_string(kMost);
}

void DescribeRun(CLI::App& command, Options& options) {
    RunOptions& each = options.run.each;
    each.threads = CountCores();
    command
        .add_option("JOB", options.run.jobs, "The job file, or several that are run in this order")
        ->required();
    command
        .add_option(
            "--out", each.folder, "Folder of the output, instead of the job's; with one job only")
        ->check(FaultOfFolder);
    command
        .add_option("--against",
                    each.against,
                    "Earlier output, a folder or a file *-run.json: tell what has changed since; "
                    "without it the output that is replaced. With one job only")
        ->check(FaultOfFolder);
    command.add_flag("--json",
                     each.asJson,
                     "Write one JSON document instead of tables; of several jobs a line each");
    command.add_flag("--jsonl", options.run.asLines, "The same on one line also with one job");
    command.add_flag(
        "--notes", each.showsNotes, "Print the notes too, not only the warnings of the reader");
    command.add_flag(
        "--dialog", each.showsDialog, "Show the project information and let it be changed");
    command.add_flag("--ignore-settings",
                     each.ignoresSettings,
                     "Go by the job alone, not by what the dialog changed in earlier runs");
    command
        .add_option("--threads",
                    each.threads,
                    "Read and judge that many members at a time; without it as many as the "
                    "program may use processor cores. The output is the same")
        ->type_name("N")
        ->check(FaultOfThreads);
}

int Run(const Options& options, OutputStream& out, OutputStream& err) {
    const RunOptions& each = options.run.each;
    if (options.run.jobs.size() > 1 && !(each.folder.empty() && each.against.empty())) {
        err.Write("camjob: --out and --against go with one job only\n");
        return kExitBadInput;
    }
    StagingDisk disk;
    const Interrupt interrupt;
    return RunJobs(options.run,
                   {.disk = disk,
                    .isCancelled = [&] { return interrupt.WasRequested(); },
                    .leftover = options.leftover},
                   out,
                   err);
}

void DescribeInit(CLI::App& command, Options& options) {
    command.add_option("DIR", options.init.folder, "Folder for the job; made when missing")
        ->required()
        ->check(FaultOfFolder);
    auto* from = command.add_option("--from",
                                    options.init.from,
                                    "NC files, or folders of them, that the job is to take; they "
                                    "stay where they are");
    command.add_option("--kind", options.init.kind, "Without --from: what the example job is for")
        ->check(FaultOfInitKind)
        ->option_text("purlins|plates|frames|mixed (default mixed)")
        ->excludes(from);
}

int Init(const Options& options, OutputStream& out, OutputStream& err) {
    return RunInit(options.init, out, err);
}

void DescribeShow(CLI::App& command, Options& options) {
    command.add_option("FILE", options.show.files, "DSTV NC files, and folders of them")
        ->required();
    command
        .add_option(
            "--out",
            options.show.out,
            "File of the drawing, or folder of one drawing per NC file, in the folders "
            "that those have below FILE; without it one drawing goes to the standard output")
        ->check(FaultOfFolder);
    command.add_flag("--dxf", options.show.asDxf, "Draw DXF (R12, mm) instead of SVG");
    command.add_option(
        "--job", options.show.job, "Judge the members by the rules of this job file");
}

int Show(const Options& options, OutputStream& out, OutputStream& err) {
    return RunShow(options.show, out, err);
}

void DescribeHost(CLI::App& command, Options& options) {
    command.add_option("PLUGIN", options.host.plugin, "The plug-in: a DLL or shared object")
        ->required();
    command.add_option(
        "FILE",
        options.host.files,
        "DSTV NC files, or folders of them, whose parts the plug-in gets; without any those of the job");
    command.add_option(
        "--job", options.host.job, "Read the files as this job says, with its assemblies");
    command
        .add_option("--out",
                    options.host.folder,
                    "Folder of the plug-in's output; without it one named after the plug-in")
        ->check(FaultOfFolder);
}

/// The job names files of its own.
int Host(const Options& options, OutputStream& out, OutputStream& err) {
    if (!options.host.files.empty() || !options.host.job.empty())
        return RunHost(options.host, out, err);
    err.Write("camjob: FILE or --job is required: whose parts is the plug-in to get?\n");
    return kExitBadInput;
}

void DescribeCompare(CLI::App& command, Options& options) {
    command
        .add_option("OLD", options.compare.older, "An output: its folder, or its file *-run.json")
        ->required();
    command.add_option("NEW", options.compare.newer, "Another")->required();
    command.add_flag(
        "--json", options.compare.asJson, "Write one JSON document instead of a table");
}

int Compare(const Options& options, OutputStream& out, OutputStream& err) {
    return RunCompare(options.compare, out, err);
}

void DescribeFormats(CLI::App& command, Options& options) {
    command.add_option(
        "NAME", options.formats.name, "Print this one as a format file to start from");
}

int Formats(const Options& options, OutputStream& out, OutputStream& err) {
    return RunFormats(options.formats, out, err);
}

struct Command {
    const char* name;
    const char* meaning;
    void (*describe)(CLI::App& command, Options& options);
    int (*run)(const Options& options, OutputStream& out, OutputStream& err);
    /// Its document when the memory was not enough; null: it has none.
    void (*writeNoMemory)(bool isBegun, OutputStream& out);
    int codeOfNoMemory;
};

// clang-format off
constexpr Command kCommands[] = {
    {"check",   "Show what is in NC files and what is wrong with them", &DescribeCheck,   &Check,   &WriteCheckWithoutMemory, kExitBadInput},
    {"run",     "Make the manufacturing files of a job",                &DescribeRun,     &Run,     &WriteRunWithoutMemory,   kExitNotWritten},
    {"init",    "Write a commented job to start from",                  &DescribeInit,    &Init,    nullptr,                  kExitNotWritten},
    {"show",    "Draw NC files as SVG or DXF",                          &DescribeShow,    &Show,    nullptr,                  kExitNotWritten},
    {"compare", "Tell what differs between the outputs of two runs",    &DescribeCompare, &Compare, nullptr,                  kExitNotWritten},
    {"host",    "Run a plug-in on the parts of NC files",               &DescribeHost,    &Host,    nullptr,                  kExitBadInput},
    {"formats", "List the built-in formats of machine files",           &DescribeFormats, &Formats, nullptr,                  kExitNotWritten},
};
// clang-format on

void Describe(CLI::App& app, Options& options) {
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", VersionText(), "Print the version and exit");
    app.require_subcommand(0, 1);
    app.failure_message(UsageError);
    app.footer(kExitCodes);
    for (const Command& command : kCommands)
        command.describe(*app.add_subcommand(command.name, command.meaning), options);
}

const Command& Chosen(const CLI::App& app) {
    return *std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command& command) {
        return app.got_subcommand(command.name);
    });
}

int Execute(std::vector<std::string> arguments,
            OutputStream& out,
            OutputStream& err,
            std::shared_ptr<const void>* leftover) {
    Options options;
    options.leftover = leftover;
    CLI::App app("NC files of steel members: checked, reported, made into manufacturing files",
                 "camjob");
    Describe(app, options);
    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        // Only now: an unknown word on the command line is the better message.
        if (app.get_subcommands().empty())
            throw CLI::RequiredError::Subcommand(1);
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream usage;
        const int code = app.exit(error, help, usage);
        WriteText(out, ZetString::fromUtf8(help.str()));
        WriteText(err, ZetString::fromUtf8(usage.str()));
        return code == 0 ? kExitDone : kExitBadInput;
    }
    return Chosen(app).run(options, out, err);
}

}  // namespace

int RunCamjob(std::vector<std::string> arguments,
              OutputStream& out,
              OutputStream& err,
              std::shared_ptr<const void>* leftover) {
    int code = Execute(std::move(arguments), out, err, leftover);
    if (!out.Flush()) {
        err.Write("camjob: the output could not be written: " + out.GetFailure().message() + "\n");
        code = kExitNotWritten;
    }
    err.Flush();
    return code;
}

int EndWithoutMemory(const std::vector<std::string>& arguments,
                     bool hasReported,
                     OutputStream& out,
                     OutputStream& err) {
    err.Write("camjob: out of memory\n");
    err.Flush();
    const auto isCalled = [&](const Command& command) {
        return !arguments.empty() && arguments.front() == command.name;
    };
    const auto command = std::find_if(std::begin(kCommands), std::end(kCommands), isCalled);
    if (command == std::end(kCommands))
        return kExitBadInput;
    const bool isJson = std::any_of(arguments.begin(), arguments.end(), [](const auto& argument) {
        return argument == "--json" || argument == "--jsonl";
    });
    if (isJson && command->writeNoMemory != nullptr)
        command->writeNoMemory(hasReported, out);
    out.Flush();
    return command->codeOfNoMemory;
}

}  // namespace camjob

#include "camjob/CommandLine.h"

#include "camjob/CheckCommand.h"

#include "camdata/platform/Modules.h"
#include "camdata/util/CMxUtil.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <sstream>

namespace camjob {

namespace {

constexpr const char* kExitCodes =
    "Exit codes: 0 done; 1 done, but a member has errors; 2 bad usage, or a file that cannot be "
    "read; 3 the report could not be written. The highest wins.";

std::string Version() {
    return "camjob " + CMxUtil::GetDllVersion(OwnModule()).toUtf8();
}

std::string UsageError(const CLI::App* app, const CLI::Error& error) {
    return std::string("camjob: ") + error.what() + "\n" + app->help();
}

void Describe(CLI::App& app, CheckOptions& options) {
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", Version(), "Print the version and exit");
    app.require_subcommand(0, 1);
    app.failure_message(UsageError);
    app.footer(kExitCodes);
    CLI::App* check =
        app.add_subcommand("check", "Show what is in NC files and what is wrong with them");
    check->add_option("FILE", options.files, "DSTV NC files, each reported in turn")->required();
    check->add_flag("--json", options.asJson, "Write one JSON document instead of tables");
}

/// Fills `options`, or says what the program ends with at once.
std::optional<int> Parse(std::vector<std::string> arguments,
                         CheckOptions& options,
                         OutputStream& out,
                         OutputStream& err) {
    CLI::App app("NC files of steel members, checked and reported", "camjob");
    Describe(app, options);
    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        // Only now: an unknown word on the command line is the better message.
        if (app.get_subcommands().empty())
            throw CLI::RequiredError::Subcommand(1);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream usage;
        const int code = app.exit(error, help, usage);
        out.Write(help.str());
        err.Write(usage.str());
        return code == 0 ? kExitDone : kExitBadInput;
    }
}

int Run(std::vector<std::string> arguments, OutputStream& out, OutputStream& err) {
    CheckOptions options;
    if (const std::optional<int> code = Parse(std::move(arguments), options, out, err))
        return *code;
    return RunCheck(options, out, err);
}

}  // namespace

int RunCamjob(std::vector<std::string> arguments, OutputStream& out, OutputStream& err) {
    int code = Run(std::move(arguments), out, err);
    if (!out.Flush()) {
        err.Write("camjob: the output could not be written: " + out.GetFailure().message() + "\n");
        code = kExitNotWritten;
    }
    err.Flush();
    return code;
}

}  // namespace camjob

#include "camjob/run/RunCommand.h"

#include "camjob/console/OneLineStream.h"
#include "camjob/run/JobRunner.h"
#include "camjob/run/RunJson.h"
#include "camjob/run/RunText.h"

#include <memory>
#include <new>
#include <utility>

namespace camjob {

namespace {

/// The document on its way to the screen, for its end when the memory fails.
RunJsonWriter* s_unfinished = nullptr;
bool s_isOnOneLine = false;

class Unfinished {
  public:
    Unfinished(RunJsonWriter& writer, bool isOnOneLine) {
        s_unfinished = &writer;
        s_isOnOneLine = isOnOneLine;
    }
    ~Unfinished() { s_unfinished = nullptr; }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
};

/// Calls `write` with the stream that a document goes to.
template <typename Write>
void WriteDocument(bool isOnOneLine, OutputStream& out, Write write) {
    if (!isOnOneLine)
        return write(out);
    OneLineStream line(out);
    write(line);
    line.End();
}

void ReportAsJson(RunReport& report, const RunOptions& options, OutputStream& out) {
    RunJsonWriter json(RunJsonWriter::Form::kScreen, out, options.threads);
    const Unfinished unfinished(json, options.asLine);
    WriteDocument(options.asLine, out, [&](OutputStream& to) {
        json.GoOnIn(to);
        try {
            json.Write(report);
        } catch (const std::bad_alloc&) {
            // The output is there, but not the memory to tell of it.
            report = ReportWithoutMemory(options, true);
            json.Write(report);
        }
    });
}

void ReportAsText(RunReport& report,
                  const RunOptions& options,
                  OutputStream& out,
                  OutputStream& err) {
    try {
        WriteRunText(report, options.showsNotes, out, err);
    } catch (const std::bad_alloc&) {
        report = ReportWithoutMemory(options, true);
        WriteRunText(report, options.showsNotes, out, err);
    }
}

/// Returns the report, which is the runner's.
RunReport& RunAndReport(JobRunner& runner,
                        const RunOptions& options,
                        OutputStream& out,
                        OutputStream& err) {
    RunReport& report = runner.Run();
    if (options.asJson)
        ReportAsJson(report, options, out);
    else
        ReportAsText(report, options, out, err);
    return report;
}

}  // namespace

RunReport RunAndReport(const RunOptions& options,
                       const RunSystem& system,
                       OutputStream& out,
                       OutputStream& err) {
    JobRunner runner(options, system, err);
    return std::move(RunAndReport(runner, options, out, err));
}

int RunJob(const RunOptions& options,
           const RunSystem& system,
           OutputStream& out,
           OutputStream& err) {
    const auto runner = std::make_shared<JobRunner>(options, system, err);
    const int code = RunAndReport(*runner, options, out, err).GetExitCode();
    if (system.leftover != nullptr)
        *system.leftover = runner;
    return code;
}

void WriteRunWithoutMemory(bool isBegun, OutputStream& out) {
    const RunReport report = ReportWithoutMemory({}, true);
    if (!isBegun) {
        RunJsonWriter(RunJsonWriter::Form::kScreen, out).Write(report);
    } else if (s_unfinished != nullptr) {
        WriteDocument(s_isOnOneLine, out, [&](OutputStream& to) {
            s_unfinished->GoOnIn(to);
            s_unfinished->Write(report);
        });
    }
}

}  // namespace camjob

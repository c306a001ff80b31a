#include "camjob/check/CheckCommand.h"

#include "camjob/check/CheckInput.h"
#include "camjob/check/CheckJson.h"
#include "camjob/check/CheckText.h"
#include "camjob/console/ExitCode.h"
#include "camjob/input/NcFolderSearch.h"

#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <variant>

namespace camjob {

namespace {

CheckResult CheckFile(const std::string& name, const CheckRules& rules) {
    auto result = ReadEntity(name, rules.rules.GetJob());
    if (auto* error = std::get_if<dstv::NcError>(&result))
        return std::move(*error);
    return MakeCheckReport(std::get<dstv::NcFileEntity>(result), rules);
}

dstv::NcError WithoutMemory(const std::string& name) {
    const ZetString file = ZetString::fromUtf8(name);
    return {file, 0, 0, L"file", file, L"more memory: out of memory"};
}

/// Both or, without memory, neither.
void ReportFile(const CheckResult& result, CheckWriter& writer, CheckSummary& summary) {
    CheckSummary sum = summary;
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        sum.Add(*error);
        writer.AddRefused(*error);
    } else {
        sum.Add(std::get<CheckReport>(result));
        writer.AddRead(std::get<CheckReport>(result));
    }
    summary = std::move(sum);
}

/// Whatever takes too much memory, a report takes each file once.
void CheckAndReport(const std::string& name,
                    const CheckRules& rules,
                    CheckWriter& writer,
                    CheckSummary& summary) {
    try {
        ReportFile(CheckFile(name, rules), writer, summary);
    } catch (const std::bad_alloc&) {
        ReportFile(WithoutMemory(name), writer, summary);
    }
}

/// What is reported so far, for the end of a document that memory fails.
const CheckSummary* s_reported = nullptr;

class Reporting {
  public:
    explicit Reporting(const CheckSummary& summary) { s_reported = &summary; }
    ~Reporting() { s_reported = nullptr; }
    Reporting(const Reporting&) = delete;
    Reporting& operator=(const Reporting&) = delete;
};

std::unique_ptr<CheckWriter> MakeWriter(bool asJson, OutputStream& out, OutputStream& err) {
    if (asJson)
        return std::make_unique<CheckJsonWriter>(out);
    return std::make_unique<CheckTextWriter>(out, err);
}

void WriteEmptyDocument(OutputStream& out) {
    CheckJsonWriter writer(out);
    writer.Begin();
    writer.End(CheckSummary());
}

}  // namespace

int RunCheck(const CheckOptions& options, OutputStream& out, OutputStream& err) {
    const std::optional<job::Job> job = ReadRules(options.job, err);
    if (!job) {
        if (options.asJson)
            WriteEmptyDocument(out);
        return kExitBadInput;
    }
    plugin::UseTolerances(job->tolerances);
    const plugin::JudgingRules rules(*job);
    CheckSummary summary;
    const Reporting reporting(summary);
    const std::unique_ptr<CheckWriter> writer = MakeWriter(options.asJson, out, err);
    writer->Begin();
    const FoundNcFiles found = FindNcFiles(options.files);
    for (const dstv::NcError& fault : found.faults)
        ReportFile(fault, *writer, summary);
    for (const std::string& name : found.files) {
        CheckAndReport(name, {rules, !options.job.empty()}, *writer, summary);
        if (!out.Flush())
            break;
    }
    try {
        writer->End(summary);
    } catch (const std::bad_alloc&) {
        // What was let go of is enough for the end of a document.
        writer->End(summary);
    }
    return summary.GetExitCode();
}

void WriteCheckWithoutMemory(bool isBegun, OutputStream& out) {
    CheckJsonWriter writer(out);
    CheckSummary summary;
    if (isBegun && s_reported != nullptr) {
        summary = *s_reported;
        writer.Continue();
    } else {
        writer.Begin();
    }
    ReportFile(WithoutMemory("camjob"), writer, summary);
    writer.End(summary);
}

}  // namespace camjob

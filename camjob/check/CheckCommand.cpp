#include "camjob/check/CheckCommand.h"

#include "camjob/check/CheckJson.h"
#include "camjob/check/CheckText.h"
#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/input/JobReading.h"
#include "dstv/NcReader.h"
#include "job/BuiltInJob.h"
#include "job/JobFile.h"

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace camjob {

namespace {

dstv::NcResult ReadFile(const std::string& name, const dstv::NcReading& reading) {
    if (name == "-")
        return dstv::NcError{L"-", 0, 0, L"standard input", L"-", L"the name of a file"};
    return dstv::ReadNcFile(PathFromUtf8(name), reading);
}

CheckResult CheckFile(const std::string& name, const CheckRules& rules) {
    dstv::NcResult result = ReadFile(name, ReadingOf(rules.rules.GetJob().nc));
    if (auto* error = std::get_if<dstv::NcError>(&result))
        return std::move(*error);
    return MakeCheckReport(std::get<dstv::NcPart>(std::move(result)), rules);
}

void ReportFile(const CheckResult& result, CheckWriter& writer, CheckSummary& summary) {
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        summary.Add(*error);
        writer.AddRefused(*error);
        return;
    }
    summary.Add(std::get<CheckReport>(result));
    writer.AddRead(std::get<CheckReport>(result));
}

std::unique_ptr<CheckWriter> MakeWriter(bool asJson, OutputStream& out, OutputStream& err) {
    if (asJson)
        return std::make_unique<CheckJsonWriter>(out);
    return std::make_unique<CheckTextWriter>(out, err);
}

job::JobResult ReadRules(const std::string& job) {
    return job.empty() ? job::BuiltInJob() : job::ReadJobFile(PathFromUtf8(job));
}

int Refuse(const std::vector<job::JobError>& errors, OutputStream& err) {
    for (const job::JobError& error : errors)
        err.Write(Printable(OneLine(ZetString::fromUtf8(job::DescribeJobError(error)))) + "\n");
    return kExitBadInput;
}

}  // namespace

int RunCheck(const CheckOptions& options, OutputStream& out, OutputStream& err) {
    const job::JobResult job = ReadRules(options.job);
    if (const auto* errors = std::get_if<std::vector<job::JobError>>(&job))
        return Refuse(*errors, err);
    plugin::UseTolerances(std::get<job::Job>(job).tolerances);
    const plugin::JudgingRules rules(std::get<job::Job>(job));
    CheckSummary summary;
    const std::unique_ptr<CheckWriter> writer = MakeWriter(options.asJson, out, err);
    writer->Begin();
    for (const std::string& name : options.files) {
        ReportFile(CheckFile(name, {rules, !options.job.empty()}), *writer, summary);
        if (!out.Flush())
            break;
    }
    writer->End(summary);
    return summary.GetExitCode();
}

}  // namespace camjob

#include "camjob/CheckCommand.h"

#include "camjob/CheckJson.h"
#include "camjob/CheckText.h"
#include "camjob/CommandLine.h"
#include "camjob/Paths.h"
#include "dstv/NcReader.h"

#include <memory>
#include <utility>

namespace camjob {

namespace {

dstv::NcResult ReadFile(const std::string& name) {
    if (name == "-")
        return dstv::NcError{L"-", 0, 0, L"standard input", L"-", L"the name of a file"};
    return dstv::ReadNcFile(PathFromUtf8(name));
}

void CheckFile(const std::string& name, CheckWriter& writer, CheckSummary& summary) {
    dstv::NcResult result = ReadFile(name);
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        summary.Add(*error);
        writer.AddRefused(*error);
        return;
    }
    const CheckReport report = MakeCheckReport(std::get<dstv::NcPart>(std::move(result)));
    summary.Add(report);
    writer.AddRead(report);
}

std::unique_ptr<CheckWriter> MakeWriter(bool asJson, OutputStream& out, OutputStream& err) {
    if (asJson)
        return std::make_unique<CheckJsonWriter>(out);
    return std::make_unique<CheckTextWriter>(out, err);
}

}  // namespace

int RunCheck(const CheckOptions& options, OutputStream& out, OutputStream& err) {
    CheckSummary summary;
    const std::unique_ptr<CheckWriter> writer = MakeWriter(options.asJson, out, err);
    writer->Begin();
    for (const std::string& name : options.files) {
        CheckFile(name, *writer, summary);
        if (!out.Flush())
            break;
    }
    writer->End(summary);
    return summary.GetExitCode();
}

}  // namespace camjob

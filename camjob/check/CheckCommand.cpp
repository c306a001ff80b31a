#include "camjob/check/CheckCommand.h"

#include "camjob/check/CheckInput.h"
#include "camjob/check/CheckJson.h"
#include "camjob/check/CheckText.h"
#include "camjob/console/ExitCode.h"
#include "camjob/input/NameList.h"
#include "camjob/input/NcFolderSearch.h"

#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

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

dstv::NcError Unreadable(const std::string& list) {
    const ZetString file = ZetString::fromUtf8(list);
    return {file, 0, 0, L"list", file, L"a file that can be read"};
}

dstv::NcError SeparatedByNul(const std::string& list) {
    const ZetString file = ZetString::fromUtf8(list);
    return {file, 0, 0, L"list", file, L"one name a line, not separated by NUL"};
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

/// What is reported so far and how, for the end of a report that memory fails.
const CheckSummary* s_reported = nullptr;
CheckJsonWriter::Form s_form = CheckJsonWriter::Form::kDocument;

CheckJsonWriter::Form FormOf(const CheckOptions& options) {
    return options.asLines ? CheckJsonWriter::Form::kLines : CheckJsonWriter::Form::kDocument;
}

class Reporting {
  public:
    Reporting(const CheckSummary& summary, CheckJsonWriter::Form form) {
        s_reported = &summary;
        s_form = form;
    }
    ~Reporting() { s_reported = nullptr; }
    Reporting(const Reporting&) = delete;
    Reporting& operator=(const Reporting&) = delete;
};

std::unique_ptr<CheckWriter> MakeWriter(const CheckOptions& options,
                                        OutputStream& out,
                                        OutputStream& err) {
    if (options.asJson || options.asLines)
        return std::make_unique<CheckJsonWriter>(FormOf(options), out);
    return std::make_unique<CheckTextWriter>(out, err);
}

void WriteEmptyDocument(CheckJsonWriter::Form form, OutputStream& out) {
    CheckJsonWriter writer(form, out);
    writer.Begin();
    writer.End(CheckSummary());
}

/// False when nobody takes the report any more.
bool CheckNames(const std::vector<std::string>& names,
                const CheckRules& rules,
                CheckWriter& writer,
                CheckSummary& summary,
                OutputStream& out) {
    const FoundNcFiles found = FindNcFiles(names);
    for (const dstv::NcError& fault : found.faults)
        ReportFile(fault, writer, summary);
    for (const std::string& name : found.files) {
        CheckAndReport(name, rules, writer, summary);
        if (!out.Flush())
            return false;
    }
    return true;
}

void CheckListed(const std::string& source,
                 const CheckRules& rules,
                 CheckWriter& writer,
                 CheckSummary& summary,
                 OutputStream& out) {
    NameList list(source);
    while (const auto name = list.Next()) {
        if (name->find('\0') != std::string::npos)
            ReportFile(SeparatedByNul(source), writer, summary);
        else if (!CheckNames({*name}, rules, writer, summary, out))
            return;
    }
    if (!list.IsGood())
        ReportFile(Unreadable(source), writer, summary);
}

}  // namespace

int RunCheck(const CheckOptions& options, OutputStream& out, OutputStream& err) {
    const std::optional<job::Job> job = ReadRules(options.job, err);
    if (!job) {
        if (options.asJson || options.asLines)
            WriteEmptyDocument(FormOf(options), out);
        return kExitBadInput;
    }
    plugin::UseTolerances(job->tolerances);
    const plugin::JudgingRules judging(*job);
    const CheckRules rules{judging, !options.job.empty()};
    CheckSummary summary;
    const Reporting reporting(summary, FormOf(options));
    const std::unique_ptr<CheckWriter> writer = MakeWriter(options, out, err);
    writer->Begin();
    if (CheckNames(options.files, rules, *writer, summary, out) && !options.filesFrom.empty())
        CheckListed(options.filesFrom, rules, *writer, summary, out);
    try {
        writer->End(summary);
    } catch (const std::bad_alloc&) {
        // What was let go of is enough for the end of a document.
        writer->End(summary);
    }
    return summary.GetExitCode();
}

void WriteCheckWithoutMemory(bool isBegun, OutputStream& out) {
    CheckJsonWriter writer(s_form, out);
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

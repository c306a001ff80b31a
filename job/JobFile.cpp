#include "job/JobFile.h"

#include "job/JobLines.h"
#include "job/JobResolving.h"
#include "job/JobTables.h"
#include "job/Remnants.h"
#include "job/TextFile.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace job {

namespace {

/// Reasons of the parser, in other words.
struct SyntaxWords {
    std::string_view reason;  ///< part of it
    const char* words;
};

constexpr SyntaxWords kSyntaxWords[] = {
    {"cannot redefine",        "the same name stands here a second time"                   },
    {"end-of-file",            "the file ends in the middle of a value"                    },
    {"determine value type",   "this is no value: texts stand in quotes"                   },
    {"interpreted as a value", "this is no value: texts stand in quotes"                   },
    {"leading zeroes",         "a number must not begin with 0"                            },
    {"escape sequence",        "a backslash in a text stands twice, or the text in '...'"  },
    {"expected '='",           "a line is key = value, or [table]"                         },
    {"whitespace, saw ','",    "a comma cannot stand here: a number has a decimal point"   },
    {"parsing string",         "a text must end with its quote on the line where it begins"},
    {"closing ']'",            "a list is [value, value, ...]"                             },
    {"inline table",           "a table on one line is { key = value, key = value }"       },
    {"parsing date",           "a date is written 2026-03-31"                              },
    {"nested value depth",     "too many brackets in each other"                           },
    {"",                       "a job file has lines of key = value under lines of [table]"},
};

void AddSyntaxFault(const toml::parse_error& error, JobFaults& faults) {
    const std::string_view reason = error.description();
    const auto words =
        std::find_if(std::begin(kSyntaxWords), std::end(kSyntaxWords), [&](const SyntaxWords& row) {
            return reason.find(row.reason) != std::string_view::npos;
        });
    const toml::source_position at = error.source().begin;
    // The parser cuts a long reason, perhaps in the middle of a character.
    const std::string whole = ZetString::fromUtf8(reason).toUtf8();
    faults.Add({static_cast<long>(at.line), static_cast<long>(at.column)},
               std::string(words->words) + " (" + whole + ")");
}

/// The job, of use only without faults.
Job Parse(const std::string& bytes, const std::filesystem::path& file, JobFaults& faults) {
    try {
        const toml::table table = toml::parse(bytes);
        const JobDocument document = ReadTables(table, faults);
        return ResolveJob(document, Utf8FromPath(file.stem()), faults);
    } catch (const toml::parse_error& error) {
        AddSyntaxFault(error, faults);
        return {};
    }
}

std::vector<JobError> AsErrors(const std::string& file, std::vector<JobFaults::Fault> faults) {
    std::vector<JobError> errors;
    for (JobFaults::Fault& fault : faults)
        errors.push_back({file, fault.at.line, fault.at.column, std::move(fault.text)});
    return errors;
}

}  // namespace

std::string DescribeJobError(const JobError& error) {
    std::string place = error.file + ":";
    for (const long number : {error.line, error.column})
        if (number > 0)
            place += std::to_string(number) + ":";
    return place + " " + error.text;
}

JobResult ReadJobFile(const std::filesystem::path& file) {
    const std::string name = Utf8FromPath(file);
    const auto bytes = ReadTextFile(file, "job file");
    if (const auto* fault = std::get_if<TextFileFault>(&bytes))
        return std::vector<JobError>{
            {name, 0, 0, fault->text}
        };
    JobFaults faults;
    CheckLines(std::get<std::string>(bytes), faults);
    Job job = faults.IsEmpty() ? Parse(std::get<std::string>(bytes), file, faults) : Job();
    if (!faults.IsEmpty())
        return AsErrors(name, faults.TakeSorted());
    job.file = name;
    auto remnants = ReadRemnants(job);
    if (auto* errors = std::get_if<std::vector<JobError>>(&remnants))
        return std::move(*errors);
    job.remnants = std::get<std::vector<Remnant>>(std::move(remnants));
    return job;
}

std::filesystem::path GetOutputFolder(const Job& job) {
    return PathFromUtf8(job.file).parent_path() / PathFromUtf8(job.outputFolder);
}

}  // namespace job

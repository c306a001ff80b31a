#include "job/JobFile.h"

#include "job/JobLines.h"
#include "job/JobResolving.h"
#include "job/JobTables.h"
#include "job/Utf8Path.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace job {

namespace {

constexpr std::size_t kMostBytes = std::size_t{4} * 1024 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
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

JobFaults::Fault WholeFile(std::string text) {
    return {{}, std::move(text)};
}

using Bytes = std::variant<std::string, JobFaults::Fault>;

Bytes ReadBytes(const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return WholeFile("there is no such file");
    if (std::filesystem::is_directory(status))
        return WholeFile("this is a folder, not a job file");
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(kMostBytes + 1, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.is_open() || stream.bad())
        return WholeFile("the file cannot be read");
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > kMostBytes)
        return WholeFile("the file is larger than 4 MB: this is no job file");
    if (bytes.starts_with(kByteOrderMark))
        bytes.erase(0, kByteOrderMark.size());
    return bytes;
}

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
    const Bytes bytes = ReadBytes(file);
    if (const auto* fault = std::get_if<JobFaults::Fault>(&bytes))
        return AsErrors(name, {*fault});
    JobFaults faults;
    CheckLines(std::get<std::string>(bytes), faults);
    Job job = faults.IsEmpty() ? Parse(std::get<std::string>(bytes), file, faults) : Job();
    if (!faults.IsEmpty())
        return AsErrors(name, faults.TakeSorted());
    job.file = name;
    return job;
}

std::filesystem::path GetOutputFolder(const Job& job) {
    return PathFromUtf8(job.file).parent_path() / PathFromUtf8(job.outputFolder);
}

}  // namespace job

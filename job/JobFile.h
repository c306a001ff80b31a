#pragma once

#include "job/Job.h"

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

/// @file
/// Reading a job file: TOML, every key as docs/job-file.md lists it.

namespace job {

/// One fault of a job file.
struct JobError {
    std::string file;  ///< UTF-8, as the caller named it
    long line = 0;     ///< from 1; 0: the file as a whole
    long column = 0;   ///< from 1, counted in characters; 0: the line or the file as a whole
    std::string text;  ///< UTF-8, one line without a full stop

    bool operator==(const JobError&) const = default;
};

/// "file:line:column: text", without the numbers that are 0.
std::string DescribeJobError(const JobError& error);

using JobResult = std::variant<Job, std::vector<JobError>>;
/// An NC file that a job names.
struct NamedNcFile {
    std::string name;      ///< UTF-8, with slashes on every system
    bool isPlain = false;  ///< its folder tells that it is a file, and no link to one
};
using NcFilesResult = std::variant<std::vector<NamedNcFile>, std::vector<JobError>>;

/// Reads a job and checks it completely, then the table of remnants that it names. Else one fault,
/// when the file cannot be read or is no TOML, or all faults by line, of the job before those of
/// the table; never an empty list.
JobResult ReadJobFile(const std::filesystem::path& file);

/// The NC files that the patterns of a job name, each once, in the order of the bytes of their
/// UTF-8 names. * stands for any text and ? for one character, neither for a slash nor
/// for a dot that a name begins with; capitals and small letters differ on every system. A pattern
/// without a file is a fault.
NcFilesResult ExpandNcFiles(const Job& job);

/// The folder of the output, as the job names it.
std::filesystem::path GetOutputFolder(const Job& job);

}  // namespace job

#include "job/JobFile.h"

#include "job/JobResolving.h"
#include "job/JobTables.h"
#include "job/Remnants.h"
#include "job/TomlFile.h"
#include "job/Utf8Path.h"

#include <optional>
#include <utility>

namespace job {

namespace {

std::vector<JobError> AsErrors(const std::string& file, std::vector<JobFaults::Fault> faults) {
    std::vector<JobError> errors;
    for (JobFaults::Fault& fault : faults)
        errors.push_back({fault.file.empty() ? file : fault.file,
                          fault.at.line,
                          fault.at.column,
                          std::move(fault.text)});
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
    JobFaults faults;
    const std::optional<toml::table> tables = ReadTomlFile(file, "job file", faults);
    Job job = tables ? ResolveJob(ReadTables(*tables, faults), file, faults) : Job();
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

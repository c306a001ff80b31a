#include "camjob/check/CheckInput.h"

#include "camjob/console/Paths.h"
#include "camjob/console/ShownText.h"
#include "camjob/input/JobReading.h"
#include "dstv/NcReader.h"
#include "job/BuiltInJob.h"
#include "job/JobFile.h"

#include <utility>
#include <vector>

namespace camjob {

std::optional<job::Job> ReadRules(const std::string& name, OutputStream& err) {
    job::JobResult result = name.empty() ? job::BuiltInJob() : job::ReadJobFile(PathFromUtf8(name));
    if (auto* job = std::get_if<job::Job>(&result))
        return std::move(*job);
    for (const job::JobError& error : std::get<std::vector<job::JobError>>(result))
        WriteLine(err, ZetString::fromUtf8(job::DescribeJobError(error)));
    return {};
}

std::variant<dstv::NcFileEntity, dstv::NcError> ReadEntity(const std::string& name,
                                                           const job::Job& job) {
    if (name == "-")
        return dstv::NcError{L"-", 0, 0, L"standard input", L"-", L"the name of a file"};
    dstv::NcResult result = ReadFileOfJob(name, ReadingOf(job));
    if (auto* error = std::get_if<dstv::NcError>(&result))
        return std::move(*error);
    return dstv::NcFileEntity(std::get<dstv::NcPart>(std::move(result)));
}

void WriteError(const dstv::NcError& error, OutputStream& err) {
    WriteLine(err, error.describe());
    for (const dstv::NcError& further : error.further)
        WriteError(further, err);
}

}  // namespace camjob

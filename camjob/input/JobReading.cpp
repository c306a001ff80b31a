#include "camjob/input/JobReading.h"

#include "camjob/console/Paths.h"

#include <array>
#include <variant>

namespace camjob {

namespace {

/// By the value of job::MarkSource.
constexpr std::array kMarkSources = {
    dstv::NcMarkSource::kMark,
    dstv::NcMarkSource::kDrawing,
    dstv::NcMarkSource::kPhase,
    dstv::NcMarkSource::kFileName,
    dstv::NcMarkSource::kPath,
};

/// Of the job file, with a slash at its end; "" for the folder that one is in.
ZetString FolderOf(const std::string& file) {
    const std::string folder = file.substr(0, file.find_last_of("/\\") + 1);
    return ZetString::fromUtf8(Utf8FromPath(PathFromUtf8(folder).generic_u8string()));
}

}  // namespace

dstv::NcReading ReadingOf(const job::Job& job) {
    return {kMarkSources[static_cast<std::size_t>(job.nc.mark)],
            job::NameOf(job.nc.encoding),
            FolderOf(job.file)};
}

dstv::NcResult ReadFileOfJob(const std::string& file, const dstv::NcReading& reading) {
    dstv::NcResult result = dstv::ReadNcFileOfName(job::NativeFromUtf8(file), reading);
    if (auto* error = std::get_if<dstv::NcError>(&result); error != nullptr && error->isOfEncoding)
        error->expected += L"; \"encoding\" in [nc] of the job says how the files are written";
    return result;
}

std::vector<dstv::NcAssembly> AssembliesOf(const job::Job& job) {
    std::vector<dstv::NcAssembly> assemblies;
    for (const job::Assembly& assembly : job.assemblies) {
        assemblies.push_back({assembly.mark, {}});
        for (const job::AssemblyPart& part : assembly.parts)
            assemblies.back().parts.push_back({part.mark, part.count});
    }
    return assemblies;
}

}  // namespace camjob

#include "camjob/input/JobReading.h"

#include <array>

namespace camjob {

namespace {

/// By the value of job::MarkSource.
constexpr std::array kMarkSources = {
    dstv::NcMarkSource::kMark,
    dstv::NcMarkSource::kDrawing,
    dstv::NcMarkSource::kPhase,
    dstv::NcMarkSource::kFileName,
};

}  // namespace

dstv::NcReading ReadingOf(const job::NcInput& input) {
    return {kMarkSources[static_cast<std::size_t>(input.mark)], job::NameOf(input.encoding)};
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

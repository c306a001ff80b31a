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

}  // namespace camjob

#include "fuzz/Law.h"
#include "fuzz/ScratchFolder.h"
#include "job/JobFile.h"

// Any bytes are a job or faults, each with its place.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    const job::JobResult result = job::ReadJobFile(folder.Write("job.toml", TextOf(data, size)));
    const auto* faults = std::get_if<std::vector<job::JobError>>(&result);
    if (faults == nullptr)
        return 0;
    Check(!faults->empty(), "a job that is refused has a fault");
    for (const job::JobError& fault : *faults) {
        Check(fault.line >= 0 && fault.column >= 0, "a fault has a place");
        Check(!fault.text.empty() && fault.text.find('\n') == std::string::npos,
              "a fault is told in one line");
    }
    return 0;
}

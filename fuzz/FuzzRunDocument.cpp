#include "camjob/compare/RunDocument.h"
#include "fuzz/Law.h"
#include "fuzz/ScratchFolder.h"

// Any bytes are the document of a run, or none, with the reason.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    const auto result = camjob::ReadRunDocument(folder.Write("s-run.json", TextOf(data, size)),
                                                [](const camjob::OutputMember&) {});
    if (const auto* fault = std::get_if<camjob::RunDocumentFault>(&result))
        Check(!fault->reason.empty(), "what is no document of a run has a reason");
    return 0;
}

#pragma once

#include "camjob/compare/OutputChanges.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace camjob {

/// Changes with every change that a reader of the document could stumble over.
inline constexpr const char* kRunSchema = "camjob-run/2";

/// What the document of a run tells of its output, besides the members.
struct RunDocument {
    std::vector<OutputBars> bars;
    std::optional<OutputChanges> changes;  ///< against an output that was before it
};

/// Why a file is not the document of a run that came to an output.
struct RunDocumentFault {
    std::string reason;
};

using TakeMember = std::function<void(const OutputMember& member)>;

/// Reads the document of a run, which hands over its members one by one: they may be many.
std::variant<RunDocument, RunDocumentFault> ReadRunDocument(const std::filesystem::path& file,
                                                            const TakeMember& take);

}  // namespace camjob

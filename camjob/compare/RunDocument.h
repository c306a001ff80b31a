#pragma once

#include "camjob/compare/OutputChanges.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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

/// Asked for each member that has a line of its own, as `camjob run` writes them: true for one that
/// need not be read.
using KnowsMember = std::function<bool(std::string_view line)>;

/// Reads the document of a run, which hands over its members one by one: they may be many.
std::variant<RunDocument, RunDocumentFault> ReadRunDocument(const std::filesystem::path& file,
                                                            const TakeMember& take,
                                                            const KnowsMember& knows = nullptr);

}  // namespace camjob

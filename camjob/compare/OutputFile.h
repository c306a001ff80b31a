#pragma once

#include "camjob/compare/OutputChanges.h"
#include "camjob/compare/RunDocument.h"

#include <string>
#include <variant>
#include <vector>

namespace camjob {

/// Why a name stands for no output.
struct NoOutput {
    std::string message;  ///< with the name, UTF-8
};

/// Reads the document of a run, or the only one in a folder of that name; UTF-8.
std::variant<RunDocument, NoOutput> ReadOutput(const std::string& name,
                                               const TakeMember& take,
                                               const KnowsMember& knows = nullptr);

/// An output to hold an older one against.
struct NewerOutput {
    std::vector<std::string> marks;  ///< of its members, in their order
    OutputComparison::Lookup lookUp;
    std::vector<OutputBars> bars;
    /// The mark of the member that its own document would tell in this very line; nothing when
    /// there is none. Null: not known.
    std::function<std::optional<std::string>(std::string_view line)> markOfLine = nullptr;
};

/// An output beside an older one.
struct Comparison {
    OutputChanges changes;
    std::optional<OutputChanges> ofOlder;  ///< what the older one told of those before it

    bool IsSame() const { return !changes.HasMembers() && changes.bars.empty(); }
};

/// What has changed since the older output.
std::variant<Comparison, NoOutput> ChangesSince(const std::string& older, const NewerOutput& newer);

}  // namespace camjob

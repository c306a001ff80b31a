#pragma once

#include "job/Job.h"

#include "camdata/notches/CNotchAddInfo.h"

#include <optional>

namespace plugin {

/// A corner notch of the job as the library looks for it, on a face of that width of a member of
/// that length; mm.
SCheckNotch DefinitionOf(const job::CornerNotch& corner, double length, double faceWidth);

/// The library takes the notch for a rectangle that it is not, and the definition tells one.
bool IsFalseRectangleFor(const SCheckNotch& definition, const CNotchAddInfo& notch);

/// What the corner notch that comes nearest to a notch wants to be otherwise.
struct NotchMiss {
    const job::CornerNotch* corner = nullptr;  ///< null: the job has none
    const wchar_t* what = L"";
    std::optional<double> required = {};
    std::optional<double> found = {};
};

/// For a notch that none describes; `length` is the member's. By the current tolerance.
NotchMiss FindNearestNotch(const std::vector<job::CornerNotch>& corners,
                           const CNotchAddInfo& notch,
                           double length);

}  // namespace plugin

#include "plugin/rules/NearestNotch.h"

#include "plugin/rules/UprightRectangle.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace plugin {

namespace {

/// A corner coordinate that fits any notch.
constexpr double kAnywhere = -1.0;

constexpr int kLengthSelector = 4;
constexpr int kWidthSelector = 5;

double CornerAt(job::NotchCorner corner, double farEnd) {
    if (corner == job::NotchCorner::kAny)
        return kAnywhere;
    return corner == job::NotchCorner::kStart ? 0.0 : farEnd;
}

/// It asks for a rectangle, or its code tells a length or a width.
bool TellsRectangle(const SCheckNotch& definition) {
    const ZetArray<int>& selectors = definition.valueSelectors;
    return definition.mustBeRect ||
           std::any_of(selectors.begin(), selectors.end(), [](int selector) {
               return selector == kLengthSelector || selector == kWidthSelector;
           });
}

/// The repeat that closes an outline is no corner.
int CornersOf(const CNotchAddInfo& notch) {
    return static_cast<int>(notch.GetNoOfVertices() - 1);
}

/// What any notch of its face and form fits.
SCheckNotch AnyLike(const CNotchAddInfo& notch) {
    SCheckNotch definition;
    definition.face = notch.GetViewData().GetHoleFace();
    definition.vertexCount = CornersOf(notch);
    definition.cornerX = kAnywhere;
    definition.cornerY = kAnywhere;
    definition.valueSelectors = {kLengthSelector, kWidthSelector};
    return definition;
}

/// One thing that a corner notch can want, in the order in which it is told.
struct Want {
    const wchar_t* what;
    void (*take)(SCheckNotch& definition, const SCheckNotch& wanted);
};
// clang-format off
constexpr Want kWants[] = {
    {L"face", [](auto& any, const auto& wanted) { any.face = wanted.face; }},
    {L"number of corners", [](auto& any, const auto& wanted) { any.vertexCount = wanted.vertexCount; }},
    {L"shape", [](auto& any, const auto& wanted) { any.mustBeRect = wanted.mustBeRect; }},
    {L"direction", [](auto& any, const auto& wanted) { any.mustBeParallelToAxis = wanted.mustBeParallelToAxis; }},
    {L"end of the member", [](auto& any, const auto& wanted) { any.cornerX = wanted.cornerX; }},
    {L"edge of the face", [](auto& any, const auto& wanted) { any.cornerY = wanted.cornerY; }},
};
// clang-format on

bool IsMet(const Want& want, const SCheckNotch& wanted, CNotchAddInfo notch) {
    SCheckNotch definition = AnyLike(notch);
    want.take(definition, wanted);
    return (!definition.mustBeRect || IsRectangle(notch)) && notch.CheckNotchCorner(definition);
}

}  // namespace

SCheckNotch DefinitionOf(const job::CornerNotch& corner, double length, double faceWidth) {
    SCheckNotch definition = corner.definition;
    definition.cornerX = CornerAt(corner.along, length);
    definition.cornerY = CornerAt(corner.across, faceWidth);
    return definition;
}

bool IsFalseRectangleFor(const SCheckNotch& definition, const CNotchAddInfo& notch) {
    return notch.GetIsRect() && TellsRectangle(definition) && !IsRectangle(notch);
}

NotchMiss FindNearestNotch(const std::vector<job::CornerNotch>& corners,
                           const CNotchAddInfo& notch,
                           double length) {
    NotchMiss miss;
    long leastUnmet = std::numeric_limits<long>::max();
    for (const job::CornerNotch& corner : corners) {
        const SCheckNotch wanted = DefinitionOf(corner, length, notch.GetViewData().GetFaceWidth());
        const auto isUnmet = [&](const Want& want) { return !IsMet(want, wanted, notch); };
        const auto first = std::find_if(std::begin(kWants), std::end(kWants), isUnmet);
        const auto unmet = static_cast<long>(std::count_if(first, std::end(kWants), isUnmet));
        if (unmet == 0 || unmet >= leastUnmet)
            continue;
        leastUnmet = unmet;
        miss = {&corner, first->what};
        if (wanted.vertexCount != CornersOf(notch) && first == std::begin(kWants) + 1) {
            miss.required = wanted.vertexCount;
            miss.found = CornersOf(notch);
        }
    }
    return miss;
}

}  // namespace plugin

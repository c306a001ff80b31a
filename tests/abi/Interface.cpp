// Compiled for its debug information, from which the binary interface is read. That tells of
// classes by themselves, but of functions outside of classes only when they are used.
#include "camdata/camdata.h"

extern const void* const g_freeFunctions[];

#define USED(function) reinterpret_cast<const void*>(&function)
const void* const g_freeFunctions[] = {
    USED(FindFunction),
    USED(FindLoadedModule),
    USED(FindSelfCrossing),
    USED(FormatDate),
    USED(GetEqualPartObj),
    USED(GetModelAndDirName),
    USED(GetProfileNameFromCreator),
    USED(ModuleFileVersion),
    USED(OwnModule),
    USED(ParseDate),
    USED(SetClock),
    USED(SetDialogDriver),
    USED(SetZetAssertHandler),
    USED(Today),
    USED(camdata::detail::FailAssertion),
    USED(camdata::detail::Format),
};

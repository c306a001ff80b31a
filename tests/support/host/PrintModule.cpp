// A host module that prints. FAKE_HOST_NAME is its name; FAKE_HOST_NARROW says in which characters.

#include "support/host/FakeHostModule.h"

namespace {

FakeHostPrinted g_printed = nullptr;

}  // namespace

FAKE_HOST_API void fakeHostSetPrinted(FakeHostPrinted printed) {
    g_printed = printed;
}

#if FAKE_HOST_NARROW
FAKE_HOST_API int kwutPrintf(const char* text, ...) {
    if (g_printed != nullptr)
        g_printed(FAKE_HOST_NAME, nullptr, text);
    return 0;
}
#else
FAKE_HOST_API int kwutPrintf(const wchar_t* text, ...) {
    if (g_printed != nullptr)
        g_printed(FAKE_HOST_NAME, text, nullptr);
    return 0;
}
#endif

// A host module without a print function that is linked with a library that has one.

#include "support/host/FakeHostModule.h"

extern "C" int kwutPrintf(const wchar_t* text, ...);
extern "C" void fakeHostSetPrinted(FakeHostPrinted printed);

FAKE_HOST_API int linkedPrint(const wchar_t* text) {
    return kwutPrintf(text);
}

FAKE_HOST_API void linkedSetPrinted(FakeHostPrinted printed) {
    fakeHostSetPrinted(printed);
}

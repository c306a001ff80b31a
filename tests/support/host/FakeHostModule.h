#pragma once

// What the fake host modules and the test program share: plain C types only, because each of them
// may carry a language runtime of its own.

#if defined(_WIN32)
#define FAKE_HOST_API extern "C" __declspec(dllexport)
#else
#define FAKE_HOST_API extern "C" __attribute__((visibility("default")))
#endif

/// Where a print module hands on what it is given to print; the other text is null.
using FakeHostPrinted = void (*)(const char* module,
                                 const wchar_t* wideText,
                                 const char* narrowText);

/// Exported by every print module as `fakeHostSetPrinted`.
using FakeHostSetPrinted = void (*)(FakeHostPrinted printed);

/// Exported by the core module as `fakeHostSetVariable`: defines a system variable of the host. The
/// name and the text have to outlive the module.
using FakeHostSetVariable = void (*)(const wchar_t* name, int type, const wchar_t* text);

#pragma once

// Marks a class or function as part of the library's binary interface; all else stays hidden.
// CAMDATA_BUILD is defined while the library itself is compiled.
#if defined(_WIN32)
#if defined(CAMDATA_BUILD)
#define CAMDATA_API __declspec(dllexport)
#else
#define CAMDATA_API __declspec(dllimport)
#endif
#else
#define CAMDATA_API __attribute__((visibility("default")))
#endif

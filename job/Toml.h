#pragma once

/// @file
/// toml++ without its assertions: a faulty file can bring some of them about, "[=]" for example,
/// where the parser goes on to tell the fault well. Builds without assertions would take them for
/// promises to the compiler.

#pragma push_macro("NDEBUG")
#undef NDEBUG
#define TOML_ASSERT(condition) static_cast<void>(0)
#include <toml++/toml.h>
#pragma pop_macro("NDEBUG")

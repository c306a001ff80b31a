#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <array>
#include <cstdint>
#include <optional>

/// A program file or shared library that is loaded in this process: on Windows its module handle,
/// on Linux its entry in the dynamic linker's list. Null: none. Borrowed, never to be closed.
using ModuleHandle = void*;

/// A function found by name; cast it to its real type before the call.
using ModuleFunction = void (*)();

/// The loaded module of that name, for example "kwcore.dll"; null when none is loaded. Loads
/// nothing. The case of letters does not count. On Linux the name is a shared object's SONAME or
/// file name.
CAMDATA_API ModuleHandle FindLoadedModule(const ZetString& name);

/// The function that `module` itself exports under that name; null when it exports none (functions
/// of libraries that it is linked with do not count). A null module means the main program.
CAMDATA_API ModuleFunction FindFunction(ModuleHandle module, const char* name);

/// The module that holds this library.
CAMDATA_API ModuleHandle OwnModule();

/// The four numbers of a file version, most significant first.
using ModuleVersion = std::array<std::uint16_t, 4>;

/// The file version that a module carries: on Windows in its version resource, on Linux in its ELF
/// note of owner "camdata", type 1. Nothing for null and for a module without one.
CAMDATA_API std::optional<ModuleVersion> ModuleFileVersion(ModuleHandle module);

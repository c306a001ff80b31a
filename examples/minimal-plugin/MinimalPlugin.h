#pragma once

#include <minimal_plugin_export.h>

class ZetNCEntity;

/// How a run ended.
enum PluginResult : int {
    kPluginDone = 0,
    kPluginInvalidMembers = 1,  ///< done, but some members have errors
    kPluginFailed = 2,          ///< given up: an error of the host or of the library
    kPluginFileFault = 3,       ///< a file could not be opened, written or closed
};

/// Runs a job: writes the members that the host offers to the files punch.txt, info.txt, errors.txt
/// and warnings.txt of a folder, whose name is UTF-8. The entities stay the host's.
///
/// A C function with plain types, so that the host finds it by its name. No error leaves it.
extern "C" MINIMAL_PLUGIN_EXPORT int RunMinimalPlugin(ZetNCEntity* const* entities,
                                                      long count,
                                                      const char* folder);

#pragma once

/// @file
/// What a host and an NC-output plug-in agree on: the plug-in is a module (a DLL, a shared object)
/// that exports one C function. A host that offers its parts as NC entities finds it by its name.
///
/// The plug-in defines RunNCPlugin as it is declared here; the declaration exports it.

class ZetNCEntity;

#if defined(_WIN32)
#define ZETNC_PLUGIN_API extern "C" __declspec(dllexport)
#else
#define ZETNC_PLUGIN_API extern "C" __attribute__((visibility("default")))
#endif

/// How the run of a plug-in ended. Any other number is a fault of the plug-in.
enum eNCPluginResult : int {
    eNCPluginDone = 0,
    eNCPluginInvalidMembers = 1,  ///< done, but some members have errors
    eNCPluginFailed = 2,          ///< given up: an error of the host, the library or the plug-in
    eNCPluginFileFault = 3,       ///< a file could not be opened, written or closed
};

/// Runs a job: makes the plug-in's files of the parts that a host offers.
///
/// `entities` are `count` parts, none of them null, in the host's order, the single parts of
/// assemblies among them. They stay the host's and live until the call returns, longer than that
/// none. `folder` is where the files go, a name in UTF-8 without a separator at its end; the folder
/// is there. Returns an eNCPluginResult. A plug-in lets no exception out: not every host could
/// catch it.
ZETNC_PLUGIN_API int RunNCPlugin(ZetNCEntity* const* entities, long count, const char* folder);

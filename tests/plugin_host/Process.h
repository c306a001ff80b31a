#pragma once

#include <string>

/// A module that this process has loaded.
using Module = void*;

/// Loads a module and what it needs, of which it looks in the module's folder too. Null, with a
/// line on standard error, when it cannot.
Module Load(const std::string& path);
void* FindFunction(Module module, const char* name);
void Unload(Module module);
/// By file name, without its folder.
bool IsLoaded(const char* fileName);

/// What a module may leave behind.
struct ProcessState {
    long threads;
    long handles;  ///< open files and all else that the system counts
    long windows;

    friend bool operator==(const ProcessState&, const ProcessState&) = default;
};
ProcessState CurrentState();

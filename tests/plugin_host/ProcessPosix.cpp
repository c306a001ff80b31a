#include "Process.h"

#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>

namespace {

long EntriesOf(const char* folder) {
    long count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder))
        ++count;
    return count;
}

}  // namespace

Module Load(const std::string& path) {
    const Module module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr)
        std::fprintf(stderr, "%s\n", dlerror());
    return module;
}

void* FindFunction(Module module, const char* name) {
    return dlsym(module, name);
}

void Unload(Module module) {
    dlclose(module);
}

// From the map of the memory: dlopen would need the name that the file had when it was linked.
bool IsLoaded(const char* fileName) {
    const std::string ending = std::string("/").append(fileName);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(ending) != std::string::npos)
            return true;
    }
    return false;
}

ProcessState CurrentState() {
    return {EntriesOf("/proc/self/task"), EntriesOf("/proc/self/fd"), 0};
}

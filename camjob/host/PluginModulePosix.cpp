#include "camjob/host/PluginModule.h"

#include <dlfcn.h>

namespace camjob {

// With its folder: a bare name would be searched for among the system's libraries. All names are
// looked up at once, so that one that the library does not have is told before anything runs.
PluginModule::PluginModule(const std::filesystem::path& file)
    : m_module(dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (m_module == nullptr)
        m_fault = dlerror();
}

PluginModule::~PluginModule() {
    if (m_module != nullptr)
        dlclose(m_module);
}

}  // namespace camjob

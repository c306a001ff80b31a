#include "camjob/console/Paths.h"
#include "camjob/host/PluginModule.h"

#include <system_error>
#include <windows.h>

namespace camjob {

// Windows looks for what a module needs in the module's folder only when that is named in full.
PluginModule::PluginModule(const std::filesystem::path& file) {
    const std::filesystem::path full = std::filesystem::absolute(file).make_preferred();
    m_module = LoadLibraryExW(full.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (m_module == nullptr)
        m_fault =
            Utf8FromPath(full) + ": error " + std::to_string(GetLastError()) +
            " of the system; 126 is a file that is missing, this one or a DLL that it needs, 193 one "
            "that is no DLL for 64 bit, 127 a function that one of its DLLs does not have";
}

PluginModule::~PluginModule() {
    if (m_module != nullptr)
        FreeLibrary(static_cast<HMODULE>(m_module));
}

}  // namespace camjob

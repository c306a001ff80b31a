#pragma once

#include "camdata/platform/system/Modules.h"

#include <filesystem>
#include <string>

namespace camjob {

/// A plug-in that is loaded for as long as this object lives, with the modules that it needs. Those
/// of its own folder are found too.
class PluginModule {
  public:
    explicit PluginModule(const std::filesystem::path& file);
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    /// Null: it could not be loaded.
    ModuleHandle GetHandle() const { return m_module; }
    /// Why, in the system's words, UTF-8.
    const std::string& GetFault() const { return m_fault; }

  private:
    ModuleHandle m_module = nullptr;
    std::string m_fault;
};

}  // namespace camjob

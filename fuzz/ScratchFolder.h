#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

/// A folder of this process's own; gone when it ends in order.
class ScratchFolder {
  public:
    ScratchFolder()
        : m_path(std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(m_path);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path Write(const std::string& name, std::string_view bytes) const {
        const std::filesystem::path path = m_path / name;
        std::ofstream(path, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    std::string NameOf(const std::string& name) const { return (m_path / name).string(); }

  private:
    std::filesystem::path m_path;
};

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

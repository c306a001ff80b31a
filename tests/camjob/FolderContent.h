#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

/// Bytes by name.
using Files = std::map<std::string, std::string>;

inline void WriteFiles(const std::filesystem::path& folder, const Files& files) {
    for (const auto& [name, bytes] : files) {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
}

/// What a user sees in an output folder: all but the folder that the tool keeps for itself. A
/// folder without files is one, too.
inline Files ContentOf(const std::filesystem::path& folder) {
    Files files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename() == ".camjob")
            continue;
        const std::string name = entry.path().filename().string();
        const Files within = entry.is_directory() ? ContentOf(entry.path()) : Files();
        for (const auto& [inner, bytes] : within)
            files[name + "/" + inner] = bytes;
        std::ifstream stream(entry.path(), std::ios::binary);
        if (within.empty())
            files[name] = entry.is_directory()
                              ? "(folder)"
                              : std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return files;
}

/// Makes a folder the current one while it lives.
class CurrentFolder {
  public:
    explicit CurrentFolder(const std::filesystem::path& folder)
        : m_before(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~CurrentFolder() { std::filesystem::current_path(m_before); }

  private:
    std::filesystem::path m_before;
};

#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace camjob {

/// Files and folders that were made; they go again unless Keep is called. A folder that holds
/// something else by then stays.
class RevocableFiles {
  public:
    /// At most one at a time.
    RevocableFiles() { s_only = this; }
    ~RevocableFiles();
    RevocableFiles(const RevocableFiles&) = delete;
    RevocableFiles& operator=(const RevocableFiles&) = delete;

    /// Makes a folder and those that it lies in, unless they are there.
    std::error_code MakeFolder(const std::filesystem::path& folder);
    /// Makes a file, and its folder. It is written beside its place, under a name with ".new"
    /// behind it: one that is there already stays as it is until the new one is whole.
    std::error_code Write(const std::filesystem::path& file, std::string_view text);
    void Keep() { m_paths.clear(); }

    /// For a program that ends where it stands, as when memory fails where no exception may pass
    /// (the standard library lists folders so): what was made, and not kept, goes.
    static void TakeBackWhatIsThere();

  private:
    void TakeBack();

    inline static RevocableFiles* s_only = nullptr;
    std::vector<std::filesystem::path> m_paths;
};

}  // namespace camjob

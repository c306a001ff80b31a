#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace camjob {

/// Everything that StagedOutput changes in a folder, or reads there. Tests put a disk in its place
/// that fails, or stops, at any of it.
class StagingDisk {
  public:
    StagingDisk() = default;
    virtual ~StagingDisk() = default;
    StagingDisk(const StagingDisk&) = delete;
    StagingDisk& operator=(const StagingDisk&) = delete;

    /// With all folders above it; no error when it is there.
    virtual std::error_code MakeFolder(const std::filesystem::path& folder);
    /// Replaces the file's bytes.
    virtual std::error_code WriteFile(const std::filesystem::path& file, std::string_view bytes);
    virtual std::error_code FlushFile(const std::filesystem::path& file);
    /// Waits only where the disk has enough to do already; what fails, FlushFile tells.
    virtual void BeginFlush(const std::filesystem::path& file);
    virtual std::error_code FlushFolder(const std::filesystem::path& folder);
    virtual std::error_code Rename(const std::filesystem::path& from,
                                   const std::filesystem::path& to);
    /// No error when there is none.
    virtual std::error_code RemoveFile(const std::filesystem::path& file);
    /// With all that is in it; no error when there is none.
    virtual std::error_code RemoveFolder(const std::filesystem::path& folder);

    /// What lies at a path, behind links too. That nothing does is an answer, not an error.
    virtual std::error_code GetStatus(const std::filesystem::path& path,
                                      std::filesystem::file_status& status);
    /// The same, but of a link itself.
    virtual std::error_code GetLinkStatus(const std::filesystem::path& path,
                                          std::filesystem::file_status& status);
    /// The names of the files in a folder and, behind their names and a slash, in its folders;
    /// UTF-8, ascending.
    virtual std::error_code ListFolder(const std::filesystem::path& folder,
                                       std::vector<std::string>& names);
    virtual std::error_code ReadFile(const std::filesystem::path& file, std::string& bytes);
    /// Two names of one file, as in a folder that ignores case; not when one has no file.
    virtual std::error_code AreSameFile(const std::filesystem::path& a,
                                        const std::filesystem::path& b,
                                        bool& areSame);
    /// An error when a file that is there could be neither replaced nor removed:
    /// errc::text_file_busy while another program has it open.
    virtual std::error_code CheckFree(const std::filesystem::path& file);
};

}  // namespace camjob

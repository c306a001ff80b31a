#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace camjob {

/// Every change that StagedOutput makes in a folder. Tests put a disk in its place that fails, or
/// stops, at any of them.
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
    virtual std::error_code FlushFolder(const std::filesystem::path& folder);
    virtual std::error_code Rename(const std::filesystem::path& from,
                                   const std::filesystem::path& to);
    /// No error when there is none.
    virtual std::error_code RemoveFile(const std::filesystem::path& file);
    /// With all that is in it; no error when there is none.
    virtual std::error_code RemoveFolder(const std::filesystem::path& folder);
};

}  // namespace camjob

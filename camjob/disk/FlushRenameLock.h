#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>

/// @file
/// What the standard library does not offer of a system's files.

namespace camjob {

/// Makes what was written to a file, or entered in a folder, outlive a failure of the power. On
/// Windows folders look after themselves.
std::error_code FlushFile(const std::filesystem::path& file);
std::error_code FlushFolder(const std::filesystem::path& folder);

/// Lets the system begin to write a file to the disk, so that FlushFile waits less later. Where
/// there is no way to ask for that without waiting for the whole file, nothing happens.
void BeginFlush(const std::filesystem::path& file);

/// Gives a file another name on the same volume, in place of the file that has it.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

/// An error when the file could be neither replaced nor removed: errc::text_file_busy while another
/// program has it open. No error where names and open files have nothing to do with each other.
std::error_code CheckFree(const std::filesystem::path& file);

/// A file that one process at a time can hold. The system lets go of it when the process ends,
/// however it ends.
class FileLock {
  public:
    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Makes the file when there is none. errc::resource_unavailable_try_again when another process
    /// or another lock of this one holds it.
    std::error_code Take(const std::filesystem::path& file);
    bool IsTaken() const { return m_handle != kNone; }

  private:
    static constexpr std::intptr_t kNone = -1;

    std::intptr_t m_handle = kNone;
};

}  // namespace camjob

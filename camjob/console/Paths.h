#pragma once

#include "job/Utf8Path.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace camjob {

using job::PathFromUtf8;
using job::Utf8FromPath;

/// A file in a folder, whose name stays as the user wrote it.
std::string NameIn(const std::string& folder, const std::string& file);

/// A file's name as seen from the folder of another one, with slashes on every system: it does not
/// depend on where the program was started.
std::string NameFromFolderOf(const std::string& other, const std::string& file);

/// The same for many files; of those in one folder only the first takes time.
class NamesFromFolder {
  public:
    explicit NamesFromFolder(std::string other) : m_other(std::move(other)) {}
    std::string Of(const std::string& file);

  private:
    std::string m_other;
    std::optional<std::string> m_folder;  ///< of the last file, with its slash
    std::string m_begin;                  ///< of the names of the files there
};

/// A path from its root without links and dots; where the system does not tell what it is, as it
/// stands.
std::filesystem::path RealPath(const std::filesystem::path& path);

/// A file from its root, by the real name of its folder, so that each file is at one place however
/// it was named. A link stays one.
std::filesystem::path PlaceOf(const std::filesystem::path& file);

}  // namespace camjob

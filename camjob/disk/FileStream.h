#pragma once

#include "camjob/console/OutputStream.h"

#include <filesystem>
#include <fstream>

namespace camjob {

/// Text on its way to a file, which is made new.
class FileStream : public OutputStream {
  public:
    explicit FileStream(const std::filesystem::path& file) : m_file(file, std::ios::binary) {}

    /// False when anything could not be written.
    bool Close();

  private:
    std::error_code WriteBytes(std::string_view bytes) override;

    std::ofstream m_file;
};

}  // namespace camjob

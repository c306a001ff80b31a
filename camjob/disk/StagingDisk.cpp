#include "camjob/disk/StagingDisk.h"

#include "camjob/disk/FlushRenameLock.h"

#include <cerrno>
#include <fstream>

namespace camjob {

std::error_code StagingDisk::MakeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error;
}

std::error_code StagingDisk::WriteFile(const std::filesystem::path& file, std::string_view bytes) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (stream)
        return {};
    return {errno == 0 ? EIO : errno, std::generic_category()};
}

std::error_code StagingDisk::FlushFile(const std::filesystem::path& file) {
    return camjob::FlushFile(file);
}

std::error_code StagingDisk::FlushFolder(const std::filesystem::path& folder) {
    return camjob::FlushFolder(folder);
}

std::error_code StagingDisk::Rename(const std::filesystem::path& from,
                                    const std::filesystem::path& to) {
    return RenameOver(from, to);
}

std::error_code StagingDisk::RemoveFile(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::remove(file, error);
    return error;
}

std::error_code StagingDisk::RemoveFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    return error;
}

}  // namespace camjob

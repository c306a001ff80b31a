#include "camjob/disk/StagingDisk.h"

#include "camjob/console/Paths.h"
#include "camjob/disk/FlushRenameLock.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>

namespace camjob {

namespace {

/// Of a stream, which keeps no reason of its own. errno has to be 0 before the stream is opened.
std::error_code StreamError() {
    return {errno == 0 ? EIO : errno, std::generic_category()};
}

std::error_code UnlessNotFound(const std::error_code& error,
                               const std::filesystem::file_status& status) {
    return status.type() == std::filesystem::file_type::not_found ? std::error_code() : error;
}

}  // namespace

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
    return stream ? std::error_code() : StreamError();
}

std::error_code StagingDisk::FlushFile(const std::filesystem::path& file) {
    return camjob::FlushFile(file);
}

void StagingDisk::BeginFlush(const std::filesystem::path& file) {
    camjob::BeginFlush(file);
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

std::error_code StagingDisk::GetStatus(const std::filesystem::path& path,
                                       std::filesystem::file_status& status) {
    std::error_code error;
    status = std::filesystem::status(path, error);
    return UnlessNotFound(error, status);
}

std::error_code StagingDisk::GetLinkStatus(const std::filesystem::path& path,
                                           std::filesystem::file_status& status) {
    std::error_code error;
    status = std::filesystem::symlink_status(path, error);
    return UnlessNotFound(error, status);
}

std::error_code StagingDisk::ListFolder(const std::filesystem::path& folder,
                                        std::vector<std::string>& names) {
    std::error_code error;
    std::filesystem::recursive_directory_iterator at(folder, error);
    for (; !error && at != std::filesystem::recursive_directory_iterator(); at.increment(error))
        if (!at->is_directory(error))
            names.push_back(Utf8FromPath(at->path().lexically_relative(folder).generic_u8string()));
    std::sort(names.begin(), names.end());
    return error;
}

std::error_code StagingDisk::ReadFile(const std::filesystem::path& file, std::string& bytes) {
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::array<char, 1u << 12> piece;
    while (stream.read(piece.data(), piece.size()) || stream.gcount() > 0)
        bytes.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
    return stream.is_open() && !stream.bad() ? std::error_code() : StreamError();
}

std::error_code StagingDisk::AreSameFile(const std::filesystem::path& a,
                                         const std::filesystem::path& b,
                                         bool& areSame) {
    std::error_code error;
    areSame = std::filesystem::equivalent(a, b, error);
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

std::error_code StagingDisk::CheckFree(const std::filesystem::path& file) {
    return camjob::CheckFree(file);
}

}  // namespace camjob

#include "job/TextFile.h"

#include "job/SystemError.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fstream>
#include <string_view>
#include <system_error>

namespace job {

namespace {

constexpr std::size_t kMaxBytes = std::size_t{4} * 1024 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::variant<std::string, TextFileFault> ReadTextFile(const std::filesystem::path& file,
                                                      const std::string& kind) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return TextFileFault{"there is no such file"};
    if (std::filesystem::is_directory(status))
        return TextFileFault{"this is a folder, not a " + kind};
    // Streams keep no reason of their own.
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::string bytes;
    std::array<char, 1u << 14> piece;
    while (bytes.size() <= kMaxBytes &&
           (stream.read(piece.data(), piece.size()) || stream.gcount() > 0))
        bytes.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
    if (!stream.is_open() || stream.bad())
        return TextFileFault{"the file cannot be read" + ReasonBehind(errno)};
    if (bytes.size() > kMaxBytes)
        return TextFileFault{"the file is larger than 4 MB: this is no " + kind};
    if (bytes.starts_with(kByteOrderMark))
        bytes.erase(0, kByteOrderMark.size());
    return bytes;
}

}  // namespace job

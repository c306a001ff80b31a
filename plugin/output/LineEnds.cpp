#include "plugin/output/LineEnds.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <string>

namespace plugin {

namespace {

std::string WithCrLf(const std::string& text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n')
            result += '\r';
        result += c;
    }
    return result;
}

std::error_code LastFault() {
    return {errno == 0 ? EIO : errno, std::generic_category()};
}

}  // namespace

std::error_code EndLinesWithCrLf(const std::filesystem::path& file) {
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    if (!in.is_open() || in.bad())
        return LastFault();
    in.close();
    return WriteBytes(file, WithCrLf(text));
}

std::error_code WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
    errno = 0;
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return out ? std::error_code() : LastFault();
}

}  // namespace plugin

#include "job/Utf8Path.h"

namespace job {

std::filesystem::path PathFromUtf8(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

}  // namespace job

#include "job/Utf8Path.h"

namespace job {

std::filesystem::path PathFromUtf8(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::filesystem::path::string_type NativeFromUtf8(const std::string& name) {
#if defined(_WIN32)
    return PathFromUtf8(name).native();
#else
    return name;
#endif
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

}  // namespace job

#include "camjob/Paths.h"

namespace camjob {

std::filesystem::path PathFromUtf8(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

ZetString TextFromPath(const std::filesystem::path& path) {
    return ZetString::fromUtf8(Utf8FromPath(path));
}

}  // namespace camjob

#include "camjob/console/Paths.h"

#include <system_error>

namespace camjob {

std::string NameIn(const std::string& folder, const std::string& file) {
    const bool isParted = folder.empty() || folder.back() == '/' || folder.back() == '\\';
    return folder + (isParted ? "" : "/") + file;
}

std::string NameFromFolderOf(const std::string& other, const std::string& file) {
    std::error_code ignored;
    const auto folder = std::filesystem::absolute(PathFromUtf8(other), ignored).parent_path();
    const auto path = std::filesystem::absolute(PathFromUtf8(file), ignored);
    return Utf8FromPath(path.lexically_proximate(folder).generic_u8string());
}

std::filesystem::path RealPath(const std::filesystem::path& path) {
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(path, error);
    return error ? path.lexically_normal() : real;
}

std::filesystem::path PlaceOf(const std::filesystem::path& file) {
    std::error_code ignored;
    const auto whole = std::filesystem::absolute(file, ignored);
    return RealPath(whole.parent_path()) / whole.filename();
}

}  // namespace camjob

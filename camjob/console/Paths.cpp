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

std::string NamesFromFolder::Of(const std::string& file) {
    constexpr char kAnyName = 'x';
    const std::size_t begin = file.rfind('/') + 1;
    const std::string name = file.substr(begin);
    // Dots, and what the system may take for a slash.
    if (begin == 0 || name.empty() || name.front() == '.' ||
        name.find_first_of("\\:") != std::string::npos)
        return NameFromFolderOf(m_other, file);
    std::string folder = file.substr(0, begin);
    if (m_folder != folder) {
        m_begin = NameFromFolderOf(m_other, folder + kAnyName);
        m_begin.pop_back();
        m_folder = std::move(folder);
    }
    return m_begin + name;
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

#include "camjob/disk/RevocableFiles.h"

#include <fstream>
#include <system_error>

namespace camjob {

namespace fs = std::filesystem;

// What is made is noted first: the note may take the last memory.

RevocableFiles::~RevocableFiles() {
    TakeBack();
    s_only = nullptr;
}

void RevocableFiles::TakeBackWhatIsThere() {
    if (s_only != nullptr)
        s_only->TakeBack();
}

void RevocableFiles::TakeBack() {
    std::error_code ignored;
    for (auto path = m_paths.rbegin(); path != m_paths.rend(); ++path)
        fs::remove(*path, ignored);
}

bool RevocableFiles::MakeFolder(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error))
        return true;
    // "out/" names the folder "out".
    if (folder.has_relative_path() && !MakeFolder(folder.parent_path()))
        return false;
    m_paths.push_back(folder);
    if (!fs::create_directory(folder, error))
        m_paths.pop_back();
    return fs::is_directory(folder, error);
}

bool RevocableFiles::Write(const fs::path& file, std::string_view text) {
    if (!MakeFolder(file.parent_path()))
        return false;
    m_paths.push_back(file);
    std::ofstream stream(file, std::ios::binary);
    if (!stream.is_open()) {
        m_paths.pop_back();
        return false;
    }
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    stream.close();
    return !stream.fail();
}

}  // namespace camjob

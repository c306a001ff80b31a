#include "camjob/disk/RevocableFiles.h"

#include "camjob/disk/StagingDisk.h"

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

std::error_code RevocableFiles::MakeFolder(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error))
        return {};
    // "out/" names the folder "out".
    if (folder.has_relative_path())
        if (const std::error_code above = MakeFolder(folder.parent_path()))
            return above;
    m_paths.push_back(folder);
    if (fs::create_directory(folder, error))
        return {};
    m_paths.pop_back();
    return fs::is_directory(folder) ? std::error_code() : error;
}

std::error_code RevocableFiles::Write(const fs::path& file, std::string_view text) {
    if (const std::error_code error = MakeFolder(file.parent_path()))
        return error;
    fs::path made = file;
    made += ".new";
    m_paths.push_back(made);
    StagingDisk disk;
    if (const std::error_code error = disk.WriteFile(made, text))
        return error;
    m_paths.push_back(file);
    const std::error_code error = disk.Rename(made, file);
    // What is there is not this one's yet.
    if (error)
        m_paths.pop_back();
    return error;
}

}  // namespace camjob

#include "camjob/InitCommand.h"

#include "camjob/CommandLine.h"
#include "camjob/InitTemplates.h"
#include "camjob/Paths.h"

#include <fstream>
#include <system_error>
#include <vector>

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// Files and folders that were made; they go again unless Keep is called.
class NewFiles {
  public:
    NewFiles() = default;
    ~NewFiles() {
        std::error_code ignored;
        for (auto path = m_paths.rbegin(); path != m_paths.rend(); ++path)
            fs::remove(*path, ignored);
    }
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;

    /// Makes a folder and those that it lies in, unless they are there.
    bool MakeFolder(const fs::path& folder) {
        std::error_code error;
        if (folder.empty() || fs::is_directory(folder, error))
            return true;
        if (folder.has_relative_path() && !MakeFolder(folder.parent_path()))
            return false;
        if (fs::create_directory(folder, error))
            m_paths.push_back(folder);
        return fs::is_directory(folder, error);
    }
    bool Write(const fs::path& file, std::string_view text) {
        if (!MakeFolder(file.parent_path()))
            return false;
        std::ofstream stream(file, std::ios::binary);
        if (!stream.is_open())
            return false;
        m_paths.push_back(file);
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
        stream.close();
        return !stream.fail();
    }
    void Keep() { m_paths.clear(); }

  private:
    std::vector<fs::path> m_paths;
};

/// The first file that stands in the way; null when there is none.
const TemplateFile* FindExisting(const fs::path& folder) {
    for (const TemplateFile& file : kInitTemplates) {
        std::error_code ignored;
        if (fs::exists(fs::symlink_status(folder / PathFromUtf8(file.name), ignored)))
            return &file;
    }
    return nullptr;
}

std::string NameOf(const fs::path& folder, const TemplateFile& file) {
    return Utf8FromPath(folder / PathFromUtf8(file.name));
}

}  // namespace

int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err) {
    const fs::path folder = PathFromUtf8(options.folder);
    if (const TemplateFile* file = FindExisting(folder)) {
        err.Write("camjob: " + NameOf(folder, *file) + " is there already: nothing was written\n");
        return kExitBadInput;
    }
    NewFiles files;
    for (const TemplateFile& file : kInitTemplates) {
        if (!files.Write(folder / PathFromUtf8(file.name), file.text)) {
            err.Write("camjob: " + NameOf(folder, file) +
                      " could not be written: nothing was left behind\n");
            return kExitNotWritten;
        }
    }
    files.Keep();
    for (const TemplateFile& file : kInitTemplates)
        out.Write(NameOf(folder, file) + "\n");
    out.Write("Next: camjob run " + NameOf(folder, kInitTemplates.front()) + "\n");
    return kExitDone;
}

}  // namespace camjob

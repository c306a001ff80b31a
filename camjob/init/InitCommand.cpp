#include "camjob/init/InitCommand.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/disk/RevocableFiles.h"
#include "job/templates/InitTemplates.h"

#include <system_error>

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// The first file that stands in the way; null when there is none.
const job::TemplateFile* FindExisting(const fs::path& folder) {
    for (const job::TemplateFile& file : job::kInitTemplates) {
        std::error_code ignored;
        if (fs::exists(fs::symlink_status(folder / PathFromUtf8(file.name), ignored)))
            return &file;
    }
    return nullptr;
}

std::string NameOf(const fs::path& folder, const job::TemplateFile& file) {
    return Utf8FromPath(folder / PathFromUtf8(file.name));
}

}  // namespace

int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err) {
    const fs::path folder = PathFromUtf8(options.folder);
    if (const job::TemplateFile* file = FindExisting(folder)) {
        err.Write("camjob: " + NameOf(folder, *file) + " is there already: nothing was written\n");
        return kExitBadInput;
    }
    RevocableFiles files;
    for (const job::TemplateFile& file : job::kInitTemplates) {
        if (!files.Write(folder / PathFromUtf8(file.name), file.text)) {
            err.Write("camjob: " + NameOf(folder, file) +
                      " could not be written: nothing was left behind\n");
            return kExitNotWritten;
        }
    }
    files.Keep();
    for (const job::TemplateFile& file : job::kInitTemplates)
        out.Write(NameOf(folder, file) + "\n");
    out.Write("Next: camjob run " + NameOf(folder, job::kInitTemplates.front()) + "\n");
    return kExitDone;
}

}  // namespace camjob

#pragma once

#include <array>
#include <string_view>

namespace camjob {

/// A file that `camjob init` writes.
struct TemplateFile {
    const char* name;  ///< below the folder, with slashes
    std::string_view text;
};

/// The job file first. The files themselves lie in camjob/templates.
extern const std::array<TemplateFile, 2> kInitTemplates;

}  // namespace camjob

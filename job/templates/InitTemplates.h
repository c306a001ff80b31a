#pragma once

#include <array>
#include <string_view>

namespace job {

/// A file that `camjob init` writes.
struct TemplateFile {
    const char* name;  ///< below the folder, with slashes
    std::string_view text;
};

/// The job file first. The files themselves lie beside this one.
extern const std::array<TemplateFile, 2> kInitTemplates;

}  // namespace job

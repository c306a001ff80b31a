#pragma once

#include <array>
#include <string_view>

namespace job {

/// A file that `camjob init` writes.
struct TemplateFile {
    const char* name;  ///< below the folder, with slashes
    std::string_view text;
};

/// What a sample is.
enum class SampleKind {
    kPurlins,
    kFrames,
    kPlates,
};

/// An NC file to start with.
struct SampleFile {
    TemplateFile file;
    SampleKind kind;
};

/// A job for the purlin among the samples that shows every key. The files lie beside this one.
extern const TemplateFile kJobTemplate;
extern const std::array<SampleFile, 4> kSampleFiles;

}  // namespace job

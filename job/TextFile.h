#pragma once

#include <filesystem>
#include <string>
#include <variant>

namespace job {

/// Why a file could not be read; one line without a full stop.
struct TextFileFault {
    std::string text;
};

/// All bytes of a small file, without a byte order mark. `kind` is what it should be, for faults:
/// "job file".
std::variant<std::string, TextFileFault> ReadTextFile(const std::filesystem::path& file,
                                                      const std::string& kind);

/// What to say of bytes that are no UTF-8.
inline constexpr const char* kNotUtf8 =
    "this line is not UTF-8: save the file with the encoding UTF-8";

}  // namespace job

#pragma once

#include "job/JobDocument.h"
#include "job/formats/MachineFormat.h"

#include <filesystem>
#include <span>
#include <string_view>

/// @file
/// Reading a format file: TOML, every key as docs/format-file.md lists it.

namespace job {

/// A format that needs no file.
struct BuiltInFormat {
    const char* name;
    const char* meaning;
    std::string_view text;  ///< as a format file; "": no file can say it
};

std::span<const BuiltInFormat> GetBuiltInFormats();
/// Null: there is none of that name.
const BuiltInFormat* FindBuiltInFormat(std::string_view name);

/// As a format file names it.
const char* NameOf(FormatPart part);

/// Reads a format and checks it completely; of use only without faults.
MachineFormat ReadFormatFile(const std::filesystem::path& file, JobFaults& faults);
/// The same for the text of a format file. `stem` is its name without the ending.
MachineFormat ReadFormatText(std::string_view text, std::string_view stem, JobFaults& faults);

}  // namespace job

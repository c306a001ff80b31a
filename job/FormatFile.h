#pragma once

#include "job/Job.h"
#include "job/JobDocument.h"
#include "job/TextFile.h"
#include "job/formats/MachineFormat.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <variant>

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

/// The bytes of a format file, or why it cannot be read.
std::variant<std::string, TextFileFault> ReadFormatBytes(const std::filesystem::path& file);
/// Reads the bytes of a format file and checks them completely; of use only without faults. `stem`
/// is the file's name without the ending.
MachineFormat ReadFormatText(std::string_view text, std::string_view stem, JobFaults& faults);

/// Where the file of one of the job's formats is; empty: it is a built-in format.
std::filesystem::path GetFormatFile(const Job& job, const MachineFormat& format);

}  // namespace job

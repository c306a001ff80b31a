#include "job/FormatFile.h"

#include "job/FormatResolving.h"
#include "job/FormatTables.h"
#include "job/TomlFile.h"
#include "job/Utf8Path.h"
#include "job/formats/BuiltInTexts.h"

#include <algorithm>
#include <system_error>

namespace job {

namespace {

constexpr const char* kWhat = "format file";

}  // namespace

std::span<const BuiltInFormat> GetBuiltInFormats() {
    // clang-format off
    static const BuiltInFormat formats[] = {
        {"records",
         "The machine records: a block for each member, a line for each operation", kRecordsFormat},
        {"csv",     "One row for each operation, with a row of headings",           kCsvFormat    },
        {"dstv", "A DSTV NC file for each member, in a folder of their own", ""},
    };
    // clang-format on
    return formats;
}

const BuiltInFormat* FindBuiltInFormat(std::string_view name) {
    const std::span<const BuiltInFormat> formats = GetBuiltInFormats();
    const auto at = std::find_if(
        formats.begin(), formats.end(), [&](const BuiltInFormat& row) { return row.name == name; });
    return at == formats.end() ? nullptr : &*at;
}

std::variant<std::string, TextFileFault> ReadFormatBytes(const std::filesystem::path& file) {
    std::error_code ignored;
    if (std::filesystem::is_fifo(file, ignored))
        return TextFileFault{"this is a pipe, not a format file"};
    return ReadTextFile(file, kWhat);
}

MachineFormat ReadFormatText(std::string_view text, std::string_view stem, JobFaults& faults) {
    const std::optional<toml::table> table = ReadToml(text, kWhat, faults);
    return table ? ResolveFormat(ReadFormatTables(*table, faults), stem, faults) : MachineFormat();
}

std::filesystem::path GetFormatFile(const Job& job, const MachineFormat& format) {
    if (format.file.isEmpty())
        return {};
    return PathFromUtf8(job.file).parent_path() / PathFromUtf8(format.file.toUtf8());
}

}  // namespace job

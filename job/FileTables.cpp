#include "job/JobKeyTables.h"

namespace job {

namespace {

// clang-format off

constexpr Key kFileKeys[] = {
    Row<FileTable, &FileTable::id>("id", "Name of the file in this job.", {.isRequired = true}),
    Row<FileTable, &FileTable::ending>("ending", "What the file's name ends with, behind `file_name`.", {.defaultNote = "required, but for the four files that are always there"}),
    Row<FileTable, &OutputFile::headerLines>("header", "Lines that the file begins with."),
    Row<FileTable, &OutputFile::hasProjectHeader>("project_header", "Whether the project data follow them."),
    Row<FileTable, &FileTable::lineEnds>("line_ends", "What ends each line: LF, or CR and LF.", {.defaultNote = "\"lf\", or what `format` says"}),
    Row<FileTable, &FileTable::format>("format", "How members are written: \"records\", \"csv\", \"dstv\", or the name of a format file, relative to the job file's folder. For `order` and files of the job's own."),
    Row<FileTable, &FileTable::folder>("folder", "With the format \"dstv\", in place of `ending`: the folder of the output that the NC files go to.", {.defaultNote = "\"nc\""}),
    Row<FileTable, &FileTable::names>("names", "Their names: `{mark}`, `{file_name}` (of the NC file that was read, without its ending), `{drawing}`, `{profile}`, `{phase}`, `{order}` and `{group}` are filled in; one of the first three must be there.", {.defaultNote = "\"{mark}.nc1\""}),
};

constexpr KeyTable kFileTable{kFileKeys};

}  // namespace

template <> const KeyTable& KeysOf<FileTable>() { return kFileTable; }

// clang-format on

}  // namespace job

#pragma once

#include "dstv/NcNote.h"

#include <string>
#include <vector>

namespace camjob {

/// What names of files and folders stand for.
struct FoundNcFiles {
    std::vector<std::string> files;
    std::vector<std::string> folders;  ///< by file: the given one that it was found in; "": none
    /// Folders without any, and those that cannot be listed, so that files may be missing.
    std::vector<dstv::NcError> faults;
};

/// The names of NC files, each as given; for a folder those of all files in it and in the folders
/// below that end with .nc or .nc1 in any case, in the order of their names, with slashes.
FoundNcFiles FindNcFiles(const std::vector<std::string>& names);

}  // namespace camjob

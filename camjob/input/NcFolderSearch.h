#pragma once

#include <string>
#include <vector>

namespace camjob {

/// The names of NC files, each as given; for a folder those of all files in it and in the folders
/// below that end with .nc or .nc1 in any case, in the order of their names, with slashes. A folder
/// without any, or one that cannot be listed, stays as it is: whoever reads it tells.
std::vector<std::string> FindNcFiles(const std::vector<std::string>& names);

}  // namespace camjob

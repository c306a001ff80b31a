#include "camjob/console/Paths.h"

namespace camjob {

std::string NameIn(const std::string& folder, const std::string& file) {
    const bool isParted = folder.empty() || folder.back() == '/' || folder.back() == '\\';
    return folder + (isParted ? "" : "/") + file;
}

}  // namespace camjob

#pragma once

#include "camjob/init/NcSurvey.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace camjob {

/// A number in a profile name, from its first character (counted from 0).
struct NameNumber {
    std::size_t start = 0;
    std::size_t length = 0;

    bool operator==(const NameNumber&) const = default;
};

/// Parts of one kind of profile: a member type and a group of the job.
struct ProfileFamily {
    std::string id;
    std::string heading;             ///< what the group is called in the output
    std::string code;                ///< of the NC files
    std::string pattern;             ///< of the profile name; "": any
    std::set<std::string> profiles;  ///< names that were found
    long parts = 0;
    bool hasNoHeight = false;  ///< some header does not tell it
    NameNumber height;         ///< where all names have a number that can be it; length 0: nowhere
    bool hasFlangesOverWidth = false;  ///< their coordinates may run over the whole width
};

/// The families of the parts, such that the first that fits a part is its own: by the profile code,
/// and those of special sections by the letters that their names begin with.
std::vector<ProfileFamily> FindFamilies(const std::vector<PartSurvey>& parts);

}  // namespace camjob

#pragma once

#include <string>
#include <vector>

namespace job {

/// One key of the job file, in words.
struct JobKey {
    std::string name;
    std::string value;         ///< what it takes, with its range
    std::string unit;          ///< "": none
    std::string defaultValue;  ///< "required" when there is none
    std::string meaning;
};

/// One table of the job file, with its keys.
struct JobKeyTable {
    std::string title;    ///< as it is written: "[job]", "[[group]]", or "member_type.height"
    std::string meaning;  ///< one sentence
    std::vector<JobKey> keys;
};

/// Every table of the job file in the order of the reader, with what stands inside a table behind
/// it. Made from the same rows that read the job file.
std::vector<JobKeyTable> ListJobKeys();
/// The same for a format file.
std::vector<JobKeyTable> ListFormatKeys();

}  // namespace job

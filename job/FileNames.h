#pragma once

#include "job/Job.h"

#include "camdata/platform/text/ZetString.h"

#include <string>
#include <vector>

namespace job {

/// The name in small letters: files whose names agree in them are one file on Windows.
std::wstring SmallLetters(const ZetString& name);

/// What the name of an output file ends with, and what the file is called for people.
struct OutputEnding {
    ZetString ending;
    ZetString label;
};
/// Of all files of a run but NC files: by position in Job::files, then cutting list and table when a group is
/// nested, the remnants, last the page.
std::vector<OutputEnding> OutputEndings(const Job& job);

/// Beside the settings file: what the job said when the dialog changed a value.
ZetString SettingsOriginFile(const ProjectData& project);

/// What is wrong with the name of a file, UTF-8; "" when every system takes it.
std::string FaultOfFileName(const ZetString& name);

/// The same for what the names of all output files of a run begin with.
inline std::string FaultOfFileNameStart(const ZetString& start) {
    return FaultOfFileName(start + L"-");
}

}  // namespace job

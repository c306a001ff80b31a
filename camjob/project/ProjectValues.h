#pragma once

#include "job/Job.h"

#include "camdata/platform/text/ZetString.h"
#include "camdata/project/CProjectInformation.h"

#include <array>
#include <cstddef>

namespace camjob {

/// How a value of the project information is written.
enum class ValueKind {
    kText,
    kLines,  ///< with CR LF between them
    kDate,   ///< yyyy-MM-dd
};

/// A value that the dialog changes and the settings file keeps.
struct ProjectValue {
    const char* key;  ///< in [project] of the job
    const wchar_t* label;
    ValueKind kind;
    int tab;  ///< of the dialog
    int control;
    ZetString (CProjectInformation::*get)() const;
    void (CProjectInformation::*set)(ZetString);
    ZetString job::ProjectData::*date = nullptr;  ///< of a date: where the job may say it
};

inline constexpr std::size_t kProjectValueCount = 8;
/// In the order of the settings file.
extern const std::array<ProjectValue, kProjectValueCount> kProjectValues;
inline constexpr std::size_t kFileNameValue = 0;

/// A text for each of them.
using ProjectTexts = std::array<ZetString, kProjectValueCount>;

ProjectTexts TextsOf(const CProjectInformation& project);
void SetTexts(CProjectInformation& project, const ProjectTexts& texts);

}  // namespace camjob

#pragma once

#include "camjob/project/ProjectValues.h"
#include "job/Job.h"

#include "camdata/platform/text/ZetString.h"
#include "camdata/project/CProjectInformation.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace camjob {

/// A value that a run takes from the settings, where the job says something else.
struct TakenSetting {
    std::string key;  ///< in [project] of the job
    ZetString value;
    std::string since;      ///< when the dialog changed it, "2026-03-31 14:05 UTC"
    ZetString ofJob;        ///< what the job says; "" also when it says nothing
    bool isCertain = true;  ///< else nobody has kept what the job said when it was changed
};

/// What the dialog changed in earlier runs, and which of it counts: a value that the dialog changed
/// counts until the job's own value changes.
///
/// Two files beside the output keep it: the settings file with the eight values, and a second one
/// with what the job said when each was changed. A value of the settings file that the second one
/// does not know counts, too.
class ProjectSettings {
  public:
    /// `project` has the values of the job, and the names of folder and settings file.
    ProjectSettings(const job::Job& job, const CProjectInformation& project);

    /// Reads the files, where they are there. What is wrong with them, a sentence each; what it is
    /// about stays as the job has it.
    std::vector<std::string> Read();
    /// The values that count.
    const ProjectTexts& GetTexts() const { return m_texts; }
    /// Of these, those that are not the job's.
    std::vector<TakenSetting> GetTaken() const;

    /// From now on these count, and both files keep them. "", or why the files do not.
    std::string Keep(const ProjectTexts& texts);

  private:
    /// Where a value comes from, other than from the job.
    struct Origin {
        std::string since;  ///< "": the value is the job's
        bool isCertain = true;
    };

    std::vector<std::string> TakeFrom(const ProjectTexts& saved);
    std::string Write() const;
    std::string WriteOrigins(const ProjectTexts& stored) const;

    CProjectInformation m_files;  ///< knows the settings file and its form
    std::filesystem::path m_settingsFile;
    std::filesystem::path m_originFile;
    ProjectTexts m_ofJob;  ///< what counts by the job
    ProjectTexts m_said;   ///< what stands in the job; "" for a date that does not
    ProjectTexts m_texts;
    std::array<Origin, kProjectValueCount> m_origins;
};

}  // namespace camjob

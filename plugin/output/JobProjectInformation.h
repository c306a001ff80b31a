#pragma once

#include "job/Job.h"
#include "plugin/formats/FormatValues.h"

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/project/CProjectInformation.h"

namespace plugin {

/// The project information of a job: its texts, and a settings file that reads back as it was
/// written. A value.
class JobProjectInformation : public CProjectInformation {
  public:
    /// `location` is the output's folder with the separator at its end; the settings file stands
    /// there. Dates that the job leaves open are the job's date, or else today's.
    JobProjectInformation(const job::Job& job, const ZetString& location);

    /// The header lines of the output files: a line for each text that is not empty.
    ZetArray<ZetString> MakeHeaderLines();
    /// What the lines of formats have in common.
    FormatTexts MakeFormatTexts(const job::Job& job) const;

  private:
    void SetTexts(const job::ProjectData& project);
    void SetDates(const job::Job& job);
};

}  // namespace plugin

#pragma once

#include "camjob/project/ProjectSettings.h"
#include "camjob/project/ProjectValues.h"
#include "job/FileNames.h"
#include "job/Job.h"

#include "camdata/platform/dialog/DialogResult.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/project/ProjectDialogGuide.h"

#include <functional>
#include <string>
#include <vector>

namespace camjob {

/// The project information dialog of a run. It opens with the values that count, shows the files
/// that will be written, takes no entry that cannot be saved or used, and has the settings keep
/// what was changed. What the user leaves as it is stays as it is, to the letter.
class ProjectDialog final : public ProjectDialogGuide {
  public:
    /// What is wrong with a file name that all output files' names are to begin with; "" for
    /// nothing.
    using FileNameCheck = std::function<std::string(const ZetString& fileName)>;

    /// `notices` are told when the dialog opens.
    ProjectDialog(const job::Job& job,
                  ProjectSettings& settings,
                  FileNameCheck findNameFault,
                  std::vector<std::string> notices);

    /// Shows it for a record that has the job's values; confirmed, the settings have the new ones.
    /// The values of the record afterwards are of no use.
    DialogResult Show(CProjectInformation& project);
    /// Why the settings could not be kept; "" when they were. After Show.
    const std::string& GetFault() const { return m_fault; }

    void OnFilled(DialogWindow& window) override;
    void OnEdited(DialogWindow& window, int id) override;
    ZetString FindFault(DialogWindow& window, const CProjectInformation& entered) override;
    void OnSaved() override { m_fault = m_settings.Keep(m_entered); }

  private:
    ZetArray<COutPutFiles> OutputRows() const;
    std::string FaultOf(std::size_t value) const;

    ProjectSettings& m_settings;
    const FileNameCheck m_findNameFault;
    const std::vector<std::string> m_notices;
    std::vector<job::OutputEnding> m_outputs;  ///< a row each, as far as there are rows
    ProjectTexts m_before;                     ///< the values that count
    ProjectTexts m_shown;                      ///< what the dialog made of them
    ProjectTexts m_entered;                    ///< the values that are to count
    std::string m_fault;
};

}  // namespace camjob

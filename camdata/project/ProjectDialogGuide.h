#pragma once

#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/platform/text/ZetString.h"

class CProjectInformation;

/// What a program adds to the project information dialog: it looks after the user's entries while
/// the dialog is shown. Called from within CProjectInformation::ShowGuidedDialog; what is thrown
/// here ends the dialog and comes out of there.
class ProjectDialogGuide {
  public:
    ProjectDialogGuide() = default;
    virtual ~ProjectDialogGuide() = default;
    ProjectDialogGuide(const ProjectDialogGuide&) = delete;
    ProjectDialogGuide& operator=(const ProjectDialogGuide&) = delete;

    /// The dialog is filled and about to be seen.
    virtual void OnFilled(DialogWindow& window) = 0;
    /// The text of a field of one line has changed.
    virtual void OnEdited(DialogWindow& window, int id) = 0;
    /// The user wants to confirm or to save: what is wrong with the entries, "" for nothing. It is
    /// told over the dialog, which stays open as it is; nothing is written.
    virtual ZetString FindFault(DialogWindow& window, const CProjectInformation& entered) = 0;
    /// "Save Settings" has just written the settings file.
    virtual void OnSaved() = 0;
};

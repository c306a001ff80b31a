#pragma once

#include "camdata/platform/dialog/Dialog.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/project/ProjectDialogGuide.h"

#include <array>
#include <vector>

/// The dialog in which the user reviews the names of the output files and enters the order,
/// revision and delivery data. It works on a copy of the project information.
class CProjectInformationDlg final : public Dialog {
  public:
    CProjectInformationDlg();

    /// Takes over what the dialog shows. Before DoModal.
    void Init(const CProjectInformation& project);
    /// Before DoModal; null: none. Lent.
    void SetGuide(ProjectDialogGuide* guide) { m_guide = guide; }
    /// Writes the settings file from the dialog's fields.
    std::optional<FileFault> WriteSettings() const { return m_project.WriteSettings(); }
    /// Hands out what the user may edit; comments and delivery address also line by line.
    void CopyBack(CProjectInformation& project) const;

  protected:
    void OnInitDialog() override;
    void DoDataExchange(bool save) override;
    /// Asks before existing output is replaced; on No, and when the guide finds a fault, the dialog
    /// stays open.
    void OnOK() override;
    /// "Save Settings": writes the settings file at once, and tells where, or why not.
    void OnCommand(int id) override;
    void OnTabChanged(int id, int index) override;
    void OnEdited(int id) override;

  private:
    struct PlacedControl {
        int id;
        int tab;
    };

    void InsertTabs();
    void LayOutOutputTab();
    void LayOutProjectTab();
    void LayOutDeliveryTab();
    void Place(int tab, int id, const DialogRect& place);
    void PlaceRow(int tab, int field, int y);
    void ShowTab(int tab);
    bool AreEntriesSound();
    ZetString OutputPath() const;

    CProjectInformation m_project;
    ProjectDialogGuide* m_guide = nullptr;
    ZetString m_caption;
    std::array<ZetString, 3> m_tabs;
    std::vector<PlacedControl> m_placed;
};

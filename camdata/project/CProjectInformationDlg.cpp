#include "camdata/project/CProjectInformationDlg.h"

#include "camdata/platform/system/FileDescriptor.h"

#include <algorithm>
#include <iterator>
#include <system_error>

namespace {

enum ControlID {
    kOK = 1,
    kCancel = 2,
    kSaveSettings = 1001,
    kTabs = 1002,
    kFileName = 1101,
    kLocation = 1102,
    kModelRef = 1201,
    kColdRolledOrderNo = 1206,
    kColdRolledOrderDate = 1207,
    kComments = 1211,
    kRevision = 1212,
    kRevisionDate = 1213,
    kDeliveryDate = 1301,
    kDeliveryAddress = 1302,
    kFirstOutputFile = 1501,
};

constexpr int kLabelOffset = 50;
constexpr int kProjectRows = 10;    ///< from kModelRef on
constexpr int kMaxOutputFiles = 6;  ///< from kFirstOutputFile on

#define FIELD_NORMAL ControlState::kNormal
#define FIELD_READ_ONLY ControlState::kReadOnly
#define FIELD_DISABLED ControlState::kDisabled
#define TAB_CONTROL(id, ...) \
    {ControlKind::kTabs, id, L"", ControlState::kNormal, true, {__VA_ARGS__}},
#define GROUP_FRAME(id, ...) \
    {ControlKind::kFrame, id, L"", ControlState::kNormal, true, {__VA_ARGS__}},
#define EDIT_FIELD(id, state) {ControlKind::kEdit, id, L"", state, false, {}},
#define LINES_FIELD(id) {ControlKind::kLines, id, L"", ControlState::kNormal, false, {}},
#define DATE_FIELD(id) {ControlKind::kDate, id, L"", ControlState::kNormal, false, {}},
#define TEXT_LABEL(id, text) {ControlKind::kLabel, id, L"" text, ControlState::kNormal, false, {}},
#define PUSH_BUTTON(id, text, ...) \
    {ControlKind::kButton, id, L"" text, ControlState::kNormal, true, {__VA_ARGS__}},
#define DEFAULT_BUTTON PUSH_BUTTON

constexpr ControlDef kControls[] = {
#include "camdata/project/ProjectInformationControls.def"
};

/// Each once on a tab; fields that only show something need none, but for those that can be copied
/// from.
constexpr Mnemonic kMnemonics[] = {
    {kFileName + kLabelOffset,            L'F'},
    {kLocation + kLabelOffset,            L'L'},
    {kModelRef + kLabelOffset,            L'M'},
    {kColdRolledOrderNo + kLabelOffset,   L'N'},
    {kColdRolledOrderDate + kLabelOffset, L'D'},
    {kComments + kLabelOffset,            L'C'},
    {kRevision + kLabelOffset,            L'R'},
    {kRevisionDate + kLabelOffset,        L't'},
    {kDeliveryDate + kLabelOffset,        L'D'},
    {kDeliveryAddress + kLabelOffset,     L'A'},
    {kSaveSettings,                       L'S'},
};

constexpr DialogTemplate kTemplate = {
    1000, L"Dialog", 287, 273, kOK, kCancel, kLabelOffset, kControls, kMnemonics};

enum Tab { kOutputTab, kProjectTab, kDeliveryTab };

struct FixedPlace {
    int id;
    DialogRect place;
};

// The order date stands in the row of its label, narrower than the other fields.
constexpr FixedPlace kProjectPlaces[] = {
    {kColdRolledOrderDate,         {150, 190, 90, 20}},
    {kComments + kLabelOffset,     {20, 290, 125, 15}},
    {kComments,                    {20, 305, 380, 60}},
    {kRevision + kLabelOffset,     {20, 370, 45, 15} },
    {kRevision,                    {70, 370, 45, 20} },
    {kRevisionDate + kLabelOffset, {215, 370, 90, 15}},
    {kRevisionDate,                {310, 370, 90, 20}},
};

constexpr FixedPlace kDeliveryPlaces[] = {
    {kDeliveryDate + kLabelOffset,    {20, 40, 125, 15} },
    {kDeliveryDate,                   {20, 55, 90, 20}  },
    {kDeliveryAddress + kLabelOffset, {20, 80, 125, 15} },
    {kDeliveryAddress,                {20, 95, 380, 200}},
};

constexpr int kFirstRow = 40;
constexpr int kRowStep = 25;

/// A text of the project information that the dialog shows.
struct Field {
    int id;
    ZetString (CProjectInformation::*get)() const;
    void (CProjectInformation::*set)(ZetString);
    bool isEditable;
};

using Info = CProjectInformation;
constexpr Field kFields[] = {
    {kFileName,            &Info::GetFileName,            &Info::SetFileName,            true },
    {kLocation,            &Info::GetLocation,            &Info::SetLocation,            false},
    {kModelRef,            &Info::GetModelRef,            &Info::SetModelRef,            false},
    {1202,                 &Info::GetProjectName,         &Info::SetProjectName,         false},
    {1203,                 &Info::GetProjectNo,           &Info::SetProjectNo,           false},
    {1204,                 &Info::GetClient,              &Info::SetClient,              false},
    {1205,                 &Info::GetColdRolledCust,      &Info::SetColdRolledCust,      false},
    {kColdRolledOrderNo,   &Info::GetColdRolledOrderNo,   &Info::SetColdRolledOrderNo,   true },
    {kColdRolledOrderDate, &Info::GetColdRolledOrderDate, &Info::SetColdRolledOrderDate, true },
    {1208,                 &Info::GetContractor,          &Info::SetContractor,          false},
    {1209,                 &Info::GetDesigner,            &Info::SetDesigner,            false},
    {1210,                 &Info::GetDetailer,            &Info::SetDetailer,            false},
    {kComments,            &Info::GetMxComments,          &Info::SetMxComments,          true },
    {kRevision,            &Info::GetRevision,            &Info::SetRevision,            true },
    {kRevisionDate,        &Info::GetRevisionDate,        &Info::SetRevisionDate,        true },
    {kDeliveryDate,        &Info::GetDeliveryDate,        &Info::SetDeliveryDate,        true },
    {kDeliveryAddress,     &Info::GetMxDeliveryAddress,   &Info::SetMxDeliveryAddress,   true },
};
static_assert(std::size(kFields) == 17);

/// The lines of a text; none when it is empty.
ZetArray<ZetString> LinesOf(const ZetString& text) {
    const ZetString lineEnd = L"\r\n";
    ZetArray<ZetString> lines;
    if (text.isEmpty())
        return lines;
    long start = 0;
    for (long end = text.find(lineEnd); end >= 0; end = text.find(lineEnd, start)) {
        lines.append(text.mid(start, end - start));
        start = end + lineEnd.length();
    }
    lines.append(text.mid(start));
    return lines;
}

ZetString ReasonOf(const FileFault& fault) {
    return ZetString::fromUtf8(std::generic_category().message(fault.systemError));
}

ZetString SavingMessage(const ZetString& fileName, const std::optional<FileFault>& fault) {
    if (!fault)
        return ZetString::format(L"The settings are saved in\n%s", fileName);
    return ZetString::format(
        L"The settings could not be saved in\n%s\n%s.", fileName, ReasonOf(*fault));
}

}  // namespace

CProjectInformationDlg::CProjectInformationDlg()
    : Dialog(kTemplate),
      m_caption(L"Repareil"),
      m_tabs{L"OutPut", L"Project Information", L"Delivery Information"} {}

void CProjectInformationDlg::Init(const CProjectInformation& project) {
    m_project = project;
    m_caption = project.GetDialogCaption();
}

void CProjectInformationDlg::CopyBack(CProjectInformation& project) const {
    for (const Field& field : kFields)
        if (field.isEditable)
            (project.*field.set)((m_project.*field.get)());
    project.SetComments(LinesOf(m_project.GetMxComments()));
    project.SetDeliveryAddress(LinesOf(m_project.GetMxDeliveryAddress()));
}

void CProjectInformationDlg::OnInitDialog() {
    Window().SetCaption(m_caption);
    InsertTabs();
    LayOutOutputTab();
    LayOutProjectTab();
    LayOutDeliveryTab();
    DoDataExchange(false);
    Window().Enable(kSaveSettings, !m_project.GetProjFileName().isEmpty());
    ShowTab(kOutputTab);
    if (m_guide != nullptr)
        m_guide->OnFilled(Window());
}

void CProjectInformationDlg::InsertTabs() {
    Window().Show(kTabs, true);
    Window().Move(kTabs, {10, 10, 410, 395});
    int index = 0;
    for (const ZetString& text : m_tabs)
        Window().InsertTab(kTabs, index++, text);
}

void CProjectInformationDlg::LayOutOutputTab() {
    int y = kFirstRow;
    PlaceRow(kOutputTab, kFileName, y);
    const ZetArray<COutPutFiles> files = m_project.GetFileNameArr();
    const int count = static_cast<int>(std::min<long>(files.length(), kMaxOutputFiles));
    for (int id = kFirstOutputFile; id < kFirstOutputFile + count; ++id) {
        const COutPutFiles& file = files[id - kFirstOutputFile];
        PlaceRow(kOutputTab, id, y += kRowStep);
        SetControlText(id, file.GetSuffixStr());
        SetControlText(LabelOf(id), file.GetCaptionStr());
    }
    PlaceRow(kOutputTab, kLocation, y + kRowStep);
}

void CProjectInformationDlg::LayOutProjectTab() {
    for (int row = 0; row < kProjectRows; ++row)
        PlaceRow(kProjectTab, kModelRef + row, kFirstRow + row * kRowStep);
    for (const FixedPlace& each : kProjectPlaces)
        Place(kProjectTab, each.id, each.place);
}

void CProjectInformationDlg::LayOutDeliveryTab() {
    for (const FixedPlace& each : kDeliveryPlaces)
        Place(kDeliveryTab, each.id, each.place);
}

void CProjectInformationDlg::Place(int tab, int id, const DialogRect& place) {
    Window().Move(id, place);
    m_placed.push_back({id, tab});
}

void CProjectInformationDlg::PlaceRow(int tab, int field, int y) {
    Place(tab, field, {150, y, 250, 20});
    Place(tab, LabelOf(field), {20, y, 125, 15});
}

void CProjectInformationDlg::ShowTab(int tab) {
    // Showing comes first: a field that has the keyboard hands it on to one that can be seen.
    for (const bool isShown : {true, false})
        for (const PlacedControl& each : m_placed)
            if ((each.tab == tab) == isShown)
                Window().Show(each.id, isShown);
}

void CProjectInformationDlg::DoDataExchange(bool save) {
    for (const Field& field : kFields)
        if (save)
            (m_project.*field.set)(ControlText(field.id));
        else
            SetControlText(field.id, (m_project.*field.get)());
}

ZetString CProjectInformationDlg::OutputPath() const {
    const ZetArray<COutPutFiles> files = m_project.GetFileNameArr();
    const ZetString ending = files.isEmpty() ? ZetString() : files[0].GetCaptionStr();
    return m_project.GetLocation() + m_project.GetFileName() + ending;
}

/// Tells what is wrong with them.
bool CProjectInformationDlg::AreEntriesSound() {
    const ZetString fault =
        m_guide == nullptr ? ZetString() : m_guide->FindFault(Window(), m_project);
    if (!fault.isEmpty())
        Window().Tell(m_caption, fault);
    return fault.isEmpty();
}

void CProjectInformationDlg::OnOK() {
    DoDataExchange(true);
    if (!AreEntriesSound())
        return;
    if (camdata::detail::OsIsFile(OutputPath()) &&
        !Window().AskYesNo(L"Overwrite Option",
                           L"Output files already exist!\n Do you want to replace the files?"))
        return;
    Dialog::OnOK();
}

void CProjectInformationDlg::OnCommand(int id) {
    if (id != kSaveSettings)
        return;
    DoDataExchange(true);
    if (!AreEntriesSound())
        return;
    const std::optional<FileFault> fault = WriteSettings();
    if (!fault && m_guide != nullptr)
        m_guide->OnSaved();
    Window().Tell(L"Save Settings", SavingMessage(m_project.GetProjFileName(), fault));
}

void CProjectInformationDlg::OnEdited(int id) {
    if (m_guide != nullptr)
        m_guide->OnEdited(Window(), id);
}

void CProjectInformationDlg::OnTabChanged(int, int index) {
    ShowTab(index);
}

#pragma once

#include "camdata/platform/dialog/DialogResult.h"
#include "camdata/platform/dialog/DialogWindow.h"

#include <span>
#include <utility>

/// @file
/// Modal dialogs: what a dialog does (Dialog), and what shows it (a backend, which runs a
/// DialogTemplate and reports to DialogEvents).

enum class ControlKind {
    kTabs,
    kFrame,
    kEdit,
    kLines,  ///< an edit field of several lines, in which Return begins a new one
    kDate,
    kButton,
    kLabel,
};

/// Holds data that the user may enter; has a label.
constexpr bool IsField(ControlKind kind) {
    return kind == ControlKind::kEdit || kind == ControlKind::kLines || kind == ControlKind::kDate;
}

enum class ControlState {
    kNormal,
    kReadOnly,  ///< can be copied from, not changed
    kDisabled,
};

/// One row of a dialog's control table.
struct ControlDef {
    ControlKind kind;
    int id;
    const wchar_t* text;
    ControlState state;
    bool isVisible;
    DialogRect units;  ///< in dialog units
};

/// The letter of a label or button that, with Alt, goes to the field or presses the button.
struct Mnemonic {
    int id;
    wchar_t letter;  ///< the first such letter of the text
};

/// A dialog as it is before it fills itself. The tab key goes from control to control as they are
/// seen, whatever their order here.
struct DialogTemplate {
    int resource;  ///< id of the dialog resource that says the same
    const wchar_t* caption;
    int width;  ///< width and height in dialog units
    int height;
    int okButton;      ///< the button that Return presses
    int cancelButton;  ///< the button that Escape and closing the window press
    int labelOffset;   ///< a field's label has the field's id plus this
    std::span<const ControlDef> controls;
    std::span<const Mnemonic> mnemonics;  ///< shown from the start; no part of the resource
};

/// Null when the dialog does not have it.
constexpr const ControlDef* FindControl(const DialogTemplate& dialog, int id) {
    for (const ControlDef& row : dialog.controls)
        if (row.id == id)
            return &row;
    return nullptr;
}

/// Dialog units in pixels, for the font of all dialogs: "MS Shell Dlg" of 8 points, whose average
/// character is 6 pixels wide and 13 high.
constexpr int PixelsAcross(int units) {
    return (units * 6 + 2) / 4;
}
constexpr int PixelsDown(int units) {
    return (units * 13 + 4) / 8;
}
constexpr DialogRect InPixels(const DialogRect& units) {
    return {PixelsAcross(units.x),
            PixelsDown(units.y),
            PixelsAcross(units.width),
            PixelsDown(units.height)};
}

/// What a backend reports. Nothing is thrown through the event loop of a toolkit: an exception ends
/// the dialog and comes out of Dialog::DoModal.
class DialogEvents {
  public:
    /// All controls exist, none can be seen yet.
    virtual void OnCreated(DialogWindow& window) noexcept = 0;
    /// The event loop runs. Only for dialogs with a driver.
    virtual void OnShown() noexcept = 0;
    virtual void OnButton(int id) noexcept = 0;
    virtual void OnTabChanged(int id, int index) noexcept = 0;
    /// The text of an edit field of one line has changed, whoever changed it.
    virtual void OnEdited(int id) noexcept = 0;
    virtual bool IsDriven() const noexcept = 0;
    /// The driver answers the boxes of this dialog.
    virtual bool AnswersBoxes() const noexcept = 0;
    virtual bool Answer(const ZetString& caption, const ZetString& text) noexcept = 0;

  protected:
    ~DialogEvents() = default;
};

/// A modal dialog. Derived classes fill it, take its data and say what its buttons do.
class Dialog {
  public:
    explicit Dialog(const DialogTemplate& definition) : m_template(definition) {}
    virtual ~Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// Shows the dialog until it is closed. An exception of one of the operations below closes it
    /// and is raised from here.
    DialogResult DoModal();

  protected:
    virtual void OnInitDialog() = 0;
    /// Takes the texts from the controls (`save`) or puts them there.
    virtual void DoDataExchange(bool save) = 0;
    virtual void OnOK() { Window().Close(true); }
    virtual void OnCancel() { Window().Close(false); }
    /// A button other than OK and Cancel.
    virtual void OnCommand(int id) = 0;
    virtual void OnTabChanged(int id, int index) = 0;
    /// The text of an edit field of one line has changed since OnInitDialog.
    virtual void OnEdited(int id) = 0;

    /// The window, while the dialog is shown.
    DialogWindow& Window() const { return *m_window; }
    int LabelOf(int field) const { return field + m_template.labelOffset; }
    /// The text of an edit field, with CR LF between lines; that of a date picker is its date as
    /// FormatDate writes it.
    ZetString ControlText(int id) const;
    /// Line ends become CR LF, and blanks in a field of one line. A text that is no date puts a
    /// date picker on today.
    void SetControlText(int id, const ZetString& text);

  private:
    class Session;

    ControlKind KindOf(int id) const;

    const DialogTemplate& m_template;
    DialogWindow* m_window = nullptr;
};

namespace camdata::detail {

/// A backend: shows a dialog until it is closed.
using ShowDialogWindow = DialogResult (*)(const DialogTemplate& dialog, DialogEvents& events);

DialogResult ShowNativeDialog(const DialogTemplate& dialog, DialogEvents& events);
DialogResult ShowMemoryDialog(const DialogTemplate& dialog, DialogEvents& events);

/// What the module that draws dialogs exports on Linux, under the name kDialogModuleFunction.
using DialogModuleFunction = void (*)(const DialogTemplate& dialog,
                                      DialogEvents& events,
                                      DialogResult& result);
inline constexpr char kDialogModuleFunction[] = "camdataShowDialog";

inline DialogResult NotShown(ZetString reason) {
    return {DialogOutcome::kNotShown, std::move(reason)};
}
inline DialogResult ClosedAs(const DialogWindow& window) {
    return {window.IsConfirmed() ? DialogOutcome::kConfirmed : DialogOutcome::kCancelled, {}};
}

}  // namespace camdata::detail

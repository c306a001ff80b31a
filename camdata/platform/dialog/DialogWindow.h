#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/platform/text/ZetString.h"

#include <functional>
#include <optional>

/// A place in a dialog's client area: from its upper left corner, in pixels of a display of 96 dots
/// per inch.
struct DialogRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const DialogRect&, const DialogRect&) = default;
};

/// The window of a dialog that is being shown. Its controls are addressed by their ids; an id that
/// the dialog does not have fails the assertion "control exists".
class DialogWindow {
  public:
    DialogWindow() = default;
    virtual ~DialogWindow() = default;
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

    virtual void SetCaption(const ZetString& caption) = 0;
    virtual ZetString Caption() const = 0;

    virtual void Move(int id, const DialogRect& place) = 0;
    virtual DialogRect Position(int id) const = 0;
    virtual void Show(int id, bool isShown) = 0;
    virtual bool IsShown(int id) const = 0;
    virtual void Enable(int id, bool isEnabled) = 0;
    virtual bool IsEnabled(int id) const = 0;
    virtual bool IsReadOnly(int id) const = 0;

    /// The text of an edit field, label or button; lines are separated by CR LF.
    virtual void SetText(int id, const ZetString& text) = 0;
    virtual ZetString Text(int id) const = 0;
    /// The date of a date picker.
    virtual void SetDate(int id, const CalendarDate& date) = 0;
    virtual CalendarDate Date(int id) const = 0;

    /// The tabs of a tab control. Selecting one does what the user's click on it does.
    virtual void InsertTab(int id, int index, const ZetString& text) = 0;
    virtual ZetString TabText(int id, int index) const = 0;
    virtual void SelectTab(int id, int index) = 0;
    virtual int SelectedTab(int id) const = 0;

    /// Asks a question over the dialog; true: Yes.
    virtual bool AskYesNo(const ZetString& caption, const ZetString& question) = 0;
    /// Shows a message over the dialog until the user has read it.
    virtual void Tell(const ZetString& caption, const ZetString& message) = 0;

    /// Presses a button as the user does; one that is hidden or disabled cannot be pressed.
    void Click(int id) {
        if (IsShown(id) && IsEnabled(id))
            Press(id);
    }
    /// Ends the dialog. Only the first call counts.
    void Close(bool isConfirmed) {
        if (m_isConfirmed)
            return;
        m_isConfirmed = isConfirmed;
        EndLoop();
    }
    bool IsClosed() const { return m_isConfirmed.has_value(); }
    bool IsConfirmed() const { return m_isConfirmed.value_or(false); }

  private:
    virtual void Press(int id) = 0;
    virtual void EndLoop() = 0;

  public:
    // Behind all others: programs know virtual operations by their places.

    /// Gives the keyboard to a control, and selects its text.
    virtual void SetFocus(int id) = 0;
    /// The control that has the keyboard; 0: none.
    virtual int Focus() const = 0;

  private:
    std::optional<bool> m_isConfirmed;
};

/// A program in the user's place, for tests and pictures.
struct DialogDriver {
    enum class Backend {
        kNative,  ///< real windows, which need a display
        kMemory,  ///< none: the controls' states are plain data
    };

    Backend backend = Backend::kNative;
    /// Called once the dialog is shown. A dialog that it leaves open is cancelled.
    std::function<void(DialogWindow&)> onShown;
    /// Answers a question (true: Yes) or takes note of a message, whichever the dialog shows. None:
    /// a real box waits for the user, one in memory is answered with No.
    std::function<bool(const ZetString& caption, const ZetString& text)> onBox;
};

/// Gives every dialog from now on to a driver; nothing: to the user again.
CAMDATA_API void SetDialogDriver(std::optional<DialogDriver> driver);

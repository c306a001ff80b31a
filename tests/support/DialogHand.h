#pragma once

#include "camdata/platform/dialog/DialogWindow.h"

/// A user's hand at the dialog that is shown in real windows: it points at what can be seen, and
/// types to what has the keyboard. For the driver of a dialog.
class DialogHand {
  public:
    enum class Key { kTab, kReturn, kEscape, kHome, kDown, kDelete, kSelectAll };

    explicit DialogHand(DialogWindow& window) : m_window(window) {}

    void Click(int id);
    void ClickTab(int index);
    /// ASCII.
    void Type(const char* text);
    void Press(Key key, bool withShift = false, bool withControl = false);
    void PressAlt(char letter);

    /// Types a text in the place of what a field holds.
    void Replace(int id, const char* text) {
        Click(id);
        Press(Key::kSelectAll);
        Type(text);
    }

  private:
    DialogWindow& m_window;
};

#include "support/DialogHand.h"

// The second one needs the first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

namespace {

HWND Dialog() {
    return GetActiveWindow();
}

/// Does what the dialog's own loop does with what was posted.
void HandleMessages() {
    MSG message;
    const HWND dialog = Dialog();
    while (IsWindow(dialog) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageW(dialog, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Post(HWND window, UINT message, WPARAM w, LPARAM l = 1) {
    PostMessageW(window, message, w, l);
    HandleMessages();
}

void ClickAt(HWND window, LONG x, LONG y) {
    const LPARAM place = MAKELPARAM(x, y);
    Post(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    Post(window, WM_LBUTTONUP, 0, place);
}

/// Holds keys down while it lives.
class HeldKeys {
  public:
    HeldKeys(bool withShift, bool withControl) {
        GetKeyboardState(m_before);
        BYTE now[256];
        GetKeyboardState(now);
        constexpr BYTE kDown = 0x80;
        now[VK_SHIFT] = withShift ? kDown : 0;
        now[VK_CONTROL] = withControl ? kDown : 0;
        SetKeyboardState(now);
    }
    ~HeldKeys() { SetKeyboardState(m_before); }

  private:
    BYTE m_before[256] = {};
};

/// By the value of Key.
constexpr int kKeys[] = {VK_TAB, VK_RETURN, VK_ESCAPE, VK_HOME, VK_DOWN, VK_DELETE, 0};

}  // namespace

void DialogHand::Click(int id) {
    const HWND control = GetDlgItem(Dialog(), id);
    RECT place = {};
    GetClientRect(control, &place);
    ClickAt(control, place.right / 2, place.bottom / 2);
}

void DialogHand::ClickTab(int index) {
    const HWND tabs = GetDlgItem(Dialog(), 1002);
    RECT place = {};
    SendMessageW(
        tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    ClickAt(tabs, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void DialogHand::Type(const char* text) {
    for (; *text != '\0'; ++text)
        Post(GetFocus(), WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(*text)));
}

void DialogHand::Press(Key key, bool withShift, bool withControl) {
    // No system has this key for all kinds of fields.
    if (key == Key::kSelectAll) {
        SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
        return;
    }
    const HeldKeys held(withShift, withControl);
    Post(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(kKeys[static_cast<int>(key)]));
}

void DialogHand::PressAlt(char letter) {
    constexpr LPARAM kAltIsDown = LPARAM{1} << 29;
    Post(GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), kAltIsDown);
}

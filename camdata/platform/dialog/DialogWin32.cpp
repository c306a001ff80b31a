#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/dialog/Dialog.h"
#include "camdata/platform/dialog/DialogKeyboard.h"
#include "camdata/platform/system/Modules.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>

// The others need the first one.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <oleacc.h>
// clang-format on

namespace {

constexpr UINT kShown = WM_APP + 1;
constexpr int kUsualDotsPerInch = 96;

int DotsPerInch(HWND window) {
    const HDC context = GetDC(window);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    ReleaseDC(window, context);
    return dots;
}

/// What a hundred average characters of the dialog's font measure.
SIZE CharacterSize(HWND dialog) {
    RECT units = {0, 0, 400, 800};
    MapDialogRect(dialog, &units);
    return {units.right, units.bottom};
}

/// The same on a display of the usual density.
constexpr SIZE kUsualCharacterSize = {600, 1300};

ZetString TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    // The last place is that of the null character, which a string has anyway.
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return ZetString(std::move(text));
}

/// Answers the next message box of this thread for the driver, as soon as it is shown.
class BoxAnswer {
  public:
    BoxAnswer(DialogEvents& events, const ZetString& caption, const ZetString& text)
        : m_events(events), m_caption(caption), m_text(text) {
        if (!events.AnswersBoxes())
            return;
        t_current = this;
        m_hook = SetWindowsHookExW(WH_CBT, OnWindow, nullptr, GetCurrentThreadId());
    }
    ~BoxAnswer() { Unhook(); }
    BoxAnswer(const BoxAnswer&) = delete;
    BoxAnswer& operator=(const BoxAnswer&) = delete;

  private:
    static LRESULT CALLBACK OnWindow(int code, WPARAM window, LPARAM data) {
        if (code != HCBT_ACTIVATE)
            return CallNextHookEx(nullptr, code, window, data);
        t_current->Unhook();
        t_current->Answer(reinterpret_cast<HWND>(window));
        return 0;
    }

    void Answer(HWND box) {
        const bool isYes = m_events.Answer(m_caption, m_text);
        const bool isQuestion = GetDlgItem(box, IDYES) != nullptr;
        PostMessageW(box, WM_COMMAND, isQuestion ? (isYes ? IDYES : IDNO) : IDOK, 0);
    }

    void Unhook() {
        if (m_hook != nullptr)
            UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
    }

    static thread_local BoxAnswer* t_current;

    DialogEvents& m_events;
    const ZetString& m_caption;
    const ZetString& m_text;
    HHOOK m_hook = nullptr;
};

thread_local BoxAnswer* BoxAnswer::t_current = nullptr;

/// Tells screen readers that a field is called what its label says. The order of the controls,
/// from which they would guess, is another one.
class FieldNames {
  public:
    FieldNames() : m_initialized(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {
        void* services = nullptr;
        if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices,
                                       nullptr,
                                       CLSCTX_INPROC_SERVER,
                                       IID_IAccPropServices,
                                       &services)))
            m_services = static_cast<IAccPropServices*>(services);
    }
    ~FieldNames() {
        if (m_services != nullptr)
            m_services->Release();
        if (SUCCEEDED(m_initialized))
            CoUninitialize();
    }
    FieldNames(const FieldNames&) = delete;
    FieldNames& operator=(const FieldNames&) = delete;

    void Set(HWND field, const ZetString& name) {
        if (m_services != nullptr)
            m_services->SetHwndPropStr(field,
                                       static_cast<DWORD>(OBJID_CLIENT),
                                       CHILDID_SELF,
                                       PROPID_ACC_NAME,
                                       name.c_str());
    }
    void Clear(HWND field) {
        const MSAAPROPID name = PROPID_ACC_NAME;
        if (m_services != nullptr)
            m_services->ClearHwndProps(
                field, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &name, 1);
    }

  private:
    const HRESULT m_initialized;
    IAccPropServices* m_services = nullptr;
};

/// Ctrl+Tab turns the pages of a dialog, Ctrl+Shift+Tab turns them back. The system's own loop of
/// dialogs would take both for the tab key.
class PageKeys {
  public:
    using Turn = std::function<void(int step)>;

    PageKeys(HWND dialog, Turn turn)
        : m_dialog(dialog),
          m_turn(std::move(turn)),
          m_outer(std::exchange(t_current, this)),
          m_hook(SetWindowsHookExW(WH_MSGFILTER, OnMessage, nullptr, GetCurrentThreadId())) {}
    ~PageKeys() {
        UnhookWindowsHookEx(m_hook);
        t_current = m_outer;
    }
    PageKeys(const PageKeys&) = delete;
    PageKeys& operator=(const PageKeys&) = delete;

  private:
    static bool IsDown(int key) { return GetKeyState(key) < 0; }

    static LRESULT CALLBACK OnMessage(int code, WPARAM w, LPARAM l) {
        const MSG& message = *reinterpret_cast<const MSG*>(l);
        if (code != MSGF_DIALOGBOX || !t_current->Turns(message))
            return CallNextHookEx(nullptr, code, w, l);
        t_current->m_turn(IsDown(VK_SHIFT) ? -1 : 1);
        return TRUE;
    }
    /// Not in a box over the dialog.
    bool Turns(const MSG& message) const {
        return message.message == WM_KEYDOWN && message.wParam == VK_TAB && IsDown(VK_CONTROL) &&
               (message.hwnd == m_dialog || IsChild(m_dialog, message.hwnd));
    }

    static thread_local PageKeys* t_current;

    const HWND m_dialog;
    const Turn m_turn;
    PageKeys* const m_outer;
    const HHOOK m_hook;
};

thread_local PageKeys* PageKeys::t_current = nullptr;

class Win32Window final : public DialogWindow {
  public:
    Win32Window(const DialogTemplate& dialog, DialogEvents& events)
        : m_template(dialog), m_events(events) {}

    /// False when Windows cannot show it.
    bool Run() {
        INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES | ICC_DATE_CLASSES};
        InitCommonControlsEx(&classes);
        const INT_PTR result = DialogBoxParamW(static_cast<HMODULE>(OwnModule()),
                                               MAKEINTRESOURCEW(m_template.resource),
                                               GetActiveWindow(),
                                               OnMessage,
                                               reinterpret_cast<LPARAM>(this));
        return result > 0;
    }

    void SetCaption(const ZetString& caption) override {
        SetWindowTextW(m_window, caption.c_str());
    }
    ZetString Caption() const override { return TextOf(m_window); }

    void Move(int id, const DialogRect& place) override {
        MoveWindow(At(id),
                   ScaledX(place.x),
                   ScaledY(place.y),
                   ScaledX(place.width),
                   ScaledY(place.height),
                   TRUE);
    }
    DialogRect Position(int id) const override {
        const RECT place = PlaceOf(id);
        return {UsualX(place.left),
                UsualY(place.top),
                UsualX(place.right - place.left),
                UsualY(place.bottom - place.top)};
    }
    void Show(int id, bool isShown) override {
        // A hidden control would go on taking what the user types.
        if (!isShown && GetFocus() == At(id))
            SendMessageW(m_window, WM_NEXTDLGCTL, 0, FALSE);
        ShowWindow(At(id), isShown ? SW_SHOW : SW_HIDE);
        // A label draws its letters only, upon what was there.
        const RECT place = PlaceOf(id);
        RedrawWindow(m_window, &place, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    bool IsShown(int id) const override { return HasStyle(id, WS_VISIBLE); }
    void Enable(int id, bool isEnabled) override { EnableWindow(At(id), isEnabled ? TRUE : FALSE); }
    bool IsEnabled(int id) const override { return IsWindowEnabled(At(id)) != FALSE; }
    bool IsReadOnly(int id) const override { return HasStyle(id, ES_READONLY); }

    void SetText(int id, const ZetString& text) override { SetWindowTextW(At(id), text.c_str()); }
    ZetString Text(int id) const override {
        const ZetString text = TextOf(At(id));
        return HasMnemonic(id) ? camdata::detail::UnmarkedCaption(text) : text;
    }
    void SetDate(int id, const CalendarDate& date) override {
        SYSTEMTIME time = {};
        time.wYear = static_cast<WORD>(date.year);
        time.wMonth = static_cast<WORD>(date.month);
        time.wDay = static_cast<WORD>(date.day);
        SendMessageW(At(id), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }
    CalendarDate Date(int id) const override {
        SYSTEMTIME time = {};
        SendMessageW(At(id), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
        return {time.wYear, time.wMonth, time.wDay};
    }

    void InsertTab(int id, int index, const ZetString& text) override {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        SendMessageW(
            At(id), TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
    ZetString TabText(int id, int index) const override {
        wchar_t text[128] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(std::size(text));
        SendMessageW(
            At(id), TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    void SelectTab(int id, int index) override {
        // Selecting by message notifies nobody.
        SendMessageW(At(id), TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
        m_events.OnTabChanged(id, index);
    }
    int SelectedTab(int id) const override {
        return static_cast<int>(SendMessageW(At(id), TCM_GETCURSEL, 0, 0));
    }

    bool AskYesNo(const ZetString& caption, const ZetString& question) override {
        // Return alone replaces nothing.
        return RunBox(MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION, caption, question) == IDYES;
    }
    void Tell(const ZetString& caption, const ZetString& message) override {
        RunBox(MB_OK | MB_ICONINFORMATION, caption, message);
    }

    void SetFocus(int id) override {
        SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(At(id)), TRUE);
    }
    int Focus() const override {
        HWND control = GetFocus();
        while (control != nullptr && GetParent(control) != m_window)
            control = GetParent(control);
        return control == nullptr ? 0 : GetDlgCtrlID(control);
    }

  private:
    void Press(int id) override { SendMessageW(m_window, WM_COMMAND, CommandOf(id), 0); }
    void EndLoop() override { EndDialog(m_window, 1); }

    static WPARAM CommandOf(int id) { return MAKEWPARAM(id, BN_CLICKED); }

    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_INITDIALOG)
            SetWindowLongPtrW(window, DWLP_USER, l);
        // The first messages come before there is anybody to handle them.
        auto* self = reinterpret_cast<Win32Window*>(GetWindowLongPtrW(window, DWLP_USER));
        return self == nullptr ? FALSE : self->Handle(window, message, w, l);
    }

    INT_PTR Handle(HWND window, UINT message, WPARAM w, LPARAM l) {
        switch (message) {
            case WM_INITDIALOG:
                Create(window);
                // The keyboard is where it belongs.
                return FALSE;
            case kShown:
                // Windows itself would wait until there are no more messages.
                ShowWindow(window, SW_SHOW);
                m_events.OnShown();
                return TRUE;
            case WM_COMMAND:
                return OnCommand(w);
            case WM_NOTIFY:
                return OnNotify(*reinterpret_cast<const NMHDR*>(l));
            case WM_CTLCOLORSTATIC:
                return BackgroundOf(reinterpret_cast<HWND>(l), reinterpret_cast<HDC>(w));
            case WM_DESTROY:
                NameFields([this](HWND field, int) { m_names.Clear(field); });
                return FALSE;
            default:
                return FALSE;
        }
    }

    void Create(HWND window) {
        m_window = window;
        // On a denser display all grows with the font, as the dialog itself does.
        if (DotsPerInch(window) != kUsualDotsPerInch)
            m_characterSize = CharacterSize(window);
        for (const ControlDef& row : m_template.controls)
            if (row.kind == ControlKind::kEdit || row.kind == ControlKind::kLines)
                SendMessageW(At(row.id), EM_SETLIMITTEXT, 0, 0);
        m_events.OnCreated(*this);
        for (const Mnemonic& each : m_template.mnemonics)
            Mark(each);
        ArrangeAsSeen();
        m_pageKeys.emplace(window, [this](int step) { TurnPage(step); });
        NameFields([this](HWND field, int label) { m_names.Set(field, Text(label)); });
        if (m_events.IsDriven())
            PostMessageW(window, kShown, 0, 0);
    }

    /// From now on an "&" in the text of the control marks the letter behind it.
    void Mark(const Mnemonic& mnemonic) {
        const HWND control = At(mnemonic.id);
        const ZetString text = TextOf(control);
        m_marked.insert(mnemonic.id);
        if (IsLabel(mnemonic.id))
            SetWindowLongPtrW(
                control, GWL_STYLE, GetWindowLongPtrW(control, GWL_STYLE) & ~SS_NOPREFIX);
        SetWindowTextW(control, camdata::detail::MarkedCaption(text, mnemonic.letter).c_str());
    }
    bool HasMnemonic(int id) const { return m_marked.contains(id); }

    /// For the tab key, and for the letters of labels, which lead to the control behind them.
    void ArrangeAsSeen() const {
        for (const int id : camdata::detail::OrderAsSeen(m_template, *this)) {
            if (IsField(FindControl(m_template, id)->kind))
                MoveToEnd(id + m_template.labelOffset);
            MoveToEnd(id);
        }
    }
    void MoveToEnd(int id) const {
        SetWindowPos(At(id), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    void TurnPage(int step) {
        const auto& controls = m_template.controls;
        const auto tabs = std::find_if(controls.begin(), controls.end(), [](const ControlDef& row) {
            return row.kind == ControlKind::kTabs;
        });
        const int count = static_cast<int>(SendMessageW(At(tabs->id), TCM_GETITEMCOUNT, 0, 0));
        SelectTab(tabs->id, (SelectedTab(tabs->id) + step + count) % count);
    }

    /// Labels lie on a tab, whose colour may be another than the dialog's.
    INT_PTR BackgroundOf(HWND control, HDC context) const {
        if (!IsLabel(GetDlgCtrlID(control)))
            return FALSE;
        SetBkMode(context, TRANSPARENT);
        return reinterpret_cast<INT_PTR>(GetStockObject(NULL_BRUSH));
    }
    bool IsLabel(int id) const {
        const ControlDef* row = FindControl(m_template, id);
        return row != nullptr && row->kind == ControlKind::kLabel;
    }

    /// Calls an action with each field and its label's id.
    template <typename Action>
    void NameFields(Action action) {
        for (const ControlDef& row : m_template.controls) {
            if (IsField(row.kind))
                action(At(row.id), row.id + m_template.labelOffset);
        }
    }

    bool OnCommand(WPARAM command) {
        if (HIWORD(command) == EN_CHANGE)
            m_events.OnEdited(LOWORD(command));
        else if (HIWORD(command) == BN_CLICKED)
            m_events.OnButton(LOWORD(command));
        else
            return false;
        return true;
    }

    bool OnNotify(const NMHDR& notice) {
        if (notice.code != static_cast<UINT>(TCN_SELCHANGE))
            return false;
        const int id = static_cast<int>(notice.idFrom);
        m_events.OnTabChanged(id, SelectedTab(id));
        return true;
    }

    int RunBox(UINT style, const ZetString& caption, const ZetString& text) {
        const BoxAnswer answer(m_events, caption, text);
        return MessageBoxW(m_window, text.c_str(), caption.c_str(), style);
    }

    HWND At(int id) const {
        const HWND control = GetDlgItem(m_window, id);
        ZET_ASSERT(control != nullptr, "control exists");
        return control;
    }
    RECT PlaceOf(int id) const {
        RECT place = {};
        GetWindowRect(At(id), &place);
        MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    bool HasStyle(int id, LONG_PTR style) const {
        return (GetWindowLongPtrW(At(id), GWL_STYLE) & style) != 0;
    }
    int ScaledX(int x) const { return MulDiv(x, m_characterSize.cx, kUsualCharacterSize.cx); }
    int ScaledY(int y) const { return MulDiv(y, m_characterSize.cy, kUsualCharacterSize.cy); }
    int UsualX(LONG x) const { return MulDiv(x, kUsualCharacterSize.cx, m_characterSize.cx); }
    int UsualY(LONG y) const { return MulDiv(y, kUsualCharacterSize.cy, m_characterSize.cy); }

    const DialogTemplate& m_template;
    DialogEvents& m_events;
    FieldNames m_names;
    std::set<int> m_marked;
    std::optional<PageKeys> m_pageKeys;
    HWND m_window = nullptr;
    SIZE m_characterSize = kUsualCharacterSize;
};

}  // namespace

DialogResult camdata::detail::ShowNativeDialog(const DialogTemplate& dialog, DialogEvents& events) {
    Win32Window window(dialog, events);
    if (!window.Run())
        return NotShown(ZetString::format(L"Windows cannot show it (error %u)", GetLastError()));
    return ClosedAs(window);
}

#include "camdata/platform/dialog/Dialog.h"

#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/dialog/DialogKeyboard.h"

#include <exception>
#include <string>
#include <utility>

namespace {

std::optional<DialogDriver> g_driver;

/// The text with this at every line end, whichever it had.
ZetString WithLineEnds(const ZetString& text, const wchar_t* lineEnd) {
    std::wstring lines;
    for (long i = 0; i < text.length(); ++i) {
        const wchar_t c = text[i];
        if (c == L'\n' || (c == L'\r' && text[i + 1] != L'\n'))
            lines += lineEnd;
        else if (c != L'\r')
            lines += c;
    }
    return ZetString(std::move(lines));
}

/// The text as a control of this kind can hold it; a field of one line takes pasted line ends, too.
ZetString FitFor(ControlKind kind, const ZetString& text) {
    if (kind == ControlKind::kEdit)
        return WithLineEnds(text, L" ");
    return kind == ControlKind::kLines ? WithLineEnds(text, L"\r\n") : text;
}

}  // namespace

void SetDialogDriver(std::optional<DialogDriver> driver) {
    g_driver = std::move(driver);
}

/// Runs a dialog once, and keeps exceptions away from the backend.
class Dialog::Session final : public DialogEvents {
  public:
    explicit Session(Dialog& dialog) : m_dialog(dialog), m_driver(g_driver) {}

    DialogResult Run() {
        const bool inMemory = m_driver && m_driver->backend == DialogDriver::Backend::kMemory;
        const auto show =
            inMemory ? camdata::detail::ShowMemoryDialog : camdata::detail::ShowNativeDialog;
        DialogResult result = show(m_dialog.m_template, *this);
        m_dialog.m_window = nullptr;
        if (m_error)
            std::rethrow_exception(m_error);
        return result;
    }

    void OnCreated(DialogWindow& window) noexcept override {
        m_dialog.m_window = &window;
        Guard([&] {
            m_dialog.OnInitDialog();
            FocusFirstField();
        });
        m_isReady = true;
    }
    void OnShown() noexcept override {
        Guard([&] { m_driver->onShown(m_dialog.Window()); });
        m_dialog.Window().Close(false);
    }
    void OnButton(int id) noexcept override {
        Guard([&] { Press(id); });
    }
    void OnTabChanged(int id, int index) noexcept override {
        Guard([&] {
            const int focus = m_dialog.Window().Focus();
            m_dialog.OnTabChanged(id, index);
            if (focus != 0 && !m_dialog.Window().IsShown(focus))
                FocusFirstField();
        });
    }
    void OnEdited(int id) noexcept override {
        if (m_isReady)
            Guard([&] { m_dialog.OnEdited(id); });
    }
    bool IsDriven() const noexcept override { return m_driver.has_value(); }
    bool AnswersBoxes() const noexcept override { return m_driver && m_driver->onBox; }
    bool Answer(const ZetString& caption, const ZetString& text) noexcept override {
        bool answer = false;
        Guard([&] { answer = m_driver->onBox(caption, text); });
        return answer;
    }

  private:
    void Press(int id) {
        if (id == m_dialog.m_template.okButton)
            m_dialog.OnOK();
        else if (id == m_dialog.m_template.cancelButton)
            m_dialog.OnCancel();
        else
            m_dialog.OnCommand(id);
    }

    void FocusFirstField() {
        DialogWindow& window = m_dialog.Window();
        if (const int field = camdata::detail::FirstField(m_dialog.m_template, window); field != 0)
            window.SetFocus(field);
    }

    template <typename Action>
    void Guard(Action action) noexcept {
        if (m_error)
            return;
        try {
            action();
        } catch (...) {
            m_error = std::current_exception();
            m_dialog.Window().Close(false);
        }
    }

    Dialog& m_dialog;
    const std::optional<DialogDriver> m_driver;
    std::exception_ptr m_error;
    bool m_isReady = false;  ///< filled: what changes now is the user's doing
};

DialogResult Dialog::DoModal() {
    return Session(*this).Run();
}

ControlKind Dialog::KindOf(int id) const {
    const ControlDef* row = FindControl(m_template, id);
    ZET_ASSERT(row != nullptr, "control exists");
    return row->kind;
}

ZetString Dialog::ControlText(int id) const {
    const ControlKind kind = KindOf(id);
    if (kind == ControlKind::kDate)
        return FormatDate(Window().Date(id));
    return FitFor(kind, Window().Text(id));
}

void Dialog::SetControlText(int id, const ZetString& text) {
    const ControlKind kind = KindOf(id);
    if (kind == ControlKind::kDate)
        Window().SetDate(id, ParseDate(text).value_or(Today()));
    else
        Window().SetText(id, FitFor(kind, text));
}

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/dialog/Dialog.h"

#include <map>

namespace {

struct Control {
    ControlKind kind = ControlKind::kLabel;
    DialogRect place;
    bool isShown;
    bool isEnabled;
    bool isReadOnly;
    ZetString text;
    CalendarDate date;
    ZetArray<ZetString> tabs;
    int selectedTab = 0;
};

class MemoryWindow final : public DialogWindow {
  public:
    MemoryWindow(const DialogTemplate& dialog, DialogEvents& events)
        : m_events(events), m_caption(dialog.caption) {
        for (const ControlDef& row : dialog.controls)
            m_controls[row.id] = {row.kind,
                                  InPixels(row.units),
                                  row.isVisible,
                                  row.state != ControlState::kDisabled,
                                  row.state == ControlState::kReadOnly,
                                  row.text,
                                  Today(),
                                  {}};
    }

    void SetCaption(const ZetString& caption) override { m_caption = caption; }
    ZetString Caption() const override { return m_caption; }

    void Move(int id, const DialogRect& place) override { At(id).place = place; }
    DialogRect Position(int id) const override { return At(id).place; }
    void Show(int id, bool isShown) override { At(id).isShown = isShown; }
    bool IsShown(int id) const override { return At(id).isShown; }
    void Enable(int id, bool isEnabled) override { At(id).isEnabled = isEnabled; }
    bool IsEnabled(int id) const override { return At(id).isEnabled; }
    bool IsReadOnly(int id) const override { return At(id).isReadOnly; }

    void SetText(int id, const ZetString& text) override {
        At(id).text = text;
        if (At(id).kind == ControlKind::kEdit)
            m_events.OnEdited(id);
    }
    ZetString Text(int id) const override { return At(id).text; }
    void SetDate(int id, const CalendarDate& date) override { At(id).date = date; }
    CalendarDate Date(int id) const override { return At(id).date; }

    void InsertTab(int id, int index, const ZetString& text) override {
        At(id).tabs.insertAt(index, text);
    }
    ZetString TabText(int id, int index) const override { return At(id).tabs[index]; }
    void SelectTab(int id, int index) override {
        At(id).selectedTab = index;
        m_events.OnTabChanged(id, index);
    }
    int SelectedTab(int id) const override { return At(id).selectedTab; }

    bool AskYesNo(const ZetString& caption, const ZetString& question) override {
        return m_events.AnswersBoxes() && m_events.Answer(caption, question);
    }
    void Tell(const ZetString& caption, const ZetString& message) override {
        AskYesNo(caption, message);
    }

    void SetFocus(int id) override { m_focus = id; }
    int Focus() const override { return m_focus; }

  private:
    void Press(int id) override { m_events.OnButton(id); }
    void EndLoop() override {}

    const Control& At(int id) const {
        const auto at = m_controls.find(id);
        ZET_ASSERT(at != m_controls.end(), "control exists");
        return at->second;
    }
    Control& At(int id) { return const_cast<Control&>(std::as_const(*this).At(id)); }

    DialogEvents& m_events;
    ZetString m_caption;
    std::map<int, Control> m_controls;
    int m_focus = 0;
};

}  // namespace

DialogResult camdata::detail::ShowMemoryDialog(const DialogTemplate& dialog, DialogEvents& events) {
    MemoryWindow window(dialog, events);
    events.OnCreated(window);
    events.OnShown();
    return ClosedAs(window);
}

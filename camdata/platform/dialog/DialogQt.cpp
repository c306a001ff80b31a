#include "camdata/platform/base/ZetAssert.h"
#include "camdata/platform/dialog/Dialog.h"
#include "camdata/platform/dialog/DialogKeyboard.h"

#include <algorithm>
#include <clocale>
#include <iterator>
#include <map>
#include <string>

#include <QAbstractButton>
#include <QApplication>
#include <QDateEdit>
#include <QDialog>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QThread>
#include <QTimer>

// The module that draws dialogs on Linux. The library loads it for its first dialog.

namespace {

constexpr int kFontPixels = 11;

QString FromText(const ZetString& text) {
    const std::wstring_view view = text.view();
    return QString::fromWCharArray(view.data(), std::ssize(view));
}

ZetString ToText(const QString& text) {
    return ZetString(text.toStdWString());
}

QWidget* MakeTabs(QDialog& dialog) {
    return new QTabWidget(&dialog);
}

QWidget* MakeFrame(QDialog& dialog) {
    auto* frame = new QGroupBox(&dialog);
    // Clicks go to what it frames.
    frame->lower();
    return frame;
}

QWidget* MakeEdit(QDialog& dialog) {
    auto* edit = new QLineEdit(&dialog);
    edit->setMaxLength(0x7FFFFFFF);
    return edit;
}

QWidget* MakeLines(QDialog& dialog) {
    auto* lines = new QPlainTextEdit(&dialog);
    lines->setTabChangesFocus(true);
    lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return lines;
}

QWidget* MakeDate(QDialog& dialog) {
    auto* date = new QDateEdit(&dialog);
    date->setCalendarPopup(true);
    date->setDisplayFormat("yyyy-MM-dd");
    date->setMinimumDate(QDate(1601, 1, 1));
    return date;
}

QWidget* MakeButton(QDialog& dialog) {
    return new QPushButton(&dialog);
}

QWidget* MakeLabel(QDialog& dialog) {
    auto* label = new QLabel(&dialog);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// How a kind of control is made, and which property holds its text; null: none.
struct WidgetKind {
    QWidget* (*make)(QDialog& dialog);
    const char* textProperty;
    bool isCaption;  ///< "&" marks a letter of the keyboard, and "&&" is an "&"
};

// In the order of ControlKind.
constexpr WidgetKind kWidgetKinds[] = {
    {MakeTabs,   nullptr,     false},
    {MakeFrame,  "title",     true },
    {MakeEdit,   "text",      false},
    {MakeLines,  "plainText", false},
    {MakeDate,   nullptr,     false},
    {MakeButton, "text",      true },
    {MakeLabel,  "text",      true },
};
static_assert(std::size(kWidgetKinds) == static_cast<int>(ControlKind::kLabel) + 1);

/// The text of a field of several lines. Its property "plainText" has other blanks for those that
/// do not break.
QString LinesOf(const QPlainTextEdit& field) {
    QString text = field.document()->toRawText();
    for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
        text.replace(lineEnd, "\r\n");
    return text;
}

struct Control {
    QWidget* widget = nullptr;
    const WidgetKind* kind = nullptr;
};

/// Gives Escape and the closing of the window to the dialog's own rules, and turns its pages with
/// Ctrl+Tab and Ctrl+Shift+Tab: the fields are none of the tab control's own, which would do that.
class ReportingDialog final : public QDialog {
  public:
    ReportingDialog(DialogEvents& events, int cancelButton)
        : QDialog(QApplication::activeWindow()), m_events(events), m_cancelButton(cancelButton) {
        // Before the fields, some of which take every kind of tab.
        QCoreApplication::instance()->installEventFilter(this);
    }
    void reject() override { m_events.OnButton(m_cancelButton); }

  private:
    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() != QEvent::KeyPress || widget == nullptr || !isAncestorOf(widget))
            return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isBack = key.key() == Qt::Key_Backtab;
        if (!key.modifiers().testFlag(Qt::ControlModifier) || (!isBack && key.key() != Qt::Key_Tab))
            return false;
        auto& tabs = *findChild<QTabWidget*>();
        tabs.setCurrentIndex((tabs.currentIndex() + (isBack ? tabs.count() - 1 : 1)) %
                             tabs.count());
        return true;
    }

    DialogEvents& m_events;
    const int m_cancelButton;
};

class QtWindow final : public DialogWindow {
  public:
    QtWindow(const DialogTemplate& dialog, DialogEvents& events)
        : m_template(dialog), m_events(events), m_dialog(events, dialog.cancelButton) {
        m_dialog.setFixedSize(PixelsAcross(dialog.width), PixelsDown(dialog.height));
        QFont font = m_dialog.font();
        font.setPixelSize(kFontPixels);
        m_dialog.setFont(font);
        SetCaption(dialog.caption);
        for (const ControlDef& row : dialog.controls)
            Make(row);
        for (const ControlDef& row : dialog.controls)
            if (IsField(row.kind))
                NameByLabel(row.id, row.id + dialog.labelOffset);
        As<QPushButton>(dialog.okButton).setDefault(true);
    }

    void Run() {
        m_events.OnCreated(*this);
        m_isCreated = true;
        for (const Mnemonic& each : m_template.mnemonics)
            SetCaptionOf(each.id, camdata::detail::MarkedCaption(Text(each.id), each.letter));
        ArrangeAsSeen();
        if (m_events.IsDriven())
            QTimer::singleShot(0, &m_dialog, [this] { m_events.OnShown(); });
        if (!IsClosed())
            m_dialog.exec();
    }

    void SetCaption(const ZetString& caption) override {
        m_dialog.setWindowTitle(FromText(caption));
    }
    ZetString Caption() const override { return ToText(m_dialog.windowTitle()); }

    void Move(int id, const DialogRect& place) override {
        At(id).setGeometry(place.x, place.y, place.width, place.height);
        Fit(id);
    }
    DialogRect Position(int id) const override {
        const QRect place = At(id).geometry();
        return {place.x(), place.y(), place.width(), place.height()};
    }
    void Show(int id, bool isShown) override { At(id).setVisible(isShown); }
    bool IsShown(int id) const override { return !At(id).isHidden(); }
    void Enable(int id, bool isEnabled) override { At(id).setEnabled(isEnabled); }
    bool IsEnabled(int id) const override { return At(id).isEnabled(); }
    bool IsReadOnly(int id) const override { return At(id).property("readOnly").toBool(); }

    void SetText(int id, const ZetString& text) override {
        const bool isCaption = Find(id).kind->isCaption;
        SetCaptionOf(id, isCaption ? camdata::detail::MarkedCaption(text, 0) : text);
    }
    ZetString Text(int id) const override {
        if (const auto* field = qobject_cast<const QPlainTextEdit*>(&At(id)))
            return ToText(LinesOf(*field));
        const WidgetKind& kind = *Find(id).kind;
        const ZetString text = ToText(At(id).property(kind.textProperty).toString());
        return kind.isCaption ? camdata::detail::UnmarkedCaption(text) : text;
    }
    void SetDate(int id, const CalendarDate& date) override {
        As<QDateEdit>(id).setDate(QDate(date.year, date.month, date.day));
    }
    CalendarDate Date(int id) const override {
        const QDate date = As<QDateEdit>(id).date();
        return {date.year(), date.month(), date.day()};
    }

    void InsertTab(int id, int index, const ZetString& text) override {
        As<QTabWidget>(id).insertTab(index, new QWidget, FromText(text));
    }
    ZetString TabText(int id, int index) const override {
        return ToText(As<QTabWidget>(id).tabText(index));
    }
    void SelectTab(int id, int index) override { As<QTabWidget>(id).setCurrentIndex(index); }
    int SelectedTab(int id) const override { return As<QTabWidget>(id).currentIndex(); }

    bool AskYesNo(const ZetString& caption, const ZetString& question) override {
        return RunBox(QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, caption, question);
    }
    void Tell(const ZetString& caption, const ZetString& message) override {
        RunBox(QMessageBox::Information, QMessageBox::Ok, caption, message);
    }

    void SetFocus(int id) override { At(id).setFocus(Qt::TabFocusReason); }
    int Focus() const override {
        const QWidget* widget = m_dialog.focusWidget();
        while (widget != nullptr && widget->parentWidget() != &m_dialog)
            widget = widget->parentWidget();
        return widget == nullptr ? 0 : widget->objectName().toInt();
    }

  private:
    void Press(int id) override { As<QPushButton>(id).click(); }
    void EndLoop() override { m_dialog.done(0); }

    void Make(const ControlDef& row) {
        const WidgetKind& kind = kWidgetKinds[static_cast<int>(row.kind)];
        QWidget* widget = kind.make(m_dialog);
        m_controls[row.id] = {widget, &kind};
        widget->setObjectName(QString::number(row.id));
        widget->setEnabled(row.state != ControlState::kDisabled);
        widget->setProperty("readOnly", row.state == ControlState::kReadOnly);
        if (row.state != ControlState::kNormal)
            widget->setPalette(PaletteToRead());
        Move(row.id, InPixels(row.units));
        Show(row.id, row.isVisible);
        if (kind.textProperty != nullptr)
            SetText(row.id, row.text);
        Connect(row.id);
    }

    void Connect(int id) {
        if (auto* button = qobject_cast<QPushButton*>(&At(id)))
            QObject::connect(
                button, &QPushButton::clicked, &m_dialog, [this, id] { m_events.OnButton(id); });
        if (auto* edit = qobject_cast<QLineEdit*>(&At(id)))
            QObject::connect(
                edit, &QLineEdit::textChanged, &m_dialog, [this, id] { m_events.OnEdited(id); });
        // The first tab that is inserted is a change, too, but not one of the user's.
        if (auto* tabs = qobject_cast<QTabWidget*>(&At(id)))
            QObject::connect(tabs, &QTabWidget::currentChanged, &m_dialog, [this, id](int index) {
                if (m_isCreated)
                    m_events.OnTabChanged(id, index);
            });
    }

    /// The caption of a control that has one, else its text.
    void SetCaptionOf(int id, const ZetString& caption) {
        At(id).setProperty(Find(id).kind->textProperty, FromText(caption));
        Fit(id);
    }

    /// For the tab key.
    void ArrangeAsSeen() {
        QWidget* before = m_dialog.findChild<QTabWidget*>();
        for (const int id : camdata::detail::OrderAsSeen(m_template, *this)) {
            QWidget::setTabOrder(before, &At(id));
            before = &At(id);
        }
    }

    /// The colours of fields that only show something: grey, as what is disabled, but easier to
    /// read than that is on many desktops.
    QPalette PaletteToRead() const {
        QPalette palette = m_dialog.palette();
        const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
        const QColor window = palette.color(QPalette::Active, QPalette::Window);
        palette.setColor(QPalette::Base, window);
        palette.setColor(QPalette::Disabled,
                         QPalette::Text,
                         QColor((3 * text.red() + window.red()) / 4,
                                (3 * text.green() + window.green()) / 4,
                                (3 * text.blue() + window.blue()) / 4));
        return palette;
    }

    /// What a screen reader calls a field is the text of its label.
    void NameByLabel(int id, int labelId) { As<QLabel>(labelId).setBuddy(&At(id)); }

    /// Sets a label in narrower letters when its text is wider than its place, as the fonts of
    /// desktops differ; a text that is still too wide can be read as a tip.
    void Fit(int id) {
        auto* label = qobject_cast<QLabel*>(&At(id));
        if (label == nullptr || label->width() == 0)
            return;
        constexpr int kNarrowest = 70;
        QFont font = m_dialog.font();
        const int wide = QFontMetrics(font).horizontalAdvance(FromText(Text(id)));
        const int percent = wide == 0 ? 100 : 100 * label->width() / wide;
        font.setStretch(std::clamp(percent, kNarrowest, 100));
        label->setFont(font);
        label->setToolTip(percent < kNarrowest ? FromText(Text(id)).toHtmlEscaped() : QString());
    }

    bool RunBox(QMessageBox::Icon icon,
                QMessageBox::StandardButtons buttons,
                const ZetString& caption,
                const ZetString& text) {
        QMessageBox box(icon, FromText(caption), FromText(text), buttons, &m_dialog);
        box.setTextFormat(Qt::PlainText);
        // Neither Return nor Escape replaces anything.
        box.setDefaultButton(QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
        if (m_events.AnswersBoxes())
            QTimer::singleShot(0, &box, [&] {
                box.done(m_events.Answer(caption, text) ? QMessageBox::Yes : QMessageBox::No);
            });
        return box.exec() == QMessageBox::Yes;
    }

    const Control& Find(int id) const {
        const auto at = m_controls.find(id);
        ZET_ASSERT(at != m_controls.end(), "control exists");
        return at->second;
    }
    QWidget& At(int id) const { return *Find(id).widget; }
    template <typename Widget>
    Widget& As(int id) const {
        auto* widget = qobject_cast<Widget*>(&At(id));
        ZET_ASSERT(widget != nullptr, "control exists");
        return *widget;
    }

    const DialogTemplate& m_template;
    DialogEvents& m_events;
    ReportingDialog m_dialog;
    std::map<int, Control> m_controls;
    bool m_isCreated = false;
};

/// Qt ends the whole process when it cannot open a display; as the last choice it gets a platform
/// that draws nowhere.
constexpr char kNowhere[] = "offscreen";

bool IsDisplayNamed() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("DISPLAY");
}

/// Makes the process's Qt application, which stays until the process ends.
void MakeApplication() {
    // Qt complains of a platform that it does not have.
    const char* const usual =
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb" : "wayland;xcb";
    const std::string wanted = qEnvironmentVariable("QT_QPA_PLATFORM", usual).toStdString();
    // Qt keeps references to the arguments.
    static std::string texts[] = {"camdata", "-platform", wanted + ";" + kNowhere};
    static char* arguments[] = {texts[0].data(), texts[1].data(), texts[2].data(), nullptr};
    static int count = 3;
    // Qt takes the user's locale for the whole process, which is not a library's to change.
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    static auto* const application = new QApplication(count, arguments);
    std::setlocale(LC_ALL, locale.c_str());
    application->setQuitOnLastWindowClosed(false);
}

/// Why no window can be shown, "" when one can.
ZetString Obstacle(bool isDriven) {
    if (QCoreApplication::instance() == nullptr) {
        if (!IsDisplayNamed())
            return L"there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set";
        if (!isDriven && qEnvironmentVariable("QT_QPA_PLATFORM") == kNowhere)
            return L"with QT_QPA_PLATFORM=offscreen nobody can see it";
        MakeApplication();
    }
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return L"the program's Qt application has no windows";
    if (application->thread() != QThread::currentThread())
        return L"only the thread of the program's windows can show it";
    if (application->platformName() == kNowhere &&
        !qEnvironmentVariable("QT_QPA_PLATFORM").contains(kNowhere))
        return L"the display cannot be opened";
    return {};
}

}  // namespace

extern "C" CAMDATA_API void camdataShowDialog(const DialogTemplate& dialog,
                                              DialogEvents& events,
                                              DialogResult& result) {
    const ZetString obstacle = Obstacle(events.IsDriven());
    if (!obstacle.isEmpty()) {
        result = camdata::detail::NotShown(obstacle);
        return;
    }
    QtWindow window(dialog, events);
    window.Run();
    result = camdata::detail::ClosedAs(window);
}

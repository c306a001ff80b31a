#include "support/DialogHand.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>

namespace {

QWidget& Dialog() {
    return *QApplication::activeModalWidget();
}

QWidget& Control(int id) {
    return *Dialog().findChild<QWidget*>(QString::number(id), Qt::FindDirectChildrenOnly);
}

void ClickAt(const QWidget& widget, const QPoint& place) {
    QTest::mouseClick(Dialog().windowHandle(), Qt::LeftButton, {}, widget.mapTo(&Dialog(), place));
}

/// By the value of Key.
constexpr Qt::Key kKeys[] = {Qt::Key_Tab,
                             Qt::Key_Return,
                             Qt::Key_Escape,
                             Qt::Key_Home,
                             Qt::Key_Down,
                             Qt::Key_Delete,
                             Qt::Key_A};

}  // namespace

void DialogHand::Click(int id) {
    ClickAt(Control(id), Control(id).rect().center());
}

void DialogHand::ClickTab(int index) {
    const auto* tabs = Control(1002).findChild<QTabBar*>();
    ClickAt(*tabs, tabs->tabRect(index).center());
}

void DialogHand::Type(const char* text) {
    QTest::keyClicks(Dialog().focusWidget(), text);
}

void DialogHand::Press(Key key, bool withShift, bool withControl) {
    Qt::Key qtKey = kKeys[static_cast<int>(key)];
    if (withShift && key == Key::kTab)
        qtKey = Qt::Key_Backtab;
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, withShift);
    modifiers.setFlag(Qt::ControlModifier, withControl || key == Key::kSelectAll);
    QTest::keyClick(Dialog().focusWidget(), qtKey, modifiers);
}

void DialogHand::PressAlt(char letter) {
    QTest::keyClick(Dialog().focusWidget(), letter, Qt::AltModifier);
}

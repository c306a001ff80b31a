#include "support/TempFolder.h"

#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/project/CProjectInformation.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// A record whose settings file comes back as it went.
class Project final : public CProjectInformation {
  public:
    explicit Project(const TempFolder& folder) {
        m_expectedEntryCount = 8;
        SetLocation(folder.NameOf(""));
        SetSettingFileName(L"settings.txt");
        SetProjFileName(folder.NameOf("settings.txt"));
        SetProjInfoArrInFile({L"+", L"+", L"+", L"+", L"+", L"+", L"+", L"+"});
        COutPutFiles file;
        file.SetValues(L"_cut", L".nc");
        SetOutPuts({file});
    }
};

/// A user's hand at the dialog: it points at what can be seen, and types to what has the keyboard.
class Hand {
  public:
    Hand() : m_dialog(*qobject_cast<QDialog*>(QApplication::activeModalWidget())) {}

    QDialog& Window() { return m_dialog; }
    QWidget* Control(int id) const {
        return m_dialog.findChild<QWidget*>(QString::number(id), Qt::FindDirectChildrenOnly);
    }
    /// The control that has the keyboard, itself or in a part of it.
    int Focus() const {
        const QWidget* widget = m_dialog.focusWidget();
        while (widget->parentWidget() != &m_dialog)
            widget = widget->parentWidget();
        return widget->objectName().toInt();
    }

    void ClickAt(const QWidget& widget, const QPoint& place) {
        QTest::mouseClick(
            m_dialog.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&m_dialog, place));
    }
    void Click(int id) { ClickAt(*Control(id), Control(id)->rect().center()); }
    void ClickTab(int index) {
        const auto* tabs = Control(1002)->findChild<QTabBar*>();
        ClickAt(*tabs, tabs->tabRect(index).center());
    }
    void Type(const char* text) { QTest::keyClicks(m_dialog.focusWidget(), text); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(m_dialog.focusWidget(), key, modifiers);
    }

  private:
    QDialog& m_dialog;
};

/// Clicks on a button of each box that is shown.
class BoxHand final : public QObject {
  public:
    BoxHand() { QApplication::instance()->installEventFilter(this); }

    std::vector<QMessageBox::StandardButton> m_answers;  ///< the next one last
    std::vector<std::string> m_texts;

  private:
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* box = qobject_cast<QMessageBox*>(object);
        if (box != nullptr && event->type() == QEvent::Show)
            QTimer::singleShot(0, box, [this, box] { Answer(*box); });
        return false;
    }
    void Answer(QMessageBox& box) {
        m_texts.push_back(box.windowTitle().toStdString() + "|" + box.text().toStdString());
        QTest::mouseClick(box.button(m_answers.back()), Qt::LeftButton);
        m_answers.pop_back();
    }
};

class DialogByHandTest : public ::testing::Test {
  protected:
    /// Shows the dialog of m_project to a hand; fails unless the hand got it.
    template <typename Action>
    DialogOutcome Show(Action action) {
        bool hasRun = false;
        SetDialogDriver(DialogDriver{DialogDriver::Backend::kNative,
                                     [&](DialogWindow&) {
                                         Hand hand;
                                         action(hand);
                                         hasRun = true;
                                     },
                                     {}});
        m_project.ShowDialog();
        EXPECT_TRUE(hasRun);
        return m_project.GetDialogResult().outcome;
    }

    TempFolder m_folder;
    Project m_project{m_folder};
};

TEST_F(DialogByHandTest, AWholeDeliveryRecordIsTyped) {
    m_folder.Write("Hall.nc", "old");
    const std::string box =
        "Overwrite Option|Output files already exist!\n Do you want to replace the files?";
    EXPECT_EQ(Show([&](Hand& hand) {
                  BoxHand boxes;
                  boxes.m_answers = {QMessageBox::Yes, QMessageBox::No};
                  hand.Click(1101);
                  hand.Type("Hall");
                  hand.ClickTab(1);
                  hand.Click(1206);
                  hand.Type("CR 4711");
                  hand.Press(Qt::Key_Tab);
                  hand.Type("20240229");
                  hand.Press(Qt::Key_Tab);
                  hand.Type("Galvanised,");
                  hand.Press(Qt::Key_Return);
                  hand.Type("not painted");
                  hand.Press(Qt::Key_Tab);
                  hand.Type("C");
                  hand.Press(Qt::Key_Tab);
                  hand.Type("20240301");
                  hand.ClickTab(2);
                  EXPECT_EQ(hand.Focus(), 1301);
                  hand.Type("20251231");
                  hand.Press(Qt::Key_Tab);
                  hand.Type("Dock 5");
                  hand.Press(Qt::Key_Enter);
                  hand.Type("+ 20095 Hamburg");

                  hand.Click(1);
                  EXPECT_TRUE(hand.Window().isVisible());
                  EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("settings.txt")));

                  hand.Click(1302);
                  hand.Press(Qt::Key_Home, Qt::ControlModifier);
                  hand.Press(Qt::Key_Down);
                  hand.Press(Qt::Key_Delete);
                  hand.Press(Qt::Key_Delete);
                  hand.Press(Qt::Key_Backtab);
                  hand.Press(Qt::Key_Return);
                  EXPECT_FALSE(hand.Window().isVisible());
                  EXPECT_EQ(boxes.m_texts, (std::vector<std::string>{box, box}));
              }),
              DialogOutcome::kConfirmed);
    const std::string settings = m_folder.Read("settings.txt");
    EXPECT_EQ(settings,
              "+Hall\n+CR 4711\n+2024-02-29\n+Galvanised,\r\nnot painted\n+C\n+2024-03-01\n"
              "+2025-12-31\n+Dock 5\r\n20095 Hamburg\n");
    // Read back and confirmed as it is, it is written as it was.
    Project read(m_folder);
    EXPECT_TRUE(read.GetDetailFromFile());
    m_folder.Write("settings.txt", "");
    m_project = read;
    Show([](Hand& hand) {
        BoxHand boxes;
        boxes.m_answers = {QMessageBox::Yes};
        hand.Click(1);
    });
    EXPECT_EQ(m_folder.Read("settings.txt"), settings);
}

TEST_F(DialogByHandTest, EscapeAndTheWindowsCloseButtonCancel) {
    EXPECT_EQ(Show([](Hand& hand) {
                  hand.Click(1101);
                  hand.Type("x");
                  hand.Press(Qt::Key_Escape);
                  EXPECT_FALSE(hand.Window().isVisible());
              }),
              DialogOutcome::kCancelled);
    EXPECT_EQ(Show([](Hand& hand) {
                  hand.Window().close();
                  EXPECT_FALSE(hand.Window().isVisible());
              }),
              DialogOutcome::kCancelled);
    EXPECT_EQ(m_project.GetFileName(), L"");
}

TEST_F(DialogByHandTest, AFieldThatIsHiddenGetsNoMoreKeys) {
    Show([](Hand& hand) {
        hand.Click(1101);
        hand.Type("a");
        hand.ClickTab(1);
        hand.Type("b");
        EXPECT_EQ(hand.Control(1101)->property("text").toString(), "a");
    });
}

TEST_F(DialogByHandTest, PastedLinesGoOnOneLineOfTheSettingsFile) {
    Show([](Hand& hand) {
        QApplication::clipboard()->setText("Hall\r\nWest\nEnd");
        hand.Click(1101);
        hand.Press(Qt::Key_V, Qt::ControlModifier);
        hand.Press(Qt::Key_Return);
    });
    EXPECT_EQ(m_project.GetFileName(), L"Hall West End");
}

TEST_F(DialogByHandTest, LabelsAreReadAloudForTheirFieldsAndFitTheirPlaces) {
    m_project.SetDialogCaption(L"Names");
    Show([](Hand& hand) {
        for (const int id : {1101, 1102, 1201, 1207, 1211, 1213, 1301, 1302}) {
            const auto* label = qobject_cast<QLabel*>(hand.Control(id + 50));
            ASSERT_NE(label, nullptr);
            const auto* field = QAccessible::queryAccessibleInterface(hand.Control(id));
            EXPECT_EQ(field->text(QAccessible::Name), label->text().remove('&')) << id;
        }
        for (const int tab : {0, 1, 2}) {
            hand.ClickTab(tab);
            for (const QLabel* label : hand.Window().findChildren<QLabel*>())
                EXPECT_TRUE(!label->isVisible() || label->fontMetrics().horizontalAdvance(
                                                       label->text().remove('&')) <= label->width())
                    << label->text().toStdString();
        }
    });
}

TEST(DialogByHandDeathTest, WithoutADisplayTheDialogCountsAsCancelledAndSaysWhy) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto reasonWith = [](const char* variable, const char* value) {
        for (const char* each : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(each);
        setenv(variable, value, 1);
        CProjectInformation project;
        project.ShowDialog();
        if (project.GetIsCancelled() &&
            project.GetDialogResult().outcome == DialogOutcome::kNotShown)
            std::fputs(project.GetDialogResult().reason.toUtf8().c_str(), stderr);
        std::_Exit(0);
    };
    using ::testing::ExitedWithCode;
    EXPECT_EXIT(reasonWith("UNUSED", ""),
                ExitedWithCode(0),
                "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
    EXPECT_EXIT(reasonWith("DISPLAY", ":4711"), ExitedWithCode(0), "the display cannot be opened");
    EXPECT_EXIT(reasonWith("QT_QPA_PLATFORM", "nonesuch"),
                ExitedWithCode(0),
                "the display cannot be opened");
    EXPECT_EXIT(reasonWith("QT_QPA_PLATFORM", "offscreen"),
                ExitedWithCode(0),
                "with QT_QPA_PLATFORM=offscreen nobody can see it");
}

}  // namespace

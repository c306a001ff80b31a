#include "support/DialogHand.h"
#include "support/TempFolder.h"

#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/project/CProjectInformation.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Key = DialogHand::Key;

constexpr int kTabs = 1002;

/// Shows a dialog in real windows to a hand; fails unless the hand got it.
template <typename Action>
void ShowTo(Action action) {
    CProjectInformation project;
    COutPutFiles file;
    file.SetValues(L"hall.nc", L".nc");
    project.SetOutPuts({file});
    project.SetFileName(L"hall");
    project.SetProjFileName(L"settings.txt");
    bool hasRun = false;
    SetDialogDriver(DialogDriver{DialogDriver::Backend::kNative,
                                 [&](DialogWindow& window) {
                                     action(window, DialogHand(window));
                                     hasRun = true;
                                 },
                                 {}});
    project.ShowDialog();
    SetDialogDriver({});
    EXPECT_TRUE(hasRun);
}

TEST(DialogKeyboard, TheFirstFieldHasItAtFirst) {
    ShowTo([](DialogWindow& window, DialogHand hand) {
        EXPECT_EQ(window.Focus(), 1101);
        hand.Type("shed");
        EXPECT_EQ(window.Text(1101), L"shed") << "what was there is selected";
    });
}

TEST(DialogKeyboard, TheTabKeyGoesAsControlsAreSeen) {
    const std::vector<std::vector<int>> orders = {
        {1101,  1102, 1001, 1,    2   },
        {1201,  1206, 1207, 1211, 1212, 1213, 1001, 1, 2},
        {1301, 1302,    1001,       1,           2           },
    };
    ShowTo([&](DialogWindow& window, DialogHand hand) {
        for (std::size_t tab = 0; tab < orders.size(); ++tab) {
            hand.ClickTab(static_cast<int>(tab));
            window.SetFocus(orders[tab].front());
            for (const bool isBack : {false, true}) {
                const auto& order = orders[tab];
                std::vector<int> passed = {window.Focus()};
                // A date picker has a stop for each part of its date.
                for (int keys = 0; keys < 20 && passed.size() < order.size(); ++keys) {
                    hand.Press(Key::kTab, isBack);
                    if (window.Focus() != passed.back())
                        passed.push_back(window.Focus());
                }
                EXPECT_EQ(passed, isBack ? std::vector<int>(order.rbegin(), order.rend()) : order);
            }
        }
    });
}

TEST(DialogKeyboard, ControlTabTurnsThePages) {
    ShowTo([](DialogWindow& window, DialogHand hand) {
        struct Step {
            bool isBack;
            int page;
            int focus;
        };
        const Step steps[] = {
            {false, 1, 1206},
            {false, 2, 1301},
            {false, 0, 1101},
            {true,  2, 1301},
            {true,  1, 1206},
        };
        for (const Step& step : steps) {
            hand.Press(Key::kTab, step.isBack, true);
            EXPECT_EQ(window.SelectedTab(kTabs), step.page);
            EXPECT_EQ(window.Focus(), step.focus);
        }
        // Out of fields of every kind, and not from one that goes on being seen.
        for (const int id : {1207, 1211, 1}) {
            window.SelectTab(kTabs, 1);
            window.SetFocus(id);
            hand.Press(Key::kTab, false, true);
            EXPECT_EQ(window.SelectedTab(kTabs), 2) << id;
            EXPECT_EQ(window.Focus(), id == 1 ? 1 : 1301);
        }
    });
}

TEST(DialogKeyboard, LettersOfLabelsGoToTheirFields) {
    struct Page {
        const char* letters;
        std::vector<int> fields;
    };
    const Page pages[] = {
        {"lf",      {1102, 1101}                              },
        {"mndcrtn", {1201, 1206, 1207, 1211, 1212, 1213, 1206}},
        {"ad",      {1302, 1301}                              },
    };
    ShowTo([&](DialogWindow& window, DialogHand hand) {
        for (int tab = 0; tab < 3; ++tab) {
            hand.ClickTab(tab);
            std::vector<int> fields;
            for (const char* letter = pages[tab].letters; *letter != '\0'; ++letter) {
                hand.PressAlt(*letter);
                fields.push_back(window.Focus());
            }
            EXPECT_EQ(fields, pages[tab].fields);
        }
        EXPECT_EQ(window.Text(1151) + window.Text(1001), L"File NameSave Settings");
    });
}

}  // namespace

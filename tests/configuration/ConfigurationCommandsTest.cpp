#include <gtest/gtest.h>

#include <functional>

#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "configuration/screens/ConfigurationCommands.h"
#include "logging/LogFilePathChoice.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::SimulatedPorts;
using test::TempStore;
using test::TestSystem;

// The screens of the File menu: a display size, a record of what was shown, and what the user
// does on them.
struct FakeConfigurationScreens : ConfigurationScreens {
    int height = 9000, width = 12000;
    std::vector<std::string> shown;
    std::function<void()> onShow;
    int repaints = 0;
    int ScreenHeightTwips() override { return height; }
    int ScreenWidthTwips() override { return width; }
    void Show(const char* name) {
        shown.push_back(name);
        if (onShow) onShow();
    }
    void ShowConfiguration() override { Show("frmConfiguration"); }
    void ShowConfigBoards() override { Show("frmConfigBoards"); }
    void ShowConfigColors() override { Show("frmConfigColors"); }
    void RepaintMainScreen() override { ++repaints; }
};

class ConfigurationCommands : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    System& s = t.s;
    BoardRecord& board = t.s.modRelay.Board[0];
    FakeConfigurationScreens screens;

    void SetUp() override {
        s.frmRelay.CheckTimeAllowed = True;
        board.CntlAddress = 0x303;
        board.PortConfigValue = 0x80;
    }
};

// (The widget test of the menu shows a name change leaving the ports alone, and a base address
// change setting the board up.)
TEST_F(ConfigurationCommands, AChangedAddressSetsTheBoardUpAndZeroAlwaysCountsAsChanged) {
    using Writes = std::vector<SimulatedPorts::Access>;
    screens.onShow = [&] { board.PortConfigValue = 0x81; };
    mnuFileConfiguration(s, screens);
    EXPECT_EQ(t.ports.Writes(), (Writes{{true, 0x303, 0x81}, {true, 0x300, 0}, {true, 0x301, 0}}));
    EXPECT_TRUE(t.timer.enabled);
    // The input port 0 before and after: the set-up runs again, and writes nothing to port 0.
    screens.onShow = nullptr;
    t.ports.Clear();
    board.InputAddress = 0;
    mnuFileConfiguration(s, screens);
    EXPECT_EQ(t.ports.Writes(), (Writes{{true, 0x303, 0x81}, {true, 0x300, 0}}));
    t.ports.Clear();
    s.modRelay.RunNoBoards = True;  // emulation: the set-up touches nothing
    mnuFileConfiguration(s, screens);
    EXPECT_TRUE(t.ports.Writes().empty());
}

TEST_F(ConfigurationCommands, RemovalAsksAndEitherAnswerGivesTheTickBack) {
    ConfigurationSaveToReg(s);
    for (Answer answer : {Answer::Cancel, Answer::OK}) {
        t.timer.enabled = true;
        t.messages.shown.clear();
        t.messages.answers = {answer};
        mnuFileConfigurationRemove(s);
        // (With no window position stored yet, the layer also tells that it found no key.)
        ASSERT_EQ(t.messages.shown.size(), answer == Answer::OK ? 4u : 1u);
        if (answer == Answer::OK) {
            EXPECT_EQ(t.messages.shown.back().Title, "Configuration Removed");
        }
        const MessageBoxRequest& box = t.messages.shown[0];
        EXPECT_EQ(box.Prompt,
                  "You are about to completely remove all\r\nConfiguration information for "
                  "Vantrellion\r\n\r\nDo you really want to continue?");
        EXPECT_EQ(box.Title, "Confirm Removal");
        EXPECT_EQ(box.ButtonSet, Buttons::OKCancel);
        EXPECT_EQ(box.DefaultButton, 2);
        EXPECT_TRUE(t.timer.enabled);
        EXPECT_EQ(ConfigurationLoadVersionFromReg(s) == REGKEYNOTFOUND, answer == Answer::OK);
    }
    EXPECT_EQ(board.BaseAddress, 0x300) << "the running program keeps its configuration";
}

}  // namespace
}  // namespace vantrellion

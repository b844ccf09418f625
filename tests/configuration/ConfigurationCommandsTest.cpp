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

TEST_F(ConfigurationCommands, TheDisplaySizeChoosesTheScreens) {
    struct Case {
        int height, width;
        std::vector<std::string> shown;
    };
    const Case cases[] = {
        {8999, 11999, {"frmConfigBoards", "frmConfigColors"}},
        {8999, 12000, {"frmConfiguration"}},
        {9000, 11999, {"frmConfiguration"}},
    };
    for (const Case& c : cases) {
        screens.shown.clear();
        screens.height = c.height;
        screens.width = c.width;
        mnuFileConfiguration(s, screens);
        EXPECT_EQ(screens.shown, c.shown) << c.height << "x" << c.width;
    }
}

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

TEST_F(ConfigurationCommands, AfterTheScreensTheMainScreenTakesColoursTitleAndTick) {
    screens.onShow = [&] {
        s.modRelay.ColorNameBkgrnd = 0x111111;
        s.modRelay.ColorTTimeBkgrnd = 0x222222;
        s.modRelay.ColorRelayGroup[5] = 0x333333;
        board.BaseAddress = 0;  // no board address left: emulation
    };
    mnuFileConfiguration(s, screens);
    EXPECT_EQ(screens.repaints, 1);
    EXPECT_EQ((t.screen.back[{Control::txtDisplayName, 7}]), 0x111111);
    EXPECT_EQ((t.screen.back[{Control::lblTotalTime, 0}]), 0x222222);
    EXPECT_EQ((t.screen.back[{Control::fraRelayGroup, 5}]), 0x333333);
    EXPECT_EQ(s.modRelay.RunNoBoards, True);
    EXPECT_EQ((t.screen.text[{Control::mnuDisplayAddress, 0}]),
              "Currently Running in Emulation Mode");
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_EQ(s.frmRelay.Relay[0].DisplayName, "Relay 1") << "the schedule is not touched";
}

// Leaving the screens with No or Cancel Changes reloads the store, and a Save fills an empty
// name with its default; neither may make the title or File > Save name another file.
TEST_F(ConfigurationCommands, TheScheduleKeepsItsOwnFileAcrossTheScreens) {
    struct Case {
        const char* route;
        std::string path, name;  // the schedule on screen
        std::function<void()> leave;
    } cases[] = {
        {"No (reload), new schedule", "/data/", "", [&] { ConfigurationLoadFromReg(s); }},
        {"No (reload), other file", "/data/", "mine.run", [&] { ConfigurationLoadFromReg(s); }},
        {"Save, new schedule", "", "", [&] { ConfigurationSaveToReg(s); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.route);
        s.modRelay.DataFilePath = "/stored/";
        s.modRelay.DataFileName = "stored.run";
        ConfigurationSaveToReg(s);
        s.modRelay.DataFilePath = c.path;
        s.modRelay.DataFileName = c.name;
        screens.onShow = c.leave;
        mnuFileConfiguration(s, screens);
        EXPECT_EQ(s.modRelay.DataFilePath, c.path);
        EXPECT_EQ(s.modRelay.DataFileName, c.name);
        EXPECT_EQ(t.screen.title, c.name.empty() ? "New" : c.path + c.name);
    }
}

TEST_F(ConfigurationCommands, RemovalAsksAndEitherAnswerGivesTheTickBack) {
    ConfigurationSaveToReg(s);
    for (Answer answer : {Answer::Cancel, Answer::OK}) {
        t.timer.enabled = true;
        t.messages.shown.clear();
        t.messages.answers = {answer};
        mnuFileConfigurationRemove(s);
        // (With no window position stored yet, the layer also tells that it found no key.)
        ASSERT_EQ(t.messages.shown.size(), answer == Answer::OK ? 3u : 1u);
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

TEST(LogFilePathChoice, TheChosenDirectoryAlwaysEndsInASeparator) {
    TestSystem t;
    t.s.modRelay.LogFilePath = "";
    EXPECT_EQ(LogFilePathStartDirectory(t.s), test::kDocuments);
    for (const auto& [chosen, stored] : {std::pair{"/var/log", "/var/log/"}, std::pair{"/", "/"},
                                         std::pair{"", "/"}}) {  // empty: nothing changes
        SelectLogFilePath(t.s, chosen);
        EXPECT_EQ(t.s.modRelay.LogFilePath, stored);
        EXPECT_EQ(LogFilePathStartDirectory(t.s), stored);
    }
}

}  // namespace
}  // namespace vantrellion

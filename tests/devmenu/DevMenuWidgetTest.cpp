// The program as a development build has it: the "Dev" menu with all its entries, visible once
// the menus are refreshed, its step commands and the hidden Edit entry showing their boxes.
#include <gtest/gtest.h>

#include "configuration/clsExeOrIDE.h"
#include "tests/desktop/MenuProgramFixture.h"

namespace vantrellion::test {
namespace {

using DevMenuWidgetTest = MenuProgramTest;

TEST_F(DevMenuWidgetTest, DevelopmentBuildShowsTheDeveloperMenu) {
    ASSERT_EQ(RunningInIDE(), True);
    PrepareStore(True);
    Start();
    QAction* dev = Window().Menu("mnuDev");
    ASSERT_NE(dev, nullptr);
    EXPECT_TRUE(dev->isVisible());
    QStringList captions;
    for (QAction* a : dev->menu()->actions())
        captions << a->text();
    EXPECT_EQ(
        captions,
        QStringList({"Print Resource File", "Test Routine", "Step Caution Message Box ( 1)",
                     "Step Error     Message Box (10)", "Step Error     MsgBox          (15)",
                     "Step Info      Message Box  ( 2)", "Step Info      MsgBox           ( 4)",
                     "Test Config Boards", "Test Config Colors"}));

    BoxWatcher watcher([] { return true; });
    const std::pair<const char*, size_t> steps[] = {{"mnuDevStepCautionMessageBox", 1},
                                                    {"mnuDevStepErrorMessageBox", 10},
                                                    {"mnuDevStepErrorMsgBox", 15},
                                                    {"mnuDevStepInfoMessageBox", 2},
                                                    {"mnuDevStepInfoMsgBox", 4}};
    for (const auto& [menu, count] : steps) {
        watcher.boxes.clear();
        Trigger(menu);
        EXPECT_EQ(watcher.boxes.size(), count) << menu;
    }
    EXPECT_EQ(watcher.boxes[3].title, "System is Paused (All board 2 Relays are OFF)");

    watcher.boxes.clear();
    Trigger("mnuEdit");
    ASSERT_EQ(watcher.boxes.size(), 1u);
    EXPECT_EQ(watcher.boxes[0].text, "Edit has not been coded yet!");
    EXPECT_EQ(watcher.boxes[0].title, "Function not available");
}

}  // namespace
}  // namespace vantrellion::test

// The program as a development build shows it: the "Dev" menu with all its entries, visible once
// the menus are refreshed, and its step commands and the hidden Edit entry showing their boxes.
#include <gtest/gtest.h>

#include <QMenuBar>

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
    EXPECT_EQ(dev->text(), "Dev");
    QStringList captions;
    for (QAction* a : dev->menu()->actions())
        captions << a->text();
    EXPECT_EQ(
        captions,
        QStringList({"Print Resource File", "Test Routine", "Step Caution Message Box ( 1)",
                     "Step Error     Message Box (10)", "Step Error     MsgBox          (15)",
                     "Step Info      Message Box  ( 2)", "Step Info      MsgBox           ( 4)",
                     "Test Config Boards", "Test Config Colors"}));
}

TEST_F(DevMenuWidgetTest, StepCommandsAndEditShowTheirBoxes) {
    PrepareStore(True);
    Start();
    BoxWatcher watcher([] { return true; });
    Trigger("mnuDevStepInfoMsgBox");
    ASSERT_EQ(watcher.boxes.size(), 4u);
    EXPECT_EQ(watcher.boxes[0].title, "System is Paused (All board 1 Relays are ON)");
    EXPECT_EQ(watcher.boxes[3].title, "System is Paused (All board 2 Relays are OFF)");

    Trigger("mnuEdit");
    ASSERT_EQ(watcher.boxes.size(), 5u);
    EXPECT_EQ(watcher.boxes[4].text, "Edit has not been coded yet!");
    EXPECT_EQ(watcher.boxes[4].title, "Function not available");

    // Test Routine meets the end of this build's pairs, which the command's handler reports.
    Trigger("mnuDevTestRoutine");
    ASSERT_EQ(watcher.boxes.size(), 6u);
    EXPECT_TRUE(watcher.boxes[5].text.startsWith("Subscript out of range"));
}

}  // namespace
}  // namespace vantrellion::test

// The State and Tool menus of the running program, clicked through their real entries: relays
// by hand with the light following at once, the pause with the timer held off, Logging and
// Emulation kept for the next start, and no developer menu in a delivered build.
#include <gtest/gtest.h>

#include <QMenuBar>

#include "configuration/clsExeOrIDE.h"
#include "desktop/QtConvert.h"
#include "tests/desktop/MenuProgramFixture.h"

namespace vantrellion::test {
namespace {

class StateToolMenusWidgetTest : public MenuProgramTest {
  protected:
    bool LightOn(int i) {
        return Window().shpOnOffLight[i]->ColorShown() == ToQColor(Sys().modRelay.ColorRelayON);
    }
};

TEST_F(StateToolMenusWidgetTest, RelaysFollowTheMenuAndThePauseHoldsTheTimerOff) {
    PrepareStore(True);
    Start();
    Trigger("mnuStateMan_B1_On", 3);
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0x08);
    EXPECT_TRUE(LightOn(3));
    EXPECT_EQ(Window().Menu("mnuStateDisplayState", 0)->text(), "RelayState 1 : - - - 4 - - - -");
    Trigger("mnuStateMan_B1_Off", 3);
    EXPECT_FALSE(LightOn(3));
    EXPECT_FALSE(Window().SubMenu("mnuStateManualBoard", 1)->menuAction()->isEnabled());

    BoxWatcher watcher([&] { return !app->Timer().IsEnabled() && LightOn(0) && LightOn(7); });
    Trigger("mnuStateMan_B1_AllOnPause");
    ASSERT_EQ(watcher.boxes.size(), 1u);
    EXPECT_TRUE(watcher.boxes[0].noted);
    EXPECT_TRUE(app->Timer().IsEnabled());
    EXPECT_TRUE(ports.log.empty());
}

TEST_F(StateToolMenusWidgetTest, LoggingAndEmulationAreKeptForTheNextStart) {
    PrepareStore(True, False);
    Start();
    Trigger("mnuToolLogging");
    EXPECT_TRUE(Window().Menu("mnuToolLogging")->isChecked());
    // Leaving emulation resets the real board, which allows it, relay by relay.
    ports.bytes[0x300] = 0x81;
    Trigger("mnuToolRunNoBoards");
    EXPECT_EQ(ports.Writes().size(), 8u);
    EXPECT_EQ(ports.bytes[0x300], 0);
    EXPECT_TRUE(app->Timer().IsEnabled());

    Stop();
    Start();
    EXPECT_EQ(Sys().modRelay.LoggingOnOff, True);
    EXPECT_EQ(Sys().modRelay.RunNoBoards, False);
    EXPECT_FALSE(Window().Menu("mnuToolRunNoBoards")->isChecked());
    EXPECT_EQ(Window().Menu("mnuDisplayAddress")->text(), "   B1@H300");
}

TEST_F(StateToolMenusWidgetTest, DeliveredBuildHasNoDeveloperMenu) {
    if (RunningInIDE() != 0) GTEST_SKIP() << "a development build";
    PrepareStore(True);
    Start();
    EXPECT_EQ(Window().Menu("mnuDev"), nullptr);
    EXPECT_EQ(Window().Menu("mnuDevTestRoutine"), nullptr);
    for (QAction* a : Window().menuBar()->actions())
        EXPECT_NE(a->text(), "Dev");
}

}  // namespace
}  // namespace vantrellion::test

// The State and Tool menus of the running program, clicked through their real entries: relays
// by hand with the light following at once, the pause with the timer held off, Logging and
// Emulation kept for the next start, the counters, the port listing, and no developer menu in
// a delivered build.
#include <gtest/gtest.h>

#include <QMenuBar>
#include <algorithm>

#include "configuration/clsExeOrIDE.h"
#include "desktop/QtConvert.h"
#include "runfile/CrashRestart.h"
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
    EXPECT_EQ(watcher.boxes[0].title, "System is Paused (All board 1 Relays are ON)");
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
    EXPECT_EQ(Window().Menu("mnuToolLogging")->text(), "Logging (On)");
    EXPECT_FALSE(Window().Menu("mnuToolRunNoBoards")->isChecked());
    EXPECT_EQ(Window().Menu("mnuDisplayAddress")->text(), "   B1@H300");
}

TEST_F(StateToolMenusWidgetTest, CountersListingAndRestartFile) {
    PrepareStore(True);
    dir.Write(LogName(), "09:29:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n");
    Start();
    Sys().frmRelay.Relay[0].CounterOn = True;
    Sys().frmRelay.Relay[0].Count = 4;
    Window().lblCounter[0]->setText("4");
    Sys().frmRelay.Relay[1].Count = 9;
    Trigger("mnuToolZeroCounters");
    EXPECT_EQ(Window().lblCounter[0]->text(), "0");
    EXPECT_EQ(Window().lblCounter[1]->text(), "Counter");  // inactive: caption untouched
    EXPECT_EQ(Sys().frmRelay.Relay[1].Count, 0);
    EXPECT_TRUE(dir.Exists(RestartFileName));
    Trigger("mnuToolRemoveRestartFile");
    EXPECT_FALSE(dir.Exists(RestartFileName));

    ports.bytes[0x300] = 0x05;
    Trigger("mnuToolListAddress_H200_H3FF");
    const std::string log = dir.Read(LogName());
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1 + 513 + 4);
    EXPECT_EQ(log.rfind("09:29:00 ", 0), 0u);
    EXPECT_NE(log.find("\r\nDecimal: 768 Hex: 300 :1 - 3 - - - - -\r\n"), std::string::npos);
    EXPECT_TRUE(ports.Writes().empty());
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

// The State and Tool menus of the running program, clicked through their real menu entries:
// relays by hand with the light following at once, the pause box with the timer held off,
// Logging and Emulation kept for the next start, the counters, the port listing, and no
// developer menu in a delivered build.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenuBar>

#include "configuration/clsExeOrIDE.h"
#include "desktop/QtConvert.h"
#include "runfile/CrashRestart.h"
#include "tests/desktop/MenuProgramFixture.h"

namespace vantrellion::test {
namespace {

class StateToolMenusWidgetTest : public MenuProgramTest {
  protected:
    QColor Light(int i) { return Window().shpOnOffLight[i]->ColorShown(); }
    QColor On() { return ToQColor(Sys().modRelay.ColorRelayON); }
    QColor Off() { return ToQColor(Sys().modRelay.ColorRelayOFF); }
};

TEST_F(StateToolMenusWidgetTest, RelaysOfTheEmulatedBoardFollowTheMenuAtOnce) {
    PrepareStore(True);
    Start();
    Trigger("mnuStateMan_B1_On", 3);
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0x08);
    EXPECT_EQ(Light(3), On());
    EXPECT_EQ(Window().Menu("mnuStateDisplayState", 0)->text(), "RelayState 1 : - - - 4 - - - -");
    Trigger("mnuStateMan_B1_Off", 3);
    EXPECT_EQ(Light(3), Off());
    Trigger("mnuStateMan_B1_AllOn");
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0xFF);
    EXPECT_EQ(Light(7), On());
    EXPECT_TRUE(ports.log.empty());
    // Only the first board's submenu can be used in this build.
    EXPECT_TRUE(Window().SubMenu("mnuStateManualBoard", 0)->menuAction()->isEnabled());
    EXPECT_FALSE(Window().SubMenu("mnuStateManualBoard", 1)->menuAction()->isEnabled());
    EXPECT_EQ(Window().Menu("mnuStateMan_B2_StepAll")->text(), "Step Thru  All");
}

TEST_F(StateToolMenusWidgetTest, PauseHoldsTheTimerOffWithAllRelaysOn) {
    PrepareStore(True);
    Start();
    BoxWatcher watcher([&] {
        return !app->Timer().IsEnabled() && Sys().frmRelay.EmulatedPort[0] == 0xFF &&
               Light(5) == On();
    });
    Trigger("mnuStateMan_B1_AllOnPause");
    ASSERT_EQ(watcher.boxes.size(), 1u);
    EXPECT_EQ(watcher.boxes[0].title, "System is Paused (All board 1 Relays are ON)");
    EXPECT_EQ(watcher.boxes[0].text, "When you are ready to Continue, press 'OK' ");
    EXPECT_TRUE(watcher.boxes[0].noted);
    EXPECT_TRUE(app->Timer().IsEnabled());
}

TEST_F(StateToolMenusWidgetTest, LoggingAndEmulationAreKeptForTheNextStart) {
    PrepareStore(True, False);
    Start();
    QAction* logging = Window().Menu("mnuToolLogging");
    EXPECT_FALSE(logging->isChecked());
    Trigger("mnuToolLogging");
    EXPECT_TRUE(logging->isChecked());
    EXPECT_EQ(logging->text(), "Logging (On)");

    // Leaving emulation resets the real board, which allows it, relay by relay.
    ports.bytes[0x300] = 0x81;
    Trigger("mnuToolRunNoBoards");
    EXPECT_FALSE(Window().Menu("mnuToolRunNoBoards")->isChecked());
    EXPECT_EQ(ports.Writes().size(), 8u);
    EXPECT_EQ(ports.bytes[0x300], 0);
    EXPECT_TRUE(app->Timer().IsEnabled());

    Stop();
    Start();
    EXPECT_EQ(Sys().modRelay.LoggingOnOff, True);
    EXPECT_EQ(Sys().modRelay.RunNoBoards, False);
    EXPECT_TRUE(Window().Menu("mnuToolLogging")->isChecked());
    EXPECT_EQ(Window().Menu("mnuToolRunNoBoards")->text(),
              "Emulation Mode (Currently Running with Boards)");
    EXPECT_EQ(Window().Menu("mnuDisplayAddress")->text(), "   B1@H300");
}

TEST_F(StateToolMenusWidgetTest, ResetAllCountersLeavesInactiveCountersAlone) {
    PrepareStore(True);
    Start();
    RelayRecord& active = Sys().frmRelay.Relay[0];
    active.CounterOn = True;
    active.Count = 4;
    Window().lblCounter[0]->setText("4");
    Sys().frmRelay.Relay[1].Count = 9;
    Trigger("mnuToolZeroCounters");
    EXPECT_EQ(Window().lblCounter[0]->text(), "0");
    EXPECT_EQ(Window().lblCounter[1]->text(), "Counter");
    EXPECT_EQ(Sys().frmRelay.Relay[1].Count, 0);
    EXPECT_TRUE(dir.Exists(RestartFileName));
    Trigger("mnuToolRemoveRestartFile");
    EXPECT_FALSE(dir.Exists(RestartFileName));
}

TEST_F(StateToolMenusWidgetTest, PortListingIsAppendedToTheDaysLog) {
    PrepareStore(True);
    dir.Write(LogName(), "09:29:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n");
    Start();
    ports.bytes[0x300] = 0x05;
    Trigger("mnuToolListAddress_H200_H3FF");
    const std::string log = dir.Read(LogName());
    size_t lines = 0;
    for (size_t at = log.find("\r\n"); at != std::string::npos; at = log.find("\r\n", at + 2))
        ++lines;
    EXPECT_EQ(lines, 1u + 513u + 4u);
    EXPECT_EQ(log.rfind("09:29:00 ", 0), 0u);
    EXPECT_NE(log.find("\r\nDecimal: 768 Hex: 300 :1 - 3 - - - - -\r\n"), std::string::npos);
    EXPECT_TRUE(ports.Writes().empty());
    EXPECT_TRUE(app->Timer().IsEnabled());
}

TEST_F(StateToolMenusWidgetTest, DeliveredBuildHasNoDeveloperMenu) {
    if (RunningInIDE() != 0) GTEST_SKIP() << "a development build";
    PrepareStore(True);
    Start();
    EXPECT_EQ(Window().Menu("mnuDev"), nullptr);
    EXPECT_EQ(Window().Menu("mnuDevTestRoutine"), nullptr);
    for (QAction* a : Window().menuBar()->actions())
        EXPECT_NE(a->text(), "Dev");
    // The Edit entry stands hidden in the menu bar.
    EXPECT_FALSE(Window().Menu("mnuEdit")->isVisible());
}

}  // namespace
}  // namespace vantrellion::test

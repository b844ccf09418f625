// The State menu of the running program, clicked through its real entries: relays by hand with
// the light following at once, and the pause with the timer held off.
#include <gtest/gtest.h>

#include <QMenuBar>
#include <QTest>

#include "core/DateTimeText.h"
#include "desktop/QtConvert.h"
#include "desktop/frmDaysOff.h"
#include "desktop/frmPauseSchedule.h"
#include "tests/desktop/MenuProgramFixture.h"
#include "tests/desktop/ModalSteps.h"

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

TEST_F(StateToolMenusWidgetTest, DaysOffAndPauseWindowsHoldTheChosenRelays) {
    PrepareStore(True);
    Start();
    ModalSteps steps;
    steps.On<frmPauseSchedule>([](frmPauseSchedule& w) {
        w.chkRelay[2]->setChecked(true);
        w.txtHours->setText("2");
        QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    });
    Trigger("mnuStatePauseSchedule");
    EXPECT_EQ(Sys().frmRelay.Holds.PausedUntil[2], *ParseDateTimeText("2026-11-16 11:30"));
    EXPECT_EQ(Window().lblTotalTime[2]->text(), "Paused until\n11:30");
    Trigger("mnuStateEndPause");
    EXPECT_EQ(Sys().frmRelay.Holds.PausedUntil[2], 0);

    steps.On<frmDaysOff>([](frmDaysOff& w) {
        w.txtFirstDate->setText("2026-12-25");
        w.chkEveryYear->setChecked(true);
        w.chkRelay[0]->setChecked(true);
        QTest::mouseClick(w.cmdAdd, Qt::LeftButton);
        EXPECT_EQ(w.lstDaysOff->count(), 1);
        QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    });
    Trigger("mnuStateDaysOff");
    ASSERT_EQ(Sys().frmRelay.Holds.DaysOff.size(), 1u);
    EXPECT_TRUE(Sys().frmRelay.Holds.DaysOff[0].EveryYear);
    EXPECT_TRUE(steps.Done());
}

}  // namespace
}  // namespace vantrellion::test

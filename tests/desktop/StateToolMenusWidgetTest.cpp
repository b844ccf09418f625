// The State menu of the running program, clicked through its real entries: relays by hand with
// the light following at once, and the pause with the timer held off.
#include <gtest/gtest.h>

#include <QMenuBar>

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

}  // namespace
}  // namespace vantrellion::test

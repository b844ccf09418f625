// Creation, loading and closing of the main screen, and the constants of the build.
#include <gtest/gtest.h>

#include "core/InstanceLock.h"
#include "core/ResetRelayRecords.h"
#include "engine/Tick.h"
#include "mainscreen/MainScreenLifecycle.h"
#include "runfile/CrashRestart.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

TEST(ResetRelayRecords, NewScheduleLeavesTotalsAndSpareRecord) {
    TestSystem t;
    t.relay(3).TotalTime = "01:00:00";
    t.frm().PairActive[18] = True;
    t.relay(3).Manual = True;
    t.relay(3).CycleStart = 77;
    t.SetPair(3, 2, "1:00", "2:00");
    ResetRelayRecords(t.s);
    EXPECT_EQ(t.relay(3).TotalTime, "01:00:00");
    EXPECT_EQ(t.frm().PairActive[18], True);
    EXPECT_EQ(t.relay(3).Manual, 0);
    EXPECT_EQ(t.relay(3).CycleStart, 0);
    EXPECT_EQ(t.relay(3).OldState, 9);
    EXPECT_EQ(t.relay(3).InputState, 9);
    EXPECT_EQ(t.relay(3).DisplayName, "Relay 4");
    EXPECT_EQ(t.frm().StartTime[PairIndex(3, 2)], "");
    EXPECT_EQ(t.relay(8).DisplayName, "");  // the spare record is never reached
    EXPECT_EQ(t.relay(8).OldState, 0);
}

class LifecycleTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempDir dir;
    void SetUp() override {
        t.s.platform.machineDirectory = dir.Path();
        t.frm().CheckTimeAllowed = False;
        t.timer.enabled = false;
    }
};

TEST_F(LifecycleTest, StartWithoutRestartFileShowsANewScheduleAndStartsTheTick) {
    t.mod().Board[0].CntlAddress = 0x303;
    t.mod().Board[0].PortConfigValue = 0x80;
    t.mod().RunNoBoards = False;
    Form_Initialize(t.s);
    EXPECT_EQ(t.ports.Writes()[0], (SimulatedPorts::Access{true, 0x303, 0x80}));
    Form_Load(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.screen.title, "New");
    EXPECT_EQ(t.frm().AutoRestarted, 0);
    EXPECT_EQ(t.frm().CheckTimeAllowed, True);
    EXPECT_EQ(t.frm().FileChanged, 0);
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_EQ((t.screen.picture[{Control::imgHardStop, 2}]), "res:110");
    EXPECT_EQ((t.screen.picture[{Control::imgIDIcon, 2}]), "res:123");
}

TEST_F(LifecycleTest, StartAfterACrashComesBackWithTheSchedule) {
    {
        TestSystem before;
        before.s.platform.machineDirectory = dir.Path();
        before.SetPair(4, 1, "10:00", "11:00");
        before.relay(4).HardStop = True;
        SaveRestartFile(before.s);
    }
    Form_Initialize(t.s);
    Form_Load(t.s);
    EXPECT_EQ(t.frm().AutoRestarted, True);
    EXPECT_EQ(t.screen.title, "AUTOMATIC RESTART following System Crash");
    EXPECT_FALSE((t.screen.enabled[{Control::mnuFileSave, 0}]));
    EXPECT_EQ(t.frm().StartTime[PairIndex(4, 1)], "10:00");
    EXPECT_FALSE(t.screen.IsEnabled(Control::lblManual, 4));
}

TEST_F(LifecycleTest, ClosingAsksAboutChangesAndCancelKeepsTheTick) {
    Form_Initialize(t.s);
    Form_Load(t.s);
    t.frm().FileChanged = True;
    t.messages.answers = {Answer::Cancel};
    EXPECT_TRUE(Form_QueryUnload(t.s));
    EXPECT_TRUE(t.timer.enabled);
    t.messages.answers = {Answer::No};
    EXPECT_FALSE(Form_QueryUnload(t.s));
    EXPECT_FALSE(t.timer.enabled);

    t.ports.bytes[0x300] = 0xFF;
    SaveRestartFile(t.s);
    ASSERT_TRUE(dir.Exists(RestartFileName));
    t.ports.Clear();
    Form_Unload(t.s);
    EXPECT_FALSE(dir.Exists(RestartFileName));
    EXPECT_EQ(t.ports.bytes[0x300], 0);
    EXPECT_EQ(t.ports.Writes().back(), (SimulatedPorts::Access{true, 0x300, 0}));
}

// File > Exit handled inside a tick's yield: the rest of that tick must not switch the relay
// back on after the close cleared it, nor turn the timer on again.
TEST_F(LifecycleTest, ExitInsideTheTicksYieldEndsThatTick) {
    Form_Initialize(t.s);
    Form_Load(t.s);
    t.mod().Board[0].ResetOnExit = True;
    t.relay(2).Manual = True;
    CheckTimeTick(t.s);
    ASSERT_EQ(t.ports.bytes[0x300], 0x04);
    t.pump.pending = true;
    t.pump.onProcess = [&] {
        if (!Form_QueryUnload(t.s)) Form_Unload(t.s);
    };
    CheckTimeTick(t.s);
    EXPECT_EQ(t.ports.bytes[0x300], 0);
    EXPECT_FALSE(t.timer.enabled);
}

TEST(InstanceLock, ASecondInstanceIsTold) {
    TempDir dir;
    InstanceLock first(dir.Path());
    EXPECT_FALSE(first.AnotherInstanceRuns());
    {
        InstanceLock second(dir.Path());
        EXPECT_TRUE(second.AnotherInstanceRuns());
    }
    EXPECT_FALSE(InstanceLock(dir.Path() + "sub/").AnotherInstanceRuns());
}

}  // namespace
}  // namespace vantrellion::test

// The tick's order of phases as it shows from outside: the yield comes before evaluation,
// outputs are written before they are read back, the timer is off during the tick and comes
// back only through ResumeCheckTime.
#include <gtest/gtest.h>

#include "boardio/BoardSet.h"
#include "boardio/BoardStatusDisplay.h"
#include "core/CheckTimeControl.h"
#include "engine/BoardMark.h"
#include "engine/Tick.h"
#include "logging/EventLog.h"
#include "runfile/CrashRestart.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class TickTest : public ::testing::Test {
  protected:
    TestSystem t;
    void SetUp() override {
        t.frm().CheckTimeAllowed = True;
        t.clock.SetTime(8, 30, 0);
    }
};

TEST_F(TickTest, TimerIsOffDuringTheTickAndBackOnAfter) {
    bool enabledInYield = true;
    t.pump.pending = true;
    t.pump.onProcess = [&] { enabledInYield = t.timer.enabled; };
    CheckTimeTick(t.s);
    EXPECT_FALSE(enabledInYield);
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(TickTest, TimerStaysOffUntilStartUpHasEnded) {
    t.frm().CheckTimeAllowed = False;
    CheckTimeTick(t.s);
    EXPECT_FALSE(t.timer.enabled);
    t.frm().CheckTimeAllowed = True;
    ResumeCheckTime(t.s);
    EXPECT_TRUE(t.timer.enabled);
    SuspendCheckTime(t.s);
    EXPECT_FALSE(t.timer.enabled);
}

TEST_F(TickTest, YieldRunsOnlyWhenInputIsQueuedAndBeforeEvaluation) {
    CheckTimeTick(t.s);
    EXPECT_EQ(t.pump.processed, 0);
    // A click queued since the last tick (Manual on relay 3) takes effect in this tick.
    t.pump.pending = true;
    t.pump.onProcess = [&] { t.relay(3).Manual = True; };
    CheckTimeTick(t.s);
    EXPECT_EQ(t.pump.processed, 1);
    EXPECT_EQ(t.relay(3).NewState, 1);
    EXPECT_EQ(t.ports.bytes[0x300], 0x08);
    EXPECT_EQ(t.relay(3).OldState, 1);  // read after the write of the same tick
}

TEST_F(TickTest, PortsAreWrittenBeforeTheyAreReadBack) {
    t.relay(0).Manual = True;
    CheckTimeTick(t.s);
    // Last two accesses: output port read, then input port read, after every write.
    ASSERT_GE(t.ports.log.size(), 2u);
    const auto& last = t.ports.log.back();
    const auto& beforeLast = t.ports.log[t.ports.log.size() - 2];
    EXPECT_EQ(beforeLast, (SimulatedPorts::Access{false, 0x300, 1}));
    EXPECT_EQ(last, (SimulatedPorts::Access{false, 0x301, 0}));
    EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : 1 - - - - - - -");
    EXPECT_EQ(t.display.inputCaption[0], "Inputstate 1 : - - - - - - - -");
}

TEST_F(TickTest, ClockDisplaysFollowTheTimeUnlessMinimised) {
    t.clock.SetTime(14, 5, 9);
    CheckTimeTick(t.s);
    EXPECT_EQ(t.display.statusTime, "14:05:09");
    EXPECT_EQ(t.display.timeWindowUpdates, 0);  // the time window is not shown

    t.mod().TimeWindowShown = True;
    CheckTimeTick(t.s);
    EXPECT_EQ(t.display.timeWindow, "Time: 14:05:09");

    // Minimised: the displays stand still, but the engine still works.
    t.display.minimized = true;
    t.clock.SetTime(14, 5, 10);
    t.relay(2).Manual = True;
    CheckTimeTick(t.s);
    EXPECT_EQ(t.display.statusTime, "14:05:09");
    EXPECT_EQ(t.display.timeWindow, "Time: 14:05:09");
    EXPECT_EQ(t.ports.bytes[0x300] & 0x04, 0x04);
    EXPECT_EQ(t.display.light[2], kRelayON);
}

// Without emulation and with no board driven, panel 1 says so at every tick until a board is
// driven again or emulation is on.
TEST_F(TickTest, AMarkStaysInTheStatusBarWhileNoBoardIsDriven) {
    BoardSet boards;
    t.s.platform.boards = &boards;
    auto mark = [&] {
        CheckTimeTick(t.s);
        return std::make_pair(t.screen.Text(Control::StatusBar1, 1),
                              t.screen.back[{Control::StatusBar1, 1}]);
    };
    const auto none = std::make_pair(std::string(), DefaultBackColor);
    t.ports.reachable = false;
    EXPECT_EQ(mark(), std::make_pair(std::string(NoBoardDrivenMark), NoContactColor));
    t.mod().RunNoBoards = True;
    EXPECT_EQ(mark(), none);
    t.mod().RunNoBoards = False;
    t.ports.reachable = true;
    EXPECT_EQ(mark().first, "");
    ASSERT_NE(boards.SetConnection(0, "nonsense"), "");
    EXPECT_EQ(mark().first, NoBoardDrivenMark);
    boards.SetConnection(0, "emulated://");
    EXPECT_EQ(mark().first, NoBoardDrivenMark);
    boards.SetConnection(0, "");
    EXPECT_EQ(mark(), none);
}

TEST_F(TickTest, RefreshNowShowsPortsWithoutEvaluatingOrWriting) {
    CheckTimeTick(t.s);
    t.ports.Clear();
    SuspendCheckTime(t.s);
    t.relay(5).Manual = True;     // would turn relay 5 on in a tick
    t.ports.bytes[0x300] = 0x81;  // a State command or another program changed the port
    t.ports.bytes[0x301] = 0x01;
    RefreshNow(t.s);
    EXPECT_FALSE(t.timer.enabled);
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_EQ(t.relay(5).NewState, 0);
    EXPECT_EQ(t.relay(0).OldState, 1);
    EXPECT_EQ(t.relay(7).OldState, 1);
    EXPECT_EQ(t.relay(0).InputState, 1);
    EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : 1 - - - - - - 8");
    EXPECT_EQ(t.display.inputCaption[0], "Inputstate 1 : 1 - - - - - - -");
}

TEST_F(TickTest, ForcedTickIsOneMoreFullEvaluation) {
    t.SetPair(0, 0, "08:00", "09:00");
    t.relay(0).DayHrEvenOdd = "0";  // cyclic with zero minutes: flips at every evaluation
    CheckTimeTick(t.s);             // first entry: off half-cycle starts
    const int before = t.ports.bytes[0x300] & 1;
    t.clock.tick += 1;
    CheckTimeTick(t.s);  // the forced tick
    EXPECT_NE(t.ports.bytes[0x300] & 1, before);
    EXPECT_TRUE(t.timer.enabled);
}

// A box that a phase of the tick raises waits until the tick has written, read and shown
// everything, and is then shown with the timer held.
TEST_F(TickTest, ABoxOfTheTickIsShownAfterItWithTheTimerHeld) {
    t.relay(0).Manual = True;
    t.relay(0).OldState = 5;  // no row of the state table: the evaluation error box
    bool heldDuringBox = false;
    t.messages.onShow = [&](const MessageBoxRequest&) {
        heldDuringBox = !t.timer.enabled;
        EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : - - - - - - - -");
    };
    CheckTimeTick(t.s);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Error Did Not Evaluate Old / New State Correctly");
    EXPECT_TRUE(heldDuringBox);
    EXPECT_TRUE(t.timer.enabled);
}

// Holds are counted: a command that holds the timer and calls others that hold it too (the
// restart file and the log both do) keeps it off until its own end.
TEST_F(TickTest, NestedHoldsGiveTheTimerBackOnlyAtTheOutermostEnd) {
    TempDir dir;
    t.s.platform.machineDirectory = dir.Path();
    t.mod().LogFilePath = dir.Path();
    t.mod().LoggingOnOff = True;
    t.timer.enabled = true;
    {
        const CheckTimeHold outer(t.s);
        SaveRestartFile(t.s);
        WriteEventLog(t.s, "Test", "inner");
        EXPECT_FALSE(t.timer.enabled);
    }
    EXPECT_TRUE(t.timer.enabled);
}

}  // namespace
}  // namespace vantrellion::test

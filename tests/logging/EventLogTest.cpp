#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/InputStates.h"
#include "logging/EventLog.h"
#include "logging/StateLog.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

class EventLog : public ::testing::Test {
  protected:
    EventLog() {
        s.modRelay.LoggingOnOff = True;
        s.modRelay.LogFilePath = dir.Path();
        ts.clock.now = DateTime{2026, 11, 14, 9, 15, 2, 7};
    }
    std::string Log() { return dir.Read("Vantrellion_2026_11_14.Log"); }

    test::TempDir dir;
    test::TestSystem ts;
    System& s = ts.s;
};

TEST_F(EventLog, APieceOfOneDaysLog) {
    const PortTexts none = FormatPortBits({0x00});
    WriteEventLog(s, "Open", "c:\\farm\\greenhouse.run");
    ts.clock.SetTime(9, 16, 0);
    WriteStateLog(s, none, none);
    ts.clock.SetTime(9, 17, 0);
    WriteStateLog(s, FormatPortBits({0x01}), none);
    ts.clock.SetTime(9, 17, 41);
    WriteEventLog(s, "Save", "c:\\farm\\greenhouse.run");
    ts.clock.SetTime(9, 18, 0);
    WriteStateLog(s, FormatPortBits({0x01}), FormatPortBits({0x02}));
    ts.clock.SetTime(3, 41, 17);
    WriteEventLog(s, "ReStart", "****** System Crashed & Restarted ******");
    EXPECT_EQ(Log(),
              "09:15:02 11/14/2026 Open c:\\farm\\greenhouse.run\r\n"
              "09:16:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n"
              "09:17:00 <1 - - - - - - ->R><I<- - - - - - - ->I \r\n"
              "09:17:41 11/14/2026 Save c:\\farm\\greenhouse.run\r\n"
              "09:18:00 <1 - - - - - - ->R><I<- 2 - - - - - ->I \r\n"
              "03:41:17 11/14/2026 ReStart ****** System Crashed & Restarted ******\r\n");
}

TEST_F(EventLog, HoldsTheTimerOffAndResumesItAsAllowed) {
    for (bool allowed : {true, false}) {
        s.frmRelay.CheckTimeAllowed = ToFlag(allowed);
        ts.timer.enabled = !allowed;
        const int changes = ts.timer.changes;
        WriteEventLog(s, "Save", "x");
        EXPECT_EQ(ts.timer.enabled, allowed);
        EXPECT_EQ(ts.timer.changes, changes + 2);
    }
}

TEST_F(EventLog, LoggingOffLeavesNoTraceAndTheTimerAlone) {
    for (Flag off : {False, Flag(1)}) {
        s.modRelay.LoggingOnOff = off;
        const int changes = ts.timer.changes;
        WriteEventLog(s, "ReStart", "****** System Crashed & Restarted ******");
        EXPECT_EQ(ts.timer.changes, changes);
    }
    EXPECT_FALSE(dir.Exists("Vantrellion_2026_11_14.Log"));
}

TEST_F(EventLog, AFileErrorLosesTheLineAndTheTimerStillComesBack) {
    s.frmRelay.CheckTimeAllowed = True;
    ASSERT_EQ(::symlink("/dev/full", dir.File("Vantrellion_2026_11_14.Log").c_str()), 0);
    WriteEventLog(s, "Open", "full");
    s.modRelay.LogFilePath = dir.Path() + "missing/";
    WriteEventLog(s, "Open", "missing");
    // A pipe that nobody reads must not hold the program up.
    ASSERT_EQ(::mkdir(dir.File("p").c_str(), 0700), 0);
    ASSERT_EQ(::mkfifo(dir.File("p/Vantrellion_2026_11_14.Log").c_str(), 0600), 0);
    s.modRelay.LogFilePath = dir.File("p/");
    WriteEventLog(s, "Open", "pipe");
    EXPECT_TRUE(ts.timer.enabled);
    EXPECT_TRUE(ts.messages.shown.empty());
}

}  // namespace
}  // namespace vantrellion

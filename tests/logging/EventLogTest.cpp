#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/InputStates.h"
#include "logging/EventLog.h"
#include "logging/StateLog.h"
#include "logging/TimeLimitedBoxes.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

constexpr const char* kToday = "Vantrellion_2026_11_14.Log";

class EventLog : public ::testing::Test {
  protected:
    EventLog() {
        s.modRelay.LoggingOnOff = True;
        s.modRelay.LogFilePath = dir.Path();
        ts.clock.now = DateTime{2026, 11, 14, 9, 15, 2, 7};
    }

    test::TempDir dir;
    test::TestSystem ts;
    System& s = ts.s;
};

// A box shown while the timer is off holds the schedule: it is limited to two minutes, then
// takes the answer that keeps everything (Cancel where there is one) and names itself in the
// log. A box while the schedule runs is not limited.
TEST_F(EventLog, ABoxThatHoldsTheScheduleAnswersByItselfAndSaysSo) {
    struct NoOneThere : MessageBoxes {
        MessageBoxRequest seen;
        Answer Show(const MessageBoxRequest& r) override {
            seen = r;
            return r.TimeoutSeconds > 0 ? r.TimeoutAnswer : Answer::Yes;
        }
        bool LastTimedOut() const override { return seen.TimeoutSeconds > 0; }
    } nobody;
    TimeLimitedBoxes boxes(s, nobody);
    const MessageBoxRequest save{"Save File?", Buttons::YesNoCancel, Icon::None, 2, "Save?"};

    ts.timer.enabled = true;
    EXPECT_EQ(boxes.Show(save), Answer::Yes);
    EXPECT_EQ(nobody.seen.TimeoutSeconds, 0);

    ts.timer.enabled = false;
    EXPECT_EQ(boxes.Show(save), Answer::Cancel);
    EXPECT_EQ(nobody.seen.TimeoutSeconds, 120);
    EXPECT_EQ(boxes.Show({"Port gone\r\nsecond line", Buttons::OK}), Answer::OK);
    MessageBoxRequest second{"Another copy runs", Buttons::OKCancel};
    second.ButtonTexts = {"Show the running one", "Quit"};
    boxes.Show(second);
    EXPECT_EQ(dir.Read(kToday),
              "09:15:02 11/14/2026 Box \"Save?: Save File?\" answered \"Cancel\" after 2 "
              "minutes\r\n"
              "09:15:02 11/14/2026 Box \"Vantrellion: Port gone ...\" answered \"OK\" after 2 "
              "minutes\r\n"
              "09:15:02 11/14/2026 Box \"Vantrellion: Another copy runs\" answered \"Quit\" after "
              "2 minutes\r\n");
}

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
    EXPECT_EQ(dir.Read(kToday),
              "09:15:02 11/14/2026 Open c:\\farm\\greenhouse.run\r\n"
              "09:16:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n"
              "09:17:00 <1 - - - - - - ->R><I<- - - - - - - ->I \r\n"
              "09:17:41 11/14/2026 Save c:\\farm\\greenhouse.run\r\n"
              "09:18:00 <1 - - - - - - ->R><I<- 2 - - - - - ->I \r\n");
}

// The timer is held off around the write and resumed as allowed, also when the line is lost:
// a full disk, or a pipe that nobody reads, which must not hold the program up. A missing
// directory is made. Nothing is shown.
TEST_F(EventLog, HoldsTheTimerOffAndLosesALineThatCannotBeWritten) {
    ASSERT_EQ(::mkdir(dir.File("full").c_str(), 0700), 0);
    ASSERT_EQ(::symlink("/dev/full", dir.File(std::string("full/") + kToday).c_str()), 0);
    ASSERT_EQ(::mkdir(dir.File("pipe").c_str(), 0700), 0);
    ASSERT_EQ(::mkfifo(dir.File(std::string("pipe/") + kToday).c_str(), 0600), 0);
    for (const char* sub : {"", "full/", "missing/", "pipe/"}) {
        for (bool allowed : {true, false}) {
            s.modRelay.LogFilePath = dir.Path() + sub;
            s.frmRelay.CheckTimeAllowed = ToFlag(allowed);
            ts.timer.enabled = !allowed;
            const int changes = ts.timer.changes;
            WriteEventLog(s, "Save", sub);
            EXPECT_EQ(ts.timer.enabled, allowed) << sub;
            EXPECT_EQ(ts.timer.changes, changes + 2) << sub;
        }
    }
    EXPECT_TRUE(ts.messages.shown.empty());
    EXPECT_EQ(dir.Read(kToday), "09:15:02 11/14/2026 Save \r\n09:15:02 11/14/2026 Save \r\n");
    EXPECT_EQ(dir.Read(std::string("missing/") + kToday),
              "09:15:02 11/14/2026 Save missing/\r\n09:15:02 11/14/2026 Save missing/\r\n");
}

// The day's log stays Latin-1 while every character fits; a line that Latin-1 cannot hold
// turns the whole file to UTF-8, so that it reads in one encoding. Nothing is replaced.
TEST_F(EventLog, TheLogIsLatin1UntilALineNeedsUtf8) {
    const std::string cafe = "/home/ann/Caf\xC3\xA9/a.run";                    // fits Latin-1
    const std::string pump = "/home/ann/\xD0\x9D\xD0\xB0 \xE2\x82\xAC/b.run";  // does not
    WriteEventLog(s, "Open", cafe);
    EXPECT_EQ(dir.Read(kToday), "09:15:02 11/14/2026 Open /home/ann/Caf\xE9/a.run\r\n");
    WriteEventLog(s, "Save", pump);
    WriteEventLog(s, "Save", cafe);
    EXPECT_EQ(dir.Read(kToday), "09:15:02 11/14/2026 Open " + cafe + "\r\n" +
                                    "09:15:02 11/14/2026 Save " + pump + "\r\n" +
                                    "09:15:02 11/14/2026 Save " + cafe + "\r\n");
    // A new day's file that starts with such a line is UTF-8 from the start.
    ts.clock.now.Day = 15;
    WriteEventLog(s, "Save", pump);
    WriteEventLog(s, "Open", cafe);
    EXPECT_EQ(
        dir.Read("Vantrellion_2026_11_15.Log"),
        "09:15:02 11/15/2026 Save " + pump + "\r\n" + "09:15:02 11/15/2026 Open " + cafe + "\r\n");
}

}  // namespace
}  // namespace vantrellion

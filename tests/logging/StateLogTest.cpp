#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/InputStates.h"
#include "logging/StateLog.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

class StateLog : public ::testing::Test {
  protected:
    StateLog() {
        s.modRelay.LoggingOnOff = True;
        s.modRelay.LogFilePath = dir.Path();
    }
    // A tick's step 12 with the given port bytes.
    void Tick(uint8_t relays, uint8_t inputs) {
        WriteStateLog(s, FormatPortBits({relays}), FormatPortBits({inputs}));
    }
    std::string Log() { return dir.Read("Vantrellion_2026_11_16.Log"); }
    // The time of each line of the log; every line must end with CR LF.
    std::vector<std::string> Times() {
        const std::string log = Log();
        std::vector<std::string> times;
        size_t start = 0;
        for (size_t end; (end = log.find("\r\n", start)) != std::string::npos; start = end + 2)
            times.push_back(log.substr(start, 8));
        EXPECT_EQ(start, log.size()) << "a line without its CR LF";
        return times;
    }

    test::TempDir dir;
    test::TestSystem ts;
    System& s = ts.s;
};

TEST_F(StateLog, WritesTheExampleLinesByteForByte) {
    ts.clock.SetTime(14, 7, 0);
    Tick(0x85, 0x02);
    ts.clock.SetTime(14, 8, 0);
    Tick(0x05, 0x00);
    EXPECT_EQ(Log(),
              "14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I \r\n"
              "14:08:00 <1 - 3 - - - - ->R><I<- - - - - - - ->I \r\n");
}

TEST_F(StateLog, BoardsTakePartByLogBoardAndInputAddress) {
    struct {
        Flag logBoard;
        int16_t inputAddress;
        const char* line;
    } cases[] = {
        {True, 0x301, "14:07:00 <1 - - - - - - ->R><I<- 2 - - - - - ->I "},
        {1, 0x301, "14:07:00 <1 - - - - - - ->R><I<- 2 - - - - - ->I "},  // non-zero is on
        {True, 0, "14:07:00 <1 - - - - - - ->R><II "},
        {False, 0x301, "14:07:00 R><II "},
    };
    ts.clock.SetTime(14, 7, 0);
    for (const auto& c : cases) {
        s.modRelay.Board[0].LogBoard = c.logBoard;
        s.modRelay.Board[0].InputAddress = c.inputAddress;
        EXPECT_EQ(StateLogLine(s, ts.clock.now, FormatPortBits({0x01}), FormatPortBits({0x02})),
                  c.line);
    }
}

TEST_F(StateLog, OneLinePerMinuteAcrossAnHourAndOnlyTheMinuteNumberCounts) {
    // A tick about every second from 10:00:30 to 11:00:29; the program starts in minute 0, so
    // the first line waits for minute 1, and 11:00 is a new minute again after 10:59.
    ts.clock.SetTime(10, 0, 30);
    for (int t = 0; t < 3600; ++t) {
        Tick(static_cast<uint8_t>(t / 60), 0);
        ts.clock.Advance(1);
    }
    // An hour without ticks then looks like the same minute.
    ts.clock.SetTime(12, 0, 10);
    Tick(0, 0);
    ts.clock.SetTime(12, 1, 1);
    Tick(0, 0);
    std::vector<std::string> want;
    for (int m = 1; m <= 60; ++m)
        want.push_back(TimeText(10 * 3600 + m * 60));
    want.push_back("12:01:01");
    EXPECT_EQ(Times(), want);
    EXPECT_EQ(s.frmRelay.LastLogMinute, 1);
}

TEST_F(StateLog, LoggingOffWritesNothingAndKeepsTheMinute) {
    ts.clock.SetTime(14, 7, 0);
    for (Flag off : {False, Flag(1), Flag(2)}) {
        s.modRelay.LoggingOnOff = off;
        Tick(0xFF, 0xFF);
        EXPECT_EQ(s.frmRelay.LastLogMinute, 0);
    }
    EXPECT_FALSE(dir.Exists("Vantrellion_2026_11_16.Log"));

    // Off and on again within one minute gives no second line in that minute.
    s.modRelay.LoggingOnOff = True;
    Tick(0, 0);
    s.modRelay.LoggingOnOff = False;
    ts.clock.SetTime(14, 7, 30);
    Tick(0, 0);
    s.modRelay.LoggingOnOff = True;
    Tick(0, 0);
    EXPECT_EQ(Times().size(), 1u);
}

TEST_F(StateLog, ALineThatCannotBeWrittenIsLostAndNothingElse) {
    ts.clock.SetTime(14, 7, 0);
    const int timerChanges = ts.timer.changes;

    // A missing directory.
    s.modRelay.LogFilePath = dir.Path() + "gone/";
    Tick(1, 1);
    EXPECT_EQ(s.frmRelay.LastLogMinute, 7);  // not retried in the same minute

    // A full disk: today's log is the full device.
    s.modRelay.LogFilePath = dir.Path();
    ASSERT_EQ(::symlink("/dev/full", dir.File("Vantrellion_2026_11_16.Log").c_str()), 0);
    ts.clock.SetTime(14, 8, 0);
    Tick(1, 1);
    EXPECT_EQ(s.frmRelay.LastLogMinute, 8);

    EXPECT_TRUE(ts.messages.shown.empty());
    EXPECT_EQ(ts.timer.changes, timerChanges);
}

TEST_F(StateLog, TheDayRollsOverToANewFile) {
    ts.clock.SetTime(23, 59, 0);
    Tick(0, 0);
    ts.clock.now = DateTime{2026, 11, 17, 0, 0, 0, 3};
    Tick(0, 0);
    EXPECT_EQ(Log(), "23:59:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n");
    EXPECT_EQ(dir.Read("Vantrellion_2026_11_17.Log"),
              "00:00:00 <- - - - - - - ->R><I<- - - - - - - ->I \r\n");
    EXPECT_EQ(s.modRelay.LogFileName, "Vantrellion_2026_11_17.Log");
}

}  // namespace
}  // namespace vantrellion

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/InputStates.h"
#include "logging/StateLog.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

// The lines of a log, each of which must end with CR LF.
std::vector<std::string> SplitCrLf(const std::string& log) {
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = log.find("\r\n", start)) != std::string::npos; start = end + 2) {
        lines.push_back(log.substr(start, end - start));
    }
    EXPECT_EQ(start, log.size()) << "a line without its CR LF";
    return lines;
}

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
        {False, 0, "14:07:00 R><II "},
    };
    ts.clock.SetTime(14, 7, 0);
    for (const auto& c : cases) {
        s.modRelay.Board[0].LogBoard = c.logBoard;
        s.modRelay.Board[0].InputAddress = c.inputAddress;
        EXPECT_EQ(StateLogLine(s, ts.clock.now, FormatPortBits({0x01}), FormatPortBits({0x02})),
                  c.line);
    }
}

TEST_F(StateLog, OneLinePerMinuteAcrossAnHour) {
    // A tick about every second from 10:00:30 to 11:00:29; the program starts in minute 0, so
    // the first line waits for minute 1, and 11:00 is a new minute again after 10:59.
    ts.clock.SetTime(10, 0, 30);
    for (int t = 0; t < 3600; ++t) {
        Tick(static_cast<uint8_t>(t / 60), 0);
        ts.clock.Advance(1);
    }
    const auto lines = SplitCrLf(Log());
    ASSERT_EQ(lines.size(), 60u);
    EXPECT_EQ(lines.front().substr(0, 9), "10:01:00 ");
    EXPECT_EQ(lines[58].substr(0, 9), "10:59:00 ");
    EXPECT_EQ(lines.back().substr(0, 9), "11:00:00 ");
    for (const auto& l : lines)
        EXPECT_EQ(l.substr(5, 4), ":00 ") << l;
    EXPECT_EQ(s.frmRelay.LastLogMinute, 0);
}

TEST_F(StateLog, OnlyTheMinuteNumberCounts) {
    // An hour without ticks looks like the same minute.
    ts.clock.SetTime(14, 7, 0);
    Tick(0, 0);
    ts.clock.SetTime(15, 7, 10);
    Tick(0, 0);
    ts.clock.SetTime(15, 8, 1);
    Tick(0, 0);
    const auto lines = SplitCrLf(Log());
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].substr(0, 8), "15:08:01");
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
    EXPECT_EQ(SplitCrLf(Log()).size(), 1u);
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

    // A read-only directory and file only hold for an unprivileged account; a log path that
    // runs through a plain file holds for everyone.
    dir.Write("plain", "");
    s.modRelay.LogFilePath = dir.Path() + "plain/";
    ts.clock.SetTime(14, 9, 0);
    Tick(1, 1);

    EXPECT_TRUE(ts.messages.shown.empty());
    EXPECT_EQ(ts.timer.changes, timerChanges);
    EXPECT_EQ(dir.Read("plain"), "");
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

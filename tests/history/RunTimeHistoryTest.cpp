#include <gtest/gtest.h>
#include <sys/stat.h>

#include "history/RunTimeHistory.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

// Relay 1 on from 08:00 to 15:00, relay 8 all day, input 2 from 12:00 to 12:30.
Bytes Pattern(int t) {
    Bytes b;
    if (t >= At(8, 0) && t < At(15, 0)) b.relays |= 0x01;
    b.relays |= 0x80;
    if (t >= At(12, 0) && t < At(12, 30)) b.inputs |= 0x02;
    return b;
}

std::string FullDay() {
    return StateLines(0, 86400, Pattern);
}

class RunTimeHistoryTest : public ::testing::Test {
  protected:
    TempDir dir;
    const LocalSeconds d1 = Day(2026, 11, 14), d2 = d1 + 86400, d3 = d2 + 86400;
};

TEST_F(RunTimeHistoryTest, FullDaysGiveTheirOnTimesIntervalsAndNoGaps) {
    WriteDay(dir, d1, FullDay());
    WriteDay(dir, d2, FullDay());
    const RunTimeHistory h = ReadDays(dir, d1, d2);
    ASSERT_EQ(h.Days.size(), 2u);
    EXPECT_EQ(h.Relays, 8);
    EXPECT_EQ(h.Inputs, 8);
    for (const HistoryDay& d : h.Days) {
        EXPECT_TRUE(d.FileFound);
        EXPECT_EQ(d.RelayOnSeconds[0], 7 * 3600);
        EXPECT_EQ(d.RelayOnSeconds[7], 86400);
        EXPECT_EQ(d.RelayOnSeconds[1], 0);
        EXPECT_EQ(d.InputOnSeconds[1], 1800);
        EXPECT_EQ(d.KnownSeconds, 86400);
        EXPECT_EQ(d.GapSeconds, 0);
    }
    ASSERT_EQ(h.RelayOn[0].size(), 2u);
    EXPECT_EQ(h.RelayOn[0][0].From, d1 + At(8, 0));
    EXPECT_EQ(h.RelayOn[0][0].To, d1 + At(15, 0));
    // Relay 8 runs across midnight as one interval.
    ASSERT_EQ(h.RelayOn[7].size(), 1u);
    EXPECT_EQ(h.RelayOn[7][0].Length(), 2 * 86400);
    EXPECT_TRUE(h.Gaps.empty());
    EXPECT_EQ(h.Counts.StateLines, 2 * 1440);
}

TEST_F(RunTimeHistoryTest, ForeignDamagedAndListingLinesAreCountedAndChangeNoTotal) {
    // Latin-1 text and CR LF, lines of other writers, the port listing, a cut line and a line
    // joined to the next, among the state lines of a full day.
    std::string day = FullDay();
    auto insertAfter = [&](const std::string& line, const std::string& extra) {
        const size_t at = day.find(line) + line.size() + 2;
        day.insert(at, extra);
    };
    insertAfter(StateLine(At(9, 0), 0x81, 0),
                "09:00:17 11/14/2026 Open /home/gr\xFCn/Gew\xE4"
                "chshaus.run\r\n"
                "a note typed by hand\r\n"
                "-------Begin H200-H279----------------------------\r\n"
                "Decimal: 512 Hex: 200 :1 - 3 - - - - -\r\n"
                "\r\n");
    insertAfter(StateLine(At(10, 0), 0x81, 0), "10:00:30 <1 - - -");  // joined to the next
    insertAfter(StateLine(At(11, 0), 0x81, 0), std::string("\0\0\0\0\r\n", 6));
    insertAfter(StateLine(At(13, 0), 0x81, 0), "13:00:12 11/14/2026 Save /tmp/a b.run\n");

    WriteDay(dir, d1, day);
    const RunTimeHistory h = ReadDays(dir, d1, d1);
    const HistoryDay& d = h.Days[0];
    EXPECT_EQ(d.RelayOnSeconds[0], 7 * 3600);
    EXPECT_EQ(d.InputOnSeconds[1], 1800);
    EXPECT_EQ(d.GapSeconds, 0);
    // The joined line took the 10:01:00 line with it: 10:00:00 holds until 10:02:00.
    EXPECT_EQ(h.Counts.StateLines, 1439);
    EXPECT_EQ(h.Counts.DamagedLines, 2);
    EXPECT_EQ(h.Counts.ForeignLines, 1);
    EXPECT_EQ(h.Counts.ListingLines, 2);
    ASSERT_EQ(h.Events.size(), 2u);
    EXPECT_EQ(h.Events[0].At, d1 + At(9, 0, 17));
    EXPECT_EQ(h.Events[0].First, "Open");
    EXPECT_EQ(h.Events[0].Second,
              "/home/gr\xFCn/Gew\xE4"
              "chshaus.run");
    EXPECT_EQ(h.Events[1].Second, "/tmp/a b.run");
}

TEST_F(RunTimeHistoryTest, AMissingDayAndACrashAreGapsAndTheOtherTotalsStand) {
    WriteDay(dir, d1, FullDay());
    // Day 2 has no file. Day 3: a crash after the 10:00 line, the restart at 10:30:12 writes
    // its event line, the state lines go on from 10:31.
    WriteDay(dir, d3,
             StateLines(0, At(10, 1), Pattern) + "10:30:12 11/16/2026 ReStart ****** System " +
                 "Crashed & Restarted ******\r\n" + StateLines(At(10, 31), 86400, Pattern));
    const RunTimeHistory h = ReadDays(dir, d1, d3);
    ASSERT_EQ(h.Days.size(), 3u);
    EXPECT_EQ(h.Days[0].RelayOnSeconds[0], 7 * 3600);
    EXPECT_EQ(h.Days[0].GapSeconds, 0);

    EXPECT_FALSE(h.Days[1].FileFound);
    EXPECT_EQ(h.Days[1].GapSeconds, 86400);
    EXPECT_EQ(h.Days[1].RelayOnSeconds[7], 0);

    const HistoryDay& crash = h.Days[2];
    EXPECT_EQ(crash.Restarts, 1);
    EXPECT_EQ(crash.GapSeconds, 30 * 60);  // the 10:00 line holds one minute
    EXPECT_EQ(crash.RelayOnSeconds[0], 7 * 3600 - 30 * 60);
    EXPECT_EQ(crash.RelayOnSeconds[7], 86400 - 30 * 60);
    EXPECT_EQ(h.Counts.FilesRead, 2);
    EXPECT_EQ(h.Counts.FilesMissing, 1);

    ASSERT_EQ(h.Gaps.size(), 2u);
    EXPECT_EQ(h.Gaps[0].From, d2);  // the 23:59 line of day 1 held until midnight
    EXPECT_EQ(h.Gaps[0].To, d3);
    EXPECT_EQ(h.Gaps[1].From, d3 + At(10, 1));
    EXPECT_EQ(h.Gaps[1].To, d3 + At(10, 31));
}

TEST_F(RunTimeHistoryTest, APauseIsMarkedFromItsLinesAcrossMidnightAndNotAsAGap) {
    // Relay 2 paused the day before the range until 03:00 of day 2, ended by itself; relay 3
    // paused at 10:00 of day 2 until day 3, ended early at 11:00. The program ran throughout.
    WriteDay(dir, d1,
             FullDay() +
                 "20:00:00 11/14/2026 Pause Relay 2 paused until 2026-11-15 03:00:00 "
                 "\"Fan\"\r\n");
    WriteDay(dir, d2,
             FullDay() +
                 "03:00:00 11/15/2026 Resume Relay 2 follows its schedule again \"Fan\"\r\n" +
                 "10:00:00 11/15/2026 Pause Relay 3 paused until 2026-11-16 10:00:00 \"\"\r\n" +
                 "11:00:00 11/15/2026 Resume Relay 3 pause ended early \"\"\r\n" +
                 "12:00:00 11/15/2026 Pause Relay 4 paused until 2026-11-15 14:00:00 \"x\"\r\n");
    const RunTimeHistory h = ReadDays(dir, d2, d2);
    EXPECT_TRUE(h.Gaps.empty());
    ASSERT_EQ(h.RelayPaused[1].size(), 1u);
    EXPECT_EQ(h.RelayPaused[1][0].From, d2);
    EXPECT_EQ(h.RelayPaused[1][0].To, d2 + At(3, 0));
    ASSERT_EQ(h.RelayPaused[2].size(), 1u);
    EXPECT_EQ(h.RelayPaused[2][0].Length(), 3600);
    ASSERT_EQ(h.RelayPaused[3].size(), 1u);  // no end line: until the time its start names
    EXPECT_EQ(h.RelayPaused[3][0].To, d2 + At(14, 0));
}

}  // namespace
}  // namespace vantrellion::test

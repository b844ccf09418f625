// Two days of the engine on a fake clock, logged by the real log writer into a temporary
// directory, read back: the history holds what the output port held at each minute's line,
// and what the schedule preview said the relays would do.
#include <gtest/gtest.h>

#include "engine/Tick.h"
#include "preview/SchedulePreview.h"
#include "support/Fakes.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

TEST(HistoryRoundTrip, TwoDaysOfTheEngineReadBackAsTheyRan) {
    TempDir dir;
    TestSystem t;
    t.mod().LoggingOnOff = True;
    t.mod().LogFilePath = dir.Path();
    t.frm().CheckTimeAllowed = True;
    // Relay 1 every day 08:00-15:00; relay 2 on Mondays only, 10:00-11:00; relay 4 in
    // five-minute cycles 08:00-09:00; relay 6 on half of 18:00-20:00.
    t.relay(0).DayHrEvenOdd = "EO";
    t.SetPair(0, 0, "08:00", "15:00");
    t.relay(1).DayHrEvenOdd = "EO";
    t.relay(1).DaysOfWeek = "2";
    t.SetPair(1, 0, "10:00", "11:00");
    t.relay(3).DayHrEvenOdd = "5";
    t.SetPair(3, 0, "08:00", "09:00");
    t.relay(5).DayHrEvenOdd = "EH";
    t.SetPair(5, 0, "18:00", "20:00");

    // What the preview expects of the same two days, asked before they run.
    const LocalSeconds first = Day(2026, 11, 16);
    PreviewRequest ask;
    ask.From = first;
    ask.Length = 2 * 86400;
    ask.StartTick = t.clock.tick + 1000;
    const Timeline preview = PreviewTimeline(RunPreview(TakeSnapshot(t.s), ask));

    // Monday 16 and Tuesday 17 November 2026, one tick a second. Input 3 is on from 12:00 to
    // 12:20 on the second day. What the ports hold right after each minute's first tick is
    // what that minute's state line says.
    std::array<std::array<LocalSeconds, 8>, 2> relayOn{}, inputOn{};
    LocalSeconds logged = 0;
    for (LocalSeconds now = first; now < first + 2 * 86400; ++now) {
        t.clock.now = FromLocalSeconds(now);
        t.clock.tick += 1000;
        const int day = static_cast<int>((now - first) / 86400);
        const int sec = static_cast<int>(now - first) % 86400;
        t.ports.bytes[0x301] = day == 1 && sec >= At(12, 0) && sec < At(12, 20) ? 0x04 : 0;
        CheckTimeTick(t.s);
        // The program starts in minute 0 and writes its first line in minute 1.
        if (sec % 60 != 0 || now - first < 60) continue;
        logged += 60;
        for (int r = 0; r < 8; ++r) {
            if (t.ports.bytes[0x300] & (1 << r)) relayOn[day][r] += 60;
            if (t.ports.bytes[0x301] & (1 << r)) inputOn[day][r] += 60;
        }
    }

    const RunTimeHistory h =
        ReadRunTimeHistory({dir.Path(), first, first + 86400, first + 2 * 86400});
    ASSERT_EQ(h.Days.size(), 2u);
    EXPECT_EQ(h.Counts.StateLines, 2 * 1440 - 1);
    EXPECT_EQ(h.Counts.DamagedLines + h.Counts.ForeignLines, 0);
    for (int day = 0; day < 2; ++day) {
        for (int r = 0; r < 8; ++r) {
            EXPECT_EQ(h.Days[day].RelayOnSeconds[r], relayOn[day][r]) << day << " " << r;
            EXPECT_EQ(h.Days[day].InputOnSeconds[r], inputOn[day][r]) << day << " " << r;
        }
    }
    EXPECT_EQ(h.Days[0].KnownSeconds + h.Days[1].KnownSeconds, logged);
    ASSERT_EQ(h.Gaps.size(), 1u);  // the first minute
    EXPECT_EQ(h.Gaps[0].Length(), 60);

    // The preview's relays, sampled at the same minute lines, give the same hours.
    ASSERT_GE(preview.Lanes.size(), 8u);
    for (int r = 0; r < 8; ++r) {
        std::array<LocalSeconds, 2> sampled{};
        for (LocalSeconds m = first + 60; m < first + 2 * 86400; m += 60) {
            for (const TimeSpan& on : preview.Lanes[r].On)
                if (on.From <= m && m < on.To) sampled[(m - first) / 86400] += 60;
        }
        EXPECT_EQ(h.Days[0].RelayOnSeconds[r], sampled[0]) << "relay " << r + 1;
        EXPECT_EQ(h.Days[1].RelayOnSeconds[r], sampled[1]) << "relay " << r + 1;
    }

    // The schedule as the grower reads it, at the resolution of the log's minutes.
    EXPECT_EQ(h.Days[0].RelayOnSeconds[0], 7 * 3600 - 60);  // on from 08:00:01
    EXPECT_EQ(h.Days[0].RelayOnSeconds[1], 3600 - 60);
    EXPECT_EQ(h.Days[1].RelayOnSeconds[1], 0);
    EXPECT_EQ(h.Days[1].InputOnSeconds[2], 20 * 60);
    EXPECT_GT(h.Days[0].RelayOnSeconds[5], 0);
    ASSERT_FALSE(h.RelayOn[0].empty());
    EXPECT_EQ(h.RelayOn[0][0].From, first + At(8, 1));
    EXPECT_EQ(h.RelayOn[0][0].To, first + At(15, 0));
}

}  // namespace
}  // namespace vantrellion::test

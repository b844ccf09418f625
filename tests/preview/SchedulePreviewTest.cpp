// The preview against the live engine: the same schedule driven through the real tick, second
// by second with a fake clock, must switch its relays at exactly the seconds the preview
// reports. Then the warnings, the per-day on-times and the golden CSV of one documented
// schedule.
#include <gtest/gtest.h>

#include <optional>

#include "core/FatalError.h"
#include "engine/Tick.h"
#include "preview/OnTimeStops.h"
#include "preview/PreviewReport.h"
#include "preview/SchedulePreview.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

struct RelaySetup {
    RelaySetup(std::string d, std::string c, std::vector<std::pair<std::string, std::string>> p,
               Flag m = 0, Flag inv = 0, Flag st = 0, std::string n = "")
        : days(std::move(d)),
          code(std::move(c)),
          pairs(std::move(p)),
          manual(m),
          invert(inv),
          stop(st),
          name(std::move(n)) {}
    std::string days, code;
    std::vector<std::pair<std::string, std::string>> pairs;
    Flag manual, invert, stop;
    std::string name;
};

void Apply(TestSystem& t, const std::vector<RelaySetup>& relays) {
    for (size_t i = 0; i < relays.size(); ++i) {
        const RelaySetup& r = relays[i];
        RelayRecord& rec = t.relay(static_cast<int>(i));
        rec.DaysOfWeek = r.days;
        rec.DayHrEvenOdd = r.code;
        rec.Manual = r.manual;
        rec.Invert = r.invert;
        rec.HardStop = r.stop;
        if (!r.name.empty()) rec.DisplayName = r.name;
        for (size_t p = 0; p < r.pairs.size(); ++p)
            t.SetPair(static_cast<int>(i), static_cast<int>(p), r.pairs[p].first,
                      r.pairs[p].second);
    }
}

struct LiveRun {
    std::vector<std::vector<RelaySwitch>> switches{8};
    std::optional<LocalSeconds> endedAt;
};

// The real tick, once a second from `from`, the tick count advancing with the clock.
LiveRun RunLive(TestSystem& t, LocalSeconds from, LocalSeconds length, int32_t startTick) {
    LiveRun run;
    std::array<int, 8> last{};
    last.fill(-1);
    for (LocalSeconds s = from; s < from + length; ++s) {
        t.clock.now = FromLocalSeconds(s);
        t.clock.tick = TickCountAt(s, from, startTick);
        try {
            CheckTimeTick(t.s);
        } catch (const FatalError&) {
            run.endedAt = s;
            break;
        }
        for (int i = 0; i < 8; ++i) {
            const int on = t.relay(i).OldState == 1;
            if (on != last[i]) run.switches[i].push_back({s, on == 1});
            last[i] = on;
        }
    }
    return run;
}

constexpr LocalSeconds Day = 86400;
// Friday 27 November 2026, midnight: the spans below run over a weekend and a month end
// (Monday 30 November).
const LocalSeconds Friday = ToLocalSeconds({2026, 11, 27, 0, 0, 0, 6});

struct Agreement {
    const char* what;
    std::vector<RelaySetup> relays;
    LocalSeconds from, length;
    int32_t startTick = 1000;
};

TEST(SchedulePreview, SwitchesExactlyWhenTheLiveTickDoes) {
    const std::vector<Agreement> cases = {
        {"weekdays, odd/even day, hour, minute, second",
         {
             {"246", "EO", {{"08:00", "15:00"}}},
             {"All Days", "OD", {{"09:30", "14:00"}, {"15:00", "19:00"}}},
             {"All Days", "EH", {{"09:30", "13:00"}, {"15:00", "19:00"}}},
             {"All Days", "OM", {{"09:30", "10:30"}}},
             {"1234567", "ES", {{"11:59:50", "12:00:20"}}},
             {"All Days", "ED", {{"23:00", "23:59:59"}, {"0:00", "1:00"}}},
             {"Days", "EO", {{"08:00", "09:00"}}},
             {"17", "OH", {{"8:00 pm", "11:30 pm"}}},
         },
         Friday,
         4 * Day},
        {"top, middle and bottom of the hour, 3H, weekend codes",
         {
             {"All Days", "TH", {{"09:10", "18:05"}, {"20:00", "20:30"}}},
             {"All Days", "MH", {{"09:15", "18:25"}}},
             {"All Days", "BH", {{"22:50", "23:59:59"}}},
             {"All Days",
              "3H",
              {{"01:10", "03:00"}, {"04:15", "06:40"}, {"07:45", "09:00"}, {"10:00", "10:05"}}},
             {"All Days", "SS", {{"08:00", "12:00"}, {"13:00", "14:00"}}},
             {"All Days", "XS", {{"08:00", "12:00"}}},
             {"All Days", "SX", {{"08:00", "12:00"}}},
             {"All Days", "MH", {{"09:40", "18:10"}}},
         },
         Friday,
         3 * Day},
        {"cycles, manual, invert, stop",
         {
             {"All Days", "5", {{"08:00", "09:00"}}},
             {"All Days", "0", {{"10:00", "10:01"}}},
             {"All Days", "2", {{"23:50", "23:59:59"}, {"00:00:30", "00:10"}}},
             {"All Days", "EO", {{"08:00", "09:00"}}, True},
             {"3", "EO", {{"12:00", "13:00"}}, 0, True},
             {"All Days", "EO", {{"08:00", "09:00"}}, True, True},
             {"All Days", "EO", {{"08:00", "09:00"}}, 0, 0, True},
             {"All Days", "EO", {{"08:00", "09:00"}}, 0, True, True},
         },
         Friday + 7 * 3600,
         2 * Day},
        {"a cycle past 2^31 ms of uptime",
         {{"All Days", "1", {{"00:00", "23:59"}}}},
         Friday,
         Day,
         INT32_MAX - 3'600'000},
    };
    for (const Agreement& c : cases) {
        TestSystem live;
        Apply(live, c.relays);
        const ScheduleSnapshot snapshot = TakeSnapshot(live.s);
        const PreviewResult preview = RunPreview(snapshot, {c.from, c.length, c.startTick});
        const LiveRun expected = RunLive(live, c.from, c.length, c.startTick);
        size_t changes = 0;
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(preview.Relays[i].Switches, expected.switches[i])
                << c.what << ", relay " << i + 1;
            changes += expected.switches[i].size();
        }
        EXPECT_GT(changes, c.relays.size() + 2) << c.what;  // the schedules do switch
        EXPECT_EQ(preview.Ended, expected.endedAt.has_value()) << c.what;
        if (expected.endedAt) {
            EXPECT_EQ(preview.EndedAt, *expected.endedAt) << c.what;
            EXPECT_LT(*expected.endedAt, c.from + Day);
        }
    }
}

// A cycling relay started 20 days after boot cycles on every day of 60: the count of its
// half-cycles never overflows nor stops.
TEST(SchedulePreview, ACycleRunsOnEveryDayOfSixtyWhateverTheUptime) {
    TestSystem t;
    Apply(t, {{"All Days", "2", {{"07:00", "09:00"}}}});
    const PreviewResult r =
        RunPreview(TakeSnapshot(t.s), {Friday, 60 * Day, int64_t{20} * Day * 1000});
    ASSERT_EQ(r.Relays[0].OnSecondsPerDay.size(), 60u);
    for (int64_t seconds : r.Relays[0].OnSecondsPerDay)
        EXPECT_GT(seconds, 3000);
    EXPECT_FALSE(r.Ended);
}

TEST(SchedulePreview, WarnsOfPairsNeverOnDaysNeverMatchedOverlapsAndTheEnd) {
    TestSystem t;
    Apply(t, {
                 {"All Days", "EO", {{"08:00", "10:00"}, {"09:00", "11:00"}, {"11:00", "12:00"}}},
                 {"all days", "EO", {{"08:00", "09:00"}}},
                 {"All Days", "TH", {{"09:00", "18:00"}}},
                 {"All Days", "EO", {{"10:00", "09:00"}}, True},  // manual: pairs not consulted
                 {"All Days", "EO", {{"08:00", "8:0x"}}},
             });
    t.SetPair(4, 0, "08:00", "09:00");
    PreviewResult r = RunPreview(TakeSnapshot(t.s), {Friday, 2 * Day});
    std::vector<std::string> texts;
    for (const PreviewWarning& w : r.Warnings)
        texts.push_back(w.Text);
    const std::vector<std::string> expected = {
        "Relay 2 \"Relay 2\": its days of the week \"all days\" match no day from 2026-11-27 "
        "00:00:00 to 2026-11-29 00:00:00, so its time pairs are never checked",
        "Relay 3 \"Relay 3\": time pair 1 (09:00 to 18:00) never switches on from 2026-11-27 "
        "00:00:00 to 2026-11-29 00:00:00 (days \"All Days\", code \"TH\")",
        "Relay 1 \"Relay 1\": time pairs 1 (08:00 to 10:00) and 2 (09:00 to 11:00) overlap",
    };
    EXPECT_EQ(texts, expected);

    // A damaged time text ends the program at the first evaluation that reaches it.
    t.SetPair(4, 0, "08:00", "8:0x");
    r = RunPreview(TakeSnapshot(t.s), {Friday + 3600, Day});
    ASSERT_FALSE(r.Warnings.empty());
    EXPECT_EQ(r.Warnings.front().Kind, PreviewWarningKind::ProgramEnds);
    EXPECT_EQ(r.Warnings.front().Text,
              "At 2026-11-27 01:00:00 the evaluation ends the program: Type mismatch (error 13)");
    EXPECT_TRUE(r.Ended);
    const Timeline line = PreviewTimeline(r);
    ASSERT_EQ(line.Gaps.size(), 1u);
    EXPECT_EQ(line.Gaps[0].From, Friday + 3600);
    EXPECT_EQ(line.Gaps[0].To, Friday + 3600 + Day);
}

// A relay that was on and then gets no on-time from some day to the end is warned of; days
// that its schedule leaves off (weekdays, odd days, a cycle's off days, the part of a last
// day before its pair) are no such drop.
TEST(SchedulePreview, WarnsWhenARelaysOnTimeDropsToNothingFromSomeDayOn) {
    TestSystem t;
    Apply(t, {
                 {"All Days", "30", {{"08:00", "20:00"}}},
                 {"246", "EO", {{"08:00", "09:00"}}},
                 {"All Days", "OD", {{"18:00", "20:00"}}},
                 {"All Days", "1500", {{"08:00", "09:00"}}},
                 {"All Days", "EO", {{"12:00", "13:00"}}},
             });
    const ScheduleSnapshot snapshot = TakeSnapshot(t.s);
    const LocalSeconds monday10 = ToLocalSeconds({2026, 11, 23, 10, 0, 0, 2});
    PreviewResult r = RunPreview(snapshot, {monday10, 7 * Day});
    EXPECT_TRUE(r.Warnings.empty()) << r.Warnings.front().Text;

    // The cycle stops giving on-time from Friday on.
    std::fill(r.Relays[0].OnSecondsPerDay.begin() + 4, r.Relays[0].OnSecondsPerDay.end(), 0);
    AddOnTimeStopWarnings(snapshot, r);
    ASSERT_EQ(r.Warnings.size(), 1u);
    EXPECT_EQ(r.Warnings[0].Kind, PreviewWarningKind::OnTimeStops);
    EXPECT_EQ(r.Warnings[0].Text,
              "Relay 1 \"Relay 1\": its on-time drops to nothing from 2026-11-27 on: on last on "
              "2026-11-26, then never on again up to 2026-11-30 10:00:00 (days \"All Days\", "
              "code \"30\")");
    // Days after an end of the evaluation are not known, so they show no drop.
    r.Warnings.clear();
    r.Ended = true;
    r.EndedAt = r.DayStarts[4];
    AddOnTimeStopWarnings(snapshot, r);
    EXPECT_TRUE(r.Warnings.empty());
}

// The documented schedule of the README's CSV example: Monday 30 November and Tuesday
// 1 December 2026. Pump runs 08:00 to 09:30 and 23:00 to 23:59:59 every day; the porch lights
// 18:00 to 20:00 on odd days of the month only; the fan is inverted, scheduled on Mondays
// only, so it is on except 12:00 to 13:00 on Monday and all of Tuesday.
TEST(SchedulePreview, GoldenCsvAndOnTimesOverMidnightAndAMonthEnd) {
    TestSystem t;
    Apply(t, {
                 {"All Days", "EO", {{"08:00", "09:30"}, {"23:00", "23:59:59"}}, 0, 0, 0, "Pump"},
                 {"All Days", "OD", {{"18:00", "20:00"}}, 0, 0, 0, "Lights, porch"},
                 {"2", "EO", {{"12:00", "13:00"}}, 0, True, 0, "Fan"},
             });
    const LocalSeconds monday = ToLocalSeconds({2026, 11, 30, 0, 0, 0, 2});
    const PreviewResult r = RunPreview(TakeSnapshot(t.s), {monday, 2 * Day});
    EXPECT_EQ(PreviewCsv(r),
              "time,relay,name,state\r\n"
              "2026-11-30 00:00:00,R1,Pump,off\r\n"
              "2026-11-30 00:00:00,R2,\"Lights, porch\",off\r\n"
              "2026-11-30 00:00:00,R3,Fan,on\r\n"
              "2026-11-30 00:00:00,R4,Relay 4,off\r\n"
              "2026-11-30 00:00:00,R5,Relay 5,off\r\n"
              "2026-11-30 00:00:00,R6,Relay 6,off\r\n"
              "2026-11-30 00:00:00,R7,Relay 7,off\r\n"
              "2026-11-30 00:00:00,R8,Relay 8,off\r\n"
              "2026-11-30 08:00:01,R1,Pump,on\r\n"
              "2026-11-30 09:30:00,R1,Pump,off\r\n"
              "2026-11-30 12:00:01,R3,Fan,off\r\n"
              "2026-11-30 13:00:00,R3,Fan,on\r\n"
              "2026-11-30 23:00:01,R1,Pump,on\r\n"
              "2026-11-30 23:59:59,R1,Pump,off\r\n"
              "2026-12-01 08:00:01,R1,Pump,on\r\n"
              "2026-12-01 09:30:00,R1,Pump,off\r\n"
              "2026-12-01 18:00:01,R2,\"Lights, porch\",on\r\n"
              "2026-12-01 20:00:00,R2,\"Lights, porch\",off\r\n"
              "2026-12-01 23:00:01,R1,Pump,on\r\n"
              "2026-12-01 23:59:59,R1,Pump,off\r\n");
    ASSERT_EQ(r.DayStarts, (std::vector<LocalSeconds>{monday, monday + Day}));
    EXPECT_EQ(r.Relays[0].OnSecondsPerDay, (std::vector<int64_t>{5399 + 3598, 5399 + 3598}));
    EXPECT_EQ(r.Relays[1].OnSecondsPerDay, (std::vector<int64_t>{0, 7199}));
    EXPECT_EQ(r.Relays[2].OnSecondsPerDay, (std::vector<int64_t>{Day - 3599, Day}));
    EXPECT_TRUE(r.Warnings.empty());
    const std::string table = OnTimeTable(r);
    EXPECT_NE(table.find("2026-11-30   2:29:57   0:00:00  23:00:01"), std::string::npos) << table;
}

TEST(SchedulePreview, DaysOffAndAPauseGiveNoOnTimeAndAreMarked) {
    TestSystem t;
    const LocalSeconds monday = ToLocalSeconds(DateTime{2026, 6, 22, 0, 0, 0, 2});
    for (int i = 0; i < 3; ++i)
        t.SetPair(i, 0, "08:00", "09:00");
    t.frm().Holds.DaysOff.push_back({monday + Day, monday + Day, false, 0b001, ""});
    t.frm().Holds.DaysOff.push_back({monday + 3 * Day, monday + 3 * Day, true, 0b100, ""});
    t.frm().Holds.PausedUntil[1] = monday + 2 * Day + 8 * 3600 + 1800;  // 08:30 on day 3
    const PreviewResult r = RunPreview(TakeSnapshot(t.s), {monday, 4 * Day});
    const std::string csv = PreviewCsv(r);
    auto onAt = [&](const std::string& date, int record) {
        return csv.find(date + " 08:00:01,R" + std::to_string(record + 1)) != std::string::npos;
    };
    const std::vector<std::string> days = {"2026-06-22", "2026-06-23", "2026-06-24", "2026-06-25"};
    const std::vector<std::vector<bool>> expected = {
        {true, false, true, true}, {false, false, false, true}, {true, true, true, false}};
    for (int i = 0; i < 3; ++i)
        for (size_t d = 0; d < days.size(); ++d)
            EXPECT_EQ(onAt(days[d], i), expected[static_cast<size_t>(i)][d]) << i << days[d] << csv;
    EXPECT_EQ(r.Relays[1].OnSecondsPerDay[2], 1800);  // on from 08:30:00 to 08:59:59
    const Timeline line = PreviewTimeline(r);
    EXPECT_EQ(line.Lanes[0].DaysOff, (std::vector<TimeSpan>{{monday + Day, monday + 2 * Day}}));
    EXPECT_EQ(line.Lanes[1].Paused.size(), 1u);
    EXPECT_EQ(line.Lanes[2].DaysOff.size(), 1u);
}

}  // namespace
}  // namespace vantrellion::test

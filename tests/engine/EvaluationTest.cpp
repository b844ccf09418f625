// Time-pair evaluation. The worked schedules run as simulated days: one full tick a second,
// the tick count 1000 ms further each second, and the relay bits of the output port read
// after every tick and gathered into on-intervals. Several schedules share a day on different
// relays so that three simulated days cover them all. The edge cases run CheckTimePairs alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <vector>

#include "core/FatalError.h"
#include "engine/CheckTimePairs.h"
#include "engine/Tick.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

// Seconds of day of "HH:MM:SS".
int At(const char* hms) {
    int h = 0, m = 0, s = 0;
    std::sscanf(hms, "%d:%d:%d", &h, &m, &s);
    return h * 3600 + m * 60 + s;
}

// First and last on second, both included.
using Interval = std::pair<int, int>;
using Intervals = std::vector<Interval>;

Interval On(const char* from, const char* to) {
    return {At(from), At(to)};
}

std::string Show(const Intervals& v) {
    std::string out;
    for (const auto& [a, b] : v)
        out += TimeText(a) + "-" + TimeText(b) + " ";
    return out.empty() ? "(never on)" : out;
}

// The same window in every hour from first to last, given as times past the hour, plus any
// further intervals.
Intervals Hourly(int first, int last, const char* from, const char* to, Intervals more = {}) {
    for (int h = first; h <= last; ++h)
        more.push_back({h * 3600 + At(from), h * 3600 + At(to)});
    std::sort(more.begin(), more.end());
    return more;
}

// Gives relay r the code and its pairs from pair 0 on.
void Row(TestSystem& t, int r, const char* code,
         std::initializer_list<std::pair<const char*, const char*>> pairs) {
    t.relay(r).DayHrEvenOdd = code;
    int p = 0;
    for (const auto& [start, end] : pairs)
        t.SetPair(r, p++, start, end);
}

// A day to run; relay 0 is the same on every day: Monday, Wednesday and Friday, 08:00-15:00.
void StartDay(TestSystem& t, int day, int weekday) {
    t.clock.now = DateTime{2026, 11, day, 0, 0, 0, weekday};
    t.frm().CheckTimeAllowed = True;
    Row(t, 0, "EO", {{"08:00", "15:00"}});
    t.relay(0).DaysOfWeek = "246";
}

// Runs one full tick for every second of the day and compares, per relay, the seconds at
// which its bit of the output port is set after the tick.
void ExpectDay(TestSystem& t, const std::array<Intervals, 8>& want) {
    const auto got = RunDayOnRuns(t);
    for (int r = 0; r < 8; ++r) {
        EXPECT_EQ(got[r], want[r])
            << "relay " << r << "\n  got:  " << Show(got[r]) << "\n  want: " << Show(want[r]);
    }
}

// The number of the error that a call ends the program with, or 0.
template <class Call>
int FatalNumber(Call&& call) {
    try {
        call();
    } catch (const FatalError& e) {
        return e.Number();
    }
    return 0;
}

TEST(EvaluationDay, MondayEvenDay) {
    TestSystem t;
    StartDay(t, 16, 2);
    Row(t, 1, "OD", {{"09:30", "14:00"}, {"15:00", "19:00"}});
    Row(t, 2, "EH", {{"09:30", "13:00"}, {"15:00", "19:00"}});
    Row(t, 3, "OM", {{"09:30", "14:00"}});
    Row(t, 4, "TH", {{"09:10", "18:00"}});
    Row(t, 5, "MH", {{"09:15", "18:25"}});
    Row(t, 6, "BH", {{"09:50", "18:00"}});
    Row(t, 7, "SS", {{"08:00", "12:00"}, {"13:00", "14:00"}});

    Intervals oddMinutes;
    for (int m = 9 * 60 + 31; m < 14 * 60; m += 2)
        oddMinutes.push_back({m * 60, m * 60 + 59});
    ExpectDay(t, {
                     Intervals{On("08:00:01", "14:59:59")},
                     Intervals{},
                     Intervals{On("10:00:00", "10:59:59"), On("12:00:00", "12:59:59"),
                               On("16:00:00", "16:59:59"), On("18:00:00", "18:59:59")},
                     oddMinutes,
                     Hourly(9, 17, "00:00:01", "00:09:59"),
                     Hourly(9, 17, "00:15:01", "00:24:59"),
                     Hourly(9, 17, "00:50:01", "00:59:59"),
                     Intervals{On("08:00:01", "11:59:59"), On("13:00:01", "13:59:59")},
                 });
}

TEST(EvaluationDay, TuesdayOddDay) {
    TestSystem t;
    StartDay(t, 17, 3);
    Row(t, 1, "OD", {{"09:30", "14:00"}, {"15:00", "19:00"}});
    Row(t, 2, "TH", {{"09:10", "18:05"}});
    Row(t, 3, "BH", {{"22:50", "23:59:59"}});
    Row(t, 4, "5", {{"08:00", "09:00"}});
    // No pair crosses midnight; two pairs span it, with 00:00:00 and 23:59:59 still off.
    Row(t, 5, "EO", {{"22:00", "02:00"}, {"00:00", "02:00"}, {"22:00", "23:59:59"}});
    Row(t, 6, "TH", {{"09:00", "18:00"}});  // minute and second 0: an empty window
    Row(t, 7, "MH", {{"09:40", "18:10"}});  // end minute before the start minute: never on

    // The cyclic relay starts with an off half-cycle at 08:00:01. A half-cycle ends at the
    // first tick past its mark, so at one tick a second each lasts 301 s: on at 08:05:02, off
    // at 08:10:03, and so on; the pair's end puts it off at 09:00:00.
    const Intervals cyclic = {On("08:05:02", "08:10:02"), On("08:15:04", "08:20:04"),
                              On("08:25:06", "08:30:06"), On("08:35:08", "08:40:08"),
                              On("08:45:10", "08:50:10"), On("08:55:12", "08:59:59")};
    ExpectDay(t, {
                     Intervals{},
                     Intervals{On("09:30:01", "13:59:59"), On("15:00:01", "18:59:59")},
                     Hourly(9, 17, "00:00:01", "00:09:59", {On("18:00:01", "18:04:59")}),
                     Intervals{On("22:50:01", "22:59:59"), On("23:50:01", "23:59:58")},
                     cyclic,
                     Intervals{On("00:00:01", "01:59:59"), On("22:00:01", "23:59:58")},
                     Intervals{},
                     Intervals{},
                 });
    // The cyclic row shows the time of its next change in place of the Invert caption.
    EXPECT_EQ(t.display.invertCaption[4], "09:00:12");
}

TEST(EvaluationDay, SaturdayOddDay) {
    TestSystem t;
    StartDay(t, 21, 7);
    for (auto [r, code] : {std::pair{1, "SS"}, {2, "SX"}, {3, "XS"}})
        Row(t, r, code, {{"08:00", "12:00"}, {"13:00", "14:00"}});
    // Each of the first three pairs uses its own texts; the fourth is plain.
    Row(t, 4, "3H",
        {{"09:10", "11:00"}, {"09:15", "11:25"}, {"09:50", "11:00"}, {"12:00", "12:30"}});
    Row(t, 5, "OS", {{"08:00:00", "08:00:10"}});
    Row(t, 6, "ED", {{"09:30", "14:00"}});
    // Code "0": each half-cycle is shorter than a tick, so the relay flips at every tick.
    Row(t, 7, "0", {{"10:00:00", "10:00:10"}});

    ExpectDay(t, {
                     Intervals{},
                     Intervals{On("13:00:01", "13:59:59")},
                     Intervals{On("13:00:01", "13:59:59")},
                     Intervals{On("08:00:01", "11:59:59"), On("13:00:01", "13:59:59")},
                     Intervals{On("09:00:01", "09:09:59"), On("09:15:01", "09:24:59"),
                               On("09:50:01", "09:59:59"), On("10:00:01", "10:09:59"),
                               On("10:15:01", "10:24:59"), On("10:50:01", "10:59:59"),
                               On("12:00:01", "12:29:59")},
                     Intervals{On("08:00:01", "08:00:01"), On("08:00:03", "08:00:03"),
                               On("08:00:05", "08:00:05"), On("08:00:07", "08:00:07"),
                               On("08:00:09", "08:00:09")},
                     Intervals{},
                     Intervals{On("10:00:02", "10:00:02"), On("10:00:04", "10:00:04"),
                               On("10:00:06", "10:00:06"), On("10:00:08", "10:00:08")},
                 });
}

// Edge cases on CheckTimePairs alone, beyond what the simulated days show.
class EvaluationTest : public ::testing::Test {
  protected:
    TestSystem t;
    Flag& Active(int i, int p) { return t.frm().PairActive[PairIndex(i, p)]; }
    int16_t EvaluateAt(const char* hms) {
        t.clock.SetSecondsOfDay(At(hms));
        CheckTimePairs(t.s);
        return t.relay(0).NewState;
    }
};

TEST_F(EvaluationTest, PlainPairIsStrictAtBothEnds) {
    struct Case {
        const char *start, *end, *now;
        int16_t want;
    } cases[] = {
        {"09:00:00", "09:00:01", "09:00:00", 0}, {"09:00:00", "09:00:01", "09:00:01", 0},
        {"09:00", "09:00", "09:00:00", 0},       {"10:00", "09:00", "09:30:00", 0},
        {"9:30 pm", "11:00 pm", "21:45:00", 1},
    };
    for (const auto& c : cases) {
        t.SetPair(0, 0, c.start, c.end);
        EXPECT_EQ(EvaluateAt(c.now), c.want) << c.start << "-" << c.end << " at " << c.now;
        EXPECT_EQ(Active(0, 0), c.want ? True : False);
    }
}

// Two equal pairs 09:00-12:00. The codes are exact and case-sensitive: anything else makes a
// plain pair. On Sunday the weekend codes hold back the first pair only.
TEST_F(EvaluationTest, CodesOfDayHourMinuteSecondAndWeekend) {
    struct Case {
        const char* code;
        int day, weekday;
        const char* now;
        int16_t firstPair, secondPair;
    } cases[] = {
        {"ED", 16, 2, "09:30:00", 1, 1}, {"OH", 1, 2, "09:30:00", 1, 1},
        {"OH", 1, 2, "10:30:00", 0, 0},  {"EM", 1, 2, "10:00:30", 1, 1},
        {"EM", 1, 2, "10:01:30", 0, 0},  {"ES", 1, 2, "10:00:00", 1, 1},
        {"ES", 1, 2, "10:00:01", 0, 0},  {"EH", 1, 2, "08:30:00", 0, 0},
        {"ed", 17, 2, "09:30:00", 1, 1}, {"  ", 1, 2, "09:30:00", 1, 1},
        {"", 1, 2, "09:30:00", 1, 1},    {"ZZ", 1, 2, "09:30:00", 1, 1},
        {"SS", 1, 1, "09:30:00", 0, 1},  {"XS", 1, 1, "09:30:00", 0, 1},
        {"SX", 1, 1, "09:30:00", 1, 1},
    };
    t.SetPair(0, 0, "09:00", "12:00");
    t.SetPair(0, 1, "09:00", "12:00");
    for (const auto& c : cases) {
        t.relay(0).DayHrEvenOdd = c.code;
        t.clock.now.Day = c.day;
        t.clock.now.Weekday = c.weekday;
        EXPECT_EQ(EvaluateAt(c.now), c.firstPair | c.secondPair) << '"' << c.code << "\" " << c.now;
        EXPECT_EQ(Active(0, 0), c.firstPair ? True : False) << '"' << c.code << "\" " << c.now;
        EXPECT_EQ(Active(0, 1), c.secondPair ? True : False) << '"' << c.code << "\" " << c.now;
    }
}

TEST_F(EvaluationTest, DaysOfWeekMatchesDigitsOrTheAllDaysTexts) {
    struct Case {
        const char* days;
        int weekday;
        bool want;
    } cases[] = {
        {"All Days", 3, true},  {"ALL Days", 3, true}, {"ALL", 1, true},       {"All", 7, true},
        {" ", 5, true},         {"", 5, true},         {"all days", 3, false}, {"Days", 3, false},
        {"ALL DAYS", 3, false}, {"All ", 3, false},    {"246", 4, true},       {"x7y", 7, true},
        {"1 7", 1, true},       {"890", 1, false},     {"0", 7, false},
    };
    for (const auto& c : cases) {
        t.relay(3).DaysOfWeek = c.days;
        EXPECT_EQ(DaysOfWeekMatch(t.s, 3, c.weekday), c.want)
            << '"' << c.days << "\" " << c.weekday;
    }
}

// A stopped or manual relay, or one on a day that does not match, keeps its pair lights.
TEST_F(EvaluationTest, StopManualAndOtherDaysLeavePairLightsAlone) {
    t.SetPair(0, 0, "08:00", "12:00");
    t.SetPair(0, 1, "13:00", "14:00");
    Active(0, 0) = False;
    Active(0, 1) = True;
    t.relay(0).Manual = True;
    EXPECT_EQ(EvaluateAt("09:00:00"), 1);
    t.relay(0).HardStop = 1;  // any non-zero value stops the evaluation
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    t.relay(0).HardStop = t.relay(0).Manual = False;
    t.relay(0).DaysOfWeek = "all days";
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    EXPECT_EQ(Active(0, 0), False);
    EXPECT_EQ(Active(0, 1), True);

    t.relay(0).DaysOfWeek = "All Days";
    EXPECT_EQ(EvaluateAt("09:00:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
    EXPECT_EQ(Active(0, 1), False);
}

TEST_F(EvaluationTest, SpecialMethodNeedsASetFirstPair) {
    // Pair 0 unset: the top-of-hour method does not run and pair 1 is a plain pair.
    Row(t, 0, "TH", {{" ", "09:10"}, {"09:10", "10:00"}});
    EXPECT_EQ(EvaluateAt("09:05:00"), 0);
    EXPECT_EQ(EvaluateAt("09:30:00"), 1);
    EXPECT_EQ(Active(0, 1), True);
    // The same pair as the first one: a top-of-hour window.
    t.SetPair(0, 0, "09:10", "10:00");
    EXPECT_EQ(EvaluateAt("09:05:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
}

TEST_F(EvaluationTest, SetPairWithUnreadableTextEndsTheProgram) {
    // The end is read at once, whatever the time.
    t.SetPair(0, 0, "08:00", "25:00");
    EXPECT_EQ(FatalNumber([&] { EvaluateAt("07:00:00"); }), ErrTypeMismatch);
    // An unset pair is not read at all.
    t.SetPair(0, 0, " ", "garbage");
    EXPECT_EQ(FatalNumber([&] { EvaluateAt("07:00:00"); }), 0);
}

TEST_F(EvaluationTest, CyclicWaitsWhileTheTickIsNotPastTheMark) {
    Row(t, 0, "5", {{"08:00", "09:00"}});

    // A negative tick is not past a cleared mark: the relay keeps its read-back state.
    t.clock.tick = -5000;
    t.relay(0).OldState = 1;
    EXPECT_EQ(EvaluateAt("08:30:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
    t.relay(0).OldState = 0;
    EXPECT_EQ(EvaluateAt("08:30:00"), 0);
    EXPECT_EQ(Active(0, 0), False);
    EXPECT_EQ(t.relay(0).CycleStart, 0);
    EXPECT_TRUE(t.display.invertCaption.empty());
    // Not read back yet (the first tick after a reset or restart): the half-cycle counts as
    // off, and the evaluation never hands on the 9.
    t.relay(0).OldState = 9;
    EXPECT_EQ(EvaluateAt("08:30:00"), 0);
    EXPECT_EQ(t.relay(0).NewState, 0);
    EXPECT_EQ(Active(0, 0), False);

    // Once the tick is positive the method restarts with an off half-cycle.
    t.clock.tick = 1;
    EXPECT_EQ(EvaluateAt("08:30:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, 300001);
    EXPECT_EQ(t.display.invertCaption[0], "08:35:00");

    // Outside the pair nothing changes, the mark included; back inside, long past the mark,
    // the relay flips straight on.
    t.clock.tick = 900000;
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, 300001);
    EXPECT_EQ(EvaluateAt("08:59:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
}

// The cycle counts on the 64-bit monotonic clock: past 2^31 ms of uptime (24.8 days) it
// neither ends the program nor stops.
TEST_F(EvaluationTest, CyclesRunOnPastTwentyFiveDaysOfUptime) {
    Row(t, 0, "10", {{"23:00", "23:59:59"}});
    t.relay(0).OldState = 1;
    t.relay(0).CycleStart = int64_t{INT32_MAX} - 100000;
    t.clock.tick = int64_t{INT32_MAX} + 1;  // the half-cycle has ended: the relay flips off
    EXPECT_EQ(EvaluateAt("23:55:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, int64_t{INT32_MAX} + 1 + 600000);
    // The next change runs on past midnight on the label.
    EXPECT_EQ(t.display.invertCaption[0], "00:05:00");
    t.relay(0).OldState = 0;
    t.clock.tick = int64_t{60} * 86400 * 1000;  // sixty days up
    EXPECT_EQ(EvaluateAt("23:56:00"), 1);
}

TEST(NumericCode, VbLikeNumericTestAndRounding) {
    const std::pair<const char*, int> numeric[] = {{"5", 5},   {" 5", 5}, {"5 ", 5},
                                                   {"-3", -3}, {"+3", 3}, {"1.5", 2},
                                                   {"2.5", 2}, {".5", 0}, {"5.", 5}};
    for (auto [code, value] : numeric) {
        EXPECT_TRUE(IsNumericCode(code)) << '"' << code << '"';
        EXPECT_EQ(NumericCodeValue(code), value) << '"' << code << '"';
    }
    for (const char* code : {"EO", "", " ", "-", ".", "1e", "&H", "5a", "1.2.", "- 1", "3H"})
        EXPECT_FALSE(IsNumericCode(code)) << '"' << code << '"';
    EXPECT_EQ(NumericCodeValue("32767"), 32767);
    for (const char* code : {"32768", "32767.5", "99999999999999999999", "EO"})
        EXPECT_THROW(NumericCodeValue(code), FatalError) << code;
}

}  // namespace
}  // namespace vantrellion::test

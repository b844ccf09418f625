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

// The same window in every hour from first to last: m1:s1 to m2:s2 past the hour.
Intervals Hourly(int first, int last, int from, int to) {
    Intervals v;
    for (int h = first; h <= last; ++h)
        v.push_back({h * 3600 + from, h * 3600 + to});
    return v;
}

Intervals Joined(std::initializer_list<Intervals> parts) {
    Intervals v;
    for (const auto& p : parts)
        v.insert(v.end(), p.begin(), p.end());
    std::sort(v.begin(), v.end());
    return v;
}

constexpr int16_t kRelayPort = 0x300;

// Runs one full tick for every second from `from` to `to` and records, per relay, the seconds
// at which its bit of the output port is set after the tick.
std::array<Intervals, 8> RunSeconds(TestSystem& t, int from, int to) {
    std::array<Intervals, 8> on;
    for (int sec = from; sec <= to; ++sec) {
        t.clock.SetSecondsOfDay(sec);
        CheckTimeTick(t.s);
        const int byte = t.ports.bytes[kRelayPort];
        for (int r = 0; r < 8; ++r) {
            if ((byte & (1 << r)) == 0) continue;
            if (!on[r].empty() && on[r].back().second == sec - 1) {
                on[r].back().second = sec;
            } else {
                on[r].push_back({sec, sec});
            }
        }
        t.ports.Clear();
        t.clock.tick += 1000;
    }
    return on;
}

std::array<Intervals, 8> RunDay(TestSystem& t) {
    return RunSeconds(t, 0, 86399);
}

void SetDate(TestSystem& t, int year, int month, int day, int weekday) {
    t.clock.now = DateTime{year, month, day, 0, 0, 0, weekday};
    t.frm().CheckTimeAllowed = True;
}

void ExpectRelays(const std::array<Intervals, 8>& got, const std::array<Intervals, 8>& want) {
    for (int r = 0; r < 8; ++r) {
        EXPECT_EQ(got[r], want[r])
            << "relay " << r << "\n  got:  " << Show(got[r]) << "\n  want: " << Show(want[r]);
    }
}

// Monday 16 November 2026, an even day.
TEST(EvaluationDay, MondayEvenDay) {
    TestSystem t;
    SetDate(t, 2026, 11, 16, 2);
    t.relay(0).DayHrEvenOdd = "EO";
    t.relay(0).DaysOfWeek = "246";
    t.SetPair(0, 0, "08:00", "15:00");
    t.relay(1).DayHrEvenOdd = "OD";
    t.SetPair(1, 0, "09:30", "14:00");
    t.SetPair(1, 1, "15:00", "19:00");
    t.relay(2).DayHrEvenOdd = "EH";
    t.SetPair(2, 0, "09:30", "13:00");
    t.SetPair(2, 1, "15:00", "19:00");
    t.relay(3).DayHrEvenOdd = "OM";
    t.SetPair(3, 0, "09:30", "14:00");
    t.relay(4).DayHrEvenOdd = "TH";
    t.SetPair(4, 0, "09:10", "18:00");
    t.relay(5).DayHrEvenOdd = "MH";
    t.SetPair(5, 0, "09:15", "18:25");
    t.relay(6).DayHrEvenOdd = "BH";
    t.SetPair(6, 0, "09:50", "18:00");
    t.relay(7).DayHrEvenOdd = "SS";
    t.SetPair(7, 0, "08:00", "12:00");
    t.SetPair(7, 1, "13:00", "14:00");

    Intervals oddMinutes;
    for (int m = 9 * 60 + 31; m < 14 * 60; m += 2)
        oddMinutes.push_back({m * 60, m * 60 + 59});

    ExpectRelays(RunDay(t), {
                                Intervals{On("08:00:01", "14:59:59")},
                                Intervals{},
                                Intervals{On("10:00:00", "10:59:59"), On("12:00:00", "12:59:59"),
                                          On("16:00:00", "16:59:59"), On("18:00:00", "18:59:59")},
                                oddMinutes,
                                Hourly(9, 17, At("00:00:01"), At("00:09:59")),
                                Hourly(9, 17, At("00:15:01"), At("00:24:59")),
                                Hourly(9, 17, At("00:50:01"), At("00:59:59")),
                                Intervals{On("08:00:01", "11:59:59"), On("13:00:01", "13:59:59")},
                            });
}

// Tuesday 17 November 2026, an odd day.
TEST(EvaluationDay, TuesdayOddDay) {
    TestSystem t;
    SetDate(t, 2026, 11, 17, 3);
    t.relay(0).DayHrEvenOdd = "EO";
    t.relay(0).DaysOfWeek = "246";
    t.SetPair(0, 0, "08:00", "15:00");
    t.relay(1).DayHrEvenOdd = "OD";
    t.SetPair(1, 0, "09:30", "14:00");
    t.SetPair(1, 1, "15:00", "19:00");
    t.relay(2).DayHrEvenOdd = "TH";
    t.SetPair(2, 0, "09:10", "18:05");
    t.relay(3).DayHrEvenOdd = "BH";
    t.SetPair(3, 0, "22:50", "23:59:59");
    t.relay(4).DayHrEvenOdd = "5";
    t.SetPair(4, 0, "08:00", "09:00");
    // No pair crosses midnight; two pairs span it, with 00:00:00 and 23:59:59 still off.
    t.relay(5).DayHrEvenOdd = "EO";
    t.SetPair(5, 0, "22:00", "02:00");
    t.SetPair(5, 1, "00:00", "02:00");
    t.SetPair(5, 2, "22:00", "23:59:59");
    t.relay(6).DayHrEvenOdd = "TH";  // minute and second 0: an empty window
    t.SetPair(6, 0, "09:00", "18:00");
    t.relay(7).DayHrEvenOdd = "MH";  // end minute before the start minute: never on
    t.SetPair(7, 0, "09:40", "18:10");

    // The cyclic relay starts with an off half-cycle at 08:00:01. A half-cycle ends at the
    // first tick past its mark, so at one tick a second each lasts 301 s: on at 08:05:02, off
    // at 08:10:03, and so on; the pair's end puts it off at 09:00:00.
    Intervals cyclic;
    for (int n = 0; n < 6; ++n) {
        int on = At("08:00:01") + (2 * n + 1) * 301;
        cyclic.push_back({on, std::min(on + 300, At("08:59:59"))});
    }
    ASSERT_EQ(cyclic.front(), On("08:05:02", "08:10:02"));
    ASSERT_EQ(cyclic.back(), On("08:55:12", "08:59:59"));

    ExpectRelays(RunDay(t), {
                                Intervals{},
                                Intervals{On("09:30:01", "13:59:59"), On("15:00:01", "18:59:59")},
                                Joined({Hourly(9, 17, At("00:00:01"), At("00:09:59")),
                                        Intervals{On("18:00:01", "18:04:59")}}),
                                Intervals{On("22:50:01", "22:59:59"), On("23:50:01", "23:59:58")},
                                cyclic,
                                Intervals{On("00:00:01", "01:59:59"), On("22:00:01", "23:59:58")},
                                Intervals{},
                                Intervals{},
                            });
    // The cyclic row shows the time of its next change in place of the Invert caption.
    EXPECT_EQ(t.display.invertCaption[4], "09:00:12");
}

// Saturday 21 November 2026, an odd day.
TEST(EvaluationDay, SaturdayOddDay) {
    TestSystem t;
    SetDate(t, 2026, 11, 21, 7);
    t.relay(0).DayHrEvenOdd = "EO";
    t.relay(0).DaysOfWeek = "246";
    t.SetPair(0, 0, "08:00", "15:00");
    for (int r : {1, 2, 3}) {
        t.SetPair(r, 0, "08:00", "12:00");
        t.SetPair(r, 1, "13:00", "14:00");
    }
    t.relay(1).DayHrEvenOdd = "SS";
    t.relay(2).DayHrEvenOdd = "SX";
    t.relay(3).DayHrEvenOdd = "XS";
    // Each of the first three pairs uses its own texts; the fourth is plain.
    t.relay(4).DayHrEvenOdd = "3H";
    t.SetPair(4, 0, "09:10", "11:00");
    t.SetPair(4, 1, "09:15", "11:25");
    t.SetPair(4, 2, "09:50", "11:00");
    t.SetPair(4, 3, "12:00", "12:30");
    t.relay(5).DayHrEvenOdd = "OS";
    t.SetPair(5, 0, "08:00:00", "08:00:10");
    t.relay(6).DayHrEvenOdd = "ED";
    t.SetPair(6, 0, "09:30", "14:00");
    // Code "0": each half-cycle is shorter than a tick, so the relay flips at every tick.
    t.relay(7).DayHrEvenOdd = "0";
    t.SetPair(7, 0, "10:00:00", "10:00:10");

    ExpectRelays(RunDay(t), {
                                Intervals{},
                                Intervals{On("13:00:01", "13:59:59")},
                                Intervals{On("13:00:01", "13:59:59")},
                                Intervals{On("08:00:01", "11:59:59"), On("13:00:01", "13:59:59")},
                                Joined({Hourly(9, 10, At("00:00:01"), At("00:09:59")),
                                        Hourly(9, 10, At("00:15:01"), At("00:24:59")),
                                        Hourly(9, 10, At("00:50:01"), At("00:59:59")),
                                        Intervals{On("12:00:01", "12:29:59")}}),
                                Intervals{On("08:00:01", "08:00:01"), On("08:00:03", "08:00:03"),
                                          On("08:00:05", "08:00:05"), On("08:00:07", "08:00:07"),
                                          On("08:00:09", "08:00:09")},
                                Intervals{},
                                Intervals{On("10:00:02", "10:00:02"), On("10:00:04", "10:00:04"),
                                          On("10:00:06", "10:00:06"), On("10:00:08", "10:00:08")},
                            });
}

// Edge cases on CheckTimePairs alone.
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
        {"09:00", "10:00", "09:00:00", 0},       {"09:00", "10:00", "09:00:01", 1},
        {"09:00", "10:00", "09:59:59", 1},       {"09:00", "10:00", "10:00:00", 0},
        {"09:00:00", "09:00:01", "09:00:00", 0}, {"09:00:00", "09:00:01", "09:00:01", 0},
        {"09:00", "09:00", "09:00:00", 0},       {"10:00", "09:00", "09:30:00", 0},
        {"0:00", "23:59:59", "00:00:00", 0},     {"0:00", "23:59:59", "23:59:59", 0},
        {"0:00", "23:59:59", "23:59:58", 1},     {"9:30 pm", "11:00 pm", "21:45:00", 1},
        {"22:00", "02:00", "23:00:00", 0},       {"22:00", "02:00", "01:00:00", 0},
    };
    for (const auto& c : cases) {
        t.SetPair(0, 0, c.start, c.end);
        EXPECT_EQ(EvaluateAt(c.now), c.want) << c.start << "-" << c.end << " at " << c.now;
        EXPECT_EQ(Active(0, 0), c.want ? True : False);
    }
}

TEST_F(EvaluationTest, EvenOddCodes) {
    struct Case {
        const char* code;
        int day;
        const char* now;
        int16_t want;
    } cases[] = {
        {"ED", 16, "09:30:00", 1}, {"ED", 17, "09:30:00", 0}, {"OD", 17, "09:30:00", 1},
        {"OD", 16, "09:30:00", 0}, {"EH", 1, "10:30:00", 1},  {"EH", 1, "09:30:00", 0},
        {"OH", 1, "09:30:00", 1},  {"EM", 1, "10:00:30", 1},  {"EM", 1, "10:01:30", 0},
        {"OM", 1, "10:01:30", 1},  {"ES", 1, "10:00:00", 1},  {"ES", 1, "10:00:01", 0},
        {"OS", 1, "10:00:01", 1},  {"OS", 1, "10:00:02", 0},  {"ed", 17, "09:30:00", 1},
        {"  ", 1, "09:30:00", 1},  {"", 1, "09:30:00", 1},    {"ZZ", 1, "09:30:00", 1},
        {"EH", 1, "08:30:00", 0},  // outside the pair
    };
    t.SetPair(0, 0, "09:00", "12:00");
    for (const auto& c : cases) {
        t.relay(0).DayHrEvenOdd = c.code;
        t.clock.now.Day = c.day;
        EXPECT_EQ(EvaluateAt(c.now), c.want) << '"' << c.code << "\" day " << c.day << " " << c.now;
    }
}

TEST_F(EvaluationTest, WeekendCodesHoldBackOnlyTheFirstPair) {
    struct Case {
        const char* code;
        int weekday;
        int16_t firstPair, secondPair;
    } cases[] = {
        {"SS", 1, 0, 1}, {"SS", 7, 0, 1}, {"SS", 2, 1, 1}, {"XS", 1, 0, 1},
        {"XS", 7, 1, 1}, {"SX", 7, 0, 1}, {"SX", 1, 1, 1},
    };
    t.SetPair(0, 0, "08:00", "12:00");
    t.SetPair(0, 1, "08:00", "12:00");
    for (const auto& c : cases) {
        t.relay(0).DayHrEvenOdd = c.code;
        t.clock.now.Weekday = c.weekday;
        EvaluateAt("09:00:00");
        EXPECT_EQ(Active(0, 0), c.firstPair ? True : False) << c.code << " " << c.weekday;
        EXPECT_EQ(Active(0, 1), c.secondPair ? True : False) << c.code << " " << c.weekday;
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
        {"ALL DAYS", 3, false}, {"All ", 3, false},    {"246", 2, true},       {"246", 4, true},
        {"246", 6, true},       {"246", 3, false},     {"246", 1, false},      {"x7y", 7, true},
        {"1 7", 1, true},       {"890", 1, false},     {"0", 7, false},        {"1234567", 5, true},
    };
    for (const auto& c : cases) {
        t.relay(3).DaysOfWeek = c.days;
        EXPECT_EQ(DaysOfWeekMatch(t.s, 3, c.weekday), c.want)
            << '"' << c.days << "\" " << c.weekday;
    }
    // A day that does not match keeps the relay off and its pair lights as they were.
    t.SetPair(0, 0, "08:00", "12:00");
    t.relay(0).DaysOfWeek = "all days";
    Active(0, 0) = True;
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    EXPECT_EQ(Active(0, 0), True);
}

TEST_F(EvaluationTest, HardStopAndManualLeavePairLightsAlone) {
    t.SetPair(0, 0, "08:00", "12:00");
    t.SetPair(0, 1, "13:00", "14:00");
    Active(0, 0) = False;
    Active(0, 1) = True;

    t.relay(0).Manual = True;
    EXPECT_EQ(EvaluateAt("09:00:00"), 1);
    EXPECT_EQ(Active(0, 0), False);
    EXPECT_EQ(Active(0, 1), True);

    t.relay(0).HardStop = 1;  // any non-zero value stops the evaluation
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    EXPECT_EQ(Active(0, 0), False);
    EXPECT_EQ(Active(0, 1), True);

    t.relay(0).HardStop = False;
    t.relay(0).Manual = False;
    EXPECT_EQ(EvaluateAt("09:00:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
    EXPECT_EQ(Active(0, 1), False);
}

TEST_F(EvaluationTest, SpecialMethodNeedsASetFirstPair) {
    // Pair 0 unset: the top-of-hour method does not run and pair 1 is a plain pair.
    t.relay(0).DayHrEvenOdd = "TH";
    t.SetPair(0, 0, " ", "09:10");
    t.SetPair(0, 1, "09:10", "10:00");
    EXPECT_EQ(EvaluateAt("09:05:00"), 0);
    EXPECT_EQ(EvaluateAt("09:30:00"), 1);
    EXPECT_EQ(Active(0, 1), True);
    // The same pair as the first one: a top-of-hour window.
    t.SetPair(0, 0, "09:10", "10:00");
    EXPECT_EQ(EvaluateAt("09:05:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
}

TEST_F(EvaluationTest, SetPairWithUnreadableTextEndsTheProgram) {
    t.SetPair(0, 0, "08:00", "25:00");
    try {
        EvaluateAt("07:00:00");  // fails whatever the time, the end being read at once
        FAIL() << "no error";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), ErrTypeMismatch);
    }
    // An unset pair is not read at all.
    t.SetPair(0, 0, " ", "garbage");
    EXPECT_NO_THROW(EvaluateAt("07:00:00"));
}

TEST_F(EvaluationTest, CyclicWaitsWhileTheTickIsNotPastTheMark) {
    t.relay(0).DayHrEvenOdd = "5";
    t.SetPair(0, 0, "08:00", "09:00");

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

    // Once the tick is positive the method restarts with an off half-cycle.
    t.clock.tick = 1;
    EXPECT_EQ(EvaluateAt("08:30:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, 300001);
    EXPECT_EQ(t.display.invertCaption[0], "08:35:00");

    // Still within the half-cycle, also at its mark; after it, the relay flips.
    t.clock.tick = 300001;
    EXPECT_EQ(EvaluateAt("08:35:00"), 0);
    t.clock.tick = 300002;
    EXPECT_EQ(EvaluateAt("08:35:00"), 1);
    EXPECT_EQ(Active(0, 0), True);
    EXPECT_EQ(t.relay(0).CycleStart, 600002);

    // Outside the pair nothing changes, the mark included.
    t.clock.tick = 900000;
    EXPECT_EQ(EvaluateAt("09:00:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, 600002);
}

TEST_F(EvaluationTest, CyclicMarkAcrossTheWrapAndItsOverflow) {
    t.relay(0).DayHrEvenOdd = "10";
    t.SetPair(0, 0, "23:00", "23:59:59");
    t.relay(0).OldState = 1;
    // Negative tick past a negative mark: the half-cycle has ended and the relay flips off.
    t.relay(0).CycleStart = -700000;
    t.clock.tick = -600000;
    EXPECT_EQ(EvaluateAt("23:55:00"), 0);
    EXPECT_EQ(t.relay(0).CycleStart, 0);  // 10 minutes past -600000
    // The next change runs on past midnight on the label.
    EXPECT_EQ(t.display.invertCaption[0], "00:05:00");

    // The mark of a tick within one half-cycle of the largest 32-bit number overflows.
    t.relay(0).CycleStart = 5;
    t.clock.tick = INT32_MAX - 100000;
    try {
        EvaluateAt("23:30:00");
        FAIL() << "no overflow";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), ErrOverflow);
    }
}

TEST(NumericCode, VbLikeNumericTestAndRounding) {
    struct Case {
        const char* code;
        bool numeric;
        int16_t value;
    } cases[] = {
        {"5", true, 5},     {"10", true, 10},  {" 5", true, 5},  {"5 ", true, 5},
        {"00", true, 0},    {"0", true, 0},    {"-3", true, -3}, {"+3", true, 3},
        {"1.5", true, 2},   {"2.5", true, 2},  {".5", true, 0},  {"5.", true, 5},
        {"-1.5", true, -2}, {"0.51", true, 1}, {"99", true, 99}, {"EO", false, 0},
        {"", false, 0},     {" ", false, 0},   {"  ", false, 0}, {"-", false, 0},
        {".", false, 0},    {"1e", false, 0},  {"&H", false, 0}, {"5a", false, 0},
        {"1.2.", false, 0}, {"- 1", false, 0}, {"3H", false, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IsNumericCode(c.code), c.numeric) << '"' << c.code << '"';
        if (c.numeric) {
            EXPECT_EQ(NumericCodeValue(c.code), c.value) << '"' << c.code << '"';
        }
    }
    EXPECT_EQ(NumericCodeValue("32767"), 32767);
    EXPECT_EQ(NumericCodeValue("-32768"), -32768);
    EXPECT_THROW(NumericCodeValue("32768"), FatalError);
    EXPECT_THROW(NumericCodeValue("32767.5"), FatalError);
    EXPECT_THROW(NumericCodeValue("99999999999999999999"), FatalError);
    EXPECT_THROW(NumericCodeValue("EO"), FatalError);
}

}  // namespace
}  // namespace vantrellion::test

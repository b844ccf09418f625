#include "engine/RowTotals.h"

#include <cstdlib>

#include "core/FatalError.h"
#include "engine/CheckTimePairs.h"
#include "engine/PairTimes.h"

namespace vantrellion {

namespace {

// A sun time counts with today's sun, as RefreshRowTotal has worked it out.
int StartOf(System& s, int k) {
    return KnownStart(s, k);
}
int EndOf(System& s, int k) {
    return KnownEnd(s, k);
}

// Whether the pair's times are known today: a pair of clock times always is; a sun time needs
// the clock and the location, and a day on which the sun rises and sets.
bool KnownToday(System& s, int k) {
    const FrmRelay& f = s.frmRelay;
    if (!f.StartTime[k].IsSunTime() && !f.EndTime[k].IsSunTime()) return true;
    if (!s.platform.clock) return false;
    return PairTimesKnown(s, k / PairsPerRelay, k, s.clock().Now(), false);
}

// The hour, minute and second of a pair's start or end.
struct Clock3 {
    int h, m, s;
};
Clock3 Split(int t) {
    return {t / 3600, t / 60 % 60, t % 60};
}

// At least two digits, a minus sign in front of negative values ("05", "123", "-05").
std::string Format00(int32_t v) {
    int64_t magnitude = std::llabs(int64_t{v});
    std::string digits = std::to_string(magnitude);
    if (digits.size() < 2) digits.insert(0, "0");
    return v < 0 ? "-" + digits : digits;
}

// The last hour of the top- and bottom-of-hour frames and the seconds that the end's minute
// and second carry over, before the per-hour sum. spareHour23 keeps hour 23 as the last hour
// when the end lies on its full hour (the bottom-of-hour rule, there being no hour 24).
void HourFrame(const Clock3& a, const Clock3& b, bool spareHour23, int& last, int32_t& sum) {
    sum = 0;
    last = b.h;
    if (b.h > a.h) {
        if (b.m == 0 && b.s == 0) {
            if (!(spareHour23 && b.h == 23)) last = b.h - 1;
        }
        if (b.m == 0 && b.s != 0) {
            if (b.s < a.s) sum = a.s - b.s;
        }
        if (b.m != 0) {
            if (b.m < a.m) {
                last = b.h - 1;
                sum = b.m * 60;
            }
        }
    }
}

}  // namespace

int32_t PairSeconds(System& s, int k) {
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    return start < end ? end - start : 0;
}

// Half the pair's length, a half second going to the even whole: 3 gives 2, 5 gives 2.
int32_t PairSecondsHalf(System& s, int k) {
    int32_t whole = PairSeconds(s, k);
    int32_t half = whole / 2;
    if (whole % 2 != 0 && half % 2 != 0) ++half;
    return half;
}

// m1:s1 for every hour from the start's hour to the last hour: the end's hour, or the one
// before when the end lies on a full hour or its minute is earlier than the start's (then the
// end's minutes are counted as well). An end on minute 0 whose second is earlier than the
// start's second adds the difference of the two seconds.
int32_t PairSecondsTopOfHour(System& s, int k) {
    Clock3 a = Split(StartOf(s, k));
    Clock3 b = Split(EndOf(s, k));
    int last = 0;
    int32_t sum = 0;
    HourFrame(a, b, false, last, sum);
    for (int h = a.h; h <= last; ++h)
        sum = CheckedAdd32(sum, a.m * 60 + a.s);
    return sum;
}

// The same frame as the top of the hour, but hour 23 is kept as the last hour, and each hour
// counts from m1:s1 to its end: (60 - m1) minutes, with the start's seconds added rather than
// taken away. The figure is kept as it is.
int32_t PairSecondsBottomOfHour(System& s, int k) {
    Clock3 a = Split(StartOf(s, k));
    Clock3 b = Split(EndOf(s, k));
    int last = 0;
    int32_t sum = 0;
    HourFrame(a, b, true, last, sum);
    for (int h = a.h; h <= last; ++h)
        sum = CheckedAdd32(sum, (60 - a.m) * 60 + a.s);
    return sum;
}

// The minute and second part of (end - start), once for every hour from the start's hour to
// the end's, the end's hour included although the evaluation gives it no window. A negative
// difference counts by its size, as a time of day before midnight shows its clock part.
int32_t PairSecondsMiddleOfHour(System& s, int k) {
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    int d = std::abs(end - start);
    int perHour = (d / 60 % 60) * 60 + d % 60;
    int32_t sum = 0;
    for (int h = start / 3600; h <= end / 3600; ++h)
        sum = CheckedAdd32(sum, perHour);
    return sum;
}

// Alternating off and on periods from the start, the first one counted as on. A period that
// runs past the end adds the part beyond the end, not the part before it; that figure is kept.
// The rounds are limited to (end - start + 1), which is what ends the loop for a period of 0
// or below.
int32_t PairSecondsCyclic(System& s, int16_t minutes, int k) {
    const int32_t a = StartOf(s, k);
    const int32_t b = EndOf(s, k);
    const int32_t period = CheckedInt32(int64_t{minutes} * 60);
    const int64_t maxRounds = int64_t{b} - a + 1;

    int32_t mark = a;
    bool on = true;
    int32_t sum = 0;
    for (int64_t round = 0; mark < b && round < maxRounds; ++round) {
        int32_t next = CheckedAdd32(mark, period);
        bool last = false;
        if (next < b) {
            if (on) sum = CheckedAdd32(sum, period);
        } else if (next == b) {
            if (on) sum = CheckedAdd32(sum, period);
            last = true;
        } else {
            if (on) sum = CheckedAdd32(sum, CheckedInt32(int64_t{period} - (int64_t{b} - mark)));
            last = true;
        }
        mark = next;
        on = !on;
        if (last) break;
    }
    return sum;
}

void RefreshRowTotal(System& s, int k) {
    const int first = k - k % PairsPerRelay;
    const int i = k / PairsPerRelay;
    const EvenOddCode& code = s.frmRelay.Relay[i].DayHrEvenOdd;
    const CodeRule rule = code.Rule();

    int32_t total = 0;
    for (int q = first; q <= first + LastTimePair; ++q) {
        if (!PairIsSet(s.frmRelay, q) || !KnownToday(s, q)) continue;
        const int p = q - first;
        int32_t seconds;
        if (rule == CodeRule::EvenOddHour || rule == CodeRule::EvenOddMinute ||
            rule == CodeRule::EvenOddSecond) {
            seconds = PairSecondsHalf(s, q);
        } else if (p == 0 && (rule == CodeRule::TopOfHour || rule == CodeRule::ThreeWindows)) {
            seconds = PairSecondsTopOfHour(s, q);
        } else if ((p == 0 && rule == CodeRule::MiddleOfHour) ||
                   (p == 1 && rule == CodeRule::ThreeWindows)) {
            seconds = PairSecondsMiddleOfHour(s, q);
        } else if ((p == 0 && rule == CodeRule::BottomOfHour) ||
                   (p == 2 && rule == CodeRule::ThreeWindows)) {
            seconds = PairSecondsBottomOfHour(s, q);
        } else if (p == 0 && rule == CodeRule::Cyclic) {
            seconds = PairSecondsCyclic(s, code.CycleMinutes(), q);
        } else {
            seconds = PairSeconds(s, q);
        }
        total = CheckedAdd32(total, seconds);
    }

    const int32_t hours = total / 3600;
    const int32_t rest = total % 3600;
    const std::string text =
        Format00(hours) + ":" + Format00(rest / 60) + ":" + Format00(rest % 60);
    s.frmRelay.Relay[i].TotalTime = text;
    s.display().SetTotalTimeCaption(i, total > 86400 ? "Over24hr" : text);
}

}  // namespace vantrellion

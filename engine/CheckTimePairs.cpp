#include "engine/CheckTimePairs.h"

#include <cstdlib>

#include "core/FatalError.h"
#include "engine/TimeOfDay.h"

namespace vantrellion {

namespace {

constexpr int SecondsPerHour = 3600;
constexpr int LastSecondOfDay = 23 * 3600 + 59 * 60 + 59;

// Switches pair k of relay i on: the relay is wanted on and the pair's light is lit.
void SwitchPairOn(System& s, int i, int k) {
    s.frmRelay.Relay[i].NewState = 1;
    s.frmRelay.PairActive[k] = True;
}

int StartOf(System& s, int k) {
    return TimeOfDayOrFail(s.frmRelay.StartTime[k]);
}
int EndOf(System& s, int k) {
    return TimeOfDayOrFail(s.frmRelay.EndTime[k]);
}

int HourOf(int t) {
    return t / SecondsPerHour;
}
int MinuteOf(int t) {
    return t / 60 % 60;
}
int SecondOf(int t) {
    return t % 60;
}
// The full hour in which t lies.
int HourFloor(int t) {
    return HourOf(t) * SecondsPerHour;
}
// Minutes and seconds of t, as seconds past its full hour.
int PastTheHour(int t) {
    return t % SecondsPerHour;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The parts of a decimal number: blanks around it, an optional sign, digits with at most one
// decimal point, at least one digit in all.
struct DecimalText {
    bool negative = false;
    std::string whole;     // digits before the point
    std::string fraction;  // digits after the point
};

bool SplitDecimal(const std::string& code, DecimalText& out) {
    size_t b = 0, e = code.size();
    while (b < e && IsBlank(code[b]))
        ++b;
    while (e > b && IsBlank(code[e - 1]))
        --e;
    if (b < e && (code[b] == '+' || code[b] == '-')) {
        out.negative = code[b] == '-';
        ++b;
    }
    bool point = false;
    for (size_t n = b; n < e; ++n) {
        char c = code[n];
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            (point ? out.fraction : out.whole) += c;
        } else {
            return false;
        }
    }
    return !out.whole.empty() || !out.fraction.empty();
}

}  // namespace

// A code is numeric when it reads as a plain decimal number: blanks (space or tab) around it
// are allowed, then an optional "+" or "-", digits, and at most one decimal point, with at
// least one digit. So "5", "10", " 5", "5 ", "-3", "+3", "1.5", ".5" and "5." are numeric;
// "", " ", "  ", "-", ".", "1e", "$5", "&H" and every letter code are not. A blank typed in
// the field arrives as "0", and "00" is numeric as well. The field holds two characters at
// most, so in practice the values run from -9 to 99.
bool IsNumericCode(const std::string& code) {
    DecimalText d;
    return SplitDecimal(code, d);
}

// The code as a whole number of minutes: rounded to the nearest whole, a tie going to the
// even number ("1.5" gives 2, "2.5" gives 2, ".5" gives 0, "-1.5" gives -2). The rounding is
// done on the decimal digits, so no tie is lost to binary fractions. A value beyond 16 bits
// ends the program with an overflow; a text that is not numeric with a type mismatch.
int16_t NumericCodeValue(const std::string& code) {
    DecimalText d;
    if (!SplitDecimal(code, d)) throw FatalError(ErrTypeMismatch, "Type mismatch");

    int64_t whole = 0;
    for (char c : d.whole) {
        whole = whole * 10 + (c - '0');
        if (whole > INT16_MAX + 1) ThrowOverflow();
    }
    if (!d.fraction.empty()) {
        char first = d.fraction[0];
        bool restNonZero = d.fraction.find_first_not_of('0', 1) != std::string::npos;
        bool roundUp = first > '5' || (first == '5' && (restNonZero || whole % 2 == 1));
        if (roundUp) ++whole;
    }
    return CheckedInt16(d.negative ? -whole : whole);
}

bool DaysOfWeekMatch(System& s, int r, int weekday) {
    const std::string& days = s.frmRelay.Relay[r].DaysOfWeek;
    if (days == "ALL Days" || days == "All Days" || days == "ALL" || days == "All" || days == " " ||
        days == "") {
        return true;
    }
    if (weekday < 1 || weekday > 7) return false;
    return days.find(static_cast<char>('0' + weekday)) != std::string::npos;
}

// Both texts are read before comparing, so a damaged text fails at the first evaluation that
// reaches its pair, whatever the time of day.
bool TimeInPair(System& s, int k, int now) {
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    return start < now && now < end;
}

void CheckPairPlain(System& s, int i, int k, int now) {
    if (TimeInPair(s, k, now)) SwitchPairOn(s, i, k);
}

void CheckPairEvenOddDay(System& s, int i, int k, int now) {
    if (!TimeInPair(s, k, now)) return;
    const std::string& code = s.frmRelay.Relay[i].DayHrEvenOdd;
    int day = s.clock().Now().Day;
    if ((code == "ED" && day % 2 == 0) || (code == "OD" && day % 2 == 1)) SwitchPairOn(s, i, k);
}

namespace {

// The common frame of the even/odd hour, minute and second tests: value is the part of now
// that the code looks at; 0 counts as even.
void CheckPairEvenOddPart(System& s, int i, int k, int now, int value, const char* even,
                          const char* odd) {
    if (!TimeInPair(s, k, now)) return;
    const std::string& code = s.frmRelay.Relay[i].DayHrEvenOdd;
    if ((code == even && value % 2 == 0) || (code == odd && value % 2 == 1)) {
        SwitchPairOn(s, i, k);
    }
}

}  // namespace

void CheckPairEvenOddHour(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, HourOf(now), "EH", "OH");
}

void CheckPairEvenOddMinute(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, MinuteOf(now), "EM", "OM");
}

void CheckPairEvenOddSecond(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, SecondOf(now), "ES", "OS");
}

// Only the relay's first pair is held back on the weekend days of its code; the other pairs
// act as plain pairs.
void CheckPairWeekend(System& s, int i, int k, int firstPair, int now, int weekday) {
    if (!TimeInPair(s, k, now)) return;
    if (k == firstPair) {
        const std::string& code = s.frmRelay.Relay[i].DayHrEvenOdd;
        if (code == "SS" && (weekday == 1 || weekday == 7)) return;
        if (code == "XS" && weekday == 1) return;
        if (code == "SX" && weekday == 7) return;
    }
    SwitchPairOn(s, i, k);
}

// On for the first m:s of every hour from the start's hour up to the end time. The window of
// each hour opens just after the full hour and closes just before m:s past it.
void CheckPairTopOfHour(System& s, int i, int k, int now) {
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    int hourFloor = HourFloor(start);
    int windowStart = HourFloor(now);
    int windowEnd = windowStart + PastTheHour(start);
    if (now > hourFloor && now < end && now > windowStart && now < windowEnd) {
        SwitchPairOn(s, i, k);
    }
}

// On between m1:s1 and m2:s2 of every hour from the start's hour up to, but not into, the
// end's hour: the ceiling is the end's full hour, so the end's own hour has no window.
void CheckPairMiddleOfHour(System& s, int i, int k, int now) {
    if (!TimeInPair(s, k, now)) return;
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    int hourFloor = HourFloor(start);
    int hourCeiling = HourFloor(end);
    int windowStart = HourFloor(now) + PastTheHour(start);
    int windowEnd = HourFloor(now) + PastTheHour(end);
    if (now > hourFloor && now < hourCeiling && now > windowStart && now < windowEnd) {
        SwitchPairOn(s, i, k);
    }
}

// On from m:s past every hour to the next full hour, from the start's hour up to the end
// time. Hour 23 has no next full hour in the day, so its window closes at 23:59:59.
void CheckPairBottomOfHour(System& s, int i, int k, int now) {
    int start = StartOf(s, k);
    int end = EndOf(s, k);
    int hourFloor = HourFloor(start);
    int windowStart = HourFloor(now) + PastTheHour(start);
    int windowEnd = HourOf(now) == 23 ? LastSecondOfDay : HourFloor(now) + SecondsPerHour;
    if (now > hourFloor && now < end && now > windowStart && now < windowEnd) {
        SwitchPairOn(s, i, k);
    }
}

// The alternator: while the pair's time runs, the relay keeps its read-back state until the
// half-cycle marked by CycleStart is over, and then flips. CycleStart 0 means a restart, whose
// first half-cycle is an off one. The comparison with the tick is signed, so it goes on
// working once the tick count has wrapped to negative.
void CheckPairCyclic(System& s, int i, int k, int now, int32_t tick) {
    if (!TimeInPair(s, k, now)) return;
    RelayRecord& relay = s.frmRelay.Relay[i];

    if (tick <= relay.CycleStart) {  // the half-cycle is still running
        relay.NewState = relay.OldState;
        s.frmRelay.PairActive[k] = relay.OldState != 0 ? True : False;
        return;
    }

    if (relay.CycleStart != 0) {
        if (relay.OldState == 1) {
            relay.NewState = 0;
            s.frmRelay.PairActive[k] = False;
        } else {
            relay.NewState = 1;
            s.frmRelay.PairActive[k] = True;
        }
    }

    int16_t minutes = NumericCodeValue(relay.DayHrEvenOdd);
    relay.CycleStart = CheckedAdd32(CheckedInt32(int64_t{minutes} * 60000), tick);

    // The time of the next change, shown in place of the Invert caption. It runs on past
    // midnight as a clock would (and back before it for a negative code).
    int next = ((now + minutes * 60) % 86400 + 86400) % 86400;
    s.display().SetInvertCaption(i, TimeText(next));
}

void CheckTimePairs(System& s) {
    DateTime present = s.clock().Now();
    const int weekday = present.Weekday;
    const int now = present.SecondsOfDay();
    const int32_t tick = s.clock().GetTickCount();

    FrmRelay& f = s.frmRelay;
    for (int b = 0; b <= LastBoard; ++b) {
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            RelayRecord& relay = f.Relay[i];
            relay.NewState = 0;
            if (relay.HardStop != 0) continue;
            if (relay.Manual != 0) {
                relay.NewState = 1;
                continue;
            }
            if (!DaysOfWeekMatch(s, r, weekday)) continue;

            const int firstPair = PairIndex(i, 0);
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                f.PairActive[k] = False;
                if (!PairIsSet(f, k)) continue;

                const std::string& code = relay.DayHrEvenOdd;
                if (code == "EO" || code == "  ") {
                    CheckPairPlain(s, i, k, now);
                } else if (code == "OD" || code == "ED") {
                    CheckPairEvenOddDay(s, i, k, now);
                } else if (code == "OH" || code == "EH") {
                    CheckPairEvenOddHour(s, i, k, now);
                } else if (code == "OM" || code == "EM") {
                    CheckPairEvenOddMinute(s, i, k, now);
                } else if (code == "OS" || code == "ES") {
                    CheckPairEvenOddSecond(s, i, k, now);
                } else if (code == "XS" || code == "SS" || code == "SX") {
                    CheckPairWeekend(s, i, k, firstPair, now, weekday);
                } else if (p == 0 && (code == "TH" || code == "3H")) {
                    CheckPairTopOfHour(s, i, k, now);
                } else if (p == 0 && code == "MH") {
                    CheckPairMiddleOfHour(s, i, k, now);
                } else if (p == 0 && code == "BH") {
                    CheckPairBottomOfHour(s, i, k, now);
                } else if (p == 0 && IsNumericCode(code)) {
                    CheckPairCyclic(s, i, k, now, tick);
                } else if (p == 1 && code == "3H") {
                    CheckPairMiddleOfHour(s, i, k, now);
                } else if (p == 2 && code == "3H") {
                    CheckPairBottomOfHour(s, i, k, now);
                } else {
                    CheckPairPlain(s, i, k, now);
                }
            }
        }
    }
}

}  // namespace vantrellion

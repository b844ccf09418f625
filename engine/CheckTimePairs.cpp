#include "engine/CheckTimePairs.h"

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

}  // namespace

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

namespace {

// The rule that a relay's even/odd code selects. The code is read once per relay and
// evaluation rather than compared again for every pair: the codes are many short texts and
// comparing them for all 48 pairs was most of an evaluation's cost.
enum class CodeRule {
    Plain,  // "EO", "  " and every text that is no code
    EvenOddDay,
    EvenOddHour,
    EvenOddMinute,
    EvenOddSecond,
    Weekend,
    TopOfHour,     // "TH"
    ThreeWindows,  // "3H"
    MiddleOfHour,  // "MH"
    BottomOfHour,  // "BH"
    Cyclic,        // a number
};

bool Is(const std::string& code, char a, char b) {
    return code.size() == 2 && code[0] == a && code[1] == b;
}

CodeRule RuleOf(const std::string& code) {
    if (Is(code, 'E', 'O') || Is(code, ' ', ' ')) return CodeRule::Plain;
    if (Is(code, 'O', 'D') || Is(code, 'E', 'D')) return CodeRule::EvenOddDay;
    if (Is(code, 'O', 'H') || Is(code, 'E', 'H')) return CodeRule::EvenOddHour;
    if (Is(code, 'O', 'M') || Is(code, 'E', 'M')) return CodeRule::EvenOddMinute;
    if (Is(code, 'O', 'S') || Is(code, 'E', 'S')) return CodeRule::EvenOddSecond;
    if (Is(code, 'X', 'S') || Is(code, 'S', 'S') || Is(code, 'S', 'X')) return CodeRule::Weekend;
    if (Is(code, 'T', 'H')) return CodeRule::TopOfHour;
    if (Is(code, '3', 'H')) return CodeRule::ThreeWindows;
    if (Is(code, 'M', 'H')) return CodeRule::MiddleOfHour;
    if (Is(code, 'B', 'H')) return CodeRule::BottomOfHour;
    if (IsNumericCode(code)) return CodeRule::Cyclic;
    return CodeRule::Plain;
}

// One pair under its relay's rule. The special rules act on the first pair (on the first
// three for "3H"); every other pair is a plain pair.
void CheckPair(System& s, CodeRule rule, int i, int k, int p, int firstPair, int now, int weekday,
               int32_t tick) {
    switch (rule) {
        case CodeRule::EvenOddDay:
            return CheckPairEvenOddDay(s, i, k, now);
        case CodeRule::EvenOddHour:
            return CheckPairEvenOddHour(s, i, k, now);
        case CodeRule::EvenOddMinute:
            return CheckPairEvenOddMinute(s, i, k, now);
        case CodeRule::EvenOddSecond:
            return CheckPairEvenOddSecond(s, i, k, now);
        case CodeRule::Weekend:
            return CheckPairWeekend(s, i, k, firstPair, now, weekday);
        case CodeRule::TopOfHour:
            if (p == 0) return CheckPairTopOfHour(s, i, k, now);
            break;
        case CodeRule::ThreeWindows:
            if (p == 0) return CheckPairTopOfHour(s, i, k, now);
            if (p == 1) return CheckPairMiddleOfHour(s, i, k, now);
            if (p == 2) return CheckPairBottomOfHour(s, i, k, now);
            break;
        case CodeRule::MiddleOfHour:
            if (p == 0) return CheckPairMiddleOfHour(s, i, k, now);
            break;
        case CodeRule::BottomOfHour:
            if (p == 0) return CheckPairBottomOfHour(s, i, k, now);
            break;
        case CodeRule::Cyclic:
            if (p == 0) return CheckPairCyclic(s, i, k, now, tick);
            break;
        case CodeRule::Plain:
            break;
    }
    CheckPairPlain(s, i, k, now);
}

}  // namespace

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
            // Classified only once some pair is set, so that a relay without pairs costs
            // nothing more.
            bool classified = false;
            CodeRule rule = CodeRule::Plain;
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                f.PairActive[k] = False;
                if (!PairIsSet(f, k)) continue;
                if (!classified) {
                    rule = RuleOf(relay.DayHrEvenOdd);
                    classified = true;
                }
                CheckPair(s, rule, i, k, p, firstPair, now, weekday, tick);
            }
        }
    }
}

}  // namespace vantrellion

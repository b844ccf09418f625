#include "engine/CheckTimePairs.h"

#include "core/FatalError.h"
#include "engine/HeldRelays.h"
#include "engine/PairTimes.h"

namespace vantrellion {

namespace {

constexpr int SecondsPerHour = 3600;
constexpr int LastSecondOfDay = 23 * 3600 + 59 * 60 + 59;

// Switches pair k of relay i on: the relay is wanted on and the pair's light is lit.
void SwitchPairOn(System& s, int i, int k) {
    s.frmRelay.Relay[i].NewState = 1;
    s.frmRelay.PairActive[k] = True;
}

// The pair's times on the present day: a sun time as worked out for the day.
int StartOf(System& s, int k) {
    return KnownStart(s, k);
}
int EndOf(System& s, int k) {
    return KnownEnd(s, k);
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
    return s.frmRelay.Relay[r].DaysOfWeek.Matches(weekday);
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
    const bool even = s.frmRelay.Relay[i].DayHrEvenOdd.Even();
    if ((s.clock().Now().Day % 2 == 0) == even) SwitchPairOn(s, i, k);
}

namespace {

// The common frame of the even/odd hour, minute and second tests: value is the part of now
// that the code looks at; 0 counts as even.
void CheckPairEvenOddPart(System& s, int i, int k, int now, int value) {
    if (!TimeInPair(s, k, now)) return;
    if ((value % 2 == 0) == s.frmRelay.Relay[i].DayHrEvenOdd.Even()) SwitchPairOn(s, i, k);
}

}  // namespace

void CheckPairEvenOddHour(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, HourOf(now));
}

void CheckPairEvenOddMinute(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, MinuteOf(now));
}

void CheckPairEvenOddSecond(System& s, int i, int k, int now) {
    CheckPairEvenOddPart(s, i, k, now, SecondOf(now));
}

// Only the relay's first pair is held back on the weekend days of its code; the other pairs
// act as plain pairs.
void CheckPairWeekend(System& s, int i, int k, int firstPair, int now, int weekday) {
    if (!TimeInPair(s, k, now)) return;
    if (k == firstPair && s.frmRelay.Relay[i].DayHrEvenOdd.HeldOn(weekday)) return;
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
// first half-cycle is an off one. The count is the 64-bit monotonic one, so a cycle neither
// overflows nor stops however long the machine has been up.
void CheckPairCyclic(System& s, int i, int k, int now, int64_t tick) {
    if (!TimeInPair(s, k, now)) return;
    RelayRecord& relay = s.frmRelay.Relay[i];

    if (tick <= relay.CycleStart) {  // the half-cycle is still running
        // A relay not read back yet (OldState 9, the first tick after a reset) counts as off,
        // as after any restart: an evaluation only ever gives 0 or 1.
        const bool on = relay.OldState == 1;
        relay.NewState = on ? 1 : 0;
        s.frmRelay.PairActive[k] = on ? True : False;
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

    const int16_t minutes = relay.DayHrEvenOdd.CycleMinutes();
    relay.CycleStart = int64_t{minutes} * 60000 + tick;

    // The time of the next change, shown in place of the Invert caption. It runs on past
    // midnight as a clock would (and back before it for a negative code).
    int next = ((now + minutes * 60) % 86400 + 86400) % 86400;
    s.display().SetInvertCaption(i, TimeText(next));
}

namespace {

// One pair under its relay's rule. The special rules act on the first pair (on the first
// three for "3H"); every other pair is a plain pair.
void CheckPair(System& s, CodeRule rule, int i, int k, int p, int firstPair, int now, int weekday,
               int64_t tick) {
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
    const int64_t tick = s.clock().MonotonicMs();

    const LocalSeconds moment = ToLocalSeconds(present);
    EndPassedPauses(s, moment);
    MarkHeldRelays(s, moment);

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
            // A day off or a pause keeps the relay off; its pair lights go out.
            if (relay.Held != Hold::None) {
                for (int p = 0; p <= LastTimePair; ++p)
                    f.PairActive[PairIndex(i, p)] = False;
                continue;
            }
            if (!DaysOfWeekMatch(s, r, weekday)) continue;

            const int firstPair = PairIndex(i, 0);
            const CodeRule rule = relay.DayHrEvenOdd.Rule();
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                f.PairActive[k] = False;
                if (!PairIsSet(f, k)) continue;
                // A sun time without a time today (no location, polar day or night) keeps
                // the pair off; the log says why once a day.
                if (!PairTimesKnown(s, i, k, present, true)) continue;
                CheckPair(s, rule, i, k, p, firstPair, now, weekday, tick);
            }
        }
    }
}

}  // namespace vantrellion

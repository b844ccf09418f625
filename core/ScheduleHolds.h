// Days off and pauses: times at which chosen relays do not follow their schedule and stay off.
// Manual and Hard Stop still act on a held relay. Both are kept with the schedule, in the Run
// File and the restart file, so that they survive a crash and a restart.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Constants.h"
#include "core/Timeline.h"

namespace vantrellion {

// One entry of the days-off list: a single date (First equal to Last) or a range of dates,
// both ends included. An entry for every year compares month and day only, and a range of
// that kind may run over the turn of the year (24 December to 2 January): its last date may
// then stand before its first.
struct DayOff {
    LocalSeconds First = 0;  // midnight of the first date
    LocalSeconds Last = 0;   // midnight of the last date
    bool EveryYear = false;
    uint32_t Relays = 0;  // bit i: record i is held
    std::string Note;     // what the day is, for the user ("Christmas")
    bool operator==(const DayOff&) const = default;
};

struct ScheduleHolds {
    std::vector<DayOff> DaysOff;
    // Per record, the second from which a paused relay follows its schedule again; 0 when the
    // relay is not paused.
    std::array<LocalSeconds, RelaySlots> PausedUntil{};
    bool operator==(const ScheduleHolds&) const = default;
};

// Why a relay does not follow its schedule now.
enum class Hold : int16_t { None = 0, DayOff = 1, Paused = 2 };

bool HoldsRelay(const DayOff& d, int record);
// Whether the entry covers the calendar day of `day`.
bool DayOffCovers(const DayOff& d, LocalSeconds day);
bool IsDayOff(const ScheduleHolds& h, int record, LocalSeconds now);
bool IsPaused(const ScheduleHolds& h, int record, LocalSeconds now);
// A pause goes before a day off: it is the one that ends at a time of its own.
Hold HoldOf(const ScheduleHolds& h, int record, LocalSeconds now);

// The spans of `range` in which the relay has a day off, and in which it is paused (a pause
// is taken to run from the start of the range).
std::vector<TimeSpan> DayOffSpans(const ScheduleHolds& h, int record, TimeSpan range);
std::vector<TimeSpan> PausedSpans(const ScheduleHolds& h, int record, TimeSpan range);

// The entry as the user reads it: "2026-12-25", "2026-08-01 to 2026-08-15", "12-25 every
// year", "12-24 to 01-02 every year", with the note after a dash when it has one.
std::string DayOffText(const DayOff& d);

}  // namespace vantrellion

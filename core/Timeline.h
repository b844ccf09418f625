// What relays did or will do over a span of time: for each relay the intervals in which it is
// on, and the spans of which nothing is known. The schedule preview fills it from the engine,
// the run-time history from the daily logs; the desktop and the command-line tools draw it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Flags.h"
#include "core/Platform.h"

namespace vantrellion {

// Local wall-clock time as seconds since 1970-01-01 00:00:00, without a time zone: the clock
// the schedule runs on. A day is always 86400 of them.
using LocalSeconds = int64_t;

struct TimeSpan {
    LocalSeconds From = 0;  // first second inside
    LocalSeconds To = 0;    // first second after
    LocalSeconds Length() const { return To - From; }
    bool operator==(const TimeSpan&) const = default;
};

struct TimelineLane {
    std::string Name;      // the relay's name, shown at the left of its lane
    Color GroupColor = 0;  // the relay's group colour, drawn where it is on
    std::vector<TimeSpan> On;
    // Where the relay did not (or will not) follow its schedule: days off, and pauses. Marked
    // in its lane.
    std::vector<TimeSpan> DaysOff;
    std::vector<TimeSpan> Paused;
};

struct Timeline {
    TimeSpan Range;
    std::vector<TimelineLane> Lanes;
    std::vector<TimeSpan> Gaps;  // nothing is known here (for the history: the program was not
                                 // running), shaded over all lanes
};

// Conversions between the clock's date-time and LocalSeconds. The weekday is derived from the
// date (Sunday = 1).
LocalSeconds ToLocalSeconds(const DateTime& d);
DateTime FromLocalSeconds(LocalSeconds t);

}  // namespace vantrellion

// What the relays and inputs actually did over a range of days, read back from the daily log
// files: for each relay and input the spans in which it was on, the spans of which the log
// says nothing (no state line: the program was not running, or logging was off), the event
// lines, and per day the seconds on, the seconds known and the restarts.
//
// A state line tells the states at its time; they hold until the next state line if that
// follows within MaxStateLineStep, and otherwise for one minute (StateLineHold), after which
// the time up to the next line is a gap. Lines that are not state lines are counted and
// skipped; nothing in a file can make the reader fail.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/Timeline.h"
#include "history/LogLine.h"

namespace vantrellion {

inline constexpr LocalSeconds SecondsPerDay = 86400;
inline constexpr LocalSeconds StateLineHold = 60;
inline constexpr LocalSeconds MaxStateLineStep = 120;

struct HistoryDay {
    LocalSeconds Start = 0;  // midnight
    bool FileFound = false;  // the day's log file could be read
    std::array<LocalSeconds, MaxLoggedLanes> RelayOnSeconds{};
    std::array<LocalSeconds, MaxLoggedLanes> InputOnSeconds{};
    LocalSeconds KnownSeconds = 0;  // covered by state lines
    LocalSeconds GapSeconds = 0;    // not covered, up to the present time
    int Restarts = 0;               // "ReStart" event lines
};

struct LogEvent {
    LocalSeconds At = 0;
    std::string First, Second;  // as written (Latin-1)
};

// What the reader met in the files of the range.
struct LogReadCounts {
    int FilesRead = 0;
    int FilesMissing = 0;  // no file for a day, or one that cannot be opened
    int StateLines = 0;    // taken into the history
    int EventLines = 0;
    int ListingLines = 0;     // port address listing
    int ForeignLines = 0;     // other writers' text
    int DamagedLines = 0;     // cut, garbled or with control bytes
    int OutOfOrderLines = 0;  // state lines not later than the one before (clock set back)
    int NoRelayLines = 0;     // state lines of a configuration that logs no board
};

struct RunTimeHistory {
    TimeSpan Range;  // first second of the first day to the end of the last day, or
                     // the present time if that comes first
    int Relays = 0;  // lanes seen in the state lines (8 per logged board)
    int Inputs = 0;
    std::array<std::vector<TimeSpan>, MaxLoggedLanes> RelayOn;
    std::array<std::vector<TimeSpan>, MaxLoggedLanes> InputOn;
    std::vector<TimeSpan> Gaps;
    // Per relay, where its schedule was paused: from a pause's start line to its end line, or
    // to the end that the start line names (a pause begun before the day ahead of the range is
    // not seen).
    std::array<std::vector<TimeSpan>, MaxLoggedLanes> RelayPaused;
    std::vector<HistoryDay> Days;
    std::vector<LogEvent> Events;
    LogReadCounts Counts;
};

struct HistoryRequest {
    // Put in front of each file name as it stands, as the log writer does: a directory with
    // its closing "/".
    std::string LogDirectory;
    LocalSeconds FirstDay = 0;  // any second of the first day
    LocalSeconds LastDay = 0;   // any second of the last day
    LocalSeconds Now = 0;       // nothing after it counts as a gap
};

RunTimeHistory ReadRunTimeHistory(const HistoryRequest& request);

// The file name of a day's log, as the log writer makes it: "Vantrellion_2026_11_14.Log".
std::string LogFileNameOfDay(LocalSeconds day);

// Midnight of the day of t.
LocalSeconds DayStart(LocalSeconds t);

}  // namespace vantrellion

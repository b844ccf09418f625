// The preview's result as text: the switch times as CSV and the per-day on-times as a table
// for the terminal.
#pragma once

#include <string>

#include "preview/SchedulePreview.h"

namespace vantrellion {

// "time,relay,name,state" and one line per switch, in time order (relays in record order
// within one second): the state each relay reads from the first second, then every change.
// A relay is named by its column heading ("R1") and its shown name; the lines are CsvLines.
std::string PreviewCsv(const PreviewResult& result);

// One line per day of the span with each relay's on-time as H:MM:SS, under a heading of the
// relays' columns ("R1"), with the names listed above it. Ends with the warnings, one per line.
std::string OnTimeTable(const PreviewResult& result);

// Seconds as "H:MM:SS" (hours unbounded).
std::string DurationText(int64_t seconds);

}  // namespace vantrellion

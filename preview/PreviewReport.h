// The preview's result as text: the switch times as CSV, the per-day on-times as a table for
// the terminal, and the date-time form in which a user names the start.
#pragma once

#include <optional>
#include <string>

#include "preview/SchedulePreview.h"

namespace vantrellion {

// "YYYY-MM-DD HH:MM:SS", a valid calendar date and time of day; nothing otherwise.
std::optional<LocalSeconds> ParsePreviewTime(const std::string& text);
std::string PreviewTimeText(LocalSeconds t);

// "time,relay,name,state" and one line per switch, in time order (relays in record order
// within one second): the state each relay reads from the first second, then every change.
// Relay numbers count from 1; names are quoted where they hold a comma or a quote. Lines end
// with "\n".
std::string PreviewCsv(const PreviewResult& result);

// One line per day of the span with each relay's on-time as H:MM:SS, under a heading of relay
// numbers, with the names listed above it. Ends with the warnings, one per line.
std::string OnTimeTable(const PreviewResult& result);

// Seconds as "H:MM:SS" (hours unbounded).
std::string DurationText(int64_t seconds);

}  // namespace vantrellion

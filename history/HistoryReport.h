// What is made of a run-time history for people: the relay names and colours to show, the
// per-day table of on-hours, the CSV file and the timeline of a span (a day for the day view).
#pragma once

#include <array>
#include <string>

#include "core/SharedState.h"
#include "history/RunTimeHistory.h"

namespace vantrellion {

// The name and group colour of each relay lane: board b's relay r is lane b * 8 + r, named as
// in the configuration (as RelayShownName gives it) and coloured with the group colour of its
// row.
struct HistoryLabels {
    std::array<std::string, MaxLoggedLanes> RelayNames;
    std::array<Color, MaxLoggedLanes> GroupColors{};
};

HistoryLabels HistoryLabelsFrom(const ModRelay& m);

// The number of relay lanes to show: those seen in the log, and at least one board's worth.
int ShownRelays(const RunTimeHistory& h);

// "2026-11-14" of a day's midnight.
std::string IsoDate(LocalSeconds day);
// A date in the forms of ParseDateTimeText, to the midnight of its day; false when it is none.
bool ParseIsoDate(const std::string& text, LocalSeconds& day);

// The day the day view opens on: today when today's log is there, else the last day of the
// history that has a log, else today.
LocalSeconds DayViewDay(const RunTimeHistory& h, LocalSeconds today);

// Hours with two decimals: "7.25".
std::string HoursText(LocalSeconds seconds);

// The per-day table of the command line: a legend of the relay names, then one row per day
// with the on-hours of each relay, the hours not logged and the restarts; a day without a log
// file is marked, and a closing line counts the lines that were skipped.
std::string HistoryTableText(const RunTimeHistory& h, const HistoryLabels& labels);

// The CSV file: a header row, then one row per day with the date, the on-hours of each relay,
// the on-hours of each input, the hours logged, the hours not logged, the restarts and whether
// the day's log file was there. Each row is a CsvLine.
std::string HistoryCsv(const RunTimeHistory& h, const HistoryLabels& labels);

// Writes bytes to path, replacing the file. False when it cannot be written whole.
bool WriteHistoryFile(const std::string& path, const std::string& bytes);

// The relays over one span (a day, for the day view): one lane per relay with its on spans,
// and the gaps of the log, all clipped to the span.
Timeline HistoryTimeline(const RunTimeHistory& h, const HistoryLabels& labels, TimeSpan span);

}  // namespace vantrellion

#include "history/HistoryReport.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "core/CsvText.h"
#include "core/DateTimeText.h"
#include "core/RelayColumns.h"
#include "core/Timeline.h"

namespace vantrellion {

namespace {

std::vector<TimeSpan> Clip(const std::vector<TimeSpan>& spans, TimeSpan to) {
    std::vector<TimeSpan> out;
    for (const TimeSpan& s : spans) {
        const LocalSeconds from = std::max(s.From, to.From);
        const LocalSeconds end = std::min(s.To, to.To);
        if (from < end) out.push_back({from, end});
    }
    return out;
}

std::string Padded(const std::string& text, size_t width) {
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

}  // namespace

HistoryLabels HistoryLabelsFrom(const ModRelay& m) {
    HistoryLabels l;
    for (int n = 0; n < MaxLoggedLanes; ++n) {
        l.RelayNames[n] = RelayShownName(m.Board[n / 8].RelayName[n % 8], n);
        l.GroupColors[n] = m.ColorRelayGroup[n % 8];
    }
    return l;
}

int ShownRelays(const RunTimeHistory& h) {
    return std::max(h.Relays, 8);
}

std::string IsoDate(LocalSeconds day) {
    return DateText(day);
}

bool ParseIsoDate(const std::string& text, LocalSeconds& day) {
    const std::optional<LocalSeconds> t = ParseDateTimeText(text);
    if (!t) return false;
    day = DayStart(*t);
    return true;
}

LocalSeconds DayViewDay(const RunTimeHistory& h, LocalSeconds today) {
    LocalSeconds day = today;
    for (const HistoryDay& d : h.Days) {
        if (d.Start == today && d.FileFound) return today;
        if (d.FileFound && d.Start <= today) day = d.Start;
    }
    return day;
}

std::string HoursText(LocalSeconds seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", static_cast<double>(seconds) / 3600.0);
    return text;
}

std::string HistoryTableText(const RunTimeHistory& h, const HistoryLabels& labels) {
    const int relays = ShownRelays(h);
    std::string out = "On-hours per day, from " + IsoDate(h.Range.From) + " to " +
                      IsoDate(h.Days.empty() ? h.Range.From : h.Days.back().Start) + "\n";
    for (int n = 0; n < relays; ++n)
        out += RelayLegendLine(n, labels.RelayNames[n]);
    out += "\nDate      ";
    for (int n = 0; n < relays; ++n)
        out += Padded(RelayColumnHeading(n), 7);
    out += "  Not logged  ReStart\n";
    for (const HistoryDay& d : h.Days) {
        out += IsoDate(d.Start);
        for (int n = 0; n < relays; ++n)
            out += Padded(HoursText(d.RelayOnSeconds[n]), 7);
        out += Padded(HoursText(d.GapSeconds), 12) + Padded(std::to_string(d.Restarts), 9);
        if (!d.FileFound) out += "  no log file";
        out += "\n";
    }
    const LogReadCounts& c = h.Counts;
    out += "\n" + std::to_string(c.FilesRead) + " log files, " + std::to_string(c.StateLines) +
           " state lines, " + std::to_string(c.EventLines) +
           " event lines; skipped: " + std::to_string(c.DamagedLines) + " damaged, " +
           std::to_string(c.ForeignLines) + " foreign, " + std::to_string(c.ListingLines) +
           " port listing, " + std::to_string(c.OutOfOrderLines) + " out of order, " +
           std::to_string(c.NoRelayLines) + " without relays\n";
    return out;
}

std::string HistoryCsv(const RunTimeHistory& h, const HistoryLabels& labels) {
    const int relays = ShownRelays(h);
    const int inputs = h.Inputs;
    std::vector<std::string> row = {"Date"};
    for (int n = 0; n < relays; ++n)
        row.push_back(labels.RelayNames[n]);
    for (int n = 0; n < inputs; ++n)
        row.push_back("Input " + std::to_string(n + 1));
    row.insert(row.end(), {"Logged", "Not logged", "Restarts", "Log file"});
    std::string out = CsvLine(row);
    for (const HistoryDay& d : h.Days) {
        row = {IsoDate(d.Start)};
        for (int n = 0; n < relays; ++n)
            row.push_back(HoursText(d.RelayOnSeconds[n]));
        for (int n = 0; n < inputs; ++n)
            row.push_back(HoursText(d.InputOnSeconds[n]));
        row.insert(row.end(), {HoursText(d.KnownSeconds), HoursText(d.GapSeconds),
                               std::to_string(d.Restarts), d.FileFound ? "yes" : "no"});
        out += CsvLine(row);
    }
    return out;
}

bool WriteHistoryFile(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

Timeline HistoryTimeline(const RunTimeHistory& h, const HistoryLabels& labels, TimeSpan span) {
    Timeline t;
    t.Range = span;
    for (int n = 0; n < ShownRelays(h); ++n) {
        TimelineLane lane;
        lane.Name = labels.RelayNames[n];
        lane.GroupColor = labels.GroupColors[n];
        lane.On = Clip(h.RelayOn[n], span);
        lane.Paused = Clip(h.RelayPaused[n], span);
        t.Lanes.push_back(std::move(lane));
    }
    t.Gaps = Clip(h.Gaps, span);
    return t;
}

}  // namespace vantrellion

#include "preview/PreviewReport.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "core/Timeline.h"

namespace vantrellion {

namespace {

bool IsLeapYear(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int DaysInMonth(int y, int m) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && IsLeapYear(y) ? 29 : days[m - 1];
}

// Exactly `n` digits at `pos`.
bool Digits(const std::string& t, size_t pos, size_t n, int& value) {
    value = 0;
    for (size_t i = pos; i < pos + n; ++i) {
        if (i >= t.size() || t[i] < '0' || t[i] > '9') return false;
        value = value * 10 + (t[i] - '0');
    }
    return true;
}

}  // namespace

std::optional<LocalSeconds> ParsePreviewTime(const std::string& text) {
    // 0123456789012345678
    // YYYY-MM-DD HH:MM:SS
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    DateTime d;
    if (!Digits(text, 0, 4, d.Year) || !Digits(text, 5, 2, d.Month) || !Digits(text, 8, 2, d.Day) ||
        !Digits(text, 11, 2, d.Hour) || !Digits(text, 14, 2, d.Minute) ||
        !Digits(text, 17, 2, d.Second)) {
        return std::nullopt;
    }
    if (d.Year < 1 || d.Month < 1 || d.Month > 12 || d.Day < 1 ||
        d.Day > DaysInMonth(d.Year, d.Month) || d.Hour > 23 || d.Minute > 59 || d.Second > 59) {
        return std::nullopt;
    }
    return ToLocalSeconds(d);
}

std::string PreviewTimeText(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", d.Year, d.Month, d.Day, d.Hour,
                  d.Minute, d.Second);
    return buf;
}

std::string DurationText(int64_t seconds) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%lld:%02d:%02d", static_cast<long long>(seconds / 3600),
                  static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return buf;
}

std::string PreviewCsv(const PreviewResult& result) {
    struct Line {
        LocalSeconds at;
        int record;
        bool on;
    };
    std::vector<Line> lines;
    for (const RelayPreview& r : result.Relays)
        for (const RelaySwitch& s : r.Switches)
            lines.push_back({s.At, r.Record, s.On});
    std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) {
        return a.at != b.at ? a.at < b.at : a.record < b.record;
    });
    std::string out = "time,relay,name,state\n";
    for (const Line& l : lines) {
        out += PreviewTimeText(l.at) + "," + std::to_string(l.record + 1) + "," +
               CsvField(result.Relays[static_cast<size_t>(l.record)].Name) + "," +
               (l.on ? "on" : "off") + "\n";
    }
    return out;
}

std::string OnTimeTable(const PreviewResult& result) {
    std::ostringstream out;
    out << "Preview from " << PreviewTimeText(result.Range.From) << " to "
        << PreviewTimeText(result.Range.To) << "\n";
    for (const RelayPreview& r : result.Relays)
        out << "  " << r.Record + 1 << "  " << r.Name << "\n";
    out << "\nOn-time per day\n";
    char cell[32];
    std::snprintf(cell, sizeof cell, "%-10s", "Date");
    out << cell;
    for (const RelayPreview& r : result.Relays) {
        std::snprintf(cell, sizeof cell, " %9d", r.Record + 1);
        out << cell;
    }
    out << "\n";
    for (size_t d = 0; d < result.DayStarts.size(); ++d) {
        out << PreviewTimeText(result.DayStarts[d]).substr(0, 10);
        for (const RelayPreview& r : result.Relays) {
            std::snprintf(cell, sizeof cell, " %9s", DurationText(r.OnSecondsPerDay[d]).c_str());
            out << cell;
        }
        out << "\n";
    }
    if (!result.Warnings.empty()) {
        out << "\nWarnings\n";
        for (const PreviewWarning& w : result.Warnings)
            out << "  " << w.Text << "\n";
    }
    return out.str();
}

}  // namespace vantrellion

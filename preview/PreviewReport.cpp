#include "preview/PreviewReport.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "core/CsvText.h"
#include "core/DateTimeText.h"
#include "core/RelayColumns.h"

namespace vantrellion {

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
    std::string out = CsvLine({"time", "relay", "name", "state"});
    for (const Line& l : lines) {
        out += CsvLine({DateTimeText(l.at), RelayColumnHeading(l.record),
                        result.Relays[static_cast<size_t>(l.record)].Name, l.on ? "on" : "off"});
    }
    return out;
}

std::string OnTimeTable(const PreviewResult& result) {
    std::ostringstream out;
    out << "Preview from " << DateTimeText(result.Range.From) << " to "
        << DateTimeText(result.Range.To) << "\n";
    for (const RelayPreview& r : result.Relays)
        out << RelayLegendLine(r.Record, r.Name);
    out << "\nOn-time per day\n";
    char cell[32];
    std::snprintf(cell, sizeof cell, "%-10s", "Date");
    out << cell;
    for (const RelayPreview& r : result.Relays) {
        std::snprintf(cell, sizeof cell, " %9s", RelayColumnHeading(r.Record).c_str());
        out << cell;
    }
    out << "\n";
    for (size_t d = 0; d < result.DayStarts.size(); ++d) {
        out << DateText(result.DayStarts[d]);
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

#include "preview/OnTimeStops.h"

#include <algorithm>

#include "core/DateTimeText.h"

namespace vantrellion {

namespace {

constexpr LocalSeconds Day = 86400;

LocalSeconds FloorDay(LocalSeconds t) {
    return t - ((t % Day) + Day) % Day;
}

// Whether relay i's schedule can switch it on in [from, to), a part of one day: an inverted
// relay always can; else a set pair whose time lies in that part must be checked on that day
// (the days of the week as the engine reads them, the even/odd day, the weekend hold). A
// day off, or a pause over the whole part, keeps it off whatever the schedule says.
bool CanBeOn(const ScheduleSnapshot& schedule, int i, LocalSeconds from, LocalSeconds to) {
    const FrmRelay& f = schedule.frmRelay;
    const RelayRecord& rec = f.Relay[i];
    if (IsDayOff(f.Holds, i, from) || f.Holds.PausedUntil[i] >= to) return false;
    if (rec.Invert != 0) return true;
    const DateTime date = FromLocalSeconds(from);
    if (!f.Relay[i % RelaysPerBoard].DaysOfWeek.Matches(date.Weekday)) return false;
    const LocalSeconds midnight = FloorDay(from);
    const LocalSeconds first = from - midnight, last = to - midnight;
    const CodeRule rule = rec.DayHrEvenOdd.Rule();
    // A sun time counts with that day's sun, worked out only when a pair needs it.
    const std::optional<GeoLocation>& place = schedule.modRelay.Location;
    std::optional<SunDay> sun;
    const auto timeOf = [&](const TimeField& t) -> std::optional<int> {
        if (t.IsReadable()) return t.Value();
        if (!t.IsSunTime() || !place) return std::nullopt;
        if (!sun) sun = SunTimesFor(date.Year, date.Month, date.Day, *place);
        return SunTimeOnDay(t.Sun(), *sun);
    };
    for (int p = 0; p <= LastTimePair; ++p) {
        const int k = PairIndex(i, p);
        const auto start = timeOf(f.StartTime[k]), end = timeOf(f.EndTime[k]);
        if (!start || !end) continue;
        if (rule == CodeRule::EvenOddDay && (date.Day % 2 == 0) != rec.DayHrEvenOdd.Even())
            continue;
        if (rule == CodeRule::Weekend && p == 0 && rec.DayHrEvenOdd.HeldOn(date.Weekday)) continue;
        // A pair is on strictly between its start and its end.
        const LocalSeconds onFrom = std::max<LocalSeconds>(*start + 1, first);
        const LocalSeconds onTo = std::min<LocalSeconds>(*end, last);
        if (onFrom < onTo) return true;
    }
    return false;
}

}  // namespace

void AddOnTimeStopWarnings(const ScheduleSnapshot& schedule, PreviewResult& result) {
    const FrmRelay& f = schedule.frmRelay;
    const LocalSeconds known = result.Ended || result.Cancelled ? result.EndedAt : result.Range.To;
    const size_t days = result.DayStarts.size();
    for (RelayPreview& r : result.Relays) {
        const RelayRecord& rec = f.Relay[r.Record];
        if (rec.HardStop != 0 || rec.Manual != 0) continue;
        // The on-time of each whole known day that the schedule could have given on-time to.
        std::vector<size_t> counted;
        for (size_t d = 0; d < days && d < r.OnSecondsPerDay.size(); ++d) {
            const LocalSeconds end = d + 1 < days ? result.DayStarts[d + 1] : result.Range.To;
            if (end > known) break;
            if (r.OnSecondsPerDay[d] > 0 || CanBeOn(schedule, r.Record, result.DayStarts[d], end))
                counted.push_back(d);
        }
        const auto lastOn = std::find_if(counted.rbegin(), counted.rend(),
                                         [&](size_t d) { return r.OnSecondsPerDay[d] > 0; });
        if (lastOn == counted.rend() || lastOn == counted.rbegin()) continue;
        const size_t stopped = static_cast<size_t>(lastOn - counted.rbegin());
        size_t longestBefore = 0, run = 0;
        for (auto it = counted.begin(); it != lastOn.base(); ++it) {
            run = r.OnSecondsPerDay[*it] > 0 ? 0 : run + 1;
            longestBefore = std::max(longestBefore, run);
        }
        if (stopped <= longestBefore) continue;
        const size_t firstOff = *(lastOn - 1);
        PreviewWarning w;
        w.Kind = PreviewWarningKind::OnTimeStops;
        w.Record = r.Record;
        w.At = result.DayStarts[firstOff];
        w.Text = PreviewRelayLabel(schedule, r.Record) + ": its on-time drops to nothing from " +
                 DateText(w.At) + " on: on last on " + DateText(result.DayStarts[*lastOn]) +
                 ", then never on again up to " + DateTimeText(known) + " (days \"" +
                 rec.DaysOfWeek.Text() + "\", code \"" + rec.DayHrEvenOdd.Text() + "\")";
        result.Warnings.push_back(w);
    }
}

}  // namespace vantrellion

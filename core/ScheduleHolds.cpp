#include "core/ScheduleHolds.h"

#include <algorithm>
#include <cstdio>

#include "core/DateTimeText.h"

namespace vantrellion {

namespace {

constexpr LocalSeconds kDay = 86400;

LocalSeconds Midnight(LocalSeconds t) {
    return t - ((t % kDay) + kDay) % kDay;
}

int MonthDay(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    return d.Month * 100 + d.Day;
}

std::string MonthDayText(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d-%02d", d.Month % 100, d.Day % 100);
    return buf;
}

}  // namespace

bool HoldsRelay(const DayOff& d, int record) {
    return record >= 0 && record < 32 && (d.Relays >> record & 1u) != 0;
}

bool DayOffCovers(const DayOff& d, LocalSeconds day) {
    if (!d.EveryYear) {
        const LocalSeconds m = Midnight(day);
        return d.First <= m && m <= d.Last;
    }
    const int md = MonthDay(day);
    const int first = MonthDay(d.First);
    const int last = MonthDay(d.Last);
    if (first <= last) return first <= md && md <= last;
    return md >= first || md <= last;  // over the turn of the year
}

bool IsDayOff(const ScheduleHolds& h, int record, LocalSeconds now) {
    return std::any_of(h.DaysOff.begin(), h.DaysOff.end(), [&](const DayOff& d) {
        return HoldsRelay(d, record) && DayOffCovers(d, now);
    });
}

bool IsPaused(const ScheduleHolds& h, int record, LocalSeconds now) {
    return record >= 0 && record < RelaySlots && h.PausedUntil[record] > now;
}

Hold HoldOf(const ScheduleHolds& h, int record, LocalSeconds now) {
    if (IsPaused(h, record, now)) return Hold::Paused;
    if (IsDayOff(h, record, now)) return Hold::DayOff;
    return Hold::None;
}

std::vector<TimeSpan> DayOffSpans(const ScheduleHolds& h, int record, TimeSpan range) {
    std::vector<TimeSpan> spans;
    for (LocalSeconds day = Midnight(range.From); day < range.To; day += kDay) {
        if (!IsDayOff(h, record, day)) continue;
        const TimeSpan span{std::max(day, range.From), std::min(day + kDay, range.To)};
        if (!spans.empty() && spans.back().To == span.From) {
            spans.back().To = span.To;
        } else {
            spans.push_back(span);
        }
    }
    return spans;
}

std::vector<TimeSpan> PausedSpans(const ScheduleHolds& h, int record, TimeSpan range) {
    if (record < 0 || record >= RelaySlots || h.PausedUntil[record] <= range.From) return {};
    return {{range.From, std::min(h.PausedUntil[record], range.To)}};
}

std::string DayOffText(const DayOff& d) {
    auto date = [&](LocalSeconds t) { return d.EveryYear ? MonthDayText(t) : DateText(t); };
    std::string text = date(d.First);
    if (d.Last != d.First) text += " to " + date(d.Last);
    if (d.EveryYear) text += " every year";
    if (!d.Note.empty()) text += " - " + d.Note;
    return text;
}

}  // namespace vantrellion

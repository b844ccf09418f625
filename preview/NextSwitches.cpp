#include "preview/NextSwitches.h"

#include <algorithm>

#include "preview/SchedulePreview.h"

namespace vantrellion {

namespace {
// The preview looks this far ahead, and is run again when less than an hour of it is left.
constexpr LocalSeconds kLookAhead = 86400 + 3600;
constexpr LocalSeconds kRunAgainBefore = 3600;
}  // namespace

std::string ScheduleKey(const System& s) {
    std::string key;
    const FrmRelay& f = s.frmRelay;
    for (int k = 0; k < PairSlots; ++k)
        key += f.StartTime[k].Text() + "|" + f.EndTime[k].Text() + "|";
    for (const RelayRecord& r : f.Relay)
        key += r.DaysOfWeek.Text() + "|" + r.DayHrEvenOdd.Text() + "|" + std::to_string(r.Manual) +
               std::to_string(r.Invert) + std::to_string(r.HardStop) + "|";
    for (const DayOff& d : f.Holds.DaysOff)
        key += std::to_string(d.First) + "-" + std::to_string(d.Last) + (d.EveryYear ? "y" : "n") +
               std::to_string(d.Relays) + "|";
    for (const LocalSeconds until : f.Holds.PausedUntil)
        key += std::to_string(until) + "|";
    if (const auto& place = s.modRelay.Location)
        key += std::to_string(place->Latitude) + "," + std::to_string(place->Longitude);
    return key;
}

void NextSwitches::Update(const System& s) {
    Clock& clock = *s.platform.clock;
    const LocalSeconds now = ToLocalSeconds(clock.Now());
    // Run again when the schedule changed, near the end of the span looked at, and when the
    // clock was set back before it.
    std::string key = ScheduleKey(s);
    if (key != key_ || now + kRunAgainBefore >= validUntil_ || now < validUntil_ - kLookAhead - 1) {
        key_ = std::move(key);
        PreviewRequest request;
        request.From = now + 1;
        request.Length = kLookAhead;
        request.StartTick = clock.MonotonicMs() + 1000;
        const PreviewResult result = RunPreview(TakeSnapshot(s), request);
        for (auto& list : times_)
            list.clear();
        for (const RelayPreview& relay : result.Relays) {
            if (relay.Record < 0 || relay.Record >= RelaySlots) continue;
            for (const RelaySwitch& sw : relay.Switches)
                if (sw.At > request.From) times_[relay.Record].push_back(sw.At);
        }
        validUntil_ = result.Ended || result.Cancelled ? result.EndedAt : request.From + kLookAhead;
    }
}

std::optional<LocalSeconds> NextSwitches::After(LocalSeconds now, int record) const {
    std::optional<LocalSeconds> next;
    for (int i = 0; i < RelaySlots; ++i) {
        if (record >= 0 && i != record) continue;
        const auto it = std::upper_bound(times_[i].begin(), times_[i].end(), now);
        if (it != times_[i].end() && *it < now + 86400 && (!next || *it < *next)) next = *it;
    }
    return next;
}

}  // namespace vantrellion

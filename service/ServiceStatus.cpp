#include "service/ServiceStatus.h"

#include <algorithm>

#include "preview/SchedulePreview.h"

namespace vantrellion {

namespace {
// The preview looks this far ahead, and is run again when less than an hour of it is left.
constexpr LocalSeconds kLookAhead = 86400 + 3600;
constexpr LocalSeconds kRunAgainBefore = 3600;
}  // namespace

std::optional<LocalSeconds> NextSwitchTimes::After(const System& s) {
    Clock& clock = *s.platform.clock;
    const LocalSeconds now = ToLocalSeconds(clock.Now());
    // Run again near the end of the span looked at, and when the clock was set back before it.
    if (now + kRunAgainBefore >= validUntil_ || now < validUntil_ - kLookAhead - 1) {
        PreviewRequest request;
        request.From = now + 1;
        request.Length = kLookAhead;
        request.StartTick = clock.MonotonicMs() + 1000;
        const PreviewResult result = RunPreview(TakeSnapshot(s), request);
        times_.clear();
        for (const RelayPreview& relay : result.Relays)
            for (const RelaySwitch& sw : relay.Switches)
                if (sw.At > request.From) times_.push_back(sw.At);
        std::sort(times_.begin(), times_.end());
        validUntil_ = result.Ended || result.Cancelled ? result.EndedAt : request.From + kLookAhead;
    }
    const auto it = std::upper_bound(times_.begin(), times_.end(), now);
    if (it == times_.end() || *it >= now + 86400) return std::nullopt;
    return *it;
}

int RelaysOn(const System& s) {
    int on = 0;
    for (const RelayRecord& r : s.frmRelay.Relay)
        if (r.OldState == 1) ++on;
    return on;
}

std::string ServiceStatusText(int relaysOn, std::optional<LocalSeconds> next) {
    std::string text = std::to_string(relaysOn) + (relaysOn == 1 ? " relay on" : " relays on");
    if (!next) return text + ", no switch within a day";
    return text + ", next switch at " + TimeText(static_cast<int>(*next % 86400));
}

}  // namespace vantrellion

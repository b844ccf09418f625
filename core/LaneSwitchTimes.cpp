#include "core/LaneSwitchTimes.h"

#include <algorithm>

#include "core/DateTimeText.h"

namespace vantrellion {

namespace {

// Whether nothing is known just before t (the timeline begins there, or a gap ends there).
bool UnknownBefore(const Timeline& t, LocalSeconds at) {
    return at <= t.Range.From ||
           std::any_of(t.Gaps.begin(), t.Gaps.end(), [&](const TimeSpan& g) { return g.To == at; });
}

// Whether nothing is known from t on (the timeline ends there, or a gap begins there).
bool UnknownFrom(const Timeline& t, LocalSeconds at) {
    return at >= t.Range.To || std::any_of(t.Gaps.begin(), t.Gaps.end(),
                                           [&](const TimeSpan& g) { return g.From == at; });
}

}  // namespace

std::string LaneSwitchTimesText(const Timeline& timeline, size_t lane, LocalSeconds near,
                                int maxSpans) {
    const TimelineLane& l = timeline.Lanes.at(lane);
    std::string text = l.Name;
    const auto& on = l.On;
    if (on.empty()) return text + "\nnever on";
    const int n = static_cast<int>(on.size());
    // The span at or nearest to `near`, then a window of spans around it.
    int best = 0;
    LocalSeconds bestDistance = -1;
    for (int i = 0; i < n; ++i) {
        const TimeSpan& s = on[static_cast<size_t>(i)];
        const LocalSeconds d = near < s.From ? s.From - near : (near >= s.To ? near - s.To + 1 : 0);
        if (bestDistance < 0 || d < bestDistance) {
            best = i;
            bestDistance = d;
        }
    }
    maxSpans = std::max(1, maxSpans);
    const int first = std::clamp(best - maxSpans / 2, 0, std::max(0, n - maxSpans));
    const int last = std::min(n, first + maxSpans);
    for (int i = first; i < last; ++i) {
        const TimeSpan& s = on[static_cast<size_t>(i)];
        const bool onBefore = UnknownBefore(timeline, s.From);
        const bool onAfter = UnknownFrom(timeline, s.To);
        text += "\n";
        if (onBefore && onAfter)
            text += "on throughout";
        else if (onBefore)
            text += "already on   off " + DateTimeText(s.To);
        else if (onAfter)
            text += "on  " + DateTimeText(s.From) + "   still on";
        else
            text += "on  " + DateTimeText(s.From) + "   off " + DateTimeText(s.To);
    }
    if (last - first < n)
        text += "\n(" + std::to_string(first + 1) + " to " + std::to_string(last) + " of " +
                std::to_string(n) + " on-spans)";
    return text;
}

}  // namespace vantrellion

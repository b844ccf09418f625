#include "engine/HeldRelays.h"

#include <functional>

#include "core/DateTimeText.h"
#include "logging/PauseLogLines.h"

namespace vantrellion {

namespace {

void ForEachDriven(const std::function<void(int)>& each) {
    for (int b = 0; b <= LastBoard; ++b)
        for (int r = 0; r <= LastRelay; ++r)
            each(RecordIndex(b, r));
}

void Resume(System& s, int i, bool early) {
    s.frmRelay.Holds.PausedUntil[i] = 0;
    s.frmRelay.Relay[i].CycleStart = 0;
    LogPauseEnd(s, i, early);
}

}  // namespace

void EndPassedPauses(System& s, LocalSeconds now) {
    ForEachDriven([&](int i) {
        const LocalSeconds until = s.frmRelay.Holds.PausedUntil[i];
        if (until != 0 && until <= now) Resume(s, i, false);
    });
}

void MarkHeldRelays(System& s, LocalSeconds now) {
    ForEachDriven([&](int i) { s.frmRelay.Relay[i].Held = HoldOf(s.frmRelay.Holds, i, now); });
}

void StartPause(System& s, uint32_t records, LocalSeconds until) {
    ForEachDriven([&](int i) {
        if ((records >> i & 1u) == 0) return;
        s.frmRelay.Holds.PausedUntil[i] = until;
        LogPauseStart(s, i, until);
    });
    MarkHeldRelays(s, ToLocalSeconds(s.clock().Now()));
}

int EndPauseEarly(System& s, uint32_t records) {
    const LocalSeconds now = ToLocalSeconds(s.clock().Now());
    int ended = 0;
    ForEachDriven([&](int i) {
        if ((records >> i & 1u) == 0 || !IsPaused(s.frmRelay.Holds, i, now)) return;
        Resume(s, i, true);
        ++ended;
    });
    MarkHeldRelays(s, now);
    return ended;
}

std::string PausedCaption(LocalSeconds until, LocalSeconds now) {
    const std::string at = DateTimeText(until);  // "2026-06-22 18:00:00"
    const bool today = DateText(until) == DateText(now);
    return "Paused until " + (today ? at.substr(11, 5) : at.substr(5, 11));
}

}  // namespace vantrellion

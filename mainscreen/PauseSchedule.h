// "Pause Schedule..." of the States/Inputs menu: the chosen relays stay off until a date and
// time, or for a number of hours, and then follow their schedule again by themselves. Manual
// and Hard Stop still act on them. "End Pause" ends every pause at once. The window is a small
// Qt dialog; what it does lives here.
#pragma once

#include <cstdint>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* PauseWindowTitle = "Pause Schedule";

struct PauseChoice {
    uint32_t Relays = 0;  // bit i: record i
    bool ForHours = true;
    std::string HoursText;  // "24", "1.5"
    std::string UntilText;  // "2026-06-22 18:00"
};

class PauseSchedulePresenter {
  public:
    explicit PauseSchedulePresenter(System& s) : s_(s) {}

    // The relays the window offers, one check box each: "1 Pump", with " (paused until ...)"
    // when the relay is paused now.
    int RelayCount() const;
    std::string RelayCaption(int i) const;
    // What the window starts with: no relay chosen, 24 hours, or until tomorrow at this hour.
    PauseChoice Initial() const;

    // Pauses the chosen relays. False, with a box that says why, when the choice does not make
    // a pause: no relay, hours that are not a number above 0 and up to a year, or an end that
    // is not a date and time later than now.
    bool Apply(const PauseChoice& choice);

  private:
    System& s_;
};

// "End Pause": every paused relay follows its schedule again now, each with its end line in
// the log; with no relay paused, a box says so.
void mnuStateEndPause(System& s);

}  // namespace vantrellion

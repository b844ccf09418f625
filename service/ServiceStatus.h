// What the service tells its service manager of the schedule: the relays on now and the next
// time a relay switches.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/SharedState.h"
#include "core/Timeline.h"

namespace vantrellion {

// The times at which any relay switches over the next day, worked out by the schedule preview
// once a day (or after the schedule changed) rather than at every tick.
class NextSwitchTimes {
  public:
    // The first switch after now, or nullopt when none is due within a day.
    std::optional<LocalSeconds> After(const System& s);
    // The schedule changed: the times are worked out again at the next question.
    void Invalidate() { validUntil_ = 0; }

  private:
    std::vector<LocalSeconds> times_;  // in order
    LocalSeconds validUntil_ = 0;
};

// The relay records that read back on.
int RelaysOn(const System& s);

// "2 relays on, next switch at 14:07:00", or "... no switch within a day".
std::string ServiceStatusText(int relaysOn, std::optional<LocalSeconds> next);

}  // namespace vantrellion

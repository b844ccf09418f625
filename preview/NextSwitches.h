// The times at which the relays switch over the next day, from the schedule preview. They are
// worked out again only when something that moves a switch changed (times, days, codes,
// flags, days off, pauses, the location) or the day looked at runs out, not at every tick.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/SharedState.h"
#include "core/Timeline.h"

namespace vantrellion {

class NextSwitches {
  public:
    // Works the times out again if something that moves a switch changed, or the day looked
    // at runs out.
    void Update(const System& s);
    // The first switch of relay record `record` after now, or of any relay with -1; nullopt
    // when none is due within a day.
    std::optional<LocalSeconds> After(LocalSeconds now, int record = -1) const;

  private:
    std::array<std::vector<LocalSeconds>, RelaySlots> times_;  // per record, in order
    std::string key_;
    LocalSeconds validUntil_ = 0;
};

// The key of everything that decides the relays' future switches: times, days, codes, flags,
// days off, pauses and the location.
std::string ScheduleKey(const System& s);

}  // namespace vantrellion

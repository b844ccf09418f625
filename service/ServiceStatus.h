// What the service tells its service manager of the schedule: the relays on now and the next
// time a relay switches.
#pragma once

#include <optional>
#include <string>

#include "core/SharedState.h"
#include "core/Timeline.h"

namespace vantrellion {

// The relay records that read back on.
int RelaysOn(const System& s);

// "2 relays on, next switch at 14:07:00", or "... no switch within a day".
std::string ServiceStatusText(int relaysOn, std::optional<LocalSeconds> next);

}  // namespace vantrellion

// The exact switch times of one lane of a timeline, as its tool tip lists them. Only real
// switches are listed: an on-span that begins where the timeline or the known part begins is
// "already on", one that ends where the timeline or the known part ends is "still on", and
// neither edge is given as a switch time.
#pragma once

#include <string>

#include "core/Timeline.h"

namespace vantrellion {

// The lane's name, then up to maxSpans on-spans nearest to the time `near`, in time order,
// each as "on <time>   off <time>" (times as DateTimeText), and the count of all spans when
// some are left out; "never on" for a lane without one.
std::string LaneSwitchTimesText(const Timeline& timeline, size_t lane, LocalSeconds near,
                                int maxSpans = 8);

}  // namespace vantrellion

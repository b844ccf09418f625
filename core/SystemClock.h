// The clock of the running programs (the desktop program, the service, the preview tool).
#pragma once

#include <ctime>

#include "core/Platform.h"

namespace vantrellion {

// The system's clock in local time. The time zone is loaded at the start and again at each
// new hour (so a change of the machine's zone shows within the hour), and the local date and
// time are worked out once per second: the several reads of one tick cost no system call and
// all see the same second.
class SystemClock : public Clock {
  public:
    SystemClock();
    DateTime Now() override;
    int64_t MonotonicMs() override { return BootTimeMs(); }

  private:
    time_t second_ = -1;  // the second since the epoch that now_ stands for
    int zoneHour_ = -1;   // the local hour at which the time zone was last loaded
    DateTime now_;
};

}  // namespace vantrellion

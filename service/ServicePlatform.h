// The plain clock, timer flag and event pump of the service: no event loop of a toolkit, the
// service's own loop asks the flag before each tick.
#pragma once

#include <ctime>

#include "core/Platform.h"

namespace vantrellion {

// Local time from the system clock; monotonic milliseconds since boot, suspend included.
class SystemClock : public Clock {
  public:
    SystemClock();
    DateTime Now() override;
    int64_t MonotonicMs() override { return BootTimeMs(); }

  private:
    time_t second_ = -1;
    int zoneHour_ = -1;
    DateTime now_;
};

// tmrCheckTime as a flag: the core turns it on and off, the loop ticks only while it is on.
class FlagTimer : public CheckTimer {
  public:
    void SetEnabled(bool enabled) override { enabled_ = enabled; }
    bool IsEnabled() const override { return enabled_; }

  private:
    bool enabled_ = false;
};

// No keyboard, no mouse: nothing is ever pending.
class NoEventPump : public EventPump {
  public:
    bool InputPending() override { return false; }
    void ProcessPendingEvents() override {}
};

}  // namespace vantrellion

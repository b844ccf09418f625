// The plain clock, timer flag and event pump of the service: no event loop of a toolkit, the
// service's own loop asks the flag before each tick.
#pragma once

#include "core/Platform.h"
#include "core/SystemClock.h"

namespace vantrellion {

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

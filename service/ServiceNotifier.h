// The service manager's notifications (sd_notify): READY=1 once the first tick has run,
// WATCHDOG=1 after a tick completes, so that a tick that hangs gets the service restarted,
// STATUS= with the relays on and the next switch when it changes, and STOPPING=1 at a clean
// stop. WATCHDOG=1 goes only where the manager watches (WATCHDOG_USEC), once in each half of
// its period as the manager asks, so that most ticks send nothing: each sd_notify() call opens
// and sets up a socket of its own, which costs more than the tick. Without NOTIFY_SOCKET nothing
// is sent.
#pragma once

#include <optional>
#include <string>

#include "core/SharedState.h"
#include "preview/NextSwitches.h"
#include "service/ServiceStatus.h"

namespace vantrellion {

class ServiceNotifier : public TickObserver {
  public:
    explicit ServiceNotifier(System& s);
    void TickCompleted() override;
    void Stopping();
    // The schedule was reloaded.
    void Reloaded() { nextSwitch_.reset(); }
    bool Active() const { return active_; }

  private:
    System& s_;
    bool active_;
    bool ready_ = false;
    int64_t watchdogMs_ = 0;  // the interval between WATCHDOG=1; 0 when no one watches
    int64_t lastWatchdog_ = 0;
    std::string status_;
    int relaysOn_ = -1;
    std::optional<LocalSeconds> nextSwitch_;  // when the status text is worked out again
    LocalSeconds statusAt_ = 0;
    NextSwitches next_;
};

}  // namespace vantrellion

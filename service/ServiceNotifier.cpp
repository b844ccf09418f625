#include "service/ServiceNotifier.h"

#include <systemd/sd-daemon.h>

#include <cstdlib>

namespace vantrellion {

ServiceNotifier::ServiceNotifier(System& s) : s_(s) {
    const char* socket = std::getenv("NOTIFY_SOCKET");
    active_ = socket && *socket;
    uint64_t usec = 0;
    if (active_ && sd_watchdog_enabled(0, &usec) > 0)
        watchdogMs_ = static_cast<int64_t>(usec / 2000);
}

void ServiceNotifier::TickCompleted() {
    if (!active_) return;
    std::string message;
    if (!ready_) message = "READY=1\n";
    ready_ = true;
    const int64_t now = s_.clock().MonotonicMs();
    if (watchdogMs_ > 0 && (lastWatchdog_ == 0 || now - lastWatchdog_ >= watchdogMs_)) {
        lastWatchdog_ = now;
        message += "WATCHDOG=1\n";
    }
    // The status text changes only when a relay switches or the next switch time has come.
    const int on = RelaysOn(s_);
    const LocalSeconds local = ToLocalSeconds(s_.clock().Now());
    if (on != relaysOn_ || !nextSwitch_ || local >= *nextSwitch_ || local < statusAt_) {
        relaysOn_ = on;
        statusAt_ = local;
        next_.Update(s_);
        const std::optional<LocalSeconds> next = next_.After(local);
        nextSwitch_ = next ? *next : local + 3600;
        const std::string status = ServiceStatusText(on, next);
        if (status != status_) {
            status_ = status;
            message += "STATUS=" + status + "\n";
        }
    }
    if (!message.empty()) sd_notify(0, message.c_str());
}

void ServiceNotifier::Stopping() {
    if (active_) sd_notify(0, "STOPPING=1\nSTATUS=Stopping");
}

}  // namespace vantrellion

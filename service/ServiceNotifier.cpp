#include "service/ServiceNotifier.h"

#include <systemd/sd-daemon.h>

#include <cstdlib>

namespace vantrellion {

ServiceNotifier::ServiceNotifier(System& s) : s_(s) {
    const char* socket = std::getenv("NOTIFY_SOCKET");
    active_ = socket && *socket;
}

void ServiceNotifier::TickCompleted() {
    if (!active_) return;
    std::string message = ready_ ? "WATCHDOG=1" : "READY=1\nWATCHDOG=1";
    ready_ = true;
    const std::string status = ServiceStatusText(RelaysOn(s_), next_.After(s_));
    if (status != status_) {
        status_ = status;
        message += "\nSTATUS=" + status;
    }
    sd_notify(0, message.c_str());
}

void ServiceNotifier::Stopping() {
    if (active_) sd_notify(0, "STOPPING=1\nSTATUS=Stopping");
}

}  // namespace vantrellion

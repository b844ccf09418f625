// The service's event loop: a tick every 900 ms on the monotonic clock (poll with a deadline)
// and the signals through a signalfd. SIGTERM and SIGINT stop the service cleanly; SIGHUP
// reloads the Run File.
#pragma once

#include "service/Service.h"

namespace vantrellion {

inline constexpr int ServiceTickMs = 900;

// Blocks SIGTERM, SIGINT and SIGHUP for this thread, so that they wait for the loop's
// signalfd. Called before the start, so that a stop during the start is not lost.
void BlockServiceSignals();

// Runs the started service until a stop signal: 0 after a clean stop, 1 after an error that
// ends the program (the restart file stays, for the next start).
int RunServiceLoop(Service& service);

}  // namespace vantrellion

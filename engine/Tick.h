// The check-time tick, the heartbeat of the system, and its evaluation-free sibling.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// tmrCheckTime's handler: evaluate, write outputs, read back, show, log, and resume. Also the
// forced tick of mnuToolForceCheckTime.
void CheckTimeTick(System& s);

// The refresh without evaluation, output or log: reads the ports and shows them. Leaves the
// timer as it found it.
void RefreshNow(System& s);

}  // namespace vantrellion

// Turning tmrCheckTime off around work that must not interleave with a tick, and back on.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Sets tmrCheckTime disabled.
void SuspendCheckTime(System& s);
// The one and only way the timer comes back on: enabled if CheckTimeAllowed is non-zero,
// disabled otherwise, whatever its state was before.
void ResumeCheckTime(System& s);

}  // namespace vantrellion

#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Puts every driven relay back to a new, empty schedule. TotalTime and PairActive stay.
void ResetRelayRecords(System& s);

}  // namespace vantrellion

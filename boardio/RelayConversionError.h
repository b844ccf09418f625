// The message for a relay number that converts to a wrong bit mask. The engine never raises
// it; the step command of the developer menu shows it when a relay's mask is not what it
// should be.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Shows "Relay Conversion Error, RelayIN:<relay> Result:<mask>", OK, title "Conversion Error".
void ShowRelayConversionError(System& s, int relay, int mask);

}  // namespace vantrellion

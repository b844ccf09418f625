// Relay state resolution: what reaches the relay, and what the row shows.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Writes ports where NewState and OldState, under Invert and HardStop, call for it.
void UpdateRelayOutputs(System& s);
// Takes the bytes read back from the output ports into OldState and paints the rows.
void ShowRelayStates(System& s, const PortBytes& relayBytes);

}  // namespace vantrellion

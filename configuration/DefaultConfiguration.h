// The built-in configuration: what a first configuration's screens offer, and what the shared
// state holds once the user accepts every default and saves.
#pragma once

#include <array>
#include <string>

#include "configuration/StringTable.h"
#include "core/SharedState.h"

namespace vantrellion {

// The string-table lists of the default addresses, in the order base, input, control, port
// configuration value; item n of a list is board n's.
inline constexpr std::array<int, 4> DefaultAddressListIds = {
    StringId::DefaultBaseAddress, StringId::DefaultInputAddress, StringId::DefaultCntlAddress,
    StringId::DefaultPortConfigValue};

std::string DefaultChipSetTypeText(int board);
std::string DefaultAddressText(int listIndex, int board);
// "Relay: 1" to "Relay: 8".
std::string DefaultRelayName(int relay);
Color DefaultStatusColor(int index);
Color DefaultGroupColor(int group);

// Puts the built-in configuration into the shared state: board 0's chip type, addresses and
// relay names, its logging and reset-on-exit ticked (as 1, the check box's value), the overlap
// warning on, the colours, and the default log directory. Other values are left as they are:
// a full save fills in the remaining paths and names.
void ConfigurationLoadDefaults(System& s);

}  // namespace vantrellion

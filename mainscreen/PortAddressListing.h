// "List Addresses H200-H3FF": for a user who does not know at which address a board answers,
// one line per port of the board range, appended to the day's log file. The ports are read
// through the port library itself, in emulation mode too; no port is written and the
// configuration is not touched.
#pragma once

#include <cstdint>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// "Decimal: 512 Hex: 200 :1 - 3 - - - - -" for port 512 reading 5: the bits 0 to 7 as "1" to
// "8" where set and "-" where clear, one blank between them.
std::string PortListingLine(int address, uint8_t value);

// Appends the listing of ports 512 to 1024, both included, in two blocks split at 640, to the
// day's log file. The timer is off meanwhile and on again afterwards. A file that cannot be
// written loses its lines silently.
void mnuToolListAddress_H200_H3FF(System& s);

}  // namespace vantrellion

// Writing the control registers of the boards, and letting go of the relays at exit and New.
#pragma once

#include <cstdint>

#include "core/SharedState.h"

namespace vantrellion {

uint8_t PortInitBoard(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                      int board, int relay);
void InitBoard(System& s, int board, int relay);
void InitAllBoards(System& s);
void SetAllRelays(System& s);
void ResetAllRelays(System& s);
void ClearOutputPorts(System& s);

}  // namespace vantrellion

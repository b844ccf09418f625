// Operations on a board's relays and inputs. Each reaches the board through its driver
// (boardio/BoardSet.h): the port library at the board's addresses, the emulated board in
// memory (RunNoBoards), or a board opened from its connection text.
#pragma once

#include <cstdint>

#include "core/SharedState.h"

namespace vantrellion {

// The bit mask of relay r, 1 to 128; any other r shows "GetANDOR Error, Relay#:" and gives 0.
int16_t GetANDOR(System& s, int r);
// A processor loop of 2001 x 2001 rounds when StepDelay is 2000; otherwise returns at once.
void WaitStepDelay(System& s);

// The byte that stands for an output port in emulation mode. A board's base address selects
// that board's byte; the table keeps room for more boards than this build drives, and a base
// that belongs to one of those has no byte, which is an out-of-range subscript. Any other
// address falls into the one byte that catches all other ports.
uint8_t& EmulatedOutputByte(System& s, int16_t base);
// The byte that an input address reads in emulation mode: board 0's relays for its input
// address, 0 for any other.
uint8_t EmulatedInputByte(const System& s, int16_t input);

uint8_t PortSetBit(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config, int board,
                   int relay);
uint8_t PortClearBit(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                     int board, int relay);
uint8_t PortReadOutput(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                       int board, int relay);
uint8_t PortReadInput(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                      int board, int relay);

void SetRelayOn(System& s, int board, int relay);
void SetRelayOff(System& s, int board, int relay);
PortBytes ReadRelayPorts(System& s);
PortBytes ReadInputPorts(System& s);

}  // namespace vantrellion

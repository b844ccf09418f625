// Serial relay modules: 4-byte frames "A0 n s checksum" at 9600 baud, n the relay from 1, s 1
// on and 0 off, the checksum the low byte of the sum of the other three. The modules answer
// nothing, so the outputs read back are those last written, and there are no inputs.
#pragma once

#include <cstdint>
#include <vector>

namespace vantrellion {

std::vector<uint8_t> SerialRelayFrame(int relay, bool on);
// The frames that take a module from before to after, relays 1 to count; every relay's frame
// when all is set (the module's state is not known).
std::vector<uint8_t> SerialRelayFrames(uint8_t before, uint8_t after, int count, bool all);

}  // namespace vantrellion

// The two functions of the port library. The program loads libVantrellion.so, which stands
// beside the executable, by name at the first call; another library with the same two
// functions may take its place.
#pragma once

#include <cstdint>

extern "C" {
// Reads one port; the value read, 0 to 255.
int16_t In8255(int16_t port);
// Writes one port; the result means nothing to the program.
int16_t Out8255(int16_t port, int16_t value);
}

// A port library for the loader tests: a latching port space in memory.
#include <cerrno>
#include <cstdint>

namespace {
unsigned char g_space[65536];
}

extern "C" {

__attribute__((visibility("default"))) int16_t In8255(int16_t port) {
    errno = 0;
    return g_space[static_cast<uint16_t>(port)];
}

__attribute__((visibility("default"))) int16_t Out8255(int16_t port, int16_t value) {
    errno = 0;
    g_space[static_cast<uint16_t>(port)] = static_cast<unsigned char>(value);
    return value;
}
}

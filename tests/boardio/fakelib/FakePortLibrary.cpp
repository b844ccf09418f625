// A port library for the loader tests: a latching port space in memory. A test can make every
// following call leave an error number behind, as a library does whose port space is not
// available, through FakePortLibrarySetError (found with dlsym on the same library).
#include <cerrno>
#include <cstdint>

namespace {
unsigned char g_space[65536];
int g_error = 0;
}  // namespace

extern "C" {

__attribute__((visibility("default"))) void FakePortLibrarySetError(int error) {
    g_error = error;
}

__attribute__((visibility("default"))) int16_t In8255(int16_t port) {
    errno = g_error;
    if (g_error != 0) return 0;
    return g_space[static_cast<uint16_t>(port)];
}

__attribute__((visibility("default"))) int16_t Out8255(int16_t port, int16_t value) {
    errno = g_error;
    if (g_error != 0) return 0;
    g_space[static_cast<uint16_t>(port)] = static_cast<unsigned char>(value);
    return value;
}
}

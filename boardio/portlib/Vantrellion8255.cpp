// libVantrellion.so: the default port library. It reaches the I/O port space through
// /dev/port, opened once at the first call, one byte per access at the offset of the port.
// When the port space cannot be opened, reads give 0 and writes are dropped; errno is left
// at the cause after each such call so that the program can tell the user why.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "boardio/Port8255.h"

namespace {

int g_fd = -2;  // -2 not tried yet, -1 failed
int g_openError = 0;

int PortSpace() {
    if (g_fd == -2) {
        g_fd = ::open("/dev/port", O_RDWR | O_CLOEXEC);
        g_openError = g_fd < 0 ? errno : 0;
    }
    return g_fd;
}

// Port numbers are 16-bit: a negative value stands for the upper half of the port space.
off_t Offset(int16_t port) {
    return static_cast<off_t>(static_cast<uint16_t>(port));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) int16_t In8255(int16_t port) {
    int fd = PortSpace();
    if (fd < 0) {
        errno = g_openError;
        return 0;
    }
    unsigned char b = 0;
    if (::pread(fd, &b, 1, Offset(port)) != 1) return 0;
    errno = 0;
    return b;
}

__attribute__((visibility("default"))) int16_t Out8255(int16_t port, int16_t value) {
    int fd = PortSpace();
    if (fd < 0) {
        errno = g_openError;
        return 0;
    }
    unsigned char b = static_cast<unsigned char>(value & 0xFF);
    if (::pwrite(fd, &b, 1, Offset(port)) != 1) return 0;
    errno = 0;
    return b;
}
}

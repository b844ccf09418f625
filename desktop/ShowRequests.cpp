#include "desktop/ShowRequests.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace vantrellion {

namespace {

// The socket's address; false when the path is too long for one.
bool SocketAddress(const std::string& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

std::string SocketPath(const std::string& machineDirectory) {
    return machineDirectory + "vantrellion.show";
}

}  // namespace

ShowRequestListener::ShowRequestListener(const std::string& machineDirectory,
                                         std::function<void()> onRequest)
    : path_(SocketPath(machineDirectory)) {
    sockaddr_un address;
    if (!SocketAddress(path_, address)) return;
    fd_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (fd_ < 0) return;
    // Only the holder of the instance lock listens, so a socket file left by a crashed run
    // is stale and goes.
    ::unlink(path_.c_str());
    if (::bind(fd_, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) {
        ::close(fd_);
        fd_ = -1;
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(fd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                     [this, onRequest = std::move(onRequest)] {
                         char byte[16];
                         bool requested = false;
                         while (::recv(fd_, byte, sizeof(byte), 0) >= 0)
                             requested = true;
                         if (requested) onRequest();
                     });
}

ShowRequestListener::~ShowRequestListener() {
    notifier_.reset();
    if (fd_ < 0) return;
    ::close(fd_);
    ::unlink(path_.c_str());
}

bool RequestRunningProgramToShow(const std::string& machineDirectory) {
    sockaddr_un address;
    if (!SocketAddress(SocketPath(machineDirectory), address)) return false;
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return false;
    const char request[] = "show";
    const bool sent = ::sendto(fd, request, sizeof(request) - 1, 0,
                               reinterpret_cast<sockaddr*>(&address), sizeof(address)) >= 0;
    ::close(fd);
    return sent;
}

}  // namespace vantrellion

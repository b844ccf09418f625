#include "core/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "core/MachineDirectory.h"

namespace vantrellion {

InstanceLock::InstanceLock(const std::string& machineDirectory) {
    EnsureDirectory(machineDirectory);
    fd_ =
        ::open((machineDirectory + "vantrellion.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    // Without a lock file (read-only directory) nothing can be told: assume we are alone.
    if (fd_ < 0) return;
    if (::flock(fd_, LOCK_EX | LOCK_NB) != 0) another_ = errno == EWOULDBLOCK;
}

InstanceLock::~InstanceLock() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace vantrellion

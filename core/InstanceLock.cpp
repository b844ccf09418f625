#include "core/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <sstream>

#include "core/MachineDirectory.h"

namespace vantrellion {

LockHolder ParseLockHolder(const std::string& text) {
    LockHolder h;
    std::istringstream in(text);
    if (!(in >> h.Pid)) return {};
    in >> h.Program;
    return h;
}

InstanceLock::InstanceLock(const std::string& machineDirectory, const std::string& programName)
    : programName_(programName) {
    EnsureDirectory(machineDirectory);
    fd_ =
        ::open((machineDirectory + "vantrellion.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    // Without a lock file (read-only directory) nothing can be told: assume we are alone.
    if (fd_ < 0) return;
    if (TryLock()) return;
    another_ = errno == EWOULDBLOCK;
    char text[128] = {};
    const ssize_t n = ::pread(fd_, text, sizeof text - 1, 0);
    if (n > 0) holder_ = ParseLockHolder(std::string(text, static_cast<size_t>(n)));
}

bool InstanceLock::TryLock() {
    if (::flock(fd_, LOCK_EX | LOCK_NB) != 0) return false;
    // The lock is ours: the file now names this process for whoever starts next.
    const std::string text = std::to_string(::getpid()) + " " + programName_ + "\n";
    if (::ftruncate(fd_, 0) == 0) {
        [[maybe_unused]] const ssize_t written = ::pwrite(fd_, text.data(), text.size(), 0);
    }
    return true;
}

bool InstanceLock::TryTakeOver() {
    if (fd_ < 0 || !another_) return true;
    if (!TryLock()) return false;
    another_ = false;
    return true;
}

InstanceLock::~InstanceLock() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace vantrellion

// Tells whether another instance of the program runs, by a lock file in the machine
// directory that each running instance holds locked.
#pragma once

#include <string>

namespace vantrellion {

class InstanceLock {
  public:
    // Takes the lock "vantrellion.lock" in the directory (created if missing).
    explicit InstanceLock(const std::string& machineDirectory);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // True when another instance held the lock at construction.
    bool AnotherInstanceRuns() const { return another_; }

  private:
    int fd_ = -1;
    bool another_ = false;
};

}  // namespace vantrellion

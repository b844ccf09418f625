// Tells whether another instance of the program runs, by a lock file in the machine
// directory that each running instance holds locked. The holder writes its process id and its
// program's name into the file, so that a second start can say who holds it.
#pragma once

#include <string>

namespace vantrellion {

// The process that holds the lock, as it wrote itself into the lock file.
struct LockHolder {
    int Pid = 0;          // 0 when not known
    std::string Program;  // "vantrellion", "vantrelliond", or "" when not known
};

class InstanceLock {
  public:
    // Takes the lock "vantrellion.lock" in the directory (created if missing), and records
    // this process under programName when it got it.
    explicit InstanceLock(const std::string& machineDirectory,
                          const std::string& programName = "vantrellion");
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // True when another instance held the lock at construction.
    bool AnotherInstanceRuns() const { return another_; }
    // The holder as its lock file names it at construction (when another instance runs).
    const LockHolder& Holder() const { return holder_; }
    // Tries again to take a lock that another instance held; true once it is ours.
    bool TryTakeOver();

  private:
    bool TryLock();

    int fd_ = -1;
    bool another_ = false;
    std::string programName_;
    LockHolder holder_;
};

// Reads the holder from the text of a lock file: "pid program".
LockHolder ParseLockHolder(const std::string& text);

}  // namespace vantrellion

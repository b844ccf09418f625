#include "service/ServiceLoop.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <exception>

#include "core/FatalError.h"
#include "service/ServiceConsole.h"

namespace vantrellion {

namespace {

sigset_t ServiceSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGHUP);
    return set;
}

constexpr int64_t kTickNs = int64_t{ServiceTickMs} * 1000000;

int64_t MonotonicNs() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return int64_t{ts.tv_sec} * 1000000000 + ts.tv_nsec;
}

class FileDescriptor {
  public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return fd_; }

  private:
    int fd_;
};

}  // namespace

void BlockServiceSignals() {
    const sigset_t set = ServiceSignals();
    sigprocmask(SIG_BLOCK, &set, nullptr);
}

int RunServiceLoop(Service& service) {
    const sigset_t set = ServiceSignals();
    sigprocmask(SIG_BLOCK, &set, nullptr);
    FileDescriptor signals(::signalfd(-1, &set, SFD_CLOEXEC));
    if (signals.get() < 0) {
        ServiceMessage(PriorityError,
                       std::string("cannot set up the loop: ") + std::strerror(errno));
        service.Stop();
        return 1;
    }
    // The ticks fall on a fixed grid of the monotonic clock, 900 ms apart: one poll with a
    // deadline waits for the next tick or a signal, and a late tick does not shift the rest.
    int64_t next = MonotonicNs() + kTickNs;
    pollfd fds[1] = {{signals.get(), POLLIN, 0}};
    for (;;) {
        const int64_t wait = std::max<int64_t>(0, next - MonotonicNs());
        const timespec timeout{static_cast<time_t>(wait / 1000000000),
                               static_cast<long>(wait % 1000000000)};
        const int ready = ::ppoll(fds, 1, &timeout, nullptr);
        if (ready < 0) {
            if (errno == EINTR) continue;
            ServiceMessage(PriorityError, std::string("poll: ") + std::strerror(errno));
            service.Stop();
            return 1;
        }
        if (ready > 0 && (fds[0].revents & POLLIN)) {
            signalfd_siginfo info{};
            if (::read(signals.get(), &info, sizeof info) == sizeof info) {
                if (info.ssi_signo == SIGHUP) {
                    service.Reload();
                } else {
                    ServiceMessage(PriorityInfo,
                                   std::string("stopping on ") +
                                       sigabbrev_np(static_cast<int>(info.ssi_signo)));
                    service.Stop();
                    return 0;
                }
            }
            continue;
        }
        // Ticks missed (a suspend, a slow tick) give one tick, not a burst: the tick works from
        // the clock, not from a count of ticks.
        const int64_t now = MonotonicNs();
        while (next <= now)
            next += kTickNs;
        try {
            service.Tick();
        } catch (const FatalError& e) {
            ServiceMessage(PriorityError,
                           "Run-time error '" + std::to_string(e.Number()) + "': " + e.what());
            return 1;
        } catch (const std::exception& e) {
            ServiceMessage(PriorityError, std::string("Run-time error: ") + e.what());
            return 1;
        }
    }
}

}  // namespace vantrellion

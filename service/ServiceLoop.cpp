#include "service/ServiceLoop.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
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
    FileDescriptor timer(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC));
    if (signals.get() < 0 || timer.get() < 0) {
        ServiceMessage(PriorityError,
                       std::string("cannot set up the loop: ") + std::strerror(errno));
        service.Stop();
        return 1;
    }
    itimerspec every{};
    every.it_interval.tv_nsec = ServiceTickMs * 1000000L;
    every.it_value = every.it_interval;
    timerfd_settime(timer.get(), 0, &every, nullptr);

    pollfd fds[2] = {{signals.get(), POLLIN, 0}, {timer.get(), POLLIN, 0}};
    for (;;) {
        if (::poll(fds, 2, -1) < 0) {
            if (errno == EINTR) continue;
            ServiceMessage(PriorityError, std::string("poll: ") + std::strerror(errno));
            service.Stop();
            return 1;
        }
        if (fds[0].revents & POLLIN) {
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
        }
        if (fds[1].revents & POLLIN) {
            uint64_t expirations = 0;
            if (::read(timer.get(), &expirations, sizeof expirations) != sizeof expirations)
                continue;
            // Late expirations (a suspend, a slow tick) give one tick, not a burst: the tick
            // works from the clock, not from a count of ticks.
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
}

}  // namespace vantrellion

// A configured machine directory with a Run File, a notify socket owned by the test, and the
// state lines of a daily log: what the service's tests share.
#pragma once

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "runfile/RunFileSave.h"
#include "support/SavedConfiguration.h"

namespace vantrellion::test {

// Saves the configuration (emulation, logging into the directory) and a Run File "day.run":
// relay 1 on 06:00-18:00, relay 2 on 00:00:00-23:59:59, relay 3 on 10:30-10:45.
inline std::string PrepareServiceDirectory(const TempDir& dir) {
    SaveTestConfiguration(dir, True, True);
    TestSystem t;
    t.mod().LoggingOnOff = True;  // a Run File carries the logging switch
    t.SetPair(0, 0, "06:00:00", "18:00:00");
    t.SetPair(1, 0, "00:00:00", "23:59:59");
    t.SetPair(2, 0, "10:30:00", "10:45:00");
    EXPECT_TRUE(SaveRunFile(t.s, dir.Path(), "day.run"));
    return dir.File("day.run");
}

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The once-a-minute state lines of a log, in order.
inline std::vector<std::string> StateLines(const std::string& logText) {
    static const std::regex line(R"(^\d\d:\d\d:\d\d <.*)");
    std::vector<std::string> lines;
    std::istringstream in(logText);
    for (std::string l; std::getline(in, l);) {
        if (!l.empty() && l.back() == '\r') l.pop_back();
        if (std::regex_match(l, line)) lines.push_back(l);
    }
    return lines;
}

// A datagram socket in the directory, named by NOTIFY_SOCKET for what the test starts.
class NotifySocket {
  public:
    explicit NotifySocket(const std::string& path) : path_(path) {
        fd_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        path.copy(addr.sun_path, sizeof addr.sun_path - 1);
        ::unlink(path.c_str());
        EXPECT_EQ(::bind(fd_, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
        timeval tv{0, 100000};
        ::setsockopt(fd_, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv);
    }
    ~NotifySocket() { ::close(fd_); }
    const std::string& Path() const { return path_; }
    // The messages received so far, each appended to All().
    std::string Receive() {
        std::string got;
        char buffer[4096];
        for (;;) {
            const ssize_t n = ::recv(fd_, buffer, sizeof buffer, MSG_DONTWAIT);
            if (n <= 0) break;
            got.append(buffer, static_cast<size_t>(n)).append("\n");
        }
        all_ += got;
        return got;
    }
    // Waits up to timeoutMs for text to have been received.
    bool WaitFor(const std::string& text, int timeoutMs) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
        while (all_.find(text) == std::string::npos) {
            if (std::chrono::steady_clock::now() > end) return false;
            Receive();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return true;
    }
    const std::string& All() const { return all_; }
    void Forget() { all_.clear(); }

  private:
    std::string path_;
    int fd_ = -1;
    std::string all_;
};

// The program, started with its stderr in a file of the directory.
class Daemon {
  public:
    Daemon(const TempDir& dir, const std::vector<std::string>& args, const std::string& notify,
           const std::vector<std::pair<std::string, std::string>>& env = {})
        : stderr_(dir.File("stderr-" + std::to_string(++starts_) + ".txt")) {
        pid_ = ::fork();
        if (pid_ == 0) {
            ::unsetenv("DISPLAY");
            if (notify.empty())
                ::unsetenv("NOTIFY_SOCKET");
            else
                ::setenv("NOTIFY_SOCKET", notify.c_str(), 1);
            ::setenv("WATCHDOG_USEC", "10000000", 1);  // WatchdogSec=10, as the unit has it
            for (const auto& [name, value] : env)
                ::setenv(name.c_str(), value.c_str(), 1);
            std::freopen(stderr_.c_str(), "w", stderr);
            std::vector<char*> argv{const_cast<char*>(VANTRELLIOND)};
            for (const std::string& a : args)
                argv.push_back(const_cast<char*>(a.c_str()));
            argv.push_back(nullptr);
            ::execv(VANTRELLIOND, argv.data());
            ::_exit(127);
        }
    }
    ~Daemon() {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            Wait(5000);
        }
    }
    void Signal(int signal) { ::kill(pid_, signal); }
    // The exit code, 128 plus the signal, or -1 when it did not end within timeoutMs.
    int Wait(int timeoutMs) {
        for (int waited = 0; waited <= timeoutMs; waited += 10) {
            int status = 0;
            if (::waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return -1;
    }
    std::string Stderr() const { return ReadFile(stderr_); }
    // Waits up to timeoutMs for text on stderr; stderr as it then stands.
    std::string WaitForStderr(const std::string& text, int timeoutMs) const {
        std::string err = Stderr();
        for (int waited = 0; waited < timeoutMs && err.find(text) == std::string::npos;
             waited += 50, err = Stderr())
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        return err;
    }

  private:
    static inline int starts_ = 0;
    std::string stderr_;
    pid_t pid_ = -1;
};

}  // namespace vantrellion::test

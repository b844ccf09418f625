// Running part of a test in a child process: for what must not happen to the test program
// itself (a kill, a file size limit, giving up root).
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

namespace vantrellion::test {

// Runs body in a forked child and returns its exit code (body's result), or 128 plus the
// signal that ended it. The child never returns into the test framework.
inline int RunInChild(const std::function<int()>& body) {
    const pid_t pid = ::fork();
    if (pid < 0) return -1;
    if (pid == 0) {
        int code = 1;
        try {
            code = body();
        } catch (...) {
            code = 99;
        }
        ::_exit(code);
    }
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return -1;
}

// As RunInChild, but the child first gives up root (to the account "nobody", 65534), so that
// file permissions hold for it. Without root the body runs as it is.
inline int RunUnprivileged(const std::function<int()>& body) {
    return RunInChild([&] {
        if (::geteuid() == 0) {
            if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 98;
        }
        return body();
    });
}

}  // namespace vantrellion::test

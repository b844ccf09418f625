#include "configuration/ServiceManager.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace vantrellion {

std::string CommandLineText(const std::vector<std::string>& command) {
    std::string line;
    for (const std::string& word : command)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

int SystemServiceManager::Run(const std::vector<std::string>& command, std::string& output) {
    output.clear();
    if (command.empty()) return -1;
    int pipeFds[2];
    if (::pipe2(pipeFds, O_CLOEXEC) != 0) return -1;
    const pid_t pid = ::fork();
    if (pid < 0) {
        ::close(pipeFds[0]);
        ::close(pipeFds[1]);
        return -1;
    }
    if (pid == 0) {
        ::dup2(pipeFds[1], STDOUT_FILENO);
        ::dup2(pipeFds[1], STDERR_FILENO);
        std::vector<char*> argv;
        for (const std::string& word : command)
            argv.push_back(const_cast<char*>(word.c_str()));
        argv.push_back(nullptr);
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(pipeFds[1]);
    char buffer[1024];
    for (;;) {
        const ssize_t n = ::read(pipeFds[0], buffer, sizeof buffer);
        if (n > 0) {
            output.append(buffer, static_cast<size_t>(n));
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        break;
    }
    ::close(pipeFds[0]);
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0)
        if (errno != EINTR) return -1;
    if (!WIFEXITED(status)) return -1;
    return WEXITSTATUS(status) == 127 ? -1 : WEXITSTATUS(status);
}

}  // namespace vantrellion

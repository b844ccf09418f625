#include "logging/LogFileAppend.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace vantrellion {

void AppendLogLine(const std::string& fullName, const std::string& line) {
    // Non-blocking, so that a pipe without a reader never holds up the tick.
    const int fd =
        ::open(fullName.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) return;
    const std::string bytes = line + "\r\n";
    size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        written += static_cast<size_t>(n);
    }
    ::close(fd);
}

}  // namespace vantrellion

#include "logging/LogFileAppend.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/ReplaceFile.h"
#include "core/TextEncoding.h"

namespace vantrellion {

namespace {

// The log's bytes as they stand; empty when it cannot be read (or does not exist yet).
std::string ReadWholeFile(const std::string& fullName) {
    const int fd = ::open(fullName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return {};
    std::string bytes;
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode)) {
        char buf[64 * 1024];
        for (;;) {
            const ssize_t n = ::read(fd, buf, sizeof buf);
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) break;
            bytes.append(buf, static_cast<size_t>(n));
        }
    }
    ::close(fd);
    return bytes;
}

void AppendBytes(const std::string& fullName, const std::string& bytes) {
    // Non-blocking, so that a pipe without a reader never holds up the tick.
    const int fd =
        ::open(fullName.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) return;
    size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        written += static_cast<size_t>(n);
    }
    ::close(fd);
}

}  // namespace

void AppendLogLine(const std::string& fullName, const std::string& line) {
    const std::string text = line + "\r\n";
    // Plain ASCII reads the same in either encoding: the usual state and event lines.
    if (IsAscii(text)) {
        AppendBytes(fullName, text);
        return;
    }
    // A line with other characters follows the encoding of the day's file so far: Latin-1
    // while every character fits, UTF-8 once one does not. A Latin-1 log that meets such a
    // line is turned to UTF-8 whole, so that the file stays readable in one encoding.
    const std::string existing = ReadWholeFile(fullName);
    const bool fileIsUtf8 =
        !IsAscii(existing) && DetectTextFileEncoding(existing) == TextFileEncoding::Utf8;
    if (fileIsUtf8) {
        AppendBytes(fullName, text);
    } else if (FitsLatin1(text)) {
        AppendBytes(fullName, EncodeTextFileBytes(text));
    } else if (IsAscii(existing)) {
        AppendBytes(fullName, text);
    } else {
        ReplaceFileContents(fullName, Latin1ToUtf8(existing) + text);
    }
}

}  // namespace vantrellion

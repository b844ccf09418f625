#include "logging/LogFileAppend.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/MachineDirectory.h"
#include "core/ReplaceFile.h"
#include "core/TextEncoding.h"

namespace vantrellion {

namespace {

LogWriteCall writeCall = &::write;

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

int OpenForAppend(const std::string& fullName) {
    // Non-blocking, so that a pipe without a reader never holds up the tick.
    const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    int fd = ::open(fullName.c_str(), flags, 0666);
    if (fd < 0 && errno == ENOENT) {
        // The directory has gone (removed, or a medium unmounted and back): it is made again,
        // as on first need, and the day's log goes on from here.
        const auto slash = fullName.rfind('/');
        if (slash != std::string::npos && slash > 0 &&
            EnsureDirectory(fullName.substr(0, slash + 1)))
            fd = ::open(fullName.c_str(), flags, 0666);
    }
    return fd;
}

// One append of the whole line. When it comes up short, the part that got out is cut off
// again: the file ends where it ended before, on a whole line.
void AppendBytes(const std::string& fullName, const std::string& bytes) {
    const int fd = OpenForAppend(fullName);
    if (fd < 0) return;
    ssize_t n;
    do {
        n = writeCall(fd, bytes.data(), bytes.size());
    } while (n < 0 && errno == EINTR);
    if (n > 0 && static_cast<size_t>(n) < bytes.size()) {
        // With O_APPEND the write went to the end of the file, wherever that was; the offset
        // after it less what got out is where the line began.
        const off_t end = ::lseek(fd, 0, SEEK_CUR);
        if (end >= n) {
            if (::ftruncate(fd, end - n) != 0) {
                // A file that cannot be cut (a device, a pipe) keeps what it took.
            }
        }
    }
    ::close(fd);
}

}  // namespace

void SetLogWriteCall(LogWriteCall call) {
    writeCall = call ? call : &::write;
}

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

#include "runfile/RunFileSave.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/CheckTimeControl.h"

namespace vantrellion {

namespace {

// The whole file as it goes to disk, and where its first time line begins: a write that
// fails from there on is reported in the time array's words.
struct RunFileImage {
    std::string bytes;
    size_t firstTimeLine = 0;
};

RunFileImage BuildRunFile(const System& s) {
    const FrmRelay& f = s.frmRelay;
    RunFileImage image;
    std::string& out = image.bytes;
    out += RunFileTextLine(s.modRelay.FileVersion);
    out += RunFileFlagLine(s.modRelay.LoggingOnOff);
    for (int b = 0; b <= LastBoard; ++b) {
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            const RelayRecord& rec = f.Relay[i];
            out += RunFileTextLine(rec.DisplayName);
            out += RunFileTextLine(rec.DaysOfWeek);
            out += RunFileTextLine(rec.DayHrEvenOdd);
            out += RunFileFlagLine(rec.Manual);
            out += RunFileFlagLine(rec.Invert);
            out += RunFileFlagLine(rec.CounterOn);
            out += RunFileNumberLine(rec.Count);
            out += RunFileFlagLine(rec.HardStop);
            out += RunFileTextLine(rec.IconFile);
            if (i == 0) image.firstTimeLine = out.size();
            for (int p = 0; p <= LastTimePair; ++p) {
                const int k = PairIndex(i, p);
                out += RunFileTextLine(f.StartTime[k]);
                out += RunFileTextLine(f.EndTime[k]);
            }
        }
    }
    return image;
}

void ShowSaveError(System& s, const char* title, int error) {
    s.Message({std::strerror(error), Buttons::OK, Icon::Exclamation, 1, title});
}

// Writes the image to the open file and forces it to the disk, so that the schedule survives
// a power cut. On failure returns false with errno set and the count of bytes that got out in
// written.
bool WriteImage(int fd, const std::string& bytes, size_t& written) {
    written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        written += static_cast<size_t>(n);
    }
    // A file system or device that cannot sync (EINVAL, EROFS on some devices) has taken the
    // bytes all the same.
    if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP) return false;
    return true;
}

}  // namespace

std::string RunFileNumberLine(int16_t value) {
    const std::string digits = std::to_string(value < 0 ? -static_cast<int32_t>(value) : value);
    return (value < 0 ? "-" : " ") + digits + " \r\n";
}

std::string RunFileFlagLine(Flag value) {
    return RunFileNumberLine(value == True ? 1 : 0);
}

std::string RunFileTextLine(const std::string& text) {
    return text + "\r\n";
}

bool SaveRunFile(System& s, const std::string& Path, const std::string& FileName) {
    SuspendCheckTime(s);
    s.modRelay.FileVersion = ComposeFileVersion();
    const RunFileImage image = BuildRunFile(s);

    bool saved = false;
    // Non-blocking, so that a pipe without a reader is refused instead of hanging the open;
    // for a regular file the flag changes nothing.
    const int fd = ::open((Path + FileName).c_str(),
                          O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) {
        ShowSaveError(s, "Open File Error", errno);
    } else {
        size_t written = 0;
        if (WriteImage(fd, image.bytes, written)) {
            saved = true;
        } else {
            ShowSaveError(s,
                          written < image.firstTimeLine ? "Error Writing Data File"
                                                        : "Error Writing Time Array",
                          errno);
        }
        ::close(fd);
    }

    s.frmRelay.AutoRestarted = False;
    ResumeCheckTime(s);
    return saved;
}

}  // namespace vantrellion

#include "runfile/RunFileLoad.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "runfile/LoadedFieldCheck.h"
#include "runfile/RunFileFields.h"
#include "runfile/RunFileHolds.h"

namespace vantrellion {

namespace {

// The file's own bounds and whether its relay blocks carry Count and HardStop.
struct FileLayout {
    int lastBoard = LastBoard;
    int lastRelay = LastRelay;
    int lastPair = LastTimePair;
    bool countAndHardStop = true;
};

// Opens the file for reading. Only regular files are taken: a directory, a pipe or a device
// would never end or never begin. On failure returns -1 with the description in error.
// errorNumber is the system's error number, 0 for a file that is not a regular one.
int OpenForInput(const std::string& fullName, std::string& error, int& errorNumber) {
    const int fd = ::open(fullName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) {
        errorNumber = errno;
        error = std::strerror(errno);
        return -1;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        errorNumber = S_ISDIR(st.st_mode) ? EISDIR : 0;
        error = S_ISDIR(st.st_mode) ? std::strerror(EISDIR) : "Not a regular file";
        ::close(fd);
        return -1;
    }
    // Reads of a regular file never block; clear the flag all the same.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

// How the file's texts are to be read: UTF-8 when its bytes are valid UTF-8 with at least one
// multi-byte sequence, else Latin-1. A Run File is a few kilobytes; the start of anything
// larger decides. The read position stays at the start.
TextFileEncoding ReadEncoding(int fd) {
    constexpr off_t kJudged = 4 << 20;
    struct stat st {};
    if (::fstat(fd, &st) != 0) return TextFileEncoding::Latin1;
    std::string head(static_cast<size_t>(std::min(st.st_size, kJudged)), '\0');
    size_t got = 0;
    while (got < head.size()) {
        const ssize_t n =
            ::pread(fd, head.data() + got, head.size() - got, static_cast<off_t>(got));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        got += static_cast<size_t>(n);
    }
    head.resize(got);
    return DetectTextFileEncoding(head);
}

// The part of the version line before the first "|", and the part after it up to the next.
struct VersionPieces {
    std::string version;
    bool hasSuffix = false;
    std::string suffix;
};

VersionPieces SplitVersionLine(const std::string& line) {
    VersionPieces v;
    const size_t bar = line.find('|');
    v.version = line.substr(0, bar);
    if (bar != std::string::npos) {
        v.hasSuffix = true;
        const size_t next = line.find('|', bar + 1);
        v.suffix = line.substr(bar + 1, next == std::string::npos ? next : next - bar - 1);
    }
    return v;
}

// The single digit at position pos (counted from 1) of the suffix.
int SuffixDigit(const std::string& suffix, size_t pos) {
    if (suffix.size() < pos || suffix[pos - 1] < '0' || suffix[pos - 1] > '9') {
        throw FieldReadError(ErrTextTypeMismatch);
    }
    return suffix[pos - 1] - '0';
}

// The bounds that a current file states in its suffix ".b0.r7.t5": the characters at positions
// 3, 6 and 9, each clamped to this build's own bound.
void ReadSuffixBounds(const VersionPieces& v, FileLayout& layout) {
    if (!v.hasSuffix) throw FieldReadError(ErrTextSubscript);
    layout.lastBoard = std::min<int>(SuffixDigit(v.suffix, 3), LastBoard);
    layout.lastRelay = std::min<int>(SuffixDigit(v.suffix, 6), LastRelay);
    layout.lastPair = std::min<int>(SuffixDigit(v.suffix, 9), LastTimePair);
}

// A flag of the file: 0 is false, 1 is true (-1 in memory), any other number leaves the
// member as it was.
void ApplyFileFlag(Flag& member, int16_t value) {
    if (value == 0) {
        member = False;
    } else if (value == 1) {
        member = True;
    }
}

// `reading` names the field being read, for a report of a read error.
void ReadRelayBlock(System& s, FieldReader& in, const FileLayout& layout, int i, bool& inTimeArray,
                    std::string& reading) {
    RelayRecord& rec = s.frmRelay.Relay[i];
    const std::string relay = "relay " + std::to_string(i + 1) + "'s ";
    auto text = [&](const char* field) {
        reading = relay + field;
        return in.ReadText();
    };
    auto number = [&](const char* field) {
        reading = relay + field;
        return in.ReadNumber();
    };
    rec.DisplayName = text("name");
    rec.DaysOfWeek = text("days of the week");
    rec.DayHrEvenOdd = ConvertOldEvenOddCode(text("even/odd code"));
    ApplyFileFlag(rec.Manual, number("Manual flag"));
    ApplyFileFlag(rec.Invert, number("Invert flag"));
    ApplyFileFlag(rec.CounterOn, number("Counter flag"));
    if (layout.countAndHardStop) {
        rec.Count = number("count");
        ApplyFileFlag(rec.HardStop, number("Hard Stop flag"));
    }
    rec.IconFile = text("icon file");
    // A cyclic code has no inverted form, whatever the file says.
    if (rec.DayHrEvenOdd.IsCyclic()) rec.Invert = False;

    // From the first time line on, a read error is reported in the time array's words, for
    // the rest of the file.
    inTimeArray = true;
    for (int p = 0; p <= layout.lastPair; ++p) {
        const int k = PairIndex(i, p);
        const std::string pair = "time pair " + std::to_string(p + 1);
        reading = relay + pair + " start";
        s.frmRelay.StartTime[k] = in.ReadText();
        reading = relay + pair + " end";
        s.frmRelay.EndTime[k] = in.ReadText();
    }
}

void ShowReadError(System& s, const std::string& description, bool inTimeArray) {
    s.Message({description, Buttons::OK, Icon::Exclamation, 1,
               inTimeArray ? "Load Time Array Error" : "Error Reading Run File"});
}

// Reads what follows the version line. Returns a result code; read errors throw.
int ReadAfterVersion(System& s, FieldReader& in, bool& inTimeArray, std::string& reading) {
    const VersionPieces v = SplitVersionLine(s.modRelay.FileVersion);
    reading = "the sizes that the version line gives after its \"|\"";
    FileLayout layout;
    if (v.version == "FV20000424") {
        // No logging line, and no Count or HardStop in the blocks.
        layout.countAndHardStop = false;
    } else if (v.version == "FV.2001.02.29" || v.version == "FV.2001.04.15") {
        // Fixed bounds; whatever suffix the line has is ignored.
        reading = "the Logging flag";
        ApplyFileFlag(s.modRelay.LoggingOnOff, in.ReadNumber());
    } else if (v.version == "FV.2001.05.01") {
        ReadSuffixBounds(v, layout);
        reading = "the Logging flag";
        ApplyFileFlag(s.modRelay.LoggingOnOff, in.ReadNumber());
    } else if (v.version == "FV.9999.99.99") {
        s.Message({"Attempting to Load a file Version that does not exist yet", Buttons::OK,
                   Icon::Information, 1, "Select a Current File"});
        return RunFileFutureVersion;
    } else {
        s.Message({"File Load Version Error", Buttons::OK, Icon::Exclamation, 1,
                   "Select a Current File"});
        return RunFileUnknownVersion;
    }

    // The record and pair strides are this build's, whatever bounds the file states; the
    // extra lines of a file with larger bounds are not skipped.
    for (int b = 0; b <= layout.lastBoard; ++b) {
        if (in.AtEnd()) continue;
        for (int r = 0; r <= layout.lastRelay; ++r) {
            ReadRelayBlock(s, in, layout, RecordIndex(b, r), inTimeArray, reading);
        }
    }
    return RunFileLoaded;
}

// The days off and pauses after the relay blocks, when the file has them. A section that does
// not read whole is dropped with a message; the schedule stays loaded.
void ReadHoldsAfterBlocks(System& s, FieldReader& in) {
    try {
        if (!in.AtEnd()) ReadHoldsSection(in, s.frmRelay.Holds);
    } catch (const FieldReadError& e) {
        s.frmRelay.Holds = ScheduleHolds{};
        s.Message({std::string("The days off and pauses at the end of the file could not be "
                               "read (line ") +
                       std::to_string(in.FieldLine()) + ": " + e.what() +
                       "). The schedule is loaded without them.",
                   Buttons::OK, Icon::Exclamation, 1, "Error Reading Run File"});
    }
}

}  // namespace

std::string ConvertOldEvenOddCode(const std::string& code) {
    if (code == "CO") return "TH";
    if (code == "MO" || code == "MM") return "MH";
    if (code == "FO") return "BH";
    return code;
}

int LoadRunFile(System& s, const std::string& Path, const std::string& FileName, bool ShowOpenError,
                RunFileLoadProblem* problem) {
    RunFileLoadProblem found;
    std::string openError;
    const int fd = OpenForInput(Path + FileName, openError, found.OpenErrno);
    if (fd < 0) {
        if (ShowOpenError) {
            s.Message({openError, Buttons::OK, Icon::Exclamation, 1, "Open Run File Error"});
        }
        found.Result = RunFileOpenFailed;
        if (problem) *problem = found;
        return RunFileOpenFailed;
    }

    FieldReader in(fd, ReadEncoding(fd));
    bool inTimeArray = false;
    std::string reading = "the version line";
    int result;
    try {
        s.modRelay.FileVersion = in.ReadText();
        found.Version = s.modRelay.FileVersion;
        result = ReadAfterVersion(s, in, inTimeArray, reading);
    } catch (const FieldReadError& e) {
        ShowReadError(s, e.what(), inTimeArray);
        result = inTimeArray ? RunFileTimeArrayError : RunFileHeaderError;
        found.ReadError = e.what();
        found.Line = in.FieldLine();
        found.Field = reading;
    }
    if (result == RunFileLoaded) ReadHoldsAfterBlocks(s, in);
    ::close(fd);
    found.Result = result;
    if (problem) *problem = found;
    if (result == RunFileLoaded) BlankFieldsEntryWouldRefuse(s, Path + FileName);
    return result;
}

bool LoadRunFileCleanly(System& s, const std::string& Path, const std::string& FileName) {
    const bool deferring = s.deferBoxes;
    const size_t boxesBefore = s.deferredBoxes.size();
    s.deferBoxes = true;
    const bool loaded = LoadRunFile(s, Path, FileName, false) == RunFileLoaded;
    const bool clean = loaded && s.deferredBoxes.size() == boxesBefore;
    s.deferredBoxes.resize(boxesBefore);
    s.deferBoxes = deferring;
    return clean;
}

}  // namespace vantrellion

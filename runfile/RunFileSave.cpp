#include "runfile/RunFileSave.h"

#include <cstring>
#include <string_view>

#include "core/CheckTimeControl.h"
#include "core/ReplaceFile.h"
#include "core/TextEncoding.h"
#include "runfile/RunFileHolds.h"

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
    out += HoldsSectionLines(f.Holds);
    return image;
}

void ShowSaveError(System& s, const char* title, int error) {
    s.Message({std::strerror(error), Buttons::OK, Icon::Exclamation, 1, title});
}

// The file's bytes: Latin-1 when every character of the schedule fits, else UTF-8. The mark
// of the first time line moves with the encoding.
RunFileImage EncodeImage(const RunFileImage& text) {
    TextFileEncoding used;
    RunFileImage out;
    out.bytes = EncodeTextFileBytes(text.bytes, used);
    const std::string_view head(text.bytes.data(), text.firstTimeLine);
    out.firstTimeLine =
        used == TextFileEncoding::Latin1 ? EncodeTextFileBytes(head).size() : head.size();
    return out;
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
    // The reader ends a plain text at a comma and takes a leading double quote as the start of
    // a quoted text, so a text holding either is written in double quotes, each of its own
    // quotes doubled. Every other text goes out as it stands.
    if (text.find_first_of(",\"") == std::string::npos) return text + "\r\n";
    std::string line = "\"";
    for (char c : text) {
        if (c == '"') line += '"';
        line += c;
    }
    return line + "\"\r\n";
}

bool SaveRunFile(System& s, const std::string& Path, const std::string& FileName) {
    const CheckTimeHold hold(s);
    s.modRelay.FileVersion = ComposeFileVersion();
    const RunFileImage image = EncodeImage(BuildRunFile(s));

    // Written whole beside the old file and renamed over it: a kill or a power cut during the
    // save leaves the previous schedule, never an empty or short file.
    const FileWriteResult r = ReplaceFileContents(Path + FileName, image.bytes);
    switch (r.stage) {
        case FileWriteResult::Stage::Done:
            break;
        case FileWriteResult::Stage::Open:
            ShowSaveError(s, "Open File Error", r.error);
            break;
        case FileWriteResult::Stage::Write:
            ShowSaveError(s,
                          r.written < image.firstTimeLine ? "Error Writing Data File"
                                                          : "Error Writing Time Array",
                          r.error);
            break;
    }

    s.frmRelay.AutoRestarted = False;
    return r.stage == FileWriteResult::Stage::Done;
}

}  // namespace vantrellion

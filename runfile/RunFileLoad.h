// Reading a Run File into the schedule: every version the program has written.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Result codes of LoadRunFile.
inline constexpr int RunFileLoaded = 0;
inline constexpr int RunFileOpenFailed = 1;      // records untouched
inline constexpr int RunFileHeaderError = 2;     // read error before the first time line
inline constexpr int RunFileTimeArrayError = 3;  // read error from the first time line on
inline constexpr int RunFileUnknownVersion = 4;  // records untouched
inline constexpr int RunFileFutureVersion = 5;   // "FV.9999.99.99"; records untouched

// What a load met, for a report in plain words (RunFileProblemText).
struct RunFileLoadProblem {
    int Result = RunFileLoaded;
    int OpenErrno = 0;      // a failed open: the system's error number, 0 for no regular file
    std::string Version;    // the file's first line, when it could be read
    std::string ReadError;  // a read error: the reader's description ("Type mismatch")
    int Line = 0;           // the line (from 1) of the field that could not be read
    std::string Field;      // what that field holds: "relay 3's days of the week"
};

// Loads Path + FileName (joined as they stand: Path carries its trailing separator) into the
// relay records, StartTime, EndTime, LoggingOnOff and the days off and pauses that follow the
// relay blocks (RunFileHolds.h), and the file's first line into FileVersion. The caller runs
// ResetRelayRecords first, since older versions lack members, and copies the records to the screen
// afterwards. Shows its own message for every failure except a failed open with ShowOpenError
// false. Touches neither the screen nor the timer. When problem is given, it gets what the load
// met.
int LoadRunFile(System& s, const std::string& Path, const std::string& FileName, bool ShowOpenError,
                RunFileLoadProblem* problem = nullptr);

// LoadRunFile without a word to anyone: the loader's boxes are held back and dropped. True
// when the file loaded and raised no box at all (no field was blanked), so that a caller that
// reads a file unasked (at a start, or a file another program writes) can tell it in its own
// words, or try again later.
bool LoadRunFileCleanly(System& s, const std::string& Path, const std::string& FileName);

// The old even/odd codes and what they mean now: "CO" to "TH", "MO" and "MM" to "MH", "FO" to
// "BH". Any other code is returned as it is.
std::string ConvertOldEvenOddCode(const std::string& code);

}  // namespace vantrellion

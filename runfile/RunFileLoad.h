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

// Loads Path + FileName (joined as they stand: Path carries its trailing separator) into the
// relay records, StartTime, EndTime and LoggingOnOff, and the file's first line into
// FileVersion. The caller runs ResetRelayRecords first, since older versions lack members, and
// copies the records to the screen afterwards. Shows its own message for every failure except
// a failed open with ShowOpenError false. Touches neither the screen nor the timer.
int LoadRunFile(System& s, const std::string& Path, const std::string& FileName,
                bool ShowOpenError);

// The old even/odd codes and what they mean now: "CO" to "TH", "MO" and "MM" to "MH", "FO" to
// "BH". Any other code is returned as it is.
std::string ConvertOldEvenOddCode(const std::string& code);

}  // namespace vantrellion

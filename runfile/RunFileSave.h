// Writing the schedule to a Run File in the current layout.
#pragma once

#include <cstdint>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Writes the version line, the logging flag, one block per relay and, when there are any, the
// days off and pauses (RunFileHolds.h) to Path + FileName (joined as they stand), replacing
// the file's contents whole (see ReplaceFileContents): the texts in Latin-1 when every
// character fits, else the whole file in UTF-8. Holds tmrCheckTime off while it writes and
// ends, on every path, by clearing AutoRestarted and running ResumeCheckTime.
// True when the whole file was written; a failure shows its message ("Open File Error",
// "Error Writing Data File", "Error Writing Time Array") and leaves the schedule as it was.
bool SaveRunFile(System& s, const std::string& Path, const std::string& FileName);

// The lines of a Run File, each with its CR LF.
// A number in the numeric-print form: " 1 ", "-1 ", " 0 ".
std::string RunFileNumberLine(int16_t value);
// A flag as a number: 1 for true (-1), 0 for anything else.
std::string RunFileFlagLine(Flag value);
// A text as it stands; one that holds a comma or a double quote in double quotes, its own
// quotes doubled, so that it reads back whole.
std::string RunFileTextLine(const std::string& text);

}  // namespace vantrellion

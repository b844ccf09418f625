// The restart file: a complete Run File under a fixed name in the machine directory, written
// after every change of the schedule and removed by a clean exit. A start that finds it knows
// the last run did not end in order, and takes the schedule back from it.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// The restart file's name. Its directory is s.platform.machineDirectory; the two are always
// passed separately, as path and name.
inline constexpr const char* RestartFileName = "VantrellionRestart.run";

// Loads the restart file, silently when there is none. True when it loaded; the log then gets
// the "ReStart" event. The caller (start-up) sets AutoRestarted on true. A file that exists
// but cannot be read shows the load's messages and leaves whatever part was read.
bool TryCrashRestart(System& s);

// Writes the restart file after an accepted change, unless writing has failed before
// (RestartDisabled). A failure shows the save's message, then ShowRestartFileError, and
// disables further attempts. AutoRestarted is kept as it was.
void SaveRestartFile(System& s);

// Deletes Path + FileName if it can be opened; a missing file and any failure stay silent.
void RemoveRestartFile(System& s, const std::string& Path, const std::string& FileName);

// "Restart Capability will be Disabled".
void ShowRestartFileError(System& s);

}  // namespace vantrellion

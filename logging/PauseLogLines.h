// The event lines of a pause, written when a pause starts and when it ends, and read back by
// the run-time history:
//   "Pause"  "Relay 3 paused until 2026-06-22 18:00:00 \"Fan\""
//   "Resume" "Relay 3 follows its schedule again \"Fan\""
//   "Resume" "Relay 3 pause ended early \"Fan\""
// The relay is the record index plus 1; the name comes last, so that it may hold anything.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* PauseEventWord = "Pause";
inline constexpr const char* ResumeEventWord = "Resume";

std::string PauseStartText(int record, LocalSeconds until, const std::string& name);
std::string PauseEndText(int record, bool early, const std::string& name);

// Writes the start or end line of relay i's pause (when logging is on).
void LogPauseStart(System& s, int record, LocalSeconds until);
void LogPauseEnd(System& s, int record, bool early);

struct PauseLogEntry {
    bool Start = false;
    int Record = 0;
    LocalSeconds Until = 0;  // a start's end time
};

// The entry that an event line's two texts hold, if they are a pause's.
std::optional<PauseLogEntry> ParsePauseEvent(std::string_view first, std::string_view second);

}  // namespace vantrellion

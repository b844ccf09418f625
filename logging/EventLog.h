// Event lines of the log: a Run File opened or saved, a restart after a crash.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// When logging is on (LoggingOnOff exactly -1), appends
// "HH:MM:SS <short date> <firstText> <secondText>" to today's log, with tmrCheckTime held
// off meanwhile. File errors lose the line silently.
void WriteEventLog(System& s, const std::string& firstText, const std::string& secondText);

// The line itself, without its CR LF.
std::string EventLogLine(const DateTime& now, const std::string& shortDate,
                         const std::string& firstText, const std::string& secondText);

}  // namespace vantrellion

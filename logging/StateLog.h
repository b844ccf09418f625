// The once-a-minute state line of the log.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Called by the tick with the texts of the state menus. When logging is on (LoggingOnOff
// exactly -1) and the minute number differs from LastLogMinute, stores the minute and appends
// the state line to today's log; file errors lose the line silently.
void WriteStateLog(System& s, const PortTexts& relayTexts, const PortTexts& inputTexts);

// "14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I ": the time, the relay text of every board
// with LogBoard on, "R><I", the input text of every such board that has an InputAddress, and
// "I " (without CR LF).
std::string StateLogLine(const System& s, const DateTime& now, const PortTexts& relayTexts,
                         const PortTexts& inputTexts);

}  // namespace vantrellion

// The service's messages on stderr, one line each, with the syslog priority in front
// ("<3>" error, "<4>" warning, "<6>" information) so that journald keeps their levels.
#pragma once

#include <string>

#include "core/Platform.h"

namespace vantrellion {

inline constexpr int PriorityError = 3;
inline constexpr int PriorityWarning = 4;
inline constexpr int PriorityInfo = 6;

// The text as one line: its line breaks become blanks, runs of them one.
std::string OneLine(const std::string& text);

// Writes "<priority>text" and a line end to stderr.
void ServiceMessage(int priority, const std::string& text);

// The priority of a box by its icon: critical an error, exclamation a warning, else
// information.
int BoxPriority(Icon icon);

}  // namespace vantrellion

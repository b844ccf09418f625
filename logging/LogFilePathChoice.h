// What the log directory chooser frmLogFilePath does with the shared state: where it opens,
// and what its Select stores.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// LogFilePath, or the user's documents folder when no log directory is set.
std::string LogFilePathStartDirectory(System& s);

// cmdSelect: a chosen directory becomes LogFilePath, with a closing "/" so that the log
// writer's plain joining of path and name gives a valid file name. An empty choice changes
// nothing.
void SelectLogFilePath(System& s, const std::string& chosenPath);

}  // namespace vantrellion

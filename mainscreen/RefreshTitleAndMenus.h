#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// The one place that derives the title, the menu states and the read-outs from the shared
// state. It also holds the emulation rule: without any board address the program runs in
// emulation, whatever the flag says.
void RefreshTitleAndMenus(System& s);

// The title bar: the restart text, the Run File's path and name, or "New".
std::string MainScreenTitle(const System& s);

}  // namespace vantrellion

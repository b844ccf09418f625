// The main screen's resize event: the rows and their texts scale with the window, with the tick
// held off and the busy pointer up while the controls move.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Does nothing while the screen loads (ResizeReady false) or when it is minimised. The first
// resize is the one of showing the screen; any later one is the user's, and a screen that the
// user has resized no longer stores its place at exit.
void Form_Resize(System& s);

}  // namespace vantrellion

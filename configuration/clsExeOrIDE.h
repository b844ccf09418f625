// clsExeOrIDE: whether the program runs as a development build. On this platform that is a
// build switch: the CMake option VANTRELLION_DEV_MENU=ON defines VANTRELLION_DEV_MENU for the
// core and the desktop layer, and such a build counts as running in its development host. It
// shows the developer menu; a delivered build never does.
#pragma once

#include "core/Flags.h"

namespace vantrellion {

Flag RunningInIDE();
// Exactly the opposite of RunningInIDE.
Flag RunningInEXE();

}  // namespace vantrellion

// No exception ever crosses Qt: every event handler that calls into the core runs through one
// of these.
#pragma once

#include <functional>

#include "core/SharedState.h"

namespace vantrellion {

// For the tick and start-up: an error ends the program. One box with the error's description
// and number, then the process ends without the clean-exit path, so the restart file stays.
void RunOrEnd(System& s, const std::function<void()>& handler);

// For the commands of the main screen: an unexpected error is shown by
// ErrorMsgbox_DefaultError and the program goes on.
void RunCommand(System& s, const std::function<void()>& handler);

}  // namespace vantrellion

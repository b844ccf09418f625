// The pause of the relay commands: a modal box that holds everything until the user presses OK.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// The title of the pause box: "System is Paused (All board <board> Relays are <stateWord>)".
std::string PauseTitle(int board, const std::string& stateWord);

// Shows "When you are ready to Continue, press 'OK' " with only an OK button, under
// PauseTitle, and waits for the user. The board number is shown as the caller gives it.
void PauseMessage(System& s, int board, const std::string& stateWord);

}  // namespace vantrellion

// The boards' connection texts between the store and the board set.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// The message for a connection text that cannot be used.
std::string BoardConnectionMessage(int board, const std::string& text, const std::string& problem);

// Gives the board set every driven board's connection text from the store. A malformed text
// gets its message, and the board runs emulated; nothing is written back to the store.
void LoadBoardConnections(System& s);

// Stores a board's connection text as the user entered it and hands it to the board set. A
// malformed text is told and not stored; "" removes the value, back to the port library at the
// board's addresses. False when the text was refused.
bool SaveBoardConnection(System& s, int board, const std::string& text);

}  // namespace vantrellion

// A lasting mark for a controller that drives nothing: while real boards are wanted (no
// emulation) and not one board is driven, because the port space cannot be reached, every
// kept-open board has lost contact or its connection text is not valid, panel 1 of the status
// bar says so in the no-contact colour. It goes as soon as a board is driven again.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* NoBoardDrivenMark = "No board is driven";

// Sets or clears the mark; the panel is written only when the mark changes.
void ShowBoardMark(System& s);

}  // namespace vantrellion

#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Panel 5 of StatusBar1: "> text <" large and bold, or cleared for an empty text. Silent
// while the rows are being refilled.
void ShowStatusHint(System& s, const std::string& text);

}  // namespace vantrellion

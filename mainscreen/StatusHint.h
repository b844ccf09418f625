#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Panel 5 of StatusBar1: "> text <" large and bold, or cleared for an empty text. Silent
// while the rows are being refilled.
void ShowStatusHint(System& s, const std::string& text);

// The point sizes of panel 5: a hint bold in the larger one, an empty panel in the smaller.
inline constexpr int StatusHintPoints = 11;
inline constexpr int StatusPlainPoints = 8;

}  // namespace vantrellion

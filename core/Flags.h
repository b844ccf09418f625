// 16-bit flags of the system: true is -1, false is 0. Sites test either for exactly -1
// or for non-zero, and each site's choice is part of its behaviour, so the raw value is kept.
#pragma once

#include <cstdint>

namespace vantrellion {

using Flag = int16_t;
inline constexpr Flag True = -1;
inline constexpr Flag False = 0;

inline constexpr Flag ToFlag(bool b) {
    return b ? True : False;
}

// Colours are 32-bit numbers: blue in the high byte, then green, then red.
using Color = int32_t;
// A background that is not set: the control shows its window's own colour.
inline constexpr Color DefaultBackColor = -1;
inline constexpr Color Rgb(int r, int g, int b) {
    return r | (g << 8) | (b << 16);
}
// The system's window background, the colour of a text field that nothing has coloured: a
// system colour, with the high bit set, which no colour of the configuration can be.
inline constexpr Color WindowBackground = static_cast<Color>(0x80000005u);

}  // namespace vantrellion

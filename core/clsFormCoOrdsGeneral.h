// Reads or writes one window's place and size in the store: one text "Left,Top,Width,Height"
// per window, named by the window, under keyPath\section of a root. Nothing is ever reported:
// a failed read falls back to the default text, a failed write is lost.
#pragma once

#include <string>

#include "core/FormWindow.h"
#include "core/KeyValueBackend.h"
#include "core/SharedState.h"

namespace vantrellion {

// A single-precision number as it is printed by default: up to seven significant digits, no
// trailing zeros, an exponent only for very large or small numbers ("1560", "5512.5").
std::string SingleText(float v);

// verb "Get" (any case) reads and applies the stored text, or defaultText when there is none;
// any other verb stores the window's present numbers. A minimised or maximised window is left
// alone. An empty keyPath stands for the program's name, an empty section for "Startup".
// Always False.
Flag FormCoOrdsGeneral(System& s, FormWindow& form, std::string verb, RegRoot hive,
                       std::string keyPath, std::string section, const std::string& defaultText);

}  // namespace vantrellion

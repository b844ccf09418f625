// The submenu "Run when Computer Boots (Starts)" of the Tools menu: Next Time, Always, Never.
#pragma once

#include "core/SharedState.h"
#include "desktop/frmRelay.h"

namespace vantrellion {

// Wires the three commands with their check marks, which start unset whatever entries stand.
// Ties the start-up lists to this session's autostart folders unless the System names its own.
void WireRunOnBootMenu(frmRelay& w, System& s);

}  // namespace vantrellion

// The submenu "Run when Computer Boots (Starts)" of the Tools menu: Next Time, Always, Never.
#pragma once

#include "configuration/ServiceManager.h"
#include "core/SharedState.h"
#include "desktop/frmRelay.h"

namespace vantrellion {

// Wires the three commands with their check marks, which start unset whatever entries stand.
// Ties the start-up lists to this session's autostart folders unless the System names its own.
// "Run as a Service (no login needed)" runs systemctl and loginctl through manager.
void WireRunOnBootMenu(frmRelay& w, System& s, ServiceManager& manager);

}  // namespace vantrellion

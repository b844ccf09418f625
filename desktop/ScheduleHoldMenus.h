// The entries of the States/Inputs menu for days off and pauses: "Days Off...",
// "Pause Schedule..." and "End Pause".
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class frmRelay;

void WireScheduleHoldMenus(System& s, frmRelay& w);

}  // namespace vantrellion

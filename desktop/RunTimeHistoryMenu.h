// The Tool menu's entry for the run-time history window.
#pragma once

#include "core/SharedState.h"
#include "desktop/frmRelay.h"

namespace vantrellion {

// Adds "Run-time History..." (mnuToolRunTimeHistory) at the end of the Tool menu, right after
// "Schedule Preview..." when that is the last entry and after a separator otherwise. The entry
// opens frmRunTimeHistory, or brings the open one to the front.
void AddRunTimeHistoryMenu(frmRelay& w, System& s);

}  // namespace vantrellion

// The Tool menu's "Schedule Preview..." entry.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class frmRelay;

// Opens the preview window for the schedule on the main screen: one window at a time, brought
// to the front when already open. It is not modal and leaves the tick running.
void WireSchedulePreviewMenu(System& s, frmRelay& w);

}  // namespace vantrellion
